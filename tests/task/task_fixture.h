// Making tasks for tests: over a plug-in manager that counts its requests, unbound or bound
// to a plug-in table with a context and a plug-in task.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "contexts/context.h"
#include "plugin/plugin_handles.h"
#include "plugin/plugin_manager.h"
#include "selection/plugin_selector.h"
#include "slot_plugin.h"
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

// Answers every question with the same plug-in, devices and channels, and writes down each
// question as "kind:arguments".
class AnsweringSelector final : public zqvorexRedir::IPluginSelector {
 public:
  using NameSet = zqvorexRedir::NameSet;
  void selectForDevices(const NameSet& devices, const std::string& context, std::string* pluginName,
                        bool* debuggable, zqerr_Status* status) override {
    std::string names;
    for (const std::string& device : devices) names += device + ";";
    if (ask("devices:" + names + context, status)) answer(pluginName, debuggable, nullptr, nullptr);
  }
  bool selectForNames(const std::string& names, const std::string& context, std::string* pluginName,
                      bool* debuggable, NameSet* devices, NameSet* channels, zqerr_Status* status) override {
    if (ask("names:" + names + ":" + context, status)) answer(pluginName, debuggable, devices, channels);
    return namedSavedTask;
  }
  void selectForTask(const std::string& saved, const std::string& names, const std::string& context,
                     std::string* pluginName, bool* debuggable, NameSet* devices, NameSet* channels,
                     zqerr_Status* status) override {
    if (ask("task:" + saved + "|" + names + ":" + context, status)) answer(pluginName, debuggable, devices, channels);
  }
  void selectForConfigString(uint32_t format, const std::string& text, std::string* pluginName, bool* debuggable,
                             NameSet* devices, NameSet* channels, zqerr_Status* status) override {
    if (ask("config:" + std::to_string(format) + ":" + text, status))
      answer(pluginName, debuggable, devices, channels);
  }

  std::vector<std::string> asked;
  std::string pluginName = "slots";
  bool debuggable = false;
  bool namedSavedTask = false;
  int32_t error = 0;
  NameSet answerDevices{"Dev1"};
  NameSet answerChannels{"Dev1/ai0"};

 private:
  bool ask(std::string question, zqerr_Status* status) {
    asked.push_back(std::move(question));
    if (error != 0) status->code = error;
    return error == 0;
  }
  void answer(std::string* name, bool* debug, NameSet* devices, NameSet* channels) const {
    *name = pluginName;
    *debug = debuggable;
    if (devices) devices->insert(answerDevices.begin(), answerDevices.end());
    if (channels) channels->insert(answerChannels.begin(), answerChannels.end());
  }
};

// A created task in the context "ctx"; `parts` may add a selector, a debug server factory, another
// kind or the device-task mark.
inline std::shared_ptr<zqvorexRedir::Task> makeTask(std::shared_ptr<zqvorexRedir::IPluginManager> manager,
                                                    std::string name = "MyTask",
                                                    zqvorexRedir::TaskParts parts = {
                                                        .taskKind = zqvorexRedir::kTaskKindCreated}) {
  parts.context = std::make_shared<zqvorexRedir::Context>("ctx");
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

// A task bound to the slots of this program, with the call log and the slot failures cleared.
inline std::shared_ptr<zqvorexRedir::Task> makeBoundTask(std::string name = "MyTask") {
  callLog().clear();
  clearSlotFailures();
  auto task = makeTask(std::make_shared<CountingPluginManager>(), std::move(name));
  bindTask(*task, makeSlotPlugin(), slotContextHandle(), slotTaskHandle());
  return task;
}

// Tests over created tasks in "ctx" that a selector binds to `plugin` through a counting manager;
// the call log and the slot failures start and end cleared.
class SelectingTaskTest : public ::testing::Test {
 public:
  explicit SelectingTaskTest(std::shared_ptr<zqvorexRedir::Plugin> plugin = makeSlotPlugin())
      : manager(std::make_shared<CountingPluginManager>(std::move(plugin))) {
    callLog().clear();
    clearSlotFailures();
  }
  ~SelectingTaskTest() override { clearSlotFailures(); }

  std::shared_ptr<zqvorexRedir::Task> make(std::string name = "T",
                                           zqvorexRedir::TaskParts parts = {.taskKind = zqvorexRedir::kTaskKindCreated}) {
    parts.pluginSelector = selector;
    return makeTask(manager, std::move(name), std::move(parts));
  }

  std::shared_ptr<CountingPluginManager> manager;
  std::shared_ptr<AnsweringSelector> selector = std::make_shared<AnsweringSelector>();
  std::shared_ptr<zqvorexRedir::Task> task = make();
};

// One operation of a table over tasks of type T: its result as a number, 0 for an operation
// without one.
template <class T>
class TaskOp {
 public:
  template <class Fn>
  TaskOp(Fn fn)  // NOLINT: tables list bare lambdas
      : run_([fn](T& task, zqerr_Status* status) {
          if constexpr (std::is_void_v<decltype(fn(task, status))>) {
            fn(task, status);
            return 0.0;
          } else {
            return static_cast<double>(fn(task, status));
          }
        }) {}
  double operator()(T& task, zqerr_Status* status) const { return run_(task, status); }

 private:
  std::function<double(T&, zqerr_Status*)> run_;
};

}  // namespace zqtest
