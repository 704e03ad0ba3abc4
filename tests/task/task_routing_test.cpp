#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "boundary/string_adapter.h"
#include "report_query.h"
#include "slot_plugin.h"
#include "task_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::StringArrayView;
using zqtest::callLog;
using zqvorexRedir::Task;

const std::vector<std::string> kOneChannel{"Dev1/ai0"};

constexpr int32_t kNotCommitted = nZQMESL::kInternalErrorDebugConfigurationNotCommitted;
constexpr int32_t kNotSupported = nZQMSTS::kErrorAttributeNotSupportedInTaskContext;

struct UnboundCase {
  const char* name;
  zqtest::TaskOp<Task> run;
  double value;
  int32_t code;
};

TEST(TaskAttributesUnbound, TheTwoFixedIdsAnswerAndOtherOperationsOfClassTaskAreNotSupported) {
  const UnboundCase cases[] = {
      {"get i32 12697", [](Task& t, zqerr_Status* s) { return t.getTaskAttributeI32(12697, s); }, 1, 0},
      {"get i32 12698", [](Task& t, zqerr_Status* s) { return t.getTaskAttributeI32(12698, s); }, 0, 0},
      {"get i32 12699", [](Task& t, zqerr_Status* s) { return t.getTaskAttributeI32(12699, s); }, 0, kNotSupported},
      {"get i32 of the name", [](Task& t, zqerr_Status* s) { return t.getTaskAttributeI32(4726, s); }, 0, kNotSupported},
      {"get bool", [](Task& t, zqerr_Status* s) { return t.getTaskAttributeBool(4000, s); }, 0, kNotSupported},
      {"get u32", [](Task& t, zqerr_Status* s) { return t.getTaskAttributeU32(12697, s); }, 0, kNotSupported},
      {"get string",
       [](Task& t, zqerr_Status* s) {
         std::string text;
         zqgopher::StringAdapter out(text);
         t.getTaskAttributeString(4727, out.boundary(), s);
       },
       0, kNotSupported},
      {"set bool", [](Task& t, zqerr_Status* s) { t.setTaskAttributeBool(4000, 1, s); }, 0, kNotSupported},
      {"set string", [](Task& t, zqerr_Status* s) { t.setTaskAttributeString(4000, "x", s); }, 0, kNotSupported},
      {"reset i32", [](Task& t, zqerr_Status* s) { t.resetTaskAttributeI32(4000, s); }, 0, kNotSupported},
      {"reset bool of a session id", [](Task& t, zqerr_Status* s) { t.resetTaskAttributeBool(12706, s); }, 0,
       kNotSupported},
  };
  for (const UnboundCase& c : cases) {
    auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
    zqerr::Status status;
    EXPECT_EQ(c.run(*task, &status), c.value) << c.name;
    EXPECT_EQ(status.code, c.code) << c.name;
    EXPECT_EQ(zqtest::reportAt(status.report, {"error_constant"}),
              c.code ? "nZQMSTS::kErrorAttributeNotSupportedInTaskContext" : zqtest::kAbsent)
        << c.name;
  }
}

class TaskName : public ::testing::TestWithParam<bool> {};

