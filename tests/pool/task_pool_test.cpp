#include "test_sites.h"
#include "pool/task_pool.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "recording_task.h"
#include "zqvorex_status_codes.h"

namespace {

using nZQCAI100::TaskPool;
using nZQCAI100::TaskRef;
using zqtest::RecordingTask;

constexpr int32_t kInvalid = nZQMSTS::kErrorInvalidTask;
constexpr int32_t kDuplicate = nZQMSTS::kErrorDuplicateTask;

TaskRef makeTask(const std::string& name) { return RecordingTask::create(name); }

class Pool : public testing::Test {
 protected:
  int32_t add(const TaskRef& task) {
    zqerr::Status status;
    pool_.addTask(task, &status);
    return status.code;
  }
  int32_t remove(const TaskRef& task) {
    zqerr::Status status;
    pool_.removeTask(task, &status);
    return status.code;
  }
  bool holds(const TaskRef& task) { return pool_.findTask(task.get()) == task; }

  zqerr::Status built_;
  TaskPool pool_{&built_};
};

// --- names --------------------------------------------------------------------------------------

struct NamePair {
  const char* label;
  const char* first;
  const char* second;
  int32_t code;
};

const NamePair kNamePairs[] = {
    {"case_differs", "task1", "Task1", kDuplicate},
    {"identical", "Task1", "Task1", kDuplicate},
    {"non_ascii_case_differs", "\xC3\xA9t\xC3\xA9", "\xC3\x89T\xC3\x89", kDuplicate},
    {"sharp_s_against_ss", "stra\xC3\x9F" "e", "STRASSE", kDuplicate},
    {"empty_names", "", "", kDuplicate},
    {"greek_case_is_not_folded", "\xCE\xB1", "\xCE\x91", 0},
    {"different", "Task1", "Task2", 0},
};

class NameRule : public Pool, public testing::WithParamInterface<NamePair> {};

TEST_P(NameRule, SecondTaskEntersOnlyUnderAFreshName) {
  const NamePair& c = GetParam();
  TaskRef first = makeTask(c.first), second = makeTask(c.second);
  ASSERT_EQ(add(first), 0);
  EXPECT_EQ(add(second), c.code);
  EXPECT_EQ(holds(second), c.code == 0);
  EXPECT_TRUE(holds(first));
  if (c.code == 0) return;
  EXPECT_EQ(second.use_count(), 1) << "the refused task holds no reference from the pool";
  EXPECT_EQ(first.use_count(), 3) << "the first task keeps both its entries";
  EXPECT_EQ(remove(first), 0);
  EXPECT_EQ(add(second), 0) << "the name is free again";
}

INSTANTIATE_TEST_SUITE_P(Names, NameRule, testing::ValuesIn(kNamePairs),
                         [](const auto& info) { return std::string(info.param.label); });

TEST_F(Pool, SameTaskTwiceKeepsTheFirstEntryInBothMaps) {
  TaskRef task = makeTask("Task1");
  ASSERT_EQ(add(task), 0);
  EXPECT_EQ(add(task), kDuplicate);
  EXPECT_TRUE(holds(task));
  EXPECT_EQ(add(makeTask("TASK1")), kDuplicate) << "the name entry stayed";
  EXPECT_EQ(task.use_count(), 3);
}

TEST_F(Pool, SameObjectUnderANewNameIsRefusedWithoutLeavingTheName) {
  auto task = RecordingTask::create("First");
  ASSERT_EQ(add(task), 0);
  task->setName("Second");
  EXPECT_EQ(add(task), kDuplicate);
  EXPECT_EQ(task.use_count(), 3) << "only the first entries hold it";
  EXPECT_EQ(add(makeTask("SECOND")), 0) << "the refused name was taken out again";
}

TEST_F(Pool, TaskKnownToOneMapIsRemovedWithoutComplaint) {
  auto task = RecordingTask::create("Before");
  ASSERT_EQ(add(task), 0);
  task->setName("After");
  EXPECT_EQ(remove(task), 0);
  EXPECT_FALSE(holds(task));
}

// --- lookups ---------------------------------------------------------------------------------------

TEST_F(Pool, LookupsOfAnUnknownHandle) {
  TaskRef pooled = makeTask("pooled"), stranger = makeTask("stranger");
  ASSERT_EQ(add(pooled), 0);
  EXPECT_EQ(pool_.findTask(stranger.get()), nullptr);
  EXPECT_EQ(pool_.findTask(nullptr), nullptr);

  // getTask's refusal is the clear's of an unknown handle (tests/hostile, ClearedHandle).
  zqerr::Status intoStatus;
  TaskRef into = pooled;
  pool_.getTaskInto(stranger.get(), &into, &intoStatus);
  EXPECT_EQ(into, nullptr);
  EXPECT_EQ(intoStatus.code, kInvalid);

  zqerr::Status found;
  EXPECT_EQ(pool_.getTask(pooled.get(), &found), pooled);
  pool_.getTaskInto(pooled.get(), &into, &found);
  EXPECT_EQ(into, pooled);
  EXPECT_EQ(found.code, 0);
}

TEST_F(Pool, LookupsWithAFailedStatusGiveNothing) {
  TaskRef task = makeTask("pooled");
  ASSERT_EQ(add(task), 0);
  zqerr::Status status;
  ZQ_TEST_FAIL(&status, -1, "earlier", 1);
  EXPECT_EQ(pool_.getTask(task.get(), &status), nullptr);
  TaskRef into;
  pool_.getTaskInto(task.get(), &into, &status);
  EXPECT_EQ(into, nullptr);
  EXPECT_EQ(status.code, -1);
}

// --- the argument and the entry status --------------------------------------------------------------

using Operation = void (TaskPool::*)(TaskRef, zqerr_Status*);

struct ArgumentCase {
  const char* label;
  Operation operation;
  bool failedAtEntry;
  int32_t code;
};

const ArgumentCase kArguments[] = {
    {"add_with_failed_status", &TaskPool::addTask, true, -1},
    {"remove_with_failed_status", &TaskPool::removeTask, true, -1},
    {"add_refused_as_duplicate", &TaskPool::addTask, false, kDuplicate},
    {"remove_of_unknown_task", &TaskPool::removeTask, false, kInvalid},
};

class Argument : public Pool, public testing::WithParamInterface<ArgumentCase> {};

TEST_P(Argument, IsReleasedBeforeTheCallReturns) {
  const ArgumentCase& c = GetParam();
  TaskRef resident = makeTask("resident");
  ASSERT_EQ(add(resident), 0);
  zqerr::Status status;
  if (c.failedAtEntry) ZQ_TEST_FAIL(&status, -1, "earlier", 1);
  TaskRef task = c.code == kDuplicate ? resident : makeTask("passing");
  const long before = task.use_count();
  // The parameter object lives to the end of the full expression; the pool must have let its
  // reference go already, so the count read inside that expression is the count before.
  const long during = ((pool_.*c.operation)(TaskRef(task), &status), task.use_count());
  EXPECT_EQ(during, before);
  EXPECT_EQ(status.code, c.code);
  EXPECT_TRUE(holds(resident)) << "the pool is as it was";
  EXPECT_EQ(resident.use_count(), c.code == kDuplicate ? 4 : 3);
}

INSTANTIATE_TEST_SUITE_P(Cases, Argument, testing::ValuesIn(kArguments),
                         [](const auto& info) { return std::string(info.param.label); });

TEST_F(Pool, NullTaskIsInvalid) {
  const Operation operations[] = {&TaskPool::addTask, &TaskPool::removeTask};
  for (Operation operation : operations) {
    zqerr::Status status;
    (pool_.*operation)(nullptr, &status);
    EXPECT_EQ(status.code, kInvalid);
  }
}

TEST(PoolBuild, FailedStatusMakesNoMaps) {
  zqerr::Status status;
  ZQ_TEST_FAIL(&status, -1, "earlier", 1);
  TaskPool pool(&status);
  TaskRef task = makeTask("x");
  zqerr::Status call;
  pool.addTask(task, &call);
  EXPECT_EQ(pool.findTask(task.get()), nullptr);
  EXPECT_EQ(task.use_count(), 1);
}

}  // namespace
