// The redirected task over the plug-in library zqtestDrive, in the parts that concern time and
// ownership: an abort that overtakes a read blocked in the plug-in, and the order in which
// plug-in objects and the library go. Event tokens are proven over plug-in slots in tests/task,
// the plug-in's references on event objects end to end in tests/lifecycle.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <vector>

#include "drive_support.h"

namespace {

using zqtest::CountingManager;
using zqtest::DriveSwitches;
using zqtest::logHas;
using zqtest::TaskDrive;

TEST_F(TaskDrive, AnAbortOvertakesAReadBlockedInThePlugin) {
  DriveSwitches drive;
  ASSERT_TRUE(drive.loaded());
  auto task = zqtest::makeDriveTask(manager_, "Blocked");
  ASSERT_EQ(zqtest::addChannel(*task, "Dev1/ai0"), 0);
  const int64_t abortedBefore = drive.counter(zqtestDrive_readsAborted);
  drive.blockReads("Blocked", true);
  std::future<zqtest::ReadResult> read =
      std::async(std::launch::async, [&] { return zqtest::readF64(*task, 4, 16); });
  // A read that never reaches the plug-in is stuck on the way, and its thread with it.
  if (!drive.awaitBlockedReads(1)) zqtest::failDeadlocked("the read before the abort");
  EXPECT_EQ(task->lockDepth(), 1) << "the blocked read holds the task's mutex";

  // An abort that waited for the task's mutex would never return: the guard reports that.
  std::future<int32_t> aborting = std::async(std::launch::async, [&] {
    zqerr::Status status;
    task->abortTask(&status);
    return status.code;
  });
  if (aborting.wait_for(std::chrono::seconds(120)) != std::future_status::ready)
    zqtest::failDeadlocked("abortTask");
  EXPECT_EQ(aborting.get(), 0);
  const zqtest::ReadResult result = read.get();
  EXPECT_EQ(result.code, zqtestDrive_kReadAbortedCode);
  EXPECT_EQ(result.samples, 0u);
  EXPECT_EQ(drive.counter(zqtestDrive_readsAborted), abortedBefore + 1);
  EXPECT_EQ(task->lockDepth(), 0);

  drive.blockReads("Blocked", false);
  EXPECT_TRUE(zqtest::holdsPluginData(zqtest::readF64(*task, 4, 16), 1));
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
