// Events from the plug-in's own thread, through event objects of the test's own made like the
// library's: a table of functions, a reference count, and what fire does.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <mutex>

#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr int32_t kAcquired = 12580;
constexpr int32_t kTransferred = 12581;
constexpr int32_t kSampleClock = 12487;

// What an event object of the test holds; `fired` runs on the plug-in's thread, while `open`.
struct EventState {
  std::atomic<uint32_t> references{1};
  std::atomic<bool> open{true};
  std::atomic<int> busy{0};
  std::function<void(uint32_t count, int32_t code)> fired = [](uint32_t, int32_t) {};
};

// The object the plug-in sees: a table of one kind first, as the boundary wants it.
struct TestEvent {
  union {
    const zqgopher_IEventEveryNSamplesTable* every;
    const zqgopher_IEventDoneTable* done;
    const zqgopher_IEventSignalTable* signal;
  } table;
  EventState* state;

  static EventState& of(void* self) { return *static_cast<TestEvent*>(self)->state; }
  static uint32_t addRef(void* self) { return ++of(self).references; }
  static uint32_t release(void* self) { return --of(self).references; }
  static void fire(void* self, uint32_t count, int32_t code) {
    EventState& state = of(self);
    ++state.busy;
    if (state.open) state.fired(count, code);
    --state.busy;
  }
};

// Stops the task however the test leaves it and waits out the callbacks in flight. Made after
// the task, which is made after the event objects: so it goes first, and the event objects,
// which the task gives back when it goes, go last.
class Ending {
 public:
  Ending(zqvorexRedir::Task& task, EventState& state) : task_(task), state_(state) {}
  ~Ending() {
    state_.open = false;
    control(task_, 1);
    eventually([&] { return state_.busy.load() == 0; });
  }
  Ending(const Ending&) = delete;
  Ending& operator=(const Ending&) = delete;

 private:
  zqvorexRedir::Task& task_;
  EventState& state_;
};

template <class Self>
zqgopher_IEventBase* asBase(Self* self) {
  return reinterpret_cast<zqgopher_IEventBase*>(self);
}

const zqgopher_IEventEveryNSamplesTable kEveryTable = {
    [](zqgopher_IEventEveryNSamples* s) { return TestEvent::addRef(s); },
    [](zqgopher_IEventEveryNSamples* s) { return TestEvent::release(s); },
    [](zqgopher_IEventEveryNSamples* s) { return asBase(s); },
    [](zqgopher_IEventEveryNSamples* s) { return s; },
    [](zqgopher_IEventEveryNSamples*) -> zqgopher_IEventDone* { return nullptr; },
    [](zqgopher_IEventEveryNSamples*) -> zqgopher_IEventSignal* { return nullptr; },
    [](zqgopher_IEventEveryNSamples* s, uint32_t count, uint32_t, zqerr_Status*) {
      TestEvent::fire(s, count, 0);
    }};

const zqgopher_IEventDoneTable kDoneTable = {
    [](zqgopher_IEventDone* s) { return TestEvent::addRef(s); },
    [](zqgopher_IEventDone* s) { return TestEvent::release(s); },
    [](zqgopher_IEventDone* s) { return asBase(s); },
    [](zqgopher_IEventDone*) -> zqgopher_IEventEveryNSamples* { return nullptr; },
    [](zqgopher_IEventDone* s) { return s; },
    [](zqgopher_IEventDone*) -> zqgopher_IEventSignal* { return nullptr; },
    [](zqgopher_IEventDone* s, const zqerr_Status* task, zqerr_Status*) {
      TestEvent::fire(s, 1, task->code);
    }};

const zqgopher_IEventSignalTable kSignalTable = {
    [](zqgopher_IEventSignal* s) { return TestEvent::addRef(s); },
    [](zqgopher_IEventSignal* s) { return TestEvent::release(s); },
    [](zqgopher_IEventSignal* s) { return asBase(s); },
    [](zqgopher_IEventSignal*) -> zqgopher_IEventEveryNSamples* { return nullptr; },
    [](zqgopher_IEventSignal*) -> zqgopher_IEventDone* { return nullptr; },
    [](zqgopher_IEventSignal* s) { return s; },
    [](zqgopher_IEventSignal* s, uint32_t count, zqerr_Status*) { TestEvent::fire(s, count, 0); }};

std::shared_ptr<zqvorexRedir::Task> acquisition(const std::string& name, const std::string& inputs,
                                                double rate, int32_t mode, uint64_t samples) {
  auto task = makeTask(name);
  EXPECT_EQ(addVoltage(*task, inputs).code, 0);
  EXPECT_EQ(sampleClock(*task, rate, mode, samples).code, 0);
  return task;
}

