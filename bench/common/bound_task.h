// A real task bound by hand to a plug-in table of the benchmark's own, whose operations answer
// at once: what a call through the task costs, with nothing of a device behind it.
#pragma once

#include <cstring>
#include <memory>
#include <string_view>

#include "contexts/context.h"
#include "plugin/plugin_handles.h"
#include "plugin/plugin_manager.h"
#include "task/task.h"

namespace zqbench {

inline int boundTaskObject;
inline int boundContextObject;

inline uint64_t answerBufferSize(zqvorexPlugin_Task_undefined*, const zqgopher_ArrayView*, int32_t, zqerr_Status*) {
  return 4096;
}
inline double answerChannelF64(zqvorexPlugin_Task_undefined*, const zqgopher_ArrayView*, int32_t, zqerr_Status*) {
  return 10.0;
}
inline uint32_t answerReadScaled(zqvorexPlugin_Task_undefined*, uint32_t, zqgopher_IArrayBuffer*,
                                 const zqvorexPlugin_ReadLayout*, int64_t numSampsPerChan, double, void*,
                                 zqerr_Status*) {
  return static_cast<uint32_t>(numSampsPerChan);
}
inline void destroyNothing(void*, zqerr_Status*) {}

template <class Fn>
void bindSlot(zqvorexRedir::Plugin& plugin, const char* name, Fn function) {
  using zqvorexRedir::Plugin;
  for (size_t i = 0; i < Plugin::kOperationCount; ++i)
    if (std::strcmp(Plugin::kNames[i], name) == 0) plugin.setSlot(i, reinterpret_cast<void*>(function));
}

class NoPlugins final : public zqvorexRedir::IPluginManager {
 public:
  std::shared_ptr<zqvorexRedir::Plugin> getPlugin(std::string_view, zqerr_Status*) override { return nullptr; }
  std::shared_ptr<zqvorexRedir::Plugin> getPluginFromPath(std::string_view, zqerr_Status*) override {
    return nullptr;
  }
  void clear() override {}
};

struct BoundTask {
  std::shared_ptr<zqvorexRedir::Plugin> plugin = std::make_shared<zqvorexRedir::Plugin>();
  std::shared_ptr<zqvorexRedir::Task> task;

  BoundTask() {
    using namespace zqvorexRedir;
    bindSlot(*plugin, "getBufferAttributeSize", &answerBufferSize);
    bindSlot(*plugin, "getChannelAttributeF64", &answerChannelF64);
    bindSlot(*plugin, "readScaledVectorF64", &answerReadScaled);
    bindSlot(*plugin, "destroyTask", &destroyNothing);
    bindSlot(*plugin, "destroyContext", &destroyNothing);
    TaskParts parts;
    parts.context = std::make_shared<Context>("127.0.0.1");
    parts.pluginManager = std::make_shared<NoPlugins>();
    parts.name = "bench";
    task = std::make_shared<Task>(std::move(parts));
    task->setPlugin(plugin, "bench");
    task->setPluginContext(holdPluginHandle<PluginContextDeleter>(
        reinterpret_cast<zqvorexPlugin_Context_undefined*>(&boundContextObject), plugin));
    task->setPluginTask(holdPluginHandle<PluginTaskDeleter>(handle(), plugin));
  }
  static zqvorexPlugin_Task_undefined* handle() {
    return reinterpret_cast<zqvorexPlugin_Task_undefined*>(&boundTaskObject);
  }
  // The task handle an application holds: the address of the task's interface.
  void* taskHandle() const { return static_cast<zqvorexRedir::ITask*>(task.get()); }
};

}  // namespace zqbench
