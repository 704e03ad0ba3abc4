#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "boundary/string_adapter.h"
#include "report_query.h"
#include "slot_plugin.h"
#include "task_fixture.h"

namespace {

using zqgopher::StringArrayView;
using zqtest::callLog;
using zqvorexRedir::Task;

const std::vector<std::string> kOneChannel{"Dev1/ai0"};

struct UnboundI32Case {
  int32_t id;
  int32_t value;
  int32_t code;
};

TEST(TaskAttributesUnbound, TheTwoFixedIdsAnswerAndOthersAreNotSupported) {
  const UnboundI32Case cases[] = {{12697, 1, 0}, {12698, 0, 0}, {12699, 0, -200452}, {4726, 0, -200452}};
  for (const UnboundI32Case& c : cases) {
    auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
    zqerr::Status status;
    EXPECT_EQ(task->getTaskAttributeI32(c.id, &status), c.value) << c.id;
    EXPECT_EQ(status.code, c.code) << c.id;
  }
}

TEST(TaskAttributesUnbound, OtherOperationsOfClassTaskAreNotSupported) {
  const std::vector<std::pair<const char*, std::function<void(Task&, zqerr_Status*)>>> cases = {
      {"get bool", [](Task& t, zqerr_Status* s) { t.getTaskAttributeBool(4000, s); }},
      {"get u32", [](Task& t, zqerr_Status* s) { t.getTaskAttributeU32(12697, s); }},
      {"get string", [](Task& t, zqerr_Status* s) {
         std::string text;
         zqgopher::StringAdapter out(text);
         t.getTaskAttributeString(4727, out.boundary(), s);
       }},
      {"set bool", [](Task& t, zqerr_Status* s) { t.setTaskAttributeBool(4000, 1, s); }},
      {"set string", [](Task& t, zqerr_Status* s) { t.setTaskAttributeString(4000, "x", s); }},
      {"reset i32", [](Task& t, zqerr_Status* s) { t.resetTaskAttributeI32(4000, s); }},
      {"reset bool of a session value id", [](Task& t, zqerr_Status* s) { t.resetTaskAttributeBool(12706, s); }},
  };
  for (const auto& [name, run] : cases) {
    auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
    zqerr::Status status;
    run(*task, &status);
    EXPECT_EQ(status.code, -200452) << name;
    EXPECT_EQ(zqtest::reportAt(status.report, {"error_constant"}), "nZQMSTS::kErrorAttributeNotSupportedInTaskContext")
        << name;
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
  EXPECT_EQ(status.code, -52005);
  EXPECT_TRUE(callLog().empty());
  EXPECT_EQ(manager->requests, 0);
}

INSTANTIATE_TEST_SUITE_P(BoundOrNot, TaskName, ::testing::Bool());

TEST(TaskAttributesBound, OtherIdsOfClassTaskGoToThePlugin) {
  callLog().clear();
  auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
  zqtest::bindTask(*task, zqtest::makeSlotPlugin(), zqtest::slotContextHandle(), zqtest::slotTaskHandle());
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
  callLog().clear();
  auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
  zqtest::bindTask(*task, zqtest::makeSlotPlugin(), zqtest::slotContextHandle(), zqtest::slotTaskHandle());
  zqerr::Status status;
  task->setTaskAttributeBool(12705, 1, &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(task->getChannelAttributeF64(StringArrayView(kOneChannel), 6, &status), 0.0);
  EXPECT_EQ(status.code, -223804);
  EXPECT_EQ(zqtest::reportAt(status.report, {"error_constant"}),
            "nZQMESL::kInternalErrorDebugConfigurationNotCommitted");
  zqerr::Status again;
  task->getTaskAttributeI32(4000, &again);
  EXPECT_EQ(again.code, -223804);
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
  const AfterCommitCase cases[] = {{1, 0}, {0, -223841}};
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
  EXPECT_EQ(refused.code, -223804);
}

TEST(DebugSession, CommitWithoutASessionIsASoftwareFault) {
  auto manager = std::make_shared<zqtest::CountingPluginManager>(zqtest::makeSlotPlugin());
  auto task = zqtest::makeTask(manager);
  zqerr::Status status;
  task->commitDebugSession(&status);
  EXPECT_EQ(status.code, -50150);
  EXPECT_EQ(manager->requests, 0);
}

}  // namespace
