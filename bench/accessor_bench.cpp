// What the accessor frame costs with tracing off, against a direct call of the same task
// operation through a shared reference, measured side by side in the same run. Each
// benchmark's time is the frame's; "ratio_to_direct" is frame time over direct time and
// "allocs_per_call" the heap allocations of one frame call.
//
// Neither a scalar Get without a channel nor one with a short one-name channel may allocate:
// each benchmark fails (SkipWithError) when it does.
//
// The end-to-end benchmark calls the exported accessor on a real task bound to a plug-in table,
// against a floor that does only what the design cannot do without: the handle's weak
// self-reference made strong, the task's recursive lock, a virtual call into the task and the
// plug-in's function pointer. "ratio_to_direct" is then accessor time over floor time.
#include <benchmark/benchmark.h>

#include <memory>
#include <mutex>
#include <type_traits>

#include "bound_task.h"
#include "constant_task.h"
#include "side_by_side.h"
#include "boundary/array_view.h"
#include "frame/scalar_frame.h"
#include "task/itask.h"
#include "tracing/trace.h"
#include "zqcai_rd_mbcs.h"

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
void compare(benchmark::State& state, Frame frame, Direct direct) {
  switchOff();
  zqbench::sideBySide(state, frame, direct, "the accessor allocated");
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
      });
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
      });
}
BENCHMARK(ChannelGet_FrameVsDirect)->UseManualTime();

// The floor's task: its weak self-reference, its recursive lock and the plug-in's operation.
class FloorTask {
 public:
  virtual ~FloorTask() = default;
  virtual uint64_t getBufferAttributeSize(const zqgopher_ArrayView* channels, int32_t attributeId,
                                          zqerr_Status* status) = 0;
  std::weak_ptr<FloorTask> self;
};

class FloorPluginTask final : public FloorTask {
 public:
  uint64_t getBufferAttributeSize(const zqgopher_ArrayView* channels, int32_t attributeId,
                                  zqerr_Status* status) override {
    std::lock_guard<std::recursive_mutex> held(mutex_);
    return operation_(zqbench::BoundTask::handle(), channels, attributeId, status);
  }

 private:
  std::recursive_mutex mutex_;
  zqvorexPlugin_getBufferAttributeSize_fn operation_ = &zqbench::answerBufferSize;
};

// Out of line, as the exported accessor is.
[[gnu::noinline]] int32_t floorGetBufInputBufSize(void* handle, uint32_t* data) {
  zqerr::Status status;
  std::shared_ptr<FloorTask> task = static_cast<FloorTask*>(handle)->self.lock();
  if (!task) return -1;
  *data = static_cast<uint32_t>(task->getBufferAttributeSize(nullptr, 0x186C, &status));
  return status.code;
}

void ScalarGet_EndToEndVsFloor(benchmark::State& state) {
  zqbench::BoundTask bound;
  void* handle = bound.taskHandle();
  auto floor = std::make_shared<FloorPluginTask>();
  floor->self = floor;
  void* floorHandle = static_cast<FloorTask*>(floor.get());
  compare(
      state,
      [&] {
        uint32_t data = 0;
        benchmark::DoNotOptimize(handle);
        int32_t code = VorexGetBufInputBufSize(handle, &data);
        benchmark::DoNotOptimize(code);
        benchmark::DoNotOptimize(data);
      },
      [&] {
        uint32_t data = 0;
        benchmark::DoNotOptimize(floorHandle);
        int32_t code = floorGetBufInputBufSize(floorHandle, &data);
        benchmark::DoNotOptimize(code);
        benchmark::DoNotOptimize(data);
      });
}
BENCHMARK(ScalarGet_EndToEndVsFloor)->UseManualTime();

}  // namespace

BENCHMARK_MAIN();
