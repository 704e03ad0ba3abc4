#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "fake_debug_target.h"
#include "slot_plugin.h"
#include "task_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::callLog;
using zqvorexRedir::EventTokens;
using zqvorexRedir::Task;

// The boundary objects are only carried, never called, by the task.
zqgopher_IEventDone* const kDone = nullptr;
zqgopher_IEventSignal* const kSignal = nullptr;
zqgopher_IEventEveryNSamples* const kEveryN = nullptr;

struct BoundTask {
  std::shared_ptr<Task> task = zqtest::makeBoundTask();
  std::shared_ptr<zqtest::FakeDebugTarget> target;

  explicit BoundTask(bool withTarget = true) {
    zqtest::setNextSlotEventToken(1);
    if (!withTarget) return;
    target = std::make_shared<zqtest::FakeDebugTarget>();
    task->setDebugTarget(target);
  }
};

using Registration = std::function<zqvorexPlugin_EventToken(Task&, zqerr_Status*)>;

struct RegistrationCase {
  const char* name;
  Registration run;
  int32_t cacheId;
  std::string pluginCall;
};

const RegistrationCase kRegistrations[] = {
    {"done", [](Task& t, zqerr_Status* s) { return t.registerDoneEvent(true, kDone, s); }, 12576,
     "registerDoneEvent:task"},
    {"signal", [](Task& t, zqerr_Status* s) { return t.registerSignalEvent(12487, false, kSignal, s); },
     12575, "registerSignalEvent:task:12487"},
    {"every N acquired",
     [](Task& t, zqerr_Status* s) { return t.registerEveryNSamplesEvent(12580, 100, true, kEveryN, s); },
     12580, "registerEveryNSamplesEvent:task:12580:100"},
};

TEST(TaskEvents, ATokenFromThePluginIsKeptUnderThePluginsEventId) {
  for (const RegistrationCase& c : kRegistrations) {
    BoundTask bound(false);
    zqtest::setNextSlotEventToken(41);
    zqerr::Status status;
    EXPECT_EQ(c.run(*bound.task, &status), 41u) << c.name;
    EXPECT_EQ(status.code, 0) << c.name;
    EXPECT_EQ(callLog(), std::vector<std::string>{c.pluginCall}) << c.name;
    for (int32_t id : {12576, 12575, 12580, 12581})
      EXPECT_EQ(bound.task->getEvents(id, &status), id == c.cacheId ? EventTokens{41} : EventTokens{})
          << c.name << " id " << id;
  }
}

TEST(TaskEvents, TheTargetHearsOnlyOfTheChangeFromNoEventToSomeAndBack) {
  BoundTask bound;
  Task& task = *bound.task;
  struct Step {
    std::function<void(Task&, zqerr_Status*)> run;
    std::vector<std::string> targetHears;
  };
  const Step steps[] = {
      {[](Task& t, zqerr_Status* s) { t.registerDoneEvent(true, kDone, s); }, {"events:on"}},  // token 1
      {[](Task& t, zqerr_Status* s) { t.registerSignalEvent(12487, true, kSignal, s); }, {}},  // token 2
      {[](Task& t, zqerr_Status* s) { t.unregisterEvent(1, s); }, {}},
      {[](Task& t, zqerr_Status* s) { t.unregisterEvent(2, s); }, {"events:off"}},
      {[](Task& t, zqerr_Status* s) { t.registerEveryNSamplesEvent(12580, 1, true, kEveryN, s); },
       {"events:on"}},
      {[](Task& t, zqerr_Status* s) {
         zqtest::setNextSlotEventToken(1);  // below the token already under 12580
         t.registerEveryNSamplesEvent(12580, 2, true, kEveryN, s);
       },
       {}},
  };
  for (size_t i = 0; i < std::size(steps); ++i) {
    bound.target->calls.clear();
    zqerr::Status status;
    steps[i].run(task, &status);
    EXPECT_EQ(status.code, 0) << "step " << i;
    EXPECT_EQ(bound.target->calls, steps[i].targetHears) << "step " << i;
  }
  zqerr::Status status;
  EXPECT_EQ(task.getEvents(12580, &status), (EventTokens{1, 3})) << "in token order";
  EXPECT_EQ(callLog(), (std::vector<std::string>{"registerDoneEvent:task", "registerSignalEvent:task:12487",
                                                 "unregisterEvent:task:1", "unregisterEvent:task:2",
                                                 "registerEveryNSamplesEvent:task:12580:1",
                                                 "registerEveryNSamplesEvent:task:12580:2"}));
}

struct FailureCase {
  const char* name;
  std::function<void(BoundTask&)> arrange;
  int32_t code;
  std::vector<std::string> pluginCalls;  // after the arrangement
  std::vector<std::string> targetHears;
  EventTokens doneTokens;  // what the cache holds under "done" afterwards
};

