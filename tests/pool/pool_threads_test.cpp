#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "pool/task_pool.h"
#include "recording_task.h"

namespace {

using nZQCAI100::TaskPool;
using nZQCAI100::TaskRef;

// Threads add, look up and remove tasks of their own while all of them look up one shared
// task. Run under ThreadSanitizer as well.
TEST(PoolThreads, DistinctTasksFromManyThreads) {
  constexpr int kThreads = 8;
  constexpr int kRounds = 200;
  zqerr::Status built;
  TaskPool pool(&built);
  TaskRef shared = zqtest::RecordingTask::create("shared");
  zqerr::Status sharedStatus;
  pool.addTask(shared, &sharedStatus);
  ASSERT_EQ(sharedStatus.code, 0);

  std::atomic<int> failures{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([&, t] {
      for (int round = 0; round < kRounds; ++round) {
        // Names of other threads differ only in case sometimes: "T3-R5" against "t3-r5" never meet.
        TaskRef task = zqtest::RecordingTask::create("T" + std::to_string(t) + "-R" + std::to_string(round));
        zqerr::Status status;
        pool.addTask(task, &status);
        if (pool.findTask(task.get()) != task) ++failures;
        if (pool.getTask(shared.get(), &status) != shared) ++failures;
        pool.removeTask(task, &status);
        if (pool.findTask(task.get()) != nullptr) ++failures;
        if (status.code != 0 || task.use_count() != 1) ++failures;
      }
    });
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(failures.load(), 0);
  EXPECT_EQ(shared.use_count(), 3);
}

}  // namespace
