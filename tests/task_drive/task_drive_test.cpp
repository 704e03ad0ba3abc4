// The redirected task over the real plug-in manager, the real selector over the companion
// storage, and the plug-in library zqtestDrive: binding on the first channel, taking back a
// failed first channel, and the order in which plug-in objects and the library go. What an
// unbound task answers, selecting once per device and rollback are proven over a table of
// plug-in slots in tests/task; an abort that overtakes reads blocked in the plug-in is proven
// in task_stress_test.cpp.
#include <gtest/gtest.h>

#include <algorithm>

#include "drive_support.h"

namespace {

using zqtest::CountingManager;
using zqtest::DriveSwitches;
using zqtest::logHas;
using zqtest::TaskDrive;

struct BindCase {
  const char* channels;
  std::vector<std::string> devices;
  uint32_t channelCount;
};

const BindCase kBindCases[] = {
    {"Dev1/ai0", {"Dev1"}, 1},
    {"/Dev2/ai3", {"Dev2"}, 1},
    {"Dev2/ai0, Dev1/ai1", {"Dev1", "Dev2"}, 2},
};

TEST_F(TaskDrive, TheFirstChannelBindsTheTaskToThePlugin) {
  for (const BindCase& c : kBindCases) {
    auto task = zqtest::makeDriveTask(manager_, "Bound");
    ASSERT_EQ(zqtest::addChannel(*task, c.channels), 0) << c.channels;
    EXPECT_TRUE(task->hasPluginTask()) << c.channels;
    EXPECT_EQ(task->pluginName(), zqtest::kDrivePlugin) << c.channels;
    EXPECT_EQ(std::vector<std::string>(task->deviceNames().begin(), task->deviceNames().end()), c.devices);
    int32_t code = -1;
    EXPECT_EQ(zqtest::taskDevices(*task, &code), c.devices) << c.channels;
    EXPECT_EQ(code, 0);
    const zqtest::ReadResult read = zqtest::readF64(*task, 3, 16);
    EXPECT_EQ(read.samples, 3u) << c.channels;
    EXPECT_TRUE(zqtest::holdsPluginData(read, c.channelCount)) << c.channels;
  }
  EXPECT_TRUE(logHas("createContext 127.0.0.1"));
  EXPECT_TRUE(logHas("createTask Bound"));
}

TEST_F(TaskDrive, AFailedFirstChannelLeavesNothingAndTheNextOneSelectsAgain) {
  DriveSwitches drive;
  ASSERT_TRUE(drive.loaded());
  const int64_t tasksBefore = drive.counter(zqtestDrive_tasksLive);
  const int64_t contextsBefore = drive.counter(zqtestDrive_contextsLive);
  auto task = zqtest::makeDriveTask(manager_, "Failing");
  EXPECT_EQ(zqtest::addChannel(*task, "Dev1/ai0, Dev1/fail"), zqtestDrive_kChannelFailCode);
  EXPECT_FALSE(task->hasPluginTask());
  EXPECT_EQ(task->pluginName(), "");
  EXPECT_TRUE(task->deviceNames().empty());
  EXPECT_EQ(drive.counter(zqtestDrive_tasksLive), tasksBefore);
  EXPECT_EQ(drive.counter(zqtestDrive_contextsLive), contextsBefore);

  ASSERT_EQ(zqtest::addChannel(*task, "Dev2/ai0"), 0);
  EXPECT_EQ(task->deviceNames(), zqvorexRedir::NameSet{"Dev2"});
  int32_t code = -1;
  EXPECT_EQ(zqtest::taskDevices(*task, &code), std::vector<std::string>{"Dev2"});
  EXPECT_EQ(drive.counter(zqtestDrive_tasksLive), tasksBefore + 1);
  EXPECT_EQ(manager_->requests.load(), 2) << "the plug-in is asked for again";
  const auto lines = zqtest::driveLogLines();
  const auto destroyed = std::find(lines.begin(), lines.end(), "destroyTask Failing");
  ASSERT_NE(destroyed, lines.end());
  EXPECT_NE(std::find(destroyed, lines.end(), "destroyContext 127.0.0.1"), lines.end());
}

// The plug-in task goes before its context, and the library unloads only when neither the
// task nor the manager holds it, whichever lets go last.
TEST_F(TaskDrive, PluginObjectsGoBeforeTheirContextAndBothBeforeTheLibrary) {
  for (bool taskFirst : {true, false}) {
    zqtest::clearDriveLog();
    auto manager = std::make_shared<CountingManager>();
    auto task = zqtest::makeDriveTask(manager, "Ending");
    ASSERT_EQ(zqtest::addChannel(*task, "Dev1/ai0"), 0);
    if (taskFirst) {
      task.reset();
    } else {
      manager.reset();
    }
    EXPECT_FALSE(logHas("unload")) << "one owner still holds the library; task first: " << taskFirst;
    EXPECT_EQ(logHas("destroyTask Ending"), taskFirst);
    task.reset();
    manager.reset();
    const std::vector<std::string> expected{"load",
                                            "createContext 127.0.0.1",
                                            "createTask Ending",
                                            "destroyTask Ending",
                                            "destroyContext 127.0.0.1",
                                            "unload"};
    EXPECT_EQ(zqtest::driveLogLines(), expected) << "task first: " << taskFirst;
  }
}

}  // namespace
