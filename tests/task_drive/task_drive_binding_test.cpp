// The redirected task over the real plug-in manager, the real selector over the companion
// storage, and the plug-in library zqtestDrive: what an unbound task answers alone, binding on
// the first channel, taking back a failed first channel, and rollback to no plug-in.
#include <gtest/gtest.h>

#include <algorithm>

#include "task_drive_fixture.h"

namespace {

using zqtest::DriveSwitches;
using zqtest::logHas;
using zqtest::TaskDrive;
using zqvorexRedir::Task;

constexpr int32_t kNoChansInTask = -200478;
constexpr int32_t kNoDevInTask = -200477;

// What a task without a plug-in answers by itself, without asking for any plug-in.
struct UnboundCase {
  const char* what;
  int32_t (*call)(Task& task);
  int32_t code;
};

const UnboundCase kUnboundCases[] = {
    {"read", [](Task& task) { return zqtest::readF64(task, 4, 16).code; }, kNoChansInTask},
    {"rollback",
     [](Task& task) {
       zqerr::Status status;
       task.rollbackFailedChannelCreations("a", &status);
       return status.code;
     },
     kNoDevInTask},
    {"abort",
     [](Task& task) {
       zqerr::Status status;
       task.abortTask(&status);
       return status.code;
     },
     0},
    {"isTaskDone",
     [](Task& task) {
       zqerr::Status status;
       const uint32_t done = task.isTaskDone(&status);
       return done == 1 ? status.code : -1;
     },
     0},
};

TEST_F(TaskDrive, AnUnboundTaskAnswersAloneAndLoadsNoLibrary) {
  for (const UnboundCase& c : kUnboundCases) {
    auto task = zqtest::makeDriveTask(manager_, "Fresh");
    EXPECT_EQ(c.call(*task), c.code) << c.what;
    EXPECT_FALSE(task->hasPluginTask()) << c.what;
  }
  EXPECT_EQ(manager_->requests.load(), 0);
  EXPECT_FALSE(logHas("load"));
}

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

TEST_F(TaskDrive, ASecondChannelOnAKnownDeviceDoesNotSelectAgain) {
  auto task = zqtest::makeDriveTask(manager_, "Twice");
  ASSERT_EQ(zqtest::addChannel(*task, "Dev1/ai0"), 0);
  const int requests = manager_->requests.load();
  ASSERT_EQ(zqtest::addChannel(*task, "Dev1/ai1"), 0);
  EXPECT_EQ(manager_->requests.load(), requests);
  EXPECT_TRUE(zqtest::holdsPluginData(zqtest::readF64(*task, 2, 16), 2));
}

TEST_F(TaskDrive, AFailedFirstChannelLeavesNothingAndTheNextOneSelectsAgain) {
  DriveSwitches drive;
  ASSERT_TRUE(drive.loaded());
  for (int32_t failCode : {zqtestDrive_kChannelFailCode, -201003}) {
    drive.channelFailCode(failCode);
    const int64_t tasksBefore = drive.counter(zqtestDrive_tasksLive);
    const int64_t contextsBefore = drive.counter(zqtestDrive_contextsLive);
    auto task = zqtest::makeDriveTask(manager_, "Failing");
    const int requests = manager_->requests.load();
    EXPECT_EQ(zqtest::addChannel(*task, "Dev1/ai0, Dev1/fail"), failCode);
    EXPECT_EQ(task->pluginName(), "");
    EXPECT_TRUE(task->deviceNames().empty());
    EXPECT_FALSE(task->hasPluginTask());
    EXPECT_EQ(drive.counter(zqtestDrive_tasksLive), tasksBefore);
    EXPECT_EQ(drive.counter(zqtestDrive_contextsLive), contextsBefore);

    ASSERT_EQ(zqtest::addChannel(*task, "Dev2/ai0"), 0);
    EXPECT_EQ(manager_->requests.load(), requests + 2) << "the selector was asked again";
    EXPECT_EQ(task->pluginName(), zqtest::kDrivePlugin);
    EXPECT_EQ(task->deviceNames(), zqvorexRedir::NameSet{"Dev2"});
    int32_t code = -1;
    EXPECT_EQ(zqtest::taskDevices(*task, &code), std::vector<std::string>{"Dev2"});
    EXPECT_EQ(drive.counter(zqtestDrive_tasksLive), tasksBefore + 1);
  }
  drive.channelFailCode(zqtestDrive_kChannelFailCode);
  const auto lines = zqtest::driveLogLines();
  const auto destroyed = std::find(lines.begin(), lines.end(), "destroyTask Failing");
  ASSERT_NE(destroyed, lines.end());
  EXPECT_NE(std::find(destroyed, lines.end(), "destroyContext 127.0.0.1"), lines.end());
}

TEST_F(TaskDrive, RollbackOfTheLastDeviceUnbindsTheTask) {
  DriveSwitches drive;
  ASSERT_TRUE(drive.loaded());
  const int64_t tasksBefore = drive.counter(zqtestDrive_tasksLive);
  auto task = zqtest::makeDriveTask(manager_, "Rolled");
  ASSERT_EQ(zqtest::addChannel(*task, "Dev1/ai0", "a"), 0);
  ASSERT_EQ(zqtest::addChannel(*task, "Dev2/ai0, Dev2/ai1", "b,c"), 0);
  ASSERT_EQ(task->deviceNames(), (zqvorexRedir::NameSet{"Dev1", "Dev2"}));

  zqerr::Status status;
  task->rollbackFailedChannelCreations("b,c", &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(task->deviceNames(), zqvorexRedir::NameSet{"Dev1"});
  EXPECT_EQ(task->physicalChannels(), zqvorexRedir::NameSet{"Dev1/ai0"});
  EXPECT_TRUE(task->hasPluginTask());

  task->rollbackFailedChannelCreations("a", &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_TRUE(task->deviceNames().empty());
  EXPECT_TRUE(task->physicalChannels().empty());
  EXPECT_FALSE(task->hasPluginTask());
  EXPECT_EQ(drive.counter(zqtestDrive_tasksLive), tasksBefore);
  EXPECT_TRUE(logHas("destroyTask Rolled"));
  EXPECT_EQ(zqtest::readF64(*task, 2, 16).code, kNoChansInTask);
}

}  // namespace
