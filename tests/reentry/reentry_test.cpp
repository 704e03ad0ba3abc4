// Callbacks that call back into the library: a callback of the task on SimDev1 stops, clears,
// reads or sets attributes of its own task or of a task on SimDev2, on the plug-in's thread
// (direct) and on behalf of the registering thread (synchronous). Every case runs under a hang
// guard: a deadlock aborts the program instead of hanging it.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <tuple>

#include "../support/reentry_hang_guard.h"
#include "e2e_platform.h"
#include "sim_installation.h"
#include "zqcai_rd_mbcs.h"

namespace {

using zqsimrun::awaitPumping;
using zqsimrun::makeVoltageTask;

constexpr int32 kForeignThread = -200979;  // the task's synchronous events belong to another thread
constexpr uInt32 kEveryN = 20;

enum class Event { everyN, done, signal };
enum class Road { direct, synchronous };
enum class Target { own, other };
enum class Action { stop, clear, read, getAttribute, setAttribute, reRegister };

// One call a callback makes, with what it must return on each road.
struct Step {
  const char* name;
  Target target;
  Action action;
  bool otherHasSyncEvents;  // the other task has synchronous callbacks of the test thread
  int32 onDirect;
  int32 onSynchronous;
};

const Step kSteps[] = {
    {"StopOwn", Target::own, Action::stop, false, 0, 0},
    {"ClearOwn", Target::own, Action::clear, false, 0, 0},
    {"ReadOwn", Target::own, Action::read, false, 0, 0},
    {"GetAttributeOwn", Target::own, Action::getAttribute, false, 0, 0},
    {"SetAttributeOwn", Target::own, Action::setAttribute, false, 0, 0},
    {"ReRegisterOwn", Target::own, Action::reRegister, false, 0, 0},
    {"StopOther", Target::other, Action::stop, false, 0, 0},
    {"ClearOther", Target::other, Action::clear, false, 0, 0},
    {"ReadOther", Target::other, Action::read, false, 0, 0},
    {"GetAttributeOther", Target::other, Action::getAttribute, false, 0, 0},
    {"SetAttributeOther", Target::other, Action::setAttribute, false, 0, 0},
    // The other task's stop and clear belong to the test thread: refused on the plug-in's
    // thread, allowed where the callback counts as the test thread's own.
    {"StopOtherOwnedByTestThread", Target::other, Action::stop, true, kForeignThread, 0},
    {"ClearOtherOwnedByTestThread", Target::other, Action::clear, true, kForeignThread, 0},
    {"ReadOtherOwnedByTestThread", Target::other, Action::read, true, 0, 0},
};

// What the callbacks of one case saw, written by the callback's thread.
struct Probe {
  const Step* step = nullptr;
  Event event = Event::everyN;
  Road road = Road::direct;
  TaskHandle own = nullptr;
  TaskHandle other = nullptr;
  uint32_t registering = 0;
  std::atomic<int> calls{0};
  std::atomic<int> late{0};    // callbacks after the callback's own stop or clear returned
  std::atomic<int> strays{0};  // callbacks on a thread their road does not allow
  std::atomic<bool> acted{false};
  std::atomic<int32> status{1};
};

int32 everyN(TaskHandle, int32, uInt32, void* data);
int32 doneOrSignal(TaskHandle, int32, void* data);  // the two share one callback type

// Registers the probe's callback for its event on its road; with `callback` false, unregisters.
int32 registerEvent(Probe& probe, bool callback) {
  const Event event = probe.event;
  const uInt32 options = probe.road == Road::synchronous ? Vorex_Val_SynchronousEventCallbacks : 0;
  switch (event) {
    case Event::everyN:
      return VorexRegisterEveryNSamplesEvent(probe.own, Vorex_Val_Acquired_Into_Buffer, callback ? kEveryN : 0, options,
                                             callback ? everyN : nullptr, callback ? &probe : nullptr);
    case Event::done:
      return VorexRegisterDoneEvent(probe.own, options, callback ? doneOrSignal : nullptr, callback ? &probe : nullptr);
    case Event::signal:
      return VorexRegisterSignalEvent(probe.own, Vorex_Val_SampleClock, options, callback ? doneOrSignal : nullptr,
                                      callback ? &probe : nullptr);
  }
  return 1;
}

bool endsOwnTask(const Step& step) {
  return step.target == Target::own && (step.action == Action::stop || step.action == Action::clear);
}

int32 callOnce(Probe& probe) {
  const Step& step = *probe.step;
  const TaskHandle task = step.target == Target::own ? probe.own : probe.other;
  switch (step.action) {
    case Action::stop: return VorexStopTask(task);
    case Action::clear: return VorexClearTask(task);
    case Action::read: {
      float64 samples[2000];
      int32 read = 0;
      return VorexReadAnalogF64(task, Vorex_Val_Auto, 0.0, Vorex_Val_GroupByChannel, samples, 2000, &read, nullptr);
    }
    case Action::getAttribute: {
      uInt32 available = 0;
      return VorexGetReadAvailSampPerChan(task, &available);
    }
    case Action::setAttribute: return VorexSetReadOverWrite(task, Vorex_Val_DoNotOverwriteUnreadSamps);
    case Action::reRegister: {
      const int32 code = registerEvent(probe, false);
      return code < 0 ? code : registerEvent(probe, true);
    }
  }
  return 1;
}

bool onRightThread(const Probe& probe) {
  const uint32_t self = zqe2e::threadId();
  // A direct callback runs on the plug-in's thread; a synchronous one on the test thread's
  // delivery thread, or in its message loop where there is none.
  if (probe.road == Road::direct || zqe2e::hasDeliveryThread()) return self != probe.registering;
  return self == probe.registering;
}

void onEvent(Probe& probe) {
  if (!onRightThread(probe)) probe.strays.fetch_add(1);
  if (probe.acted.load() && endsOwnTask(*probe.step)) probe.late.fetch_add(1);
  if (!probe.acted.exchange(true)) probe.status.store(callOnce(probe));
  probe.calls.fetch_add(1);
}

int32 everyN(TaskHandle, int32, uInt32, void* data) {
  onEvent(*static_cast<Probe*>(data));
  return 0;
}

int32 doneOrSignal(TaskHandle, int32, void* data) {
  onEvent(*static_cast<Probe*>(data));
  return 0;
}

int32 ignore(TaskHandle, int32, void*) { return 0; }

using Param = std::tuple<Event, Road, Step>;

std::string caseName(const Param& param) {
  static const char* const kEventNames[] = {"EveryN", "Done", "Signal"};
  const char* road = std::get<Road>(param) == Road::direct ? "Direct" : "Sync";
  return kEventNames[static_cast<int>(std::get<Event>(param))] + std::string(road) + std::get<Step>(param).name;
}

class CallbackCallsIn : public testing::TestWithParam<Param> {
 protected:
  void SetUp() override { zqsimrun::installSimulatedDevices("test_reentry"); }
};

TEST_P(CallbackCallsIn, ReturnsWithoutDeadlockAndEndsItsTask) {
  const auto& [event, road, step] = GetParam();
  zqtest::HangGuard guard(2 * zqsimrun::kHangGuard, [name = caseName(GetParam())] { return name; });
  Probe probe;
  probe.step = &step;
  probe.road = road;
  probe.event = event;
  probe.registering = zqe2e::threadId();
  probe.own = makeVoltageTask("Reentry Own", "SimDev1/ai0", event == Event::done);
  probe.other = makeVoltageTask("Reentry Other", "SimDev2/ai0", false);
  if (step.otherHasSyncEvents) {
    ASSERT_EQ(VorexRegisterSignalEvent(probe.other, Vorex_Val_SampleClock, Vorex_Val_SynchronousEventCallbacks,
                                       ignore, nullptr),
              0);
  }
  ASSERT_EQ(VorexStartTask(probe.other), 0);
  ASSERT_EQ(registerEvent(probe, true), 0);
  ASSERT_EQ(VorexStartTask(probe.own), 0);

  ASSERT_TRUE(awaitPumping([&] { return probe.calls.load() >= 1; })) << "no callback came";
  EXPECT_EQ(probe.status.load(), road == Road::direct ? step.onDirect : step.onSynchronous);
  // Time for events still due: none of a task its callback stopped or cleared may come.
  zqsimrun::pumpFor(std::chrono::milliseconds(60));
  const bool ownCleared = step.action == Action::clear && step.target == Target::own && probe.status.load() == 0;
  const bool otherCleared = step.action == Action::clear && step.target == Target::other && probe.status.load() == 0;
  if (!ownCleared) {
    EXPECT_EQ(VorexStopTask(probe.own), 0);
    EXPECT_EQ(VorexClearTask(probe.own), 0);
  }
  if (!otherCleared) {
    EXPECT_EQ(VorexClearTask(probe.other), 0);
  }
  EXPECT_EQ(probe.late.load(), 0);
  EXPECT_EQ(probe.strays.load(), 0);
}

INSTANTIATE_TEST_SUITE_P(Table, CallbackCallsIn,
                         testing::Combine(testing::Values(Event::everyN, Event::done, Event::signal),
                                          testing::Values(Road::direct, Road::synchronous),
                                          testing::ValuesIn(kSteps)),
                         [](const testing::TestParamInfo<Param>& info) { return caseName(info.param); });

}  // namespace
