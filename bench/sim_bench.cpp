// The simulated device plug-in's own cost, for the library's share to be measured against it.
//
// SampleComputation: 1,000,000 samples of each of 4 default inputs (sines with noise, scaled
// and quantized) computed into a plain array, beside the bare arithmetic of the same sines in
// the same iteration; "ratio_to_bare_sine" is the plug-in's time over the bare loop's, and
// "ns_per_sample" its time per sample.
//
// ContinuousAcquisitionCpu: a continuous acquisition of 4 inputs at 250 kS/s each (1 MS/s in
// all) read in blocks of 10 ms for 10 s of wall-clock time through the plug-in's task, with the
// process's user and system time over the wall-clock time as "core_fraction".
#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "analog_engine.h"
#include "boundary/array_buffer_adapter.h"
#include "channel_create.h"
#include "configure.h"
#include "control.h"
#include "platform.h"
#include "sim_values.h"
#include "task_io.h"

namespace {

using namespace zqsim;
constexpr uint64_t kSamples = 1000000;
constexpr uint32_t kChannels = 4;

std::vector<AnalogPlan> defaultPlans() {
  std::vector<AnalogPlan> plans;
  for (uint32_t c = 0; c < kChannels; ++c) {
    Channel channel;
    channel.kind = val::kAI;
    channel.type = val::kMeasVoltage;
    channel.store[Vorex_AIMin] = Value::f64(-10);
    channel.store[Vorex_AIMax] = Value::f64(10);
    AnalogPlan plan;
    plan.view.wave = Waveform(defaultSignal(c), c, 0, nullptr);
    std::string error;
    compileScale(channel, 0, &plan.scale, &error);
    plans.push_back(std::move(plan));
  }
  return plans;
}

void bareSines(const SampleTimes& times, double* out) {
  for (uint32_t c = 0; c < kChannels; ++c) {
    const double amplitude = 1.0 + 0.5 * c;
    const double frequency = 10.0 * (c + 1);
    for (uint64_t k = 0; k < kSamples; ++k)
      out[c * kSamples + k] = amplitude * std::sin(6.283185307179586 * frequency * times.at(k));
  }
}

double seconds(std::chrono::steady_clock::duration d) { return std::chrono::duration<double>(d).count(); }

void SampleComputation(benchmark::State& state) {
  const std::vector<AnalogPlan> plans = defaultPlans();
  std::vector<double> out(kSamples * kChannels);
  SampleTimes times;
  times.rate = 1e6;
  double plugin = 0, bare = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    computeScaled(plans, times, kSamples, 0, out.data(), false);
    benchmark::DoNotOptimize(out.data());
    const auto middle = std::chrono::steady_clock::now();
    bareSines(times, out.data());
    benchmark::DoNotOptimize(out.data());
    const auto end = std::chrono::steady_clock::now();
    plugin += seconds(middle - start);
    bare += seconds(end - middle);
    state.SetIterationTime(seconds(middle - start));
    times.first += kSamples;
  }
  const double samples = static_cast<double>(state.iterations()) * kSamples * kChannels;
  state.counters["ratio_to_bare_sine"] = plugin / bare;
  state.counters["ns_per_sample"] = plugin * 1e9 / samples;
  state.SetItemsProcessed(static_cast<int64_t>(samples));
}
BENCHMARK(SampleComputation)->UseManualTime()->Unit(benchmark::kMillisecond);

// A store holding SimDev1, made with the tool beside this program, as the local store.
bool useStore() {
  const std::string folder = platform::moduleFolder();
  const std::string store = folder + "/sim_bench_store.db";
  const std::string line = folder + "/zqstorage --store " + store + " new-sim-store --force > /dev/null";
  if (std::system(line.c_str()) != 0) return false;
  setenv("ZQCAI_STORAGE_FILE", store.c_str(), 1);
  return true;
}

void ContinuousAcquisitionCpu(benchmark::State& state) {
  if (!useStore()) {
    state.SkipWithError("the zqstorage tool could not make a store");
    return;
  }
  const double rate = 250000;
  const uint64_t block = 2500;
  std::vector<double> data(block * kChannels);
  for (auto _ : state) {
    auto task = std::make_shared<SimTask>("cpu", std::make_shared<Context>(Context{"127.0.0.1"}));
    LocalStatus status;
    createChannels(*task, "SimDev1/ai0:3", "", val::kAI, val::kMeasVoltage,
                   Store{{Vorex_AIMin, Value::f64(-10)}, {Vorex_AIMax, Value::f64(10)}}, nullptr, &status);
    configureSampleClock(*task, "", rate, val::kRising, val::kContSamps, 100000, &status);
    controlTask(*task, val::kActionStart, &status);
    const std::clock_t cpuStart = std::clock();
    const auto wallStart = std::chrono::steady_clock::now();
    uint64_t total = 0;
    while (seconds(std::chrono::steady_clock::now() - wallStart) < 10.0 && status.code == 0) {
      zqgopher::ArrayBufferAdapter buffer(data.data(), data.size(), &status);
      const zqvorexPlugin_ReadLayout layout{0, 0};
      total += readScaled(*task, buffer.boundary(), &layout, block, 10.0, &status);
    }
    const double wall = seconds(std::chrono::steady_clock::now() - wallStart);
    const double cpu = static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC;
    task->close();
    if (status.code != 0) state.SkipWithError(status.report ? status.report : "the acquisition failed");
    state.counters["core_fraction"] = cpu / wall;
    state.counters["samples_per_second"] = static_cast<double>(total * kChannels) / wall;
  }
}
BENCHMARK(ContinuousAcquisitionCpu)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

}  // namespace

BENCHMARK_MAIN();
