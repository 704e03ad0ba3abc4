// Tasks and events under load, through the public interface only: eight threads create and clear
// tasks under colliding names, register and unregister callbacks while a thread of the plug-in
// fires every event over and over; a clear races attribute calls and a read blocked in the
// plug-in. Every result must be one the library gives, nothing may be left behind in the
// plug-in, and the whole must end: a guard reports "deadlock" otherwise.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "zqcai_rd_mbcs.h"

#include "../task_drive/drive_switches.h"
#include "e2e_harness.h"
#include "e2e_support.h"

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 60;
constexpr int kNames = 5;  // fewer names than threads: creations collide

template <class Fn>
Fn plugin(const char* name) {
  return reinterpret_cast<Fn>(zqe2e::pluginSymbol(name));
}

struct Tally {
  std::atomic<int64_t> created{0};
  std::atomic<int64_t> collided{0};
  std::atomic<int64_t> callbacks{0};
  std::atomic<int64_t> wrong{0};
};

Tally gTally;

void expect(bool ok, const char* what, int32_t code) {
  if (ok) return;
  ++gTally.wrong;
  std::fprintf(stderr, "unexpected: %s gave %d\n", what, code);
}

void expectZero(int32_t code, const char* what) { expect(code == 0, what, code); }

int32 onSamples(TaskHandle, int32, uInt32, void*) {
  ++gTally.callbacks;
  return 0;
}

int32 onDone(TaskHandle, int32, void*) {
  ++gTally.callbacks;
  return 0;
}

// One round of one thread: a task under a shared name, its callbacks, a run, and its end.
void round(int thread, int number) {
  const std::string name = "Stress" + std::to_string((thread + number) % kNames);
  TaskHandle task = nullptr;
  int32_t code = VorexCreateTask(name.c_str(), &task);
  if (code == -200089) {
    ++gTally.collided;
    return;
  }
  expect(code == 0 && task, "VorexCreateTask", code);
  if (code != 0) return;
  ++gTally.created;
  expectZero(VorexAddGlobalChansToTask(task, "Volts0"), "VorexAddGlobalChansToTask");
  const uInt32 sync = (number % 2) ? Vorex_Val_SynchronousEventCallbacks : 0;
  expectZero(VorexRegisterEveryNSamplesEvent(task, 1, 10, sync, onSamples, nullptr), "register");
  expectZero(VorexRegisterDoneEvent(task, 0, onDone, nullptr), "register done");
  expectZero(VorexStartTask(task), "VorexStartTask");
  if (number % 3 == 0) {
    expectZero(VorexRegisterEveryNSamplesEvent(task, 1, 0, 0, nullptr, nullptr), "unregister");
    expectZero(VorexRegisterEveryNSamplesEvent(task, 1, 5, sync, onSamples, nullptr), "again");
  }
  std::this_thread::yield();
  expectZero(VorexStopTask(task), "VorexStopTask");
  expectZero(VorexClearTask(task), "VorexClearTask");
}

// A clear racing an attribute call and a read blocked in the plug-in. The read holds the task's
// lock, so the attribute call waits behind it; both hold their own reference to the task, which
// the clear does not wait for: the last of them to return destroys the task.
void clearRacingCalls(int number) {
  const std::string name = "Racing" + std::to_string(number);
  static auto blockReads = plugin<zqtestDrive_testSetBlockReads_fn>("zqtestDrive_testSetBlockReads");
  static auto awaitBlocked = plugin<zqtestDrive_testAwaitBlockedReads_fn>("zqtestDrive_testAwaitBlockedReads");
  static auto endReads = plugin<zqtestDrive_testEndBlockedReads_fn>("zqtestDrive_testEndBlockedReads");
  TaskHandle task = nullptr;
  int32_t code = VorexCreateTask(name.c_str(), &task);
  expect(code == 0, "VorexCreateTask racing", code);
  if (code != 0) return;
  expect(VorexAddGlobalChansToTask(task, "Volts0") == 0, "channel racing", 0);
  blockReads(name.c_str(), 1);
  int32_t readCode = 0;
  std::thread reader([&] {
    double data[4];
    int32 read = 0;
    readCode = VorexReadAnalogF64(task, 1, 10.0, 0, data, 4, &read, nullptr);
  });
  if (!awaitBlocked(1, 180000)) {
    std::fprintf(stderr, "deadlock: the read never blocked\n");
    std::_Exit(3);
  }
  std::atomic<bool> calling{false};
  int32_t callCode = 0;
  std::thread caller([&] {
    uInt32 value = 0;
    calling = true;
    callCode = VorexGetTaskNumChans(task, &value);
  });
  // The call starts before the read can end (a handle is not used after its task is gone):
  // it is at least about to start, and the clear gives it time to get its reference.
  while (!calling) std::this_thread::yield();
  expectZero(VorexClearTask(task), "VorexClearTask racing");
  std::this_thread::sleep_for(std::chrono::milliseconds(5));
  blockReads(name.c_str(), 0);
  endReads(name.c_str());
  reader.join();
  caller.join();
  expect(readCode == zqtestDrive_kReadAbortedCode, "the blocked read", readCode);
  expect(callCode != 0, "the attribute call, which the plug-in does not serve", callCode);
}

TEST(LifecycleStress, EverythingEndsAndNothingIsLeftBehind) {
  static auto counter = plugin<zqtestDrive_testCounter_fn>("zqtestDrive_testCounter");
  static auto storm = plugin<zqtestDrive_testFireStorm_fn>("zqtestDrive_testFireStorm");
  ASSERT_TRUE(counter && storm);
  std::atomic<bool> finished{false};
  std::thread guard([&] {
    const auto limit = std::chrono::steady_clock::now() + zqe2e::kHangGuard;
    while (!finished) {
      if (std::chrono::steady_clock::now() > limit) {
        std::fprintf(stderr, "deadlock: the stress run did not end\n");
        std::_Exit(3);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
  });
  storm(1);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([t] {
      for (int n = 0; n < kRounds; ++n) {
        round(t, n);
        if (t == 0 && n % 20 == 0) clearRacingCalls(n);
      }
    });
  for (std::thread& thread : threads) thread.join();
  storm(0);
  finished = true;
  guard.join();

  std::printf("created %lld, collided %lld, callbacks %lld\n", static_cast<long long>(gTally.created.load()),
              static_cast<long long>(gTally.collided.load()), static_cast<long long>(gTally.callbacks.load()));
  EXPECT_EQ(gTally.wrong.load(), 0);
  EXPECT_GT(gTally.created.load(), 0);
  EXPECT_GT(gTally.collided.load(), 0) << "the names never collided: the run proves less than it claims";
  EXPECT_GT(gTally.callbacks.load(), 0);
  EXPECT_EQ(counter(zqtestDrive_tasksLive), 0) << "every plug-in task was destroyed";
  EXPECT_EQ(counter(zqtestDrive_eventRefs), 0) << "the plug-in holds no event object any more";
  EXPECT_EQ(counter(zqtestDrive_eventsRegistered) - counter(zqtestDrive_eventsUnregistered), 2 * gTally.created.load())
      << "every registration not taken back went with its task";
}

}  // namespace
