// What the generic attribute entries add to a call: the entry that takes the id against the
// named accessor it dispatches to, both through the exported functions, side by side in the
// same run and with tracing off. Each benchmark's time is the generic call's;
// "ratio_to_direct" is generic time over named time and "allocs_per_call" the heap
// allocations of one generic call, which must be none (the benchmark fails otherwise).
//
// The Chan class is the largest (570 ids), so its dispatch is the deepest; the Set goes through
// the variadic walk that fills the slots.
#include <benchmark/benchmark.h>

#include <memory>
#include <type_traits>

#include "constant_task.h"
#include "side_by_side.h"
#include "zqcai_rd_mbcs.h"
#include "task/itask.h"
#include "tracing/trace.h"

namespace {

using zqvorexRedir::ITask;

using zqbench::ConstantTask;

// Tracing off for the process, as after a start-up that found no tool.
void switchOff() {
  zqerr::FixedStatus failed = zqerr::makeFixedStatus();
  zqerr::setFixed(&failed, -50000, "bench", "generic_bench", 1);
  zqtrace::initialiseState(failed);
}

// Runs `body(handle)` for the generic and the named call over one constant task.
template <class Generic, class Named>
void compare(benchmark::State& state, Generic generic, Named named) {
  switchOff();
  auto task = std::make_shared<ConstantTask>();
  TaskHandle handle = task.get();
  zqbench::sideBySide(
      state,
      [&] {
        benchmark::DoNotOptimize(handle);
        benchmark::DoNotOptimize(generic(handle));
      },
      [&] {
        benchmark::DoNotOptimize(handle);
        benchmark::DoNotOptimize(named(handle));
      },
      "the generic entry allocated");
}

void BufferGet_GenericVsNamed(benchmark::State& state) {
  uInt32 value = 0;
  compare(
      state, [&](TaskHandle task) { return VorexGetBufferAttribute(task, Vorex_BufInputBufSize, &value); },
      [&](TaskHandle task) { return VorexGetBufInputBufSize(task, &value); });
}
BENCHMARK(BufferGet_GenericVsNamed)->UseManualTime();

void ChanGet_GenericVsNamed(benchmark::State& state) {
  float64 value = 0;
  compare(
      state, [&](TaskHandle task) { return VorexGetChanAttribute(task, "", Vorex_AIMax, &value); },
      [&](TaskHandle task) { return VorexGetAIMax(task, "", &value); });
}
BENCHMARK(ChanGet_GenericVsNamed)->UseManualTime();

void ChanSetVariadic_GenericVsNamed(benchmark::State& state) {
  compare(
      state, [](TaskHandle task) { return VorexSetChanAttribute(task, "", Vorex_AIMax, 10.0); },
      [](TaskHandle task) { return VorexSetAIMax(task, "", 10.0); });
}
BENCHMARK(ChanSetVariadic_GenericVsNamed)->UseManualTime();

void TimingExFallback_GenericVsNamed(benchmark::State& state) {
  float64 value = 0;
  compare(
      state, [&](TaskHandle task) { return VorexGetTimingAttributeEx(task, " ", Vorex_SampClkRate, &value); },
      [&](TaskHandle task) { return VorexGetSampClkRate(task, &value); });
}
BENCHMARK(TimingExFallback_GenericVsNamed)->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
