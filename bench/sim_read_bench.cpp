// The library's share of a read from the simulated device: VorexReadAnalogF64 of 1,000,000
// samples of SimDev1/ai0 through the shared library, its task and the plug-in, against the
// plug-in's own computation of the same samples into a plain array, in the same iteration.
//
// The task is finite, 1,000,000 samples at 1 MS/s, and is done before each timed read (the
// device's clock runs a million times as fast as the wall clock, and the wait is not timed), so
// the read computes samples that are due and never waits for the clock.
//
// Counters: "ns_per_sample_read" and "ns_per_sample_engine", "library_share" (the read's time
// beyond the engine's over the read's time), "allocs_per_read" (every heap allocation of the
// process during the read).
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "zqcai_rd_mbcs.h"

#include "alloc_counter.h"
#include "analog_engine.h"
#include "channel.h"
#include "scaling.h"
#include "signal_setting.h"
#include "sim_values.h"
#include "test_installation.h"

namespace {

constexpr int32 kSamples = 1000000;
constexpr double kRate = 1e6;

double seconds(std::chrono::steady_clock::duration d) { return std::chrono::duration<double>(d).count(); }

// The plug-in's plan for a default input 0 read as volts within ±10 V, as the task makes it.
std::vector<zqsim::AnalogPlan> enginePlan() {
  zqsim::Channel channel;
  channel.kind = zqsim::val::kAI;
  channel.type = zqsim::val::kMeasVoltage;
  channel.store[Vorex_AIMin] = zqsim::Value::f64(-10);
  channel.store[Vorex_AIMax] = zqsim::Value::f64(10);
  zqsim::AnalogPlan plan;
  plan.view.wave = zqsim::Waveform(zqsim::defaultSignal(0), 0, 0, nullptr);
  std::string error;
  zqsim::compileScale(channel, 0, &plan.scale, &error);
  return {plan};
}

// The installation the end-to-end tests make: the storage library and the plug-in in the
// shared folder, and a store holding SimDev1.
std::unique_ptr<zqtest::TestInstallation> install() {
  setenv("ZQSIM_SPEED", "1e6", 1);
  auto installation = std::make_unique<zqtest::TestInstallation>(
      "sim_read_bench", std::initializer_list<const char*>{ZQ_TEST_STORAGE_LIBRARY, ZQ_TEST_SIM_PLUGIN,
                                                          ZQ_TEST_TASK_CATALOG});
  installation->installExplanations(ZQ_TEST_ERRORS_FOLDER);
  const std::string log = installation->library("zqvorexStorage") + ".setup.txt";
  if (installation->storage(ZQ_TEST_STORAGE_TOOL, "new-sim-store --force > \"" + log + "\" 2>&1") != 0) return nullptr;
  return installation;
}

std::string lastError() {
  char text[2048] = "";
  VorexGetExtendedErrorInfo(text, sizeof text);
  return text;
}

void ReadAgainstEngine(benchmark::State& state) {
  static const std::unique_ptr<zqtest::TestInstallation> installation = install();
  if (!installation) return state.SkipWithError("the zqstorage tool could not make a store");
  TaskHandle task = 0;
  int32 code = VorexCreateTask("SimReadBench", &task);
  if (code == 0)
    code = VorexCreateAIVoltageChan(task, "SimDev1/ai0", "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts,
                                    nullptr);
  if (code == 0) code = VorexCfgSampClkTiming(task, "", kRate, Vorex_Val_Rising, Vorex_Val_FiniteSamps, kSamples);
  const std::vector<zqsim::AnalogPlan> plan = enginePlan();
  zqsim::SampleTimes times;
  times.rate = kRate;
  std::vector<float64> read(kSamples), computed(kSamples);
  double library = 0, engine = 0;
  uint64_t allocations = 0;
  for (auto _ : state) {
    if (code != 0) break;
    state.PauseTiming();
    code = VorexStartTask(task);
    if (code == 0) code = VorexWaitUntilTaskDone(task, 60.0);
    state.ResumeTiming();
    if (code != 0) break;
    int32 count = 0;
    const uint64_t before = zqbench::allocationCount();
    const auto start = std::chrono::steady_clock::now();
    code = VorexReadAnalogF64(task, kSamples, 0.0, Vorex_Val_GroupByChannel, read.data(), kSamples, &count, nullptr);
    const auto middle = std::chrono::steady_clock::now();
    allocations += zqbench::allocationCount() - before;
    zqsim::computeScaled(plan, times, kSamples, 0, computed.data(), false);
    benchmark::DoNotOptimize(computed.data());
    const auto end = std::chrono::steady_clock::now();
    library += seconds(middle - start);
    engine += seconds(end - middle);
    state.SetIterationTime(seconds(middle - start));
    if (code == 0 && count != kSamples) code = -1;
    if (code == 0) code = VorexStopTask(task);
  }
  if (code != 0) state.SkipWithError(("the read failed: " + std::to_string(code) + " " + lastError()).c_str());
  VorexClearTask(task);
  const double reads = static_cast<double>(state.iterations());
  state.counters["ns_per_sample_read"] = library * 1e9 / (reads * kSamples);
  state.counters["ns_per_sample_engine"] = engine * 1e9 / (reads * kSamples);
  state.counters["library_share"] = library > 0 ? (library - engine) / library : 0;
  state.counters["allocs_per_read"] = static_cast<double>(allocations) / reads;
  state.SetItemsProcessed(static_cast<int64_t>(reads * kSamples));
}
BENCHMARK(ReadAgainstEngine)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

BENCHMARK_MAIN();
