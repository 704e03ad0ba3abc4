// From a plug-in's fire to the application's callback, through the shared library and a real
// task on the test plug-in, against what the hand-off needs at least, measured in the same run:
//
//   Direct/...        fire runs the callback at once on the firing thread; the baseline is an
//                     indirect call of a function that does what the callback does.
//   Synchronous/...   fire queues the callback for the registering thread's delivery thread; the
//                     baseline is a bare condition-variable hand-off to a waiting thread.
//
// Latency is one event at a time, from before fire to the callback's first line: the median and
// the 99th percentile of each, and their ratio. Throughput is events back to back in batches the
// queue holds. "allocs_per_event" counts every heap allocation of the process while events flow,
// the delivery thread's included: the fire path must not allocate.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "zqcai_rd_mbcs.h"
#include "zqgopher_boundary.h"

#include "../tests/task_drive/drive_switches.h"
#include "alloc_counter.h"
#include "e2e_harness.h"

namespace {

using Clock = std::chrono::steady_clock;

int64_t nowNs() { return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count(); }

// What a callback does, here and in the baselines: note when it ran and count it.
std::atomic<int64_t> gEnteredAt{0};
std::atomic<uint64_t> gDelivered{0};

void arrive() {
  gEnteredAt.store(nowNs(), std::memory_order_relaxed);
  gDelivered.fetch_add(1, std::memory_order_release);
}

int32 onEvent(TaskHandle, int32, uInt32, void*) {
  arrive();
  return 0;
}

void awaitDelivered(uint64_t count) {
  while (gDelivered.load(std::memory_order_acquire) < count) std::this_thread::yield();
}

[[noreturn]] void setupFailed(const char* what, int32_t code) {
  std::fprintf(stderr, "events_bench: %s gave %d\n", what, code);
  std::exit(2);
}

// A task of the test plug-in with an every-N-samples registration, and the event object the
// plug-in would fire.
struct Registered {
  TaskHandle task = nullptr;
  zqgopher_IEventEveryNSamples* event = nullptr;

  Registered(const char* name, uInt32 options) {
    auto take = reinterpret_cast<zqtestDrive_testTakeEvent_fn>(zqe2e::pluginSymbol("zqtestDrive_testTakeEvent"));
    int32_t code = VorexCreateTask(name, &task);
    if (code == 0) code = VorexAddGlobalChansToTask(task, "Volts0");
    if (code == 0) code = VorexRegisterEveryNSamplesEvent(task, 1, 100, options, onEvent, nullptr);
    if (code == 0) code = VorexStartTask(task);
    if (code != 0) setupFailed(name, code);
    event = static_cast<zqgopher_IEventEveryNSamples*>(take(name, 12580));
    if (!event) setupFailed("taking the event object", -1);
  }
  void fire() const {
    zqerr_Status status{0, 0, nullptr, nullptr};
    event->table->fire(event, 1, 0, &status);
  }
};

const Registered& direct() {
  static Registered registered("Bench Direct", 0);
  return registered;
}

const Registered& synchronous() {
  static Registered registered("Bench Synchronous", Vorex_Val_SynchronousEventCallbacks);
  return registered;
}

// The baseline of the synchronous road: a thread that waits for work under a condition.
class HandOff {
 public:
  HandOff() : consumer_([this] { run(); }) {}
  ~HandOff() {
    {
      std::lock_guard<std::mutex> held(mutex_);
      stop_ = true;
    }
    ready_.notify_one();
    consumer_.join();
  }
  void post() {
    {
      std::lock_guard<std::mutex> held(mutex_);
      ++pending_;
    }
    ready_.notify_one();
  }

