#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "fake_debug_target.h"
#include "slot_plugin.h"
#include "task_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::StringArrayView;
using zqtest::callLog;
using zqvorexRedir::Task;

const std::vector<std::string> kNoChannels{};

enum class Via { setMode, configure, reset };

struct LoggingStep {
  Via via;
  int32_t mode;         // unused by a reset
  int32_t pluginError;  // what the plug-in answers, 0 for success
  std::vector<std::string> targetHears;
  int32_t code;
};

struct LoggingCase {
  const char* name;
  std::vector<LoggingStep> steps;
};

void runStep(Task& task, const LoggingStep& step, zqerr_Status* status) {
  zqtest::failNextSlotCall(step.pluginError);
  switch (step.via) {
    case Via::setMode:
      task.setReadAttributeI32(StringArrayView(kNoChannels), 11973, step.mode, status);
      break;
    case Via::configure:
      task.configureLogging("f.tdms", step.mode, "g", 0, status);
      break;
    case Via::reset:
      task.resetReadAttributeI32(StringArrayView(kNoChannels), 11973, status);
      break;
  }
}

TEST(LoggingNotice, TheTargetHearsOfLoggingOnlyAtChangesAndIsToldBackOnRefusal) {
  const LoggingCase cases[] = {
      {"on, on again, off",
       {{Via::setMode, 15842, 0, {"logging:on"}, 0},
        {Via::setMode, 15844, 0, {}, 0},
        {Via::setMode, 10231, 0, {"logging:off"}, 0}}},
      {"refused on", {{Via::setMode, 15842, -201003, {"logging:on", "logging:off"}, -201003}, {Via::reset, 0, 0, {}, 0}}},
      {"other modes change nothing", {{Via::configure, 12345, 0, {}, 0}, {Via::setMode, 10231, 0, {}, 0}}},
      {"configure on then reset",
       {{Via::configure, 15844, 0, {"logging:on"}, 0}, {Via::reset, 0, 0, {"logging:off"}, 0}}},
      {"refused reset",
       {{Via::configure, 15842, 0, {"logging:on"}, 0},
        {Via::reset, 0, -200010, {"logging:off", "logging:on"}, -200010},
        {Via::setMode, 10231, 0, {"logging:off"}, 0}}},
  };
  for (const LoggingCase& c : cases) {
    auto task = zqtest::makeBoundTask();
    auto target = std::make_shared<zqtest::FakeDebugTarget>();
    task->setDebugTarget(target);
    for (size_t i = 0; i < c.steps.size(); ++i) {
      const LoggingStep& step = c.steps[i];
      target->calls.clear();
      zqerr::Status status;
      runStep(*task, step, &status);
      EXPECT_EQ(target->calls, step.targetHears) << c.name << " step " << i;
      EXPECT_EQ(status.code, step.code) << c.name << " step " << i;
    }
  }
}

TEST(LoggingNotice, WithoutATargetTheOperationsSimplyForward) {
  auto task = zqtest::makeBoundTask();
  zqerr::Status status;
  task->setReadAttributeI32(StringArrayView(kNoChannels), 11973, 15842, &status);
  task->configureLogging("f.tdms", 10231, "g", 2, &status);
  task->resetReadAttributeI32(StringArrayView(kNoChannels), 11973, &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(callLog(), (std::vector<std::string>{"setReadAttributeI32:task::11973:15842",
                                                 "configureLogging:task:f.tdms:10231:g:2",
                                                 "resetReadAttributeI32:task::11973"}));
}

TEST(LoggingNotice, WithoutAPluginTaskTheyAnswerNoDevice) {
  auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
  auto target = std::make_shared<zqtest::FakeDebugTarget>();
  task->setDebugTarget(target);
  zqerr::Status status;
  task->setReadAttributeI32(StringArrayView(kNoChannels), 11973, 15842, &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorCanNotPerformOpWhenNoDevInTask);
  EXPECT_TRUE(target->calls.empty());
}

struct ControlCase {
  const char* name;
  std::function<void(Task&, zqerr_Status*)> run;
  std::vector<std::string> pendingHears;
};

TEST(ControlCheck, APendingCheckAsksTheTargetBeforeTheOperation) {
  const ControlCase cases[] = {
      {"forwarded", [](Task& t, zqerr_Status* s) { t.isTaskDone(s); }, {"revoke:true"}},
      {"abort", [](Task& t, zqerr_Status* s) { t.abortTask(s); }, {"revoke:false"}},
      {"task attribute", [](Task& t, zqerr_Status* s) { t.getTaskAttributeI32(12697, s); }, {"revoke:true"}},
  };
  for (const ControlCase& c : cases) {
    for (int pending : {0, 1}) {
      auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
      auto target = std::make_shared<zqtest::FakeDebugTarget>();
      task->setDebugTarget(target);
      task->targetFlags().controlCheckPending.store(pending);
      zqerr::Status status;
      c.run(*task, &status);
      EXPECT_EQ(target->calls, pending ? c.pendingHears : std::vector<std::string>{}) << c.name << pending;
    }
  }
}

}  // namespace
