// Watchdog tasks: the variable pairs of the creation up to the null lines, the configuration a
// new watchdog gets, and the expiration-state functions, through a real task bound to a table of
// plug-in slots, so that the test sees each attribute write that reaches the plug-in.
#include <gtest/gtest.h>

#include <charconv>
#include <cstdarg>
#include <string>
#include <vector>

#include "../frame/last_error_probe.h"
#include "recording_task.h"
#include "slot_plugin.h"
#include "task_fixture.h"
#include "watchdog/watchdog_creation.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

using zqwatchdog::RawPair;

// The pairs as VorexCreateWatchdogTimerTask walks them.
std::vector<RawPair> walk(const char* lines, int32_t expState, ...) {
  std::va_list rest;
  va_start(rest, expState);
  const std::vector<RawPair> pairs = zqwatchdog::collectPairs({lines, expState, &rest});
  va_end(rest);
  return pairs;
}

std::vector<std::string> texts(const std::vector<RawPair>& pairs) {
  std::vector<std::string> out;
  for (const RawPair& pair : pairs) out.push_back(std::string(pair.lines) + "=" + std::to_string(pair.expState));
  return out;
}

TEST(WatchdogPairs, RunUpToTheFirstNullLines) {
  const char* none = nullptr;
  EXPECT_EQ(texts(walk(nullptr, 5)), std::vector<std::string>{});
  EXPECT_EQ(texts(walk("line0", 10192, none)), std::vector<std::string>{"line0=10192"});
  EXPECT_EQ(texts(walk("line0", 1, "line1:2", -2, "port1", 70000, none)),
            (std::vector<std::string>{"line0=1", "line1:2=-2", "port1=70000"}));
  EXPECT_EQ(texts(walk("line0", 1, none, 2, "never", 3)), std::vector<std::string>{"line0=1"});
}

TEST(WatchdogPairs, LinesAreConvertedAndStrippedAndNothingIsConvertedOnAFailedStatus) {
  const std::vector<RawPair> pairs{{" line0 ", 1}, {"\tport1\n", 2}};
  zqerr::Status status;
  const zqwatchdog::ExpirationStates states = zqwatchdog::convertPairs(pairs, &status);
  EXPECT_EQ(states.lines, (std::vector<std::string>{"line0", "port1"}));
  EXPECT_EQ(states.states, (std::vector<int32_t>{1, 2}));
  status.code = -200220;
  EXPECT_TRUE(zqwatchdog::convertPairs(pairs, &status).lines.empty());
}

TEST(WatchdogCreation, ANullHandlePointerIsRefusedBeforeAnythingIsMade) {
  clearLastError();
  EXPECT_EQ(VorexCreateWatchdogTimerTask("Dev1", "wd", nullptr, 0.5, "line0", 1, static_cast<const char*>(nullptr)),
            -200604);
  EXPECT_EQ(VorexCreateWatchdogTimerTaskEx("Dev1", "wd", nullptr, 0.5), -200604);
  EXPECT_EQ(lastErrorCode(), -200604);
}

// --- through a real task --------------------------------------------------------------------

// The slots have no F64 device attribute of their own; this one records like them.
void setDeviceAttributeF64(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                           double value, zqerr_Status* status) {
  std::string names;
  for (uint64_t i = 0; channels && i < channels->count; ++i)
    names += (i ? "," : "") + std::string(static_cast<const char* const*>(channels->data)[i]);
  char number[32];
  const auto end = std::to_chars(number, number + sizeof number, value).ptr;
  recordSlotCall("setDeviceAttributeF64:" + slotHandleText(task) + ":" + names + ":" + std::to_string(id) + ":" +
                     std::string(number, end),
                 status);
}

class WatchdogTask : public testing::Test {
 protected:
  void SetUp() override {
    callLog().clear();
    clearLastError();
    auto plugin = makeSlotPlugin();
    bindSlot(*plugin, "setDeviceAttributeF64", &setDeviceAttributeF64);
    bindTask(*task, plugin, slotContextHandle(), slotTaskHandle());
  }
  void TearDown() override { clearSlotFailures(); }
  TaskHandle handle() { return static_cast<zqvorexRedir::ITask*>(task.get()); }

  std::shared_ptr<zqvorexRedir::Task> task = makeTask(std::make_shared<CountingPluginManager>());
};

