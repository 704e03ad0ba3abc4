// Watchdog tasks from end to end: the library's real services, the storage library naming the
// plug-in that serves the device, and a plug-in of this test's own that records what it is
// asked. The variable pairs become the task's digital expiration states, a creation that fails
// after the task was made hands out no handle and leaves no task behind, and the expiration
// states of every output kind reach the plug-in as one attribute write for each name.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "../frame/last_error_probe.h"
#include "platform/platform.h"
#include "test_installation.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

const char* const kNone = nullptr;

class WatchdogPlugin {
 public:
  WatchdogPlugin() : installation_("test_watchdog_creation", {ZQ_TEST_STORAGE_LIBRARY, ZQ_TEST_WATCHDOG_PLUGIN}) {
    for (const char* arguments : {"define-class 7200 --plugin zqtestWatchdog", "add-device WD1 --class 7200"})
      if (installation_.storage(ZQ_TEST_STORAGE_TOOL, arguments) != 0) {
        std::fprintf(stderr, "the installation failed: zqstorage %s\n", arguments);
        std::exit(2);
      }
    // The module the library loads from the installation, reached by the same path.
    auto library = zqplatform::loadLibrary(installation_.library("zqtestWatchdog").c_str(), 0);
    line_ = reinterpret_cast<const char* (*)(int)>(zqplatform::findSymbol(library, "zqtestWatchdog_testLine"));
    clear_ = reinterpret_cast<void (*)()>(zqplatform::findSymbol(library, "zqtestWatchdog_testClear"));
    fail_ = reinterpret_cast<void (*)(const char*, int32_t)>(zqplatform::findSymbol(library, "zqtestWatchdog_testFail"));
  }
  bool loaded() const { return line_ && clear_ && fail_; }
  std::vector<std::string> log() const {
    std::vector<std::string> lines;
    for (int i = 0; line_(i); ++i) lines.emplace_back(line_(i));
    return lines;
  }
  void clear() const { clear_(); }
  void fail(const char* operation, int32_t code) const { fail_(operation, code); }

 private:
  TestInstallation installation_;
  const char* (*line_)(int) = nullptr;
  void (*clear_)() = nullptr;
  void (*fail_)(const char*, int32_t) = nullptr;
};

class WatchdogCreation : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(plugin().loaded());
    plugin().clear();
    plugin().fail("", 0);
  }
  static const WatchdogPlugin& plugin() {
    static const WatchdogPlugin installed;
    return installed;
  }
};

TEST_F(WatchdogCreation, ThePairsUpToTheNullLinesBecomeTheDigitalExpirationStates) {
  TaskHandle task = nullptr;
  // Nothing after the null lines is read.
  ASSERT_EQ(VorexCreateWatchdogTimerTask(" WD1 ", " wdPairs ", &task, 0.5, " WD1/port0/line0:1 ", 10192,
                                         "\tWD1/port1\n", -10214, kNone, 99, "never", 3),
            0);
  ASSERT_NE(task, nullptr);
  EXPECT_EQ(plugin().log(), (std::vector<std::string>{"createWatchdogTimerTask:wdPairs:WD1",
                                                      "setDeviceAttributeF64::8617:0.5",
                                                      "setDeviceAttributeI32:WD1/port0/line0,WD1/port0/line1:8615:10192",
                                                      "setDeviceAttributeI32:WD1/port1:8615:-10214"}));
  EXPECT_EQ(VorexClearTask(task), 0);
  EXPECT_EQ(plugin().log().back(), "destroyTask");
}

TEST_F(WatchdogCreation, ANullFirstLinesGivesATaskWithTheTimeoutAlone) {
  TaskHandle task = nullptr;
  ASSERT_EQ(VorexCreateWatchdogTimerTask("WD1", "", &task, 1.5, kNone, 0), 0);
  const std::vector<std::string> log = plugin().log();
  ASSERT_EQ(log.size(), 2u);
  EXPECT_EQ(log[0].rfind("createWatchdogTimerTask:", 0), 0u);
  EXPECT_NE(log[0], "createWatchdogTimerTask::WD1") << "an empty name is generated";
  EXPECT_EQ(log[1], "setDeviceAttributeF64::8617:1.5");
  EXPECT_EQ(VorexClearTask(task), 0);

  ASSERT_EQ(VorexCreateWatchdogTimerTaskEx("WD1", "wdEx", &task, 2), 0);
  EXPECT_EQ(plugin().log().back(), "setDeviceAttributeF64::8617:2");
  EXPECT_EQ(VorexClearTask(task), 0);
}

TEST_F(WatchdogCreation, AFailureAfterTheTaskWasMadeHandsOutNoHandleAndLeavesNoTask) {
  plugin().fail("setDeviceAttributeI32", -201003);
  TaskHandle task = reinterpret_cast<TaskHandle>(1);
  EXPECT_EQ(VorexCreateWatchdogTimerTask("WD1", "wdFailed", &task, 0.5, "WD1/port0", 1, kNone), -201003);
  EXPECT_EQ(task, nullptr);
  EXPECT_EQ(plugin().log().back(), "destroyTask");
  // The name is free again: the task left the pool.
  plugin().fail("", 0);
  ASSERT_EQ(VorexCreateWatchdogTimerTaskEx("WD1", "wdFailed", &task, 0.5), 0);
  TaskHandle twin = nullptr;
  EXPECT_EQ(VorexCreateWatchdogTimerTaskEx("WD1", "WDFAILED", &twin, 0.5), -200089) << "names ignore case";
  EXPECT_EQ(twin, nullptr);
  EXPECT_EQ(VorexClearTask(task), 0);
}

