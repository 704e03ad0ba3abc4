// What the accessor frame costs with tracing off, against a direct call of the same task
// operation through a shared reference, measured side by side in the same run. Each
// benchmark's time is the frame's; "ratio_to_direct" is frame time over direct time and
// "allocs_per_call" the heap allocations of one frame call.
//
// A scalar Get without a channel must not allocate: its benchmark fails (SkipWithError) when
// it does. A Get with a one-name channel parses the list and builds its view, and reports what
// that allocates.
#include <benchmark/benchmark.h>

#include <memory>
#include <type_traits>

#include "constant_task.h"
#include "side_by_side.h"
#include "boundary/array_view.h"
#include "frame/scalar_frame.h"
#include "task/itask.h"
#include "tracing/trace.h"

namespace {

using zqvorexRedir::ITask;

using zqbench::ConstantTask;

constexpr zqframe::AccessorInfo kBufSize{"VorexGetBufInputBufSize", 0x186C, nullptr, 1};
constexpr zqframe::AccessorInfo kAIMax{"VorexGetAIMax", 0x17DD, "channel", 2};
constexpr const char* kOneChannel = "Dev1/ai0";

// Tracing off for the process, as after a start-up that found no tool.
void switchOff() {
  zqerr::FixedStatus failed = zqerr::makeFixedStatus();
  zqerr::setFixed(&failed, -50000, "bench", "accessor_bench", 1);
  zqtrace::initialiseState(failed);
}

template <class Frame, class Direct>
void compare(benchmark::State& state, Frame frame, Direct direct, bool mustNotAllocate) {
  switchOff();
  zqbench::sideBySide(state, frame, direct, mustNotAllocate ? "the scalar Get frame allocated" : nullptr);
}

void ScalarGet_FrameVsDirect(benchmark::State& state) {
  auto task = std::make_shared<ConstantTask>();
  std::shared_ptr<ITask> shared = task;
  ITask* handle = task.get();
  const zqgopher::StringArrayView emptyView;
  compare(
      state,
      [&] {
        uint32_t data = 0;
        benchmark::DoNotOptimize(handle);
        int32_t code = zqframe::getScalar<zqframe::ClassU32Size, &ITask::getBufferAttributeSize>(kBufSize, handle,
                                                                                                 nullptr, &data);
        benchmark::DoNotOptimize(code);
        benchmark::DoNotOptimize(data);
      },
      [&] {
        zqerr::Status status;
        benchmark::DoNotOptimize(shared);
        uint64_t data = shared->getBufferAttributeSize(emptyView, kBufSize.attributeId, &status);
        benchmark::DoNotOptimize(status.code);
        benchmark::DoNotOptimize(data);
      },
      true);
}
BENCHMARK(ScalarGet_FrameVsDirect)->UseManualTime();

void ChannelGet_FrameVsDirect(benchmark::State& state) {
  auto task = std::make_shared<ConstantTask>();
  std::shared_ptr<ITask> shared = task;
  ITask* handle = task.get();
  const std::vector<std::string> names{kOneChannel};
  const zqgopher::StringArrayView view(names);
  compare(
      state,
      [&] {
        double data = 0;
        benchmark::DoNotOptimize(handle);
        int32_t code =
            zqframe::getScalar<zqframe::ClassF64, &ITask::getChannelAttributeF64>(kAIMax, handle, kOneChannel, &data);
        benchmark::DoNotOptimize(code);
        benchmark::DoNotOptimize(data);
      },
      [&] {
        zqerr::Status status;
        benchmark::DoNotOptimize(shared);
        double data = shared->getChannelAttributeF64(view, kAIMax.attributeId, &status);
        benchmark::DoNotOptimize(status.code);
        benchmark::DoNotOptimize(data);
      },
      false);
}
BENCHMARK(ChannelGet_FrameVsDirect)->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
