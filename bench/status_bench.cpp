// What a successful call pays for its status: made clean, tested, released. Against an empty
// loop in the same run; allocations per iteration must stay 0.
#include <benchmark/benchmark.h>

#include "alloc_counter.h"
#include "status/error_sites.h"
#include "zqvorex_status_codes.h"

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
    zqerr::fail(&status, zqerr::Site{0, zqsite::kGlobalsNullHandle.location});
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
    ZQ_FAIL(&status, kGlobalsNullHandle);
    benchmark::DoNotOptimize(status.report);
  }
  reportAllocations(state, before);
}
BENCHMARK(FailedStatus);

}  // namespace

BENCHMARK_MAIN();