TEST_F(WatchdogCreation, ANameTheRuleRefusesOrANullHandlePointerMakesNothing) {
  TaskHandle task = nullptr;
  EXPECT_EQ(VorexCreateWatchdogTimerTaskEx("WD1", "_wd", &task, 0.5), -200555);
  EXPECT_EQ(task, nullptr);
  EXPECT_EQ(VorexCreateWatchdogTimerTask("WD1", "wd", nullptr, 0.5, "WD1/port0", 1, kNone), -200604);
  EXPECT_EQ(VorexCreateWatchdogTimerTaskEx("WD1", "wd", nullptr, 0.5), -200604);
  EXPECT_TRUE(plugin().log().empty());
}

// A watchdog of its own for each test, its creation's calls forgotten.
class WatchdogTask : public WatchdogCreation {
 protected:
  void SetUp() override {
    WatchdogCreation::SetUp();
    ASSERT_EQ(VorexCreateWatchdogTimerTaskEx("WD1", "", &task, 0.5), 0);
    plugin().clear();
    clearLastError();
  }
  void TearDown() override {
    plugin().fail("", 0);
    EXPECT_EQ(VorexClearTask(task), 0);
  }
  TaskHandle task = nullptr;
};

TEST_F(WatchdogTask, DigitalAndCounterStatesAreOneWriteForEachName) {
  const int32 states[] = {10192, 10214};
  ASSERT_EQ(VorexCfgWatchdogDOExpirStates(task, " WD1/port0, WD1/port1/line3 ", states, 2), 0);
  ASSERT_EQ(VorexCfgWatchdogCOExpirStates(task, "WD1/ctr0:1", states, 2), 0);
  EXPECT_EQ(plugin().log(), (std::vector<std::string>{"setDeviceAttributeI32:WD1/port0:8615:10192",
                                                      "setDeviceAttributeI32:WD1/port1/line3:8615:10214",
                                                      "setDeviceAttributeI32:WD1/ctr0:12384:10192",
                                                      "setDeviceAttributeI32:WD1/ctr1:12384:10214"}));
}

TEST_F(WatchdogTask, AnalogStatesWriteTheOutputTypeThenTheState) {
  const float64 states[] = {0.5, -10};
  const int32 types[] = {10322, 10134};
  ASSERT_EQ(VorexCfgWatchdogAOExpirStates(task, "WD1/ao0,WD1/ao1", states, types, 2), 0);
  EXPECT_EQ(plugin().log(), (std::vector<std::string>{"setDeviceAttributeI32:WD1/ao0:12382:10322",
                                                      "setDeviceAttributeF64:WD1/ao0:12383:0.5",
                                                      "setDeviceAttributeI32:WD1/ao1:12382:10134",
                                                      "setDeviceAttributeF64:WD1/ao1:12383:-10"}));
}

TEST_F(WatchdogTask, NamesNotMatchingTheSizeOrNullArraysWithElementsAreRefusedAndWriteNothing) {
  const int32 states[] = {1, 2, 3};
  const float64 values[] = {1, 2, 3};
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(task, "a,b,c", states, 2), -200672);
  EXPECT_EQ(VorexCfgWatchdogCOExpirStates(task, "a", states, 2), -200672);
  EXPECT_EQ(VorexCfgWatchdogAOExpirStates(task, "a0:2", values, states, 2), -200672);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(task, nullptr, states, 1), -200230);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(task, "a", nullptr, 1), -200230);
  EXPECT_EQ(VorexCfgWatchdogAOExpirStates(task, "a", nullptr, states, 1), -200230);
  EXPECT_EQ(lastErrorCode(), -200230);
  EXPECT_EQ(VorexCfgWatchdogAOExpirStates(task, nullptr, nullptr, nullptr, 0), 0);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(task, "", nullptr, 0), 0);
  EXPECT_TRUE(plugin().log().empty());
}

TEST_F(WatchdogTask, AFailedWriteStopsAtItsEntryAndKeepsWhatCameBefore) {
  const int32 states[] = {1, 2, 3};
  plugin().fail("setDeviceAttributeI32", -201003);
  EXPECT_EQ(VorexCfgWatchdogDOExpirStates(task, "a,b,c", states, 3), -201003);
  EXPECT_EQ(plugin().log(), std::vector<std::string>{"setDeviceAttributeI32:a:8615:1"});
}

TEST_F(WatchdogTask, TheControlActionGoesToThePluginAsItIs) {
  ASSERT_EQ(VorexControlWatchdogTask(task, 7), 0);
  EXPECT_EQ(plugin().log(), std::vector<std::string>{"controlWatchdogTask:7"});
  EXPECT_EQ(VorexControlWatchdogTask(nullptr, 0), -200230);
}

}  // namespace
}  // namespace zqtest
