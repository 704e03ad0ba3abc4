#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "fake_debug_target.h"
#include "report_query.h"
#include "slot_plugin.h"
#include "zqvorex_status_codes.h"
#include "task_fixture.h"

namespace {

using zqtest::callLog;
using zqtest::recordSlotCall;
using zqtest::slotHandleText;
using zqvorexRedir::Task;

// The plug-in operations that make tasks other than createTask, as slots of this program.
zqvorexPlugin_Task_undefined* autoCreateTask(zqvorexPlugin_Context_undefined* context, const char* names, bool flag,
                                             zqerr_Status* again, zqerr_Status* status) {
  recordSlotCall("autoCreateTask:" + slotHandleText(context) + ":" + names + ":" + (flag ? "saved" : "channels") +
                     (again == status ? "" : ":two statuses"),
                 status);
  return zqtest::slotTaskHandle();
}

std::shared_ptr<zqvorexRedir::Plugin> makePlugin() {
  std::shared_ptr<zqvorexRedir::Plugin> plugin = zqtest::makeSlotPlugin();
  BIND_RECORDED(*plugin, loadTask);
  BIND_RECORDED(*plugin, createTaskFromString);
  BIND_RECORDED(*plugin, createWatchdogTimerTask);
  BIND_RECORDED(*plugin, createSwitchScanlist);
  BIND_RECORDED(*plugin, createTaskForGrpcSession);
  zqtest::bindSlot(*plugin, "autoCreateTask", &autoCreateTask);
  return plugin;
}

struct SetUpCase {
  const char* name;
  std::function<void(Task&, zqerr_Status*)> run;
  std::vector<std::string> selectorHears;  // empty: the selector is not asked
  std::string managerAskedFor;             // the plug-in the task loads
  std::vector<std::string> pluginHears;
  bool announced;  // a debuggable answer gives the task a target told of the whole task
};

const std::vector<std::string> kWholeTaskTold{"setPluginName:slots", "setPluginTask", "addDevices", "addChannels"};

const SetUpCase kSetUps[] = {
    {"create from a saved task", [](Task& t, zqerr_Status* s) { t.setUpCreate("Saved", "", s); },
     {"task:Saved|:ctx"}, "slots", {"createContext:ctx", "createTask:context:T:Saved::4"}, true},
    {"create from channels", [](Task& t, zqerr_Status* s) { t.setUpCreate("", "Dev1/ai0", s); },
     {"task:|Dev1/ai0:ctx"}, "slots", {"createContext:ctx", "createTask:context:T::Dev1/ai0:4"}, true},
    {"from configuration text", [](Task& t, zqerr_Status* s) { t.setUpFromString(1, "[Task]", s); },
     {"config:1:[Task]"}, "slots", {"createContext:ctx", "createTaskFromString:context:T:1:[Task]"}, true},
    {"load", [](Task& t, zqerr_Status* s) { t.setUpLoad(s); },
     {"task:T|:ctx"}, "slots", {"createContext:ctx", "loadTask:context:T"}, true},
    {"auto-create", [](Task& t, zqerr_Status* s) { t.setUpAuto("Dev1/ai0", s); },
     {"names:Dev1/ai0:ctx"}, "slots", {"createContext:ctx", "autoCreateTask:context:Dev1/ai0:channels"}, true},
    {"watchdog", [](Task& t, zqerr_Status* s) { t.setUpWatchdog("Dev1", s); },
     {"devices:Dev1;ctx"}, "slots", {"createContext:ctx", "createWatchdogTimerTask:context:T:Dev1"}, false},
    {"platform", [](Task& t, zqerr_Status* s) { t.setUpPlatform("Value", s); },
     {}, "zqvorexPAL", {"createContext:ctx", "createTask:context:T:Value::2"}, false},
    {"switch scan list", [](Task& t, zqerr_Status* s) { t.setUpScanlist("Sw/ch0->Sw/com0", s); },
     {}, "zqvorexPAL", {"createContext:ctx", "createSwitchScanlist:context:T:Sw/ch0->Sw/com0"}, false},
    {"session", [](Task& t, zqerr_Status* s) { t.setUpGrpc("session", 3, s); },
     {}, "zqvorexGrpc", {"createContext:ctx", "createTaskForGrpcSession:context:T:session:3"}, false},
};

class FactorySetUp : public zqtest::SelectingTaskTest {
 public:
  FactorySetUp() : SelectingTaskTest(makePlugin()) { task = make("T"); }

  std::shared_ptr<Task> make(const std::string& name) {
    return SelectingTaskTest::make(name, {.taskKind = zqvorexRedir::kTaskKindCreated, .debugServerFactory = server});
  }

