// What tracing costs an exported function while it is off: the opening, the parameter and
// return blocks under the cookie's test, and the guard, against the same function without them
// in the same run. Allocations per call must stay 0.
#include <benchmark/benchmark.h>

#include "alloc_counter.h"
#include "tracing/trace.h"

namespace {

void reportAllocations(benchmark::State& state, uint64_t before) {
  state.counters["allocs_per_iter"] = benchmark::Counter(
      static_cast<double>(zqbench::allocationCount() - before) / static_cast<double>(state.iterations()));
}

// Tracing off for the process, as after a start-up that found no tool.
void switchOff() {
  zqerr::FixedStatus failed = zqerr::makeFixedStatus();
  zqerr::setFixed(&failed, -50000, "bench", "tracing_bench", 1);
  zqtrace::initialiseState(failed);
}

[[gnu::noinline]] int32_t untracedGet(void* task, double* data) {
  int32_t code = task ? 0 : -200230;
  if (data) *data = 1.0;
  return code;
}

[[gnu::noinline]] int32_t tracedGet(void* task, double* data) {
  zqtrace::TraceCall trace("VorexGetAIMax");
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, task);
    trace.param("data", zqtrace::kF64AttributePointer, data);
    trace.endParams();
  }
  int32_t code = task ? 0 : -200230;
  if (data) *data = 1.0;
  if (trace) {
    if (data) trace.ret("*data", zqtrace::kF64Attribute, *data);
    trace.retval(code);
  }
  return code;
}

template <int32_t (*Get)(void*, double*)>
void Call(benchmark::State& state) {
  switchOff();
  double value = 0;
  void* task = &value;
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    benchmark::DoNotOptimize(task);
    benchmark::DoNotOptimize(Get(task, &value));
  }
  reportAllocations(state, before);
}

// The baseline: the same function with no tracing at all.
BENCHMARK(Call<untracedGet>)->Name("Baseline_UntracedGet");
BENCHMARK(Call<tracedGet>)->Name("TracingOff_TracedGet");

// The opening alone, against an empty loop body.
void Baseline_Empty(benchmark::State& state) {
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    zqtrace::Cookie cookie = 0;
    benchmark::DoNotOptimize(cookie);
  }
  reportAllocations(state, before);
}
BENCHMARK(Baseline_Empty);

void TracingOff_Opening(benchmark::State& state) {
  switchOff();
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    zqtrace::Cookie cookie = zqtrace::openCall("VorexGetAIMax");
    benchmark::DoNotOptimize(cookie);
  }
  reportAllocations(state, before);
}
BENCHMARK(TracingOff_Opening);

}  // namespace

BENCHMARK_MAIN();
