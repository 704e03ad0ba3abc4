// Times a batch of measured calls and a batch of baseline calls in each iteration, so both see
// the same machine at the same moment; the iteration's time is the measured batch's.
// Counters: "ratio_to_direct" (measured time over baseline time) and "allocs_per_call" (heap
// allocations of one measured call).
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdint>

#include "alloc_counter.h"

namespace zqbench {

inline constexpr int kBatch = 256;

inline double seconds(std::chrono::steady_clock::duration d) { return std::chrono::duration<double>(d).count(); }

// `ifAllocates`, when not null, fails the benchmark with that message as soon as a measured
// call allocated.
template <class Measured, class Baseline>
void sideBySide(benchmark::State& state, Measured measured, Baseline baseline, const char* ifAllocates) {
  double measuredSeconds = 0, baselineSeconds = 0;
  uint64_t allocations = 0;
  for (auto _ : state) {
    const uint64_t before = allocationCount();
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < kBatch; ++i) measured();
    const auto middle = std::chrono::steady_clock::now();
    allocations += allocationCount() - before;
    for (int i = 0; i < kBatch; ++i) baseline();
    const auto end = std::chrono::steady_clock::now();
    measuredSeconds += seconds(middle - start);
    baselineSeconds += seconds(end - middle);
    state.SetIterationTime(seconds(middle - start));
  }
  const double calls = static_cast<double>(state.iterations()) * kBatch;
  state.counters["ratio_to_direct"] = baselineSeconds > 0 ? measuredSeconds / baselineSeconds : 0;
  state.counters["allocs_per_call"] = static_cast<double>(allocations) / calls;
  state.SetItemsProcessed(static_cast<int64_t>(calls));
  if (ifAllocates && allocations != 0) state.SkipWithError(ifAllocates);
}

}  // namespace zqbench