TEST_F(WatchdogTask, ANewWatchdogGetsItsTimeoutThenItsDigitalStates) {
  zqerr::Status status;
  zqwatchdog::configureNewWatchdog(*task, 0.25, {{"Dev1/port0/line0:1", "Dev1/port1"}, {10192, 10214}}, &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(callLog(), (std::vector<std::string>{"setDeviceAttributeF64:task::8617:0.25",
                                                 "setDeviceAttributeI32:task:Dev1/port0/line0,Dev1/port0/line1:8615:10192",
                                                 "setDeviceAttributeI32:task:Dev1/port1:8615:10214"}));
  callLog().clear();
  zqerr::Status none;
  zqwatchdog::configureNewWatchdog(*task, -1, {}, &none);
  EXPECT_EQ(none.code, 0);
  EXPECT_EQ(callLog(), std::vector<std::string>{"setDeviceAttributeF64:task::8617:-1"}) << "no expiration states";
}

TEST_F(WatchdogTask, DigitalAndCounterStatesAreOneWriteForEachName) {
  const int32 states[] = {10192, 10214};
  ASSERT_EQ(VorexCfgWatchdogDOExpirStates(handle(), " Dev1/port0, Dev1/port1/line3 ", states, 2), 0);
  ASSERT_EQ(VorexCfgWatchdogCOExpirStates(handle(), "Dev1/ctr0:1", states, 2), 0);
  EXPECT_EQ(callLog(), (std::vector<std::string>{"setDeviceAttributeI32:task:Dev1/port0:8615:10192",
                                                 "setDeviceAttributeI32:task:Dev1/port1/line3:8615:10214",
                                                 "setDeviceAttributeI32:task:Dev1/ctr0:12384:10192",
                                                 "setDeviceAttributeI32:task:Dev1/ctr1:12384:10214"}));
}

TEST_F(WatchdogTask, AnalogStatesWriteTheOutputTypeThenTheState) {
  const float64 states[] = {0.5, -10};
  const int32 types[] = {10322, 10134};
  ASSERT_EQ(VorexCfgWatchdogAOExpirStates(handle(), "Dev1/ao0,Dev1/ao1", states, types, 2), 0);
  EXPECT_EQ(callLog(), (std::vector<std::string>{"setDeviceAttributeI32:task:Dev1/ao0:12382:10322",
                                                 "setDeviceAttributeF64:task:Dev1/ao0:12383:0.5",
                                                 "setDeviceAttributeI32:task:Dev1/ao1:12382:10134",
                                                 "setDeviceAttributeF64:task:Dev1/ao1:12383:-10"}));
}

TEST_F(WatchdogTask, NamesNotMatchingTheSizeOrNullArraysWithElementsAreRefusedAndWriteNothing) {
  const int32 states[] = {1, 2, 3};
  const float64 values[] = {1, 2, 3};
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(handle(), "a,b,c", states, 2), -200672);
  EXPECT_EQ(VorexCfgWatchdogCOExpirStates(handle(), "a", states, 2), -200672);
  EXPECT_EQ(VorexCfgWatchdogAOExpirStates(handle(), "a0:2", values, states, 2), -200672);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(handle(), nullptr, states, 1), -200230);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(handle(), "a", nullptr, 1), -200230);
  EXPECT_EQ(VorexCfgWatchdogAOExpirStates(handle(), "a", nullptr, states, 1), -200230);
  EXPECT_EQ(lastErrorCode(), -200230);
  EXPECT_EQ(VorexCfgWatchdogAOExpirStates(handle(), nullptr, nullptr, nullptr, 0), 0);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(handle(), "", nullptr, 0), 0);
  EXPECT_TRUE(callLog().empty());
}

TEST_F(WatchdogTask, AFailedWriteStopsAtItsEntryAndKeepsWhatCameBefore) {
  const int32 states[] = {1, 2, 3};
  failSlotCalls("setDeviceAttributeI32", -201003);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(handle(), "a,b,c", states, 3), -201003);
  EXPECT_EQ(callLog(), std::vector<std::string>{"setDeviceAttributeI32:task:a:8615:1"});
}

TEST(WatchdogControl, TheActionGoesToThePluginAsItIs) {
  auto task = RecordingTask::create();
  ASSERT_EQ(VorexControlWatchdogTask(task->handle(), 7), 0);
  EXPECT_EQ(task->lastCall().op, "controlWatchdogTask");
  EXPECT_EQ(task->lastCall().text("action"), "7");
  EXPECT_EQ(VorexControlWatchdogTask(nullptr, 0), -200230);
}

}  // namespace
}  // namespace zqtest