  std::shared_ptr<zqtest::FakeDebugServer> server = std::make_shared<zqtest::FakeDebugServer>();
};

TEST_F(FactorySetUp, EachFactorySetUpChoosesItsPluginAndHasItMakeTheTask) {
  for (bool debuggable : {false, true}) {
    for (const SetUpCase& c : kSetUps) {
      SCOPED_TRACE(std::string(c.name) + (debuggable ? ", debuggable" : ""));
      task = make("T");
      callLog().clear();
      selector->asked.clear();
      selector->debuggable = debuggable;
      server->target.reset();
      zqerr::Status status;
      c.run(*task, &status);
      ASSERT_EQ(status.code, 0);
      EXPECT_EQ(selector->asked, c.selectorHears);
      EXPECT_EQ(manager->lastName, c.managerAskedFor);
      EXPECT_EQ(task->pluginName(), c.managerAskedFor);
      EXPECT_EQ(callLog(), c.pluginHears);
      EXPECT_TRUE(task->hasPluginTask());
      EXPECT_EQ(task->lockDepth(), 0);
      const bool told = debuggable && c.announced;
      ASSERT_EQ(server->target != nullptr, told);
      if (told) {
        EXPECT_EQ(server->target->calls, kWholeTaskTold);
        EXPECT_EQ(server->targetTaskName, "T");
      }
    }
  }
}

TEST_F(FactorySetUp, ACreateWithNoSavedTaskAndNoChannelsLeavesTheTaskUnbound) {
  zqerr::Status status;
  task->setUpCreate("", "", &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_TRUE(selector->asked.empty());
  EXPECT_EQ(manager->requests, 0);
  EXPECT_FALSE(task->hasPluginTask());
  task->readScaledScalarF64(0, 1.0, nullptr, nullptr, &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorCanNotPerformOpWhenNoChansInTask);
}

TEST_F(FactorySetUp, ASelectorFailureLoadsNothingAndMakesNothing) {
  selector->error = nZQMSTS::kErrorTaskNotInDataNeighborhood;
  for (const SetUpCase& c : kSetUps) {
    if (c.selectorHears.empty()) continue;
    SCOPED_TRACE(c.name);
    callLog().clear();
    manager->requests = 0;
    task = make("T");
    zqerr::Status status;
    c.run(*task, &status);
    EXPECT_EQ(status.code, nZQMSTS::kErrorTaskNotInDataNeighborhood);
    EXPECT_EQ(manager->requests, 0);
    EXPECT_TRUE(callLog().empty());
    EXPECT_FALSE(task->hasPluginTask());
    EXPECT_EQ(task->lockDepth(), 0);
  }
}

TEST_F(FactorySetUp, RefusalsComeBeforeAnySelectionAndSayWhy) {
  struct Refusal {
    const char* name;
    std::function<void(FactorySetUp&, zqerr_Status*)> prepareAndRun;
    int32_t code;
    const char* site;
  };
  const Refusal refusals[] = {
      {"a load without a name",
       [](FactorySetUp& f, zqerr_Status* s) {
         f.task = f.make("");
         f.task->setUpLoad(s);
       },
       nZQMSTS100::kErrorInvalidTask, "task"},
      {"a set-up on a task that has a device already",
       [](FactorySetUp& f, zqerr_Status* s) {
         f.task->setUpWatchdog("Dev1", s);
         f.selector->asked.clear();
         f.task->setUpLoad(s);
       },
       zqpalerr_softwareFault, "task"},
      {"a selector that names no plug-in",
       [](FactorySetUp& f, zqerr_Status* s) {
         f.selector->pluginName.clear();
         f.task->setUpLoad(s);
         f.selector->asked.clear();
       },
       zqpalerr_softwareFault, "task"},
  };
  for (const Refusal& r : refusals) {
    SCOPED_TRACE(r.name);
    task = make("T");
    selector->pluginName = "slots";
    selector->asked.clear();
    zqerr::Status status;
    r.prepareAndRun(*this, &status);
    EXPECT_EQ(status.code, r.code);
    EXPECT_EQ(zqtest::reportAt(status.report, {"file"}), r.site);
    EXPECT_TRUE(selector->asked.empty());
    EXPECT_EQ(task->lockDepth(), 0);
  }
}

TEST_F(FactorySetUp, APluginThatCannotMakeTheTaskLeavesTheFailureAndNoDebugTarget) {
  selector->debuggable = true;
  zqtest::failSlotCalls("loadTask", -200220);
  zqerr::Status status;
  task->setUpLoad(&status);
  EXPECT_EQ(status.code, -200220);
  EXPECT_EQ(server->target, nullptr);
}

TEST_F(FactorySetUp, SessionAndPlatformTasksKeepTheirPluginWhenChannelsArrive) {
  for (const SetUpCase& c : {kSetUps[6], kSetUps[8]}) {
    SCOPED_TRACE(c.name);
    task = make("T");
    manager->requests = 0;
    zqerr::Status status;
    c.run(*task, &status);
    task->createAIVoltageChannel("Other/ai0", "", -1, -10, 10, 10348, "", nullptr, &status);
    EXPECT_EQ(status.code, 0);
    EXPECT_TRUE(selector->asked.empty());
    EXPECT_EQ(manager->requests, 1);
    EXPECT_EQ(callLog().back(), "createAIVoltageChannel:task:Other/ai0");
    EXPECT_TRUE(task->deviceNames().empty());
  }
}

}  // namespace
