// Making tasks for tests: over a plug-in manager that counts its requests, unbound or bound
// to a plug-in table with a context and a plug-in task.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "contexts/context.h"
#include "plugin/plugin_handles.h"
#include "plugin/plugin_manager.h"
#include "task/task.h"

namespace zqtest {

class CountingPluginManager final : public zqvorexRedir::IPluginManager {
 public:
  explicit CountingPluginManager(std::shared_ptr<zqvorexRedir::Plugin> answer = {}) : answer_(std::move(answer)) {}
  std::shared_ptr<zqvorexRedir::Plugin> getPlugin(std::string_view name, zqerr_Status*) override {
    ++requests;
    lastName = name;
    return answer_;
  }
  std::shared_ptr<zqvorexRedir::Plugin> getPluginFromPath(std::string_view, zqerr_Status*) override {
    ++requests;
    return answer_;
  }
  void clear() override {}
  int requests = 0;
  std::string lastName;

 private:
  std::shared_ptr<zqvorexRedir::Plugin> answer_;
};

inline std::shared_ptr<zqvorexRedir::Task> makeTask(std::shared_ptr<zqvorexRedir::IPluginManager> manager,
                                                    std::string name = "MyTask") {
  zqvorexRedir::TaskParts parts;
  parts.context = std::make_shared<zqvorexRedir::Context>("ctx");
  parts.taskKind = zqvorexRedir::kTaskKindCreated;
  parts.pluginManager = std::move(manager);
  parts.name = std::move(name);
  return std::make_shared<zqvorexRedir::Task>(std::move(parts));
}

// Gives `task` the plug-in with the context and task handles it hands out.
inline void bindTask(zqvorexRedir::Task& task, const std::shared_ptr<zqvorexRedir::Plugin>& plugin,
                     zqvorexPlugin_Context_undefined* context, zqvorexPlugin_Task_undefined* pluginTask) {
  using namespace zqvorexRedir;
  task.setPlugin(plugin, "slots");
  task.setPluginContext(holdPluginHandle<PluginContextDeleter>(context, plugin));
  task.setPluginTask(holdPluginHandle<PluginTaskDeleter>(pluginTask, plugin));
}

}  // namespace zqtest
