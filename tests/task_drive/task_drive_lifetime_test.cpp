// The redirected task over the plug-in library zqtestDrive, in the parts that concern time and
// ownership: an abort that overtakes a read blocked in the plug-in, event tokens, and the
// order in which plug-in objects and the library go.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <vector>

#include "task_drive_fixture.h"

namespace {

using zqtest::CountingManager;
using zqtest::DriveSwitches;
using zqtest::logHas;
using zqtest::TaskDrive;
using zqvorexRedir::Task;

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

// What a plug-in event registration hands out, and what the task keeps of it.
struct EventCase {
  const char* what;
  int32_t eventId;
  zqvorexPlugin_EventToken (*registerOn)(Task& task, zqerr_Status* status);
};

// An event object that the plug-in holds and never fires here: it counts the references the
// plug-in takes and gives back.
std::atomic<int> eventReferences{0};
uint32_t addReference(zqgopher_IEventBase*) { return static_cast<uint32_t>(++eventReferences); }
uint32_t releaseReference(zqgopher_IEventBase*) { return static_cast<uint32_t>(--eventReferences); }
const zqgopher_IEventBaseTable kCountingTable{&addReference, &releaseReference, nullptr, nullptr, nullptr, nullptr};
zqgopher_IEventBase eventObject{&kCountingTable};

const EventCase kEventCases[] = {
    {"done", 12576,
     [](Task& task, zqerr_Status* status) {
       return task.registerDoneEvent(false, reinterpret_cast<zqgopher_IEventDone*>(&eventObject), status);
     }},
    {"every N samples", 12580,
     [](Task& task, zqerr_Status* status) {
       return task.registerEveryNSamplesEvent(
           12580, 100, false, reinterpret_cast<zqgopher_IEventEveryNSamples*>(&eventObject), status);
     }},
    {"signal", 12575,
     [](Task& task, zqerr_Status* status) {
       return task.registerSignalEvent(10, false, reinterpret_cast<zqgopher_IEventSignal*>(&eventObject),
                                       status);
     }},
};

TEST_F(TaskDrive, EventTokensComeFromThePluginAndGoBackToIt) {
  DriveSwitches drive;
  ASSERT_TRUE(drive.loaded());
  const int64_t unregisteredBefore = drive.counter(zqtestDrive_eventsUnregistered);
  for (const char* name : {"EventsA", "EventsB"}) {
    auto task = zqtest::makeDriveTask(manager_, name);
    ASSERT_EQ(zqtest::addChannel(*task, "Dev3/ai0"), 0);
    zqvorexPlugin_EventToken expected = 1;  // the plug-in counts per task
    for (const EventCase& c : kEventCases) {
      zqerr::Status status;
      const zqvorexPlugin_EventToken token = c.registerOn(*task, &status);
      EXPECT_EQ(status.code, 0) << c.what;
      EXPECT_EQ(token, expected) << c.what;
      EXPECT_EQ(task->getEvents(c.eventId, &status), zqvorexRedir::EventTokens{token}) << c.what;
      ++expected;
    }
    zqerr::Status status;
    task->unregisterEvent(2, &status);
    EXPECT_EQ(status.code, 0);
    EXPECT_TRUE(task->getEvents(12580, &status).empty());
    task->unregisterEvent(2, &status);
    EXPECT_EQ(status.code, zqtestDrive_kUnknownTokenCode) << "the plug-in no longer knows the token";
    EXPECT_EQ(eventReferences.load(), 2) << "the plug-in holds the two objects still registered";
  }
  EXPECT_EQ(drive.counter(zqtestDrive_eventsUnregistered), unregisteredBefore + 2);
  EXPECT_EQ(eventReferences.load(), 0) << "the plug-in let go of every object with its task";
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
