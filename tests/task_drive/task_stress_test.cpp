// Many threads on shared and own tasks over the real plug-in: attribute changes, reads, aborts
// beside blocked reads, and channel creation on fresh tasks. Every result must be one the
// plug-in gives, the plug-in's counters must add up, and the whole must end: a guard fails
// with "deadlock" when it does not end within a generous limit.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "drive_support.h"

namespace {

using zqtest::DriveSwitches;
using zqvorexRedir::Task;

constexpr int kWorkers = 6;
constexpr int kIterations = 200;
constexpr int kFreshEvery = 10;  // a fresh task with a channel every so many iterations
constexpr int kBlockedReaders = 2;
constexpr int kBlockedReads = 20;  // per reader
constexpr int32_t kSharedIdBase = 0x7100;
constexpr int32_t kOwnId = 0x7200;

struct Tally {
  std::atomic<int64_t> reads{0};
  std::atomic<int64_t> sets{0};
  std::atomic<int64_t> aborts{0};
  std::atomic<int64_t> fresh{0};
  std::atomic<int64_t> wrong{0};  // results the plug-in never gives
};

int32_t setI32(Task& task, int32_t id, int32_t value) {
  zqerr::Status status;
  task.setTaskAttributeI32(id, value, &status);
  return status.code;
}

bool getI32Is(Task& task, int32_t id, int32_t expected) {
  zqerr::Status status;
  const int32_t value = task.getTaskAttributeI32(id, &status);
  return status.code == 0 && value == expected;
}

void note(Tally& tally, bool ok) {
  if (!ok) ++tally.wrong;
}

void freshTask(const std::shared_ptr<zqvorexRedir::IPluginManager>& manager, int worker, int iteration,
               Tally& tally) {
  auto task =
      zqtest::makeDriveTask(manager, "Fresh" + std::to_string(worker) + "_" + std::to_string(iteration));
  const std::string device = (iteration / kFreshEvery) % 2 ? "Dev3" : "Dev1";
  note(tally, zqtest::addChannel(*task, device + "/ai" + std::to_string(worker)) == 0);
  note(tally, task->hasPluginTask());
  note(tally, zqtest::holdsPluginData(zqtest::readF64(*task, 2, 8), 1));
  ++tally.reads;
  ++tally.fresh;
}

void worker(const std::shared_ptr<zqvorexRedir::IPluginManager>& manager, Task& shared, int index,
            Tally& tally) {
  auto own = zqtest::makeDriveTask(manager, "Own" + std::to_string(index));
  note(tally, zqtest::addChannel(*own, "Dev2/ai" + std::to_string(index)) == 0);
  for (int i = 0; i < kIterations; ++i) {
    note(tally, setI32(shared, kSharedIdBase + index, i) == 0);
    note(tally, getI32Is(shared, kSharedIdBase + index, i));
    note(tally, setI32(*own, kOwnId, i * 7) == 0);
    note(tally, getI32Is(*own, kOwnId, i * 7));
    tally.sets += 2;
    note(tally, zqtest::holdsPluginData(zqtest::readF64(shared, 3, 16), 2));
    note(tally, zqtest::holdsPluginData(zqtest::readF64(*own, 5, 16), 1));
    tally.reads += 2;
    zqerr::Status status;
    shared.abortTask(&status);
    note(tally, status.code == 0);
    ++tally.aborts;
    if (i % kFreshEvery == 0) freshTask(manager, index, i, tally);
  }
}

// Readers whose reads block in the plug-in until an abort, and one aborter that keeps
// aborting until every reader is through.
void blockedReads(Task& task, Tally& tally, std::atomic<int>& readersLeft) {
  for (int i = 0; i < kBlockedReads; ++i)
    note(tally, zqtest::readF64(task, 4, 16).code == zqtestDrive_kReadAbortedCode);
  --readersLeft;
}

void aborter(Task& task, Tally& tally, const std::atomic<int>& readersLeft) {
  while (readersLeft.load() > 0) {
    zqerr::Status status;
    task.abortTask(&status);
    note(tally, status.code == 0);
    ++tally.aborts;
    std::this_thread::yield();
  }
}

void runAll(const std::shared_ptr<zqvorexRedir::IPluginManager>& manager, Task& shared, Task& blocking,
            Tally& tally) {
  std::vector<std::thread> threads;
  std::atomic<int> readersLeft{kBlockedReaders};
  for (int r = 0; r < kBlockedReaders; ++r)
    threads.emplace_back([&] { blockedReads(blocking, tally, readersLeft); });
  threads.emplace_back([&] { aborter(blocking, tally, readersLeft); });
  for (int w = 0; w < kWorkers; ++w) threads.emplace_back([&, w] { worker(manager, shared, w, tally); });
  for (std::thread& thread : threads) thread.join();
}

TEST(TaskStress, ThreadsOnSharedAndOwnTasksAgreeWithThePlugin) {
  zqtest::useDriveStore();
  DriveSwitches drive;
  ASSERT_TRUE(drive.loaded());
  auto manager = std::make_shared<zqtest::CountingManager>();
  auto shared = zqtest::makeDriveTask(manager, "Shared");
  ASSERT_EQ(zqtest::addChannel(*shared, "Dev1/ai0, Dev1/ai1"), 0);
  auto blocking = zqtest::makeDriveTask(manager, "Blocking");
  ASSERT_EQ(zqtest::addChannel(*blocking, "Dev2/ai7"), 0);
  drive.blockReads("Blocking", true);

  int64_t before[zqtestDrive_counterCount];
  for (int32_t c = 0; c < zqtestDrive_counterCount; ++c) before[c] = drive.counter(c);
  Tally tally;
  std::future<void> done =
      std::async(std::launch::async, [&] { runAll(manager, *shared, *blocking, tally); });
  if (done.wait_for(std::chrono::seconds(120)) != std::future_status::ready)
    zqtest::failDeadlocked("the stress threads");
  done.get();
  drive.blockReads("Blocking", false);

  auto delta = [&](int32_t c) { return drive.counter(c) - before[c]; };
  EXPECT_EQ(tally.wrong.load(), 0);
  EXPECT_EQ(delta(zqtestDrive_reads), tally.reads.load());
  EXPECT_EQ(delta(zqtestDrive_readsAborted), int64_t{kBlockedReaders} * kBlockedReads);
  EXPECT_EQ(delta(zqtestDrive_aborts), tally.aborts.load());
  EXPECT_EQ(delta(zqtestDrive_attributeSets), tally.sets.load());
  EXPECT_EQ(tally.fresh.load(), int64_t{kWorkers} * (kIterations / kFreshEvery));
  EXPECT_EQ(delta(zqtestDrive_channelsCreated), tally.fresh.load() + kWorkers);
  // Fresh and own tasks are gone with their threads; their plug-in tasks and contexts with them.
  EXPECT_EQ(delta(zqtestDrive_tasksLive), 0);
  EXPECT_EQ(delta(zqtestDrive_contextsLive), 0);
}

}  // namespace
