// What a successful call pays for its status: made clean, tested, released. Against an empty
// loop in the same run; allocations per iteration must stay 0.
#include <benchmark/benchmark.h>

#include "alloc_counter.h"
#include "status/status.h"
#include "status/status_codes.h"

namespace {

void reportAllocations(benchmark::State& state, uint64_t before) {
  state.counters["allocs_per_iter"] = benchmark::Counter(
      static_cast<double>(zqbench::allocationCount() - before) / static_cast<double>(state.iterations()));
}

void Baseline(benchmark::State& state) {
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    int32_t code = 0;
    benchmark::DoNotOptimize(code);
  }
  reportAllocations(state, before);
}
BENCHMARK(Baseline);

void CleanStatus(benchmark::State& state) {
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    zqerr::Status status;
    benchmark::DoNotOptimize(&status);
    zqerr::setWithLocation(&status, 0, ZQ_SITE("bench", 1, none));
    benchmark::DoNotOptimize(zqerr::isOpen(&status));
  }
  reportAllocations(state, before);
}
BENCHMARK(CleanStatus);

// For scale: a failing status that writes its site report.
void FailedStatus(benchmark::State& state) {
  uint64_t before = zqbench::allocationCount();
  for (auto _ : state) {
    zqerr::Status status;
    ZQ_FAIL(&status, nZQMSTS100::kErrorNULLPtr, "APIImplementation", 1);
    benchmark::DoNotOptimize(status.report);
  }
  reportAllocations(state, before);
}
BENCHMARK(FailedStatus);

}  // namespace

BENCHMARK_MAIN();