 private:
  void run() {
    std::unique_lock<std::mutex> held(mutex_);
    for (;;) {
      ready_.wait(held, [this] { return stop_ || pending_ > 0; });
      if (stop_) return;
      --pending_;
      held.unlock();
      arrive();
      held.lock();
    }
  }
  std::mutex mutex_;
  std::condition_variable ready_;
  uint64_t pending_ = 0;
  bool stop_ = false;
  std::thread consumer_;
};

// One event's latency on a road: from before `send` to the callback's first line.
template <class Send>
int64_t oneLatency(Send&& send) {
  const uint64_t before = gDelivered.load(std::memory_order_acquire);
  const int64_t start = nowNs();
  send();
  awaitDelivered(before + 1);
  return gEnteredAt.load(std::memory_order_relaxed) - start;
}

double percentile(std::vector<int64_t>& samples, double p) {
  std::sort(samples.begin(), samples.end());
  return static_cast<double>(samples[static_cast<size_t>(p * static_cast<double>(samples.size() - 1))]);
}

template <class Measured, class Baseline>
void latency(benchmark::State& state, Measured measured, Baseline baseline) {
  constexpr size_t kSamples = 2000;
  std::vector<int64_t> road, bare;
  road.reserve(kSamples * static_cast<size_t>(state.max_iterations));
  bare.reserve(kSamples * static_cast<size_t>(state.max_iterations));
  oneLatency(measured);  // the task and its registration are made at the first event
  uint64_t allocations = 0, events = 0;
  for (auto _ : state) {
    const uint64_t before = zqbench::allocationCount();
    for (size_t i = 0; i < kSamples; ++i) road.push_back(oneLatency(measured));
    allocations += zqbench::allocationCount() - before;
    events += kSamples;
    for (size_t i = 0; i < kSamples; ++i) bare.push_back(oneLatency(baseline));
  }
  const double roadMedian = percentile(road, 0.5), bareMedian = percentile(bare, 0.5);
  state.counters["median_ns"] = roadMedian;
  state.counters["p99_ns"] = percentile(road, 0.99);
  state.counters["baseline_median_ns"] = bareMedian;
  state.counters["baseline_p99_ns"] = percentile(bare, 0.99);
  state.counters["median_ratio"] = bareMedian > 0 ? roadMedian / bareMedian : 0;
  state.counters["allocs_per_event"] = static_cast<double>(allocations) / static_cast<double>(events);
  if (allocations != 0) state.SkipWithError("the fire path allocated");
}

template <class Measured, class Baseline>
void throughput(benchmark::State& state, Measured measured, Baseline baseline) {
  constexpr uint64_t kBatch = 1000;  // the delivery queue holds 4096
  double roadSeconds = 0, bareSeconds = 0;
  uint64_t allocations = 0, events = 0;
  auto batch = [](auto&& send) {
    const uint64_t target = gDelivered.load(std::memory_order_acquire) + kBatch;
    const auto start = Clock::now();
    for (uint64_t i = 0; i < kBatch; ++i) send();
    awaitDelivered(target);
    return std::chrono::duration<double>(Clock::now() - start).count();
  };
  batch(measured);
  for (auto _ : state) {
    const uint64_t before = zqbench::allocationCount();
    roadSeconds += batch(measured);
    allocations += zqbench::allocationCount() - before;
    bareSeconds += batch(baseline);
    events += kBatch;
  }
  state.counters["events_per_s"] = static_cast<double>(events) / roadSeconds;
  state.counters["baseline_events_per_s"] = static_cast<double>(events) / bareSeconds;
  state.counters["ratio_to_baseline"] = roadSeconds / bareSeconds;
  state.counters["allocs_per_event"] = static_cast<double>(allocations) / static_cast<double>(events);
  if (allocations != 0) state.SkipWithError("the fire path allocated");
}

__attribute__((noinline)) void callbackByPointer(void (*callback)()) { callback(); }

void Direct_Latency(benchmark::State& state) {
  latency(
      state, [] { direct().fire(); }, [] { callbackByPointer(&arrive); });
}
BENCHMARK(Direct_Latency)->Iterations(20);

void Synchronous_Latency(benchmark::State& state) {
  static HandOff handOff;
  latency(
      state, [] { synchronous().fire(); }, [] { handOff.post(); });
}
BENCHMARK(Synchronous_Latency)->Iterations(10);

void Synchronous_Throughput(benchmark::State& state) {
  static HandOff handOff;
  throughput(
      state, [] { synchronous().fire(); }, [] { handOff.post(); });
}
BENCHMARK(Synchronous_Throughput)->Iterations(50);

}  // namespace

BENCHMARK_MAIN();