TEST(TaskEvents, AFailureAfterThePluginsTokenTakesTheRegistrationBackAndTheFirstFailureStands) {
  const FailureCase cases[] = {
      {"the same token twice, under another id",
       [](BoundTask& b) {
         zqerr::Status status;
         b.task->registerSignalEvent(12487, false, kSignal, &status);
         zqtest::setNextSlotEventToken(1);
       },
       nZQMESL::kInternalErrorEventAlreadyRegisteredInTask,
       {"registerDoneEvent:task", "unregisterEvent:task:1"},
       {},
       {}},
      {"the same token twice, and the plug-in refuses to take it back",
       [](BoundTask& b) {
         zqerr::Status status;
         b.task->registerDoneEvent(true, kDone, &status);
         zqtest::setNextSlotEventToken(1);
         zqtest::failSlotCalls("unregisterEvent", zqpalerr_softwareFault);
       },
       nZQMESL::kInternalErrorEventAlreadyRegisteredInTask,
       {"registerDoneEvent:task", "unregisterEvent:task:1"},
       {},
       {1}},
      {"the target refuses to enable events",
       [](BoundTask& b) { b.target->eventsEnabledFailure = -50103; },
       -50103,
       {"registerDoneEvent:task", "unregisterEvent:task:1"},
       {"events:on", "events:off"},
       {1}},
      {"the plug-in refuses the registration",
       [](BoundTask&) { zqtest::failSlotCalls("registerDoneEvent", -200950); },
       nZQMSTS::kErrorDoneEventAlreadyRegistered,
       {"registerDoneEvent:task"},
       {},
       {}},
  };
  for (const FailureCase& c : cases) {
    BoundTask bound;
    c.arrange(bound);
    callLog().clear();
    bound.target->calls.clear();
    zqerr::Status status;
    EXPECT_EQ(bound.task->registerDoneEvent(true, kDone, &status), 0u) << c.name;
    EXPECT_EQ(status.code, c.code) << c.name;
    EXPECT_EQ(callLog(), c.pluginCalls) << c.name;
    EXPECT_EQ(bound.target->calls, c.targetHears) << c.name;
    zqerr::Status after;
    EXPECT_EQ(bound.task->getEvents(12576, &after), c.doneTokens) << c.name;
    zqtest::clearSlotFailures();
  }
}

TEST(TaskEvents, AnUnregistrationThatFailsKeepsTheTokenAndTellsTheTargetNothing) {
  struct Case {
    zqvorexPlugin_EventToken token;
    int32_t pluginCode;
    int32_t code;
  };
  const int32_t refused = nZQMSTS::kErrorInvalidTask;
  for (const Case& c : {Case{9, 0, zqapalerr_resourceNotFound}, Case{1, refused, refused}}) {
    BoundTask bound;
    zqerr::Status status;
    bound.task->registerDoneEvent(true, kDone, &status);
    callLog().clear();
    bound.target->calls.clear();
    zqtest::failNextSlotCall(c.pluginCode);
    bound.task->unregisterEvent(c.token, &status);
    EXPECT_EQ(status.code, c.code) << c.token;
    EXPECT_EQ(callLog(), std::vector<std::string>{"unregisterEvent:task:" + std::to_string(c.token)});
    EXPECT_TRUE(bound.target->calls.empty()) << c.token;
    zqerr::Status after;
    EXPECT_EQ(bound.task->getEvents(12576, &after), EventTokens{1}) << c.token;
  }
}

TEST(TaskEvents, AnUnboundTaskHasNoDeviceAndCallsNothing) {
  std::vector<std::function<void(Task&, zqerr_Status*)>> operations;
  for (const RegistrationCase& c : kRegistrations)
    operations.push_back([&c](Task& t, zqerr_Status* s) { c.run(t, s); });
  operations.push_back([](Task& t, zqerr_Status* s) { t.unregisterEvent(1, s); });
  for (size_t i = 0; i < operations.size(); ++i) {
    callLog().clear();
    auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
    auto target = std::make_shared<zqtest::FakeDebugTarget>();
    task->setDebugTarget(target);
    zqerr::Status status;
    operations[i](*task, &status);
    EXPECT_EQ(status.code, nZQMSTS::kErrorCanNotPerformOpWhenNoDevInTask) << i;
    EXPECT_TRUE(callLog().empty()) << i;
    EXPECT_TRUE(target->calls.empty()) << i;
  }
}

TEST(TaskEvents, AFailedStatusOnEntryDoesNothingAndAWarningDoesNotStopIt) {
  BoundTask bound;
  zqerr::Status warned;
  zqtest::failNextSlotCall(200);
  EXPECT_EQ(bound.task->registerDoneEvent(true, kDone, &warned), 1u);
  EXPECT_EQ(warned.code, 200);
  callLog().clear();
  bound.target->calls.clear();
  zqerr::Status status;
  status.code = -1;
  EXPECT_EQ(bound.task->registerDoneEvent(true, kDone, &status), 0u);
  bound.task->unregisterEvent(1, &status);
  EXPECT_TRUE(bound.task->getEvents(12576, &status).empty());
  EXPECT_EQ(status.code, -1);
  EXPECT_TRUE(callLog().empty());
  EXPECT_TRUE(bound.target->calls.empty());
  zqerr::Status after;
  EXPECT_EQ(bound.task->getEvents(12576, &after), EventTokens{1});
}

}  // namespace
