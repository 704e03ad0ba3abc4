// The test thread stops and restarts a task over and over while the task's callbacks call into
// it (a read that waits for its samples, attribute calls) or into another task: every stop
// returns, no callback of the task is running once it has, and none starts before the next
// start.
#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <set>
#include <string>

#include "../support/reentry_hang_guard.h"
#include "sim_installation.h"

namespace {

constexpr int kRounds = 20;

enum class Call { waitingReadOwn, attributesOwn, readOther };

struct Race {
  const char* name;
  bool synchronous;
  bool signal;  // the sample clock signal, else every 20 samples
  Call call;
};

const Race kRaces[] = {
    {"DirectEveryNWaitingRead", false, false, Call::waitingReadOwn},
    {"DirectEveryNAttributes", false, false, Call::attributesOwn},
    {"DirectEveryNReadOther", false, false, Call::readOther},
    {"DirectSignalAttributes", false, true, Call::attributesOwn},
    {"DirectSignalReadOther", false, true, Call::readOther},
    {"SyncEveryNWaitingRead", true, false, Call::waitingReadOwn},
    {"SyncEveryNAttributes", true, false, Call::attributesOwn},
    {"SyncEveryNReadOther", true, false, Call::readOther},
    {"SyncSignalAttributes", true, true, Call::attributesOwn},
    {"SyncSignalReadOther", true, true, Call::readOther},
};

struct Racer {
  const Race* race = nullptr;
  TaskHandle own = nullptr;
  TaskHandle other = nullptr;
  std::atomic<int> calls{0};
  std::atomic<int> running{0};       // callbacks inside now
  std::atomic<bool> stopped{false};  // set once a stop returned, until the next start
  std::atomic<int> afterStop{0};     // callbacks that began while the task was stopped
  std::mutex lock;
  std::set<int32> failures;  // the failed codes of the callbacks' calls
};

void note(Racer& racer, int32 code) {
  if (code >= 0) return;
  std::lock_guard<std::mutex> held(racer.lock);
  racer.failures.insert(code);
}

void callIn(Racer& racer) {
  float64 samples[200];
  int32 read = 0;
  switch (racer.race->call) {
    case Call::waitingReadOwn:
      note(racer, VorexReadAnalogF64(racer.own, 20, 10.0, Vorex_Val_GroupByChannel, samples, 200, &read, nullptr));
      break;
    case Call::attributesOwn: {
      uInt32 available = 0;
      uInt64 acquired = 0;
      note(racer, VorexGetReadAvailSampPerChan(racer.own, &available));
      note(racer, VorexGetReadTotalSampPerChanAcquired(racer.own, &acquired));
      note(racer, VorexSetReadOverWrite(racer.own, Vorex_Val_OverwriteUnreadSamps));
      break;
    }
    case Call::readOther:
      note(racer, VorexReadAnalogF64(racer.other, Vorex_Val_Auto, 0.0, Vorex_Val_GroupByChannel, samples, 200, &read,
                                     nullptr));
      break;
  }
}

void onEvent(Racer& racer) {
  if (racer.stopped.load()) racer.afterStop.fetch_add(1);
  racer.running.fetch_add(1);
  callIn(racer);
  racer.running.fetch_sub(1);
  racer.calls.fetch_add(1);
}

int32 everyN(TaskHandle, int32, uInt32, void* data) {
  onEvent(*static_cast<Racer*>(data));
  return 0;
}

int32 onSignal(TaskHandle, int32, void* data) {
  onEvent(*static_cast<Racer*>(data));
  return 0;
}

class StopWhileCallbacksCallIn : public testing::TestWithParam<Race> {
 protected:
  void SetUp() override { zqsimrun::installSimulatedDevices("test_reentry"); }
};

TEST_P(StopWhileCallbacksCallIn, EveryStopReturnsAndEndsTheCallbacks) {
  const Race& race = GetParam();
  zqtest::HangGuard guard(2 * zqsimrun::kHangGuard, [&race] { return std::string(race.name); });
  Racer racer;
  racer.race = &race;
  racer.own = zqsimrun::makeVoltageTask("Race Own", "SimDev1/ai0", false);
  racer.other = zqsimrun::makeVoltageTask("Race Other", "SimDev2/ai0", false);
  ASSERT_EQ(VorexStartTask(racer.other), 0);
  const uInt32 options = race.synchronous ? Vorex_Val_SynchronousEventCallbacks : 0;
  const int32 registered =
      race.signal ? VorexRegisterSignalEvent(racer.own, Vorex_Val_SampleClock, options, onSignal, &racer)
                  : VorexRegisterEveryNSamplesEvent(racer.own, Vorex_Val_Acquired_Into_Buffer, 20, options, everyN, &racer);
  ASSERT_EQ(registered, 0);
  for (int round = 1; round <= kRounds; ++round) {
    racer.stopped.store(false);
    ASSERT_EQ(VorexStartTask(racer.own), 0) << "round " << round;
    const int before = racer.calls.load();
    ASSERT_TRUE(zqsimrun::awaitPumping([&] { return racer.calls.load() >= before + 2; })) << "round " << round;
    ASSERT_EQ(VorexStopTask(racer.own), 0) << "round " << round;
    EXPECT_EQ(racer.running.load(), 0) << "a callback still runs after the stop returned, round " << round;
    racer.stopped.store(true);
  }
  // Events the plug-in had still due: none may reach a callback before the next start.
  zqsimrun::pumpFor(std::chrono::milliseconds(60));
  EXPECT_EQ(racer.afterStop.load(), 0);
  EXPECT_EQ(VorexClearTask(racer.own), 0);
  EXPECT_EQ(VorexClearTask(racer.other), 0);
  std::string codes;
  for (int32 code : racer.failures) codes += " " + std::to_string(code);
  EXPECT_TRUE(racer.failures.empty()) << "the callbacks' calls failed with" << codes;
}

INSTANTIATE_TEST_SUITE_P(Table, StopWhileCallbacksCallIn, testing::ValuesIn(kRaces),
                         [](const testing::TestParamInfo<Race>& info) { return std::string(info.param.name); });

}  // namespace