// Every 10,000 samples of four channels at 100 kS/s the callback reads what it is told, as an
// application does; no read falls short and nothing overruns. The buffer holds 20 s of samples,
// as a busy machine (or ThreadSanitizer) may hold the callback back for a while.
TEST(Events, EveryNSamplesCallbacksReadWhatTheyAreTold) {
  std::mutex mutex;
  std::vector<Samples> reads;
  EventState state;
  TestEvent event{{}, &state};
  event.table.every = &kEveryTable;
  auto task = acquisition("every n", "SimDev1/ai0:3", 100000, Vorex_Val_ContSamps, 2000000);
  state.fired = [&](uint32_t count, int32_t) {
    for (uint32_t i = 0; i < count; ++i) {
      Samples read = readVoltages(*task, 10000, 10.0, 40000);
      std::lock_guard<std::mutex> guard(mutex);
      reads.push_back(std::move(read));
    }
  };
  zqerr::Status status;
  task->registerEveryNSamplesEvent(kAcquired, 10000, true,
                                   reinterpret_cast<zqgopher_IEventEveryNSamples*>(&event), &status);
  ASSERT_EQ(status.code, 0) << status.report;
  Ending ending(*task, state);
  ASSERT_EQ(control(*task, 0).code, 0);
  ASSERT_TRUE(eventually([&] {
    std::lock_guard<std::mutex> guard(mutex);
    return reads.size() >= 20;
  }));
  ASSERT_EQ(control(*task, 1).code, 0);
  std::lock_guard<std::mutex> guard(mutex);
  for (const Samples& read : reads) {
    EXPECT_EQ(read.outcome.code, 0) << read.outcome.report;
    EXPECT_EQ(read.count, 10000u);
    for (uint32_t k = 0; k < 40000; ++k) ASSERT_LE(std::fabs(read.data[k]), 2.5 + 0.002);
  }
}

TEST(Events, DoneComesWhenAFiniteAcquisitionEnds) {
  std::atomic<int> done{0};
  std::atomic<int32_t> code{1};
  EventState state;
  TestEvent event{{}, &state};
  event.table.done = &kDoneTable;
  state.fired = [&](uint32_t, int32_t taskCode) {
    code = taskCode;
    ++done;
  };
  auto task = acquisition("done", "SimDev1/ai5", 10000, Vorex_Val_FiniteSamps, 500);
  zqerr::Status status;
  task->registerDoneEvent(true, reinterpret_cast<zqgopher_IEventDone*>(&event), &status);
  Ending ending(*task, state);
  ASSERT_EQ(control(*task, 0).code, 0);
  ASSERT_TRUE(eventually([&] { return done.load() == 1; }));
  EXPECT_EQ(code.load(), 0);
  const Samples read = readVoltages(*task, -1, 10.0, 500);
  EXPECT_EQ(read.count, 500u) << "the samples wait in the buffer after the end";
}

TEST(Events, DoneCarriesTheFailureThatEndedTheTask) {
  std::atomic<int32_t> code{0};
  EventState state;
  TestEvent event{{}, &state};
  event.table.done = &kDoneTable;
  state.fired = [&](uint32_t, int32_t taskCode) { code = taskCode; };
  auto task = acquisition("done by overrun", "SimDev1/ai5", 10000, Vorex_Val_ContSamps, 1000);
  zqerr::Status status;
  task->setBufferAttributeSize(zqgopher::StringArrayView(), 6252, 1000, &status);
  task->registerDoneEvent(true, reinterpret_cast<zqgopher_IEventDone*>(&event), &status);
  Ending ending(*task, state);
  ASSERT_EQ(control(*task, 0).code, 0);
  ASSERT_TRUE(eventually([&] { return code.load() != 0; }));
  EXPECT_EQ(code.load(), nZQMDEV::kErrorReadOverrun);
}

TEST(Events, TheSampleClockSignalIsToldOncePerSample) {
  std::atomic<uint32_t> ticks{0};
  EventState state;
  TestEvent event{{}, &state};
  event.table.signal = &kSignalTable;
  state.fired = [&](uint32_t count, int32_t) { ticks += count; };
  auto task = acquisition("clock signal", "SimDev1/ai5", 20000, Vorex_Val_FiniteSamps, 1000);
  zqerr::Status status;
  task->registerSignalEvent(kSampleClock, true, reinterpret_cast<zqgopher_IEventSignal*>(&event), &status);
  ASSERT_EQ(status.code, 0) << status.report;
  Ending ending(*task, state);
  ASSERT_EQ(control(*task, 0).code, 0);
  task->waitUntilTaskDone(60.0, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_TRUE(eventually([&] { return ticks.load() >= 1000; }));
  EXPECT_EQ(ticks.load(), 1000u);
}

TEST(Events, ThePlugInGivesItsReferenceBackWhenTheEventGoes) {
  EventState state;
  TestEvent event{{}, &state};
  event.table.every = &kEveryTable;
  auto task = acquisition("references", "SimDev1/ai5", 1000, Vorex_Val_ContSamps, 1000);
  zqerr::Status status;
  const auto token = task->registerEveryNSamplesEvent(
      kAcquired, 100, true, reinterpret_cast<zqgopher_IEventEveryNSamples*>(&event), &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(state.references.load(), 2u);
  task->unregisterEvent(token, &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(state.references.load(), 1u);
  task->registerEveryNSamplesEvent(kAcquired, 100, true,
                                   reinterpret_cast<zqgopher_IEventEveryNSamples*>(&event), &status);
  EXPECT_EQ(state.references.load(), 2u);
  task.reset();
  EXPECT_EQ(state.references.load(), 1u) << "the task's end lets the event go";
}

TEST(Events, AnInputTaskRefusesEventsOfSamplesLeavingItsBuffer) {
  EventState state;
  TestEvent event{{}, &state};
  event.table.every = &kEveryTable;
  auto task = acquisition("wrong event", "SimDev1/ai5", 1000, Vorex_Val_ContSamps, 1000);
  zqerr::Status status;
  task->registerEveryNSamplesEvent(kTransferred, 100, true,
                                   reinterpret_cast<zqgopher_IEventEveryNSamples*>(&event), &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorEventNotSupported);
  EXPECT_EQ(state.references.load(), 1u);
}

}  // namespace
}  // namespace zqtest::sim