TEST_P(TaskName, IsAnsweredByTheTaskAndNeverByThePlugin) {
  callLog().clear();
  auto manager = std::make_shared<zqtest::CountingPluginManager>();
  auto task = zqtest::makeTask(manager, "Flow Meter");
  if (GetParam()) zqtest::bindTask(*task, zqtest::makeSlotPlugin(), zqtest::slotContextHandle(), zqtest::slotTaskHandle());
  std::string text;
  zqgopher::StringAdapter out(text);
  zqerr::Status status;
  task->getTaskAttributeString(4726, out.boundary(), &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(text, "Flow Meter");
  task->getTaskAttributeString(4726, nullptr, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_TRUE(callLog().empty());
  EXPECT_EQ(manager->requests, 0);
}

INSTANTIATE_TEST_SUITE_P(BoundOrNot, TaskName, ::testing::Bool());

TEST(TaskAttributesBound, OtherIdsOfClassTaskGoToThePlugin) {
  auto task = zqtest::makeBoundTask();
  zqerr::Status status;
  EXPECT_EQ(task->getTaskAttributeI32(12697, &status), 77);
  std::string text;
  zqgopher::StringAdapter out(text);
  task->getTaskAttributeString(4727, out.boundary(), &status);
  EXPECT_EQ(text, "from plug-in");
  task->setTaskAttributeBool(4000, 1, &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(callLog(), (std::vector<std::string>{"getTaskAttributeI32:task:12697", "getTaskAttributeString:task:4727",
                                                 "setTaskAttributeBool:task:4000:1"}));
}

TEST(DebugSession, AnOpenSessionRefusesForwardedOperationsButStillAnswersItsRecord) {
  auto task = zqtest::makeBoundTask();
  zqerr::Status status;
  task->setTaskAttributeBool(12705, 1, &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(task->getChannelAttributeF64(StringArrayView(kOneChannel), 6, &status), 0.0);
  EXPECT_EQ(status.code, kNotCommitted);
  EXPECT_EQ(zqtest::reportAt(status.report, {"error_constant"}),
            "nZQMESL::kInternalErrorDebugConfigurationNotCommitted");
  zqerr::Status again;
  task->getTaskAttributeI32(4000, &again);
  EXPECT_EQ(again.code, kNotCommitted);
  zqerr::Status record;
  EXPECT_EQ(task->getTaskAttributeBool(12705, &record), 1u);
  task->setTaskAttributeI32(12706, 3, &record);
  EXPECT_EQ(task->getTaskAttributeI32(12706, &record), 3);
  EXPECT_EQ(record.code, 0);
  EXPECT_TRUE(callLog().empty());
  EXPECT_EQ(task->lockDepth(), 0);
}

struct AfterCommitCase {
  uint32_t value;
  int32_t code;
};

TEST(DebugSession, CommitMakesTheSessionTaskAndFreezesTheRecord) {
  const AfterCommitCase cases[] = {{1, 0}, {0, nZQMESL::kInternalErrorCannotSetPropertyWhenDebugSessionCommitted}};
  for (const AfterCommitCase& c : cases) {
    callLog().clear();
    auto manager = std::make_shared<zqtest::CountingPluginManager>(zqtest::makeSlotPlugin());
    auto task = zqtest::makeTask(manager, "Session");
    zqerr::Status status;
    task->setTaskAttributeBool(12705, 1, &status);
    task->commitDebugSession(&status);
    ASSERT_EQ(status.code, 0);
    EXPECT_EQ(manager->lastName, "zqvorexDebug");
    ASSERT_GE(callLog().size(), 2u);
    EXPECT_EQ(callLog().front(), "createDebugSession:Session");
    EXPECT_EQ(callLog().back(), "commitDebugSession:task");
    // Forwarded operations pass from now on.
    EXPECT_EQ(task->getChannelAttributeF64(StringArrayView(kOneChannel), 6, &status), 2.5);
    EXPECT_EQ(status.code, 0);
    zqerr::Status set;
    task->setTaskAttributeBool(12705, c.value, &set);
    EXPECT_EQ(set.code, c.code) << c.value;
    callLog().clear();
    task.reset();
    EXPECT_EQ(callLog(), (std::vector<std::string>{"destroyDebugSession:task"}));
  }
}

TEST(DebugSession, AFailedCommitTakesBackTheSessionTask) {
  callLog().clear();
  auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>(zqtest::makeSlotPlugin()), "S");
  zqerr::Status status;
  task->setTaskAttributeBool(12705, 1, &status);
  zqtest::failSlotCalls("commitDebugSession", -223800);
  task->commitDebugSession(&status);
  zqtest::clearSlotFailures();
  EXPECT_EQ(status.code, -223800);
  EXPECT_FALSE(task->hasPluginTask());
  EXPECT_EQ(callLog().back(), "destroyDebugSession:task");
  zqerr::Status refused;
  task->isTaskDone(&refused);
  EXPECT_EQ(refused.code, kNotCommitted);
}

TEST(DebugSession, CommitWithoutASessionIsASoftwareFault) {
  auto manager = std::make_shared<zqtest::CountingPluginManager>(zqtest::makeSlotPlugin());
  auto task = zqtest::makeTask(manager);
  zqerr::Status status;
  task->commitDebugSession(&status);
  EXPECT_EQ(status.code, zqpalerr_softwareFault);
  EXPECT_EQ(manager->requests, 0);
}

}  // namespace
