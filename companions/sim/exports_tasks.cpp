// Contexts, tasks, control and persistence.
#include "channel_create.h"
#include "control.h"
#include "persistence.h"
#include "sim_export.h"
#include "text_util.h"

using namespace zqsim;

namespace {

zqvorexPlugin_Task_undefined* newTask(zqvorexPlugin_Context_undefined* context, const char* name) {
  auto* handle = new TaskHandle{std::make_shared<SimTask>(
      name ? name : "", context ? contextOf(context)->context : std::make_shared<Context>())};
  return reinterpret_cast<zqvorexPlugin_Task_undefined*>(handle);
}

void deleteTask(zqvorexPlugin_Task_undefined* handle) {
  auto* h = reinterpret_cast<TaskHandle*>(handle);
  if (!h) return;
  std::shared_ptr<SimTask> task = std::move(h->task);
  delete h;
  if (task) task->close();
}

// Makes a task and fills it; a task that cannot be filled is not handed out.
template <class Fill>
zqvorexPlugin_Task_undefined* makeTask(zqvorexPlugin_Context_undefined* context, const char* name,
                                       zqerr_Status* status, Fill fill) {
  return guarded(status, static_cast<zqvorexPlugin_Task_undefined*>(nullptr), [&] {
    zqvorexPlugin_Task_undefined* handle = newTask(context, name);
    if (!fill(*taskOf(handle)) || !isOpen(status)) {
      deleteTask(handle);
      return static_cast<zqvorexPlugin_Task_undefined*>(nullptr);
    }
    return handle;
  });
}

std::string urlOf(zqvorexPlugin_Context_undefined* context) {
  return context ? contextOf(context)->context->name : std::string();
}

}  // namespace

SIM_EXPORT zqvorexPlugin_Context_undefined* zqvorexSim_createContext(const char* contextName,
                                                                     zqerr_Status* status) {
  return guarded(status, static_cast<zqvorexPlugin_Context_undefined*>(nullptr), [&] {
    auto* handle = new ContextHandle{std::make_shared<Context>(Context{contextName ? contextName : ""})};
    return reinterpret_cast<zqvorexPlugin_Context_undefined*>(handle);
  });
}

SIM_EXPORT void zqvorexSim_destroyContext(zqvorexPlugin_Context_undefined* context, zqerr_Status*) {
  delete contextOf(context);
}

SIM_EXPORT zqvorexPlugin_Task_undefined* zqvorexSim_createTask(zqvorexPlugin_Context_undefined* context,
                                                               const char* taskName,
                                                               const char* savedTaskName,
                                                               const char* channelNames, uint32_t,
                                                               zqerr_Status* status) {
  return makeTask(context, taskName, status, [&](SimTask& task) {
    const std::string saved(trim(savedTaskName ? savedTaskName : ""));
    if (!saved.empty() && !loadSavedTask(task, urlOf(context), saved, status)) return false;
    const std::string globals(trim(channelNames ? channelNames : ""));
    return globals.empty() || addGlobalChannels(task, urlOf(context), globals, status);
  });
}

SIM_EXPORT zqvorexPlugin_Task_undefined* zqvorexSim_createTaskFromString(
    zqvorexPlugin_Context_undefined* context, const char* taskName, uint32_t, const char* configString,
    zqerr_Status* status) {
  return makeTask(context, taskName, status,
                  [&](SimTask& task) { return loadIniTask(task, configString ? configString : "", status); });
}

SIM_EXPORT zqvorexPlugin_Task_undefined* zqvorexSim_loadTask(zqvorexPlugin_Context_undefined* context,
                                                             const char* taskName, zqerr_Status* status) {
  return makeTask(context, taskName, status, [&](SimTask& task) {
    return loadSavedTask(task, urlOf(context), taskName ? taskName : "", status);
  });
}

SIM_EXPORT void zqvorexSim_destroyTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  // Runs whatever the status holds: the task must go.
  try {
    deleteTask(task);
  } catch (...) {
    SIM_FAIL(status, zqpalerr_softwareFault);
  }
}

SIM_EXPORT void zqvorexSim_addChannelsToTask(zqvorexPlugin_Task_undefined* task, const char* channelNames,
                                             zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (t) addGlobalChannels(*t, t->context->name, channelNames ? channelNames : "", status);
  });
}

SIM_EXPORT void zqvorexSim_rollbackFailedChannelCreations(zqvorexPlugin_Task_undefined* task,
                                                          const char* channelNames, zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) removeChannels(*t, channelNames, status);
  });
}

SIM_EXPORT void zqvorexSim_controlTask(zqvorexPlugin_Task_undefined* task, int32_t action, bool,
                                       zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) controlTask(*t, action, status);
  });
}

SIM_EXPORT void zqvorexSim_abortTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) abortTask(*t, status);
  });
}

SIM_EXPORT void zqvorexSim_waitUntilTaskDone(zqvorexPlugin_Task_undefined* task, double timeout,
                                             zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) waitUntilDone(*t, timeout, status);
  });
}

SIM_EXPORT uint32_t zqvorexSim_isTaskDone(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  return guarded(status, uint32_t{0}, [&] {
    SimTask* t = requireTask(task, status);
    return t && isDone(*t, status) ? uint32_t{1} : uint32_t{0};
  });
}

SIM_EXPORT void zqvorexSim_saveTask(zqvorexPlugin_Task_undefined* task, const char* saveAs,
                                    const char* author, bool overwrite, bool allowEditing, bool allowDeletion,
                                    bool, zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t) return;
    const std::string name(trim(saveAs ? saveAs : ""));
    saveTask(*t, name.empty() ? t->name : name, author ? author : "", overwrite, allowEditing, allowDeletion,
             status);
  });
}

SIM_EXPORT void zqvorexSim_saveTaskToString(zqvorexPlugin_Task_undefined* task, const char* saveAs,
                                            const char* taskName, bool, zqgopher_IString* text,
                                            zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t) return;
    if (!text) {
      SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
      return;
    }
    std::string name(trim(saveAs ? saveAs : ""));
    if (name.empty()) name = std::string(trim(taskName ? taskName : ""));
    if (name.empty()) name = t->name;
    std::lock_guard<std::mutex> guard(t->mutex);
    const std::string ini = taskAsIni(*t, name);
    text->table->assign(text, ini.data(), ini.size(), status);
  });
}

SIM_EXPORT void zqvorexSim_saveChannel(zqvorexPlugin_Task_undefined* task, const char* channelName,
                                       const char* saveAs, const char* author, bool overwrite, bool, bool,
                                       bool, zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (t)
      saveGlobalChannel(*t, std::string(trim(channelName ? channelName : "")),
                        std::string(trim(saveAs ? saveAs : "")), author ? author : "", overwrite, status);
  });
}

SIM_SIGNATURE(createContext);
SIM_SIGNATURE(destroyContext);
SIM_SIGNATURE(createTask);
SIM_SIGNATURE(createTaskFromString);
SIM_SIGNATURE(loadTask);
SIM_SIGNATURE(destroyTask);
SIM_SIGNATURE(addChannelsToTask);
SIM_SIGNATURE(rollbackFailedChannelCreations);
SIM_SIGNATURE(controlTask);
SIM_SIGNATURE(abortTask);
SIM_SIGNATURE(waitUntilTaskDone);
SIM_SIGNATURE(isTaskDone);
SIM_SIGNATURE(saveTask);
SIM_SIGNATURE(saveTaskToString);
SIM_SIGNATURE(saveChannel);
