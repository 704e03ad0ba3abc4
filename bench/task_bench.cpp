// What the task object adds to a forwarded operation (the lock, the session and binding checks,
// and for reads and writes the test for a debug target), against a direct call of the same
// plug-in operation, measured side by side in the same run. "ratio_to_direct" is task time over
// direct time, "allocs_per_call" the heap allocations of one call through the task.
//
// Neither path may allocate: a read hands the caller's array to the plug-in as it is, and with
// no debug target attached nothing is copied or shown. Each benchmark fails (SkipWithError)
// when the task allocates.
#include <benchmark/benchmark.h>

#include "side_by_side.h"
#include "bound_task.h"
#include "boundary/array_buffer_adapter.h"
#include "boundary/array_view.h"

namespace {

using zqbench::BoundTask;

template <class ThroughTask, class Direct>
void compare(benchmark::State& state, ThroughTask throughTask, Direct direct) {
  zqbench::sideBySide(state, throughTask, direct, "a call through the task allocated");
}

void BufferAttribute_TaskVsDirect(benchmark::State& state) {
  BoundTask bound;
  const zqgopher::StringArrayView noChannels;
  compare(
      state,
      [&] {
        zqerr::Status status;
        uint64_t size = bound.task->getBufferAttributeSize(noChannels, 0x186C, &status);
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(status.code);
      },
      [&] {
        zqerr::Status status;
        uint64_t size = bound.plugin->getBufferAttributeSize(bound.handle(), noChannels.boundary(), 0x186C, &status);
        benchmark::DoNotOptimize(size);
        benchmark::DoNotOptimize(status.code);
      });
}
BENCHMARK(BufferAttribute_TaskVsDirect)->UseManualTime();

// A read of 1,000 samples into the caller's array: the task passes the same adapter on.
void Read_TaskVsDirect(benchmark::State& state) {
  BoundTask bound;
  static double samples[1000];
  compare(
      state,
      [&] {
        zqerr::Status status;
        zqgopher::ArrayBufferAdapter buffer(samples, 1000, &status);
        uint32_t read = bound.task->readScaledVectorF64(0, buffer.boundary(), nullptr, 1000, 10.0, nullptr, &status);
        benchmark::DoNotOptimize(read);
      },
      [&] {
        zqerr::Status status;
        zqgopher::ArrayBufferAdapter buffer(samples, 1000, &status);
        uint32_t read =
            bound.plugin->readScaledVectorF64(bound.handle(), 0, buffer.boundary(), nullptr, 1000, 10.0, nullptr, &status);
        benchmark::DoNotOptimize(read);
      });
}
BENCHMARK(Read_TaskVsDirect)->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
