// What the task object adds to a forwarded operation (the lock, the session and binding checks,
// and for reads and writes the test for a debug target), against a direct call of the same
// plug-in operation, measured side by side in the same run. "ratio_to_direct" is task time over
// direct time, "allocs_per_call" the heap allocations of one call through the task.
//
// Neither path may allocate: a read hands the caller's array to the plug-in as it is, and with
// no debug target attached nothing is copied or shown. Each benchmark fails (SkipWithError)
// when the task allocates.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>

#include "side_by_side.h"
#include "boundary/array_buffer_adapter.h"
#include "boundary/array_view.h"
#include "contexts/context.h"
#include "plugin/plugin_handles.h"
#include "plugin/plugin_manager.h"
#include "task/task.h"

namespace {

using zqvorexRedir::Plugin;
using zqvorexRedir::Task;

int taskObject;
int contextObject;

uint64_t bufferSize(zqvorexPlugin_Task_undefined*, const zqgopher_ArrayView*, int32_t, zqerr_Status*) {
  return 4096;
}
uint32_t readScaled(zqvorexPlugin_Task_undefined*, uint32_t, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                    int64_t numSampsPerChan, double, void*, zqerr_Status*) {
  return static_cast<uint32_t>(numSampsPerChan);
}
void destroyNothing(void*, zqerr_Status*) {}

template <class Fn>
void bindSlot(Plugin& plugin, const char* name, Fn function) {
  for (size_t i = 0; i < Plugin::kOperationCount; ++i)
    if (std::strcmp(Plugin::kNames[i], name) == 0) plugin.setSlot(i, reinterpret_cast<void*>(function));
}

class NoPlugins final : public zqvorexRedir::IPluginManager {
 public:
  std::shared_ptr<Plugin> getPlugin(std::string_view, zqerr_Status*) override { return nullptr; }
  std::shared_ptr<Plugin> getPluginFromPath(std::string_view, zqerr_Status*) override { return nullptr; }
  void clear() override {}
};

// A task bound to a plug-in whose operations answer at once.
struct BoundTask {
  std::shared_ptr<Plugin> plugin = std::make_shared<Plugin>();
  std::shared_ptr<Task> task;

  BoundTask() {
    bindSlot(*plugin, "getBufferAttributeSize", &bufferSize);
    bindSlot(*plugin, "readScaledVectorF64", &readScaled);
    bindSlot(*plugin, "destroyTask", &destroyNothing);
    bindSlot(*plugin, "destroyContext", &destroyNothing);
    zqvorexRedir::TaskParts parts;
    parts.context = std::make_shared<zqvorexRedir::Context>("127.0.0.1");
    parts.pluginManager = std::make_shared<NoPlugins>();
    parts.name = "bench";
    task = std::make_shared<Task>(std::move(parts));
    using namespace zqvorexRedir;
    task->setPlugin(plugin, "bench");
    task->setPluginContext(holdPluginHandle<PluginContextDeleter>(
        reinterpret_cast<zqvorexPlugin_Context_undefined*>(&contextObject), plugin));
    task->setPluginTask(
        holdPluginHandle<PluginTaskDeleter>(reinterpret_cast<zqvorexPlugin_Task_undefined*>(&taskObject), plugin));
  }
  zqvorexPlugin_Task_undefined* handle() const { return reinterpret_cast<zqvorexPlugin_Task_undefined*>(&taskObject); }
};

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
