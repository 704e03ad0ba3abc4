// The commit of a debug session: the task gets the session's plug-in task if it has none, hands
// the session record to the plug-in, and the record is frozen. A failed commit takes back the
// session task it made and leaves the session open.
#include "status/error_sites.h"
#include "task/task_frame.h"

namespace zqvorexRedir {

namespace {
inline constexpr const char* kDebugPluginName = "zqvorexDebug";
}

void Task::createDebugSessionTask(zqerr_Status* status) {
  if (!debug_.attributes().isDebugSession()) {
    ZQ_FAIL(status, kTaskSoftwareFault1463);
    return;
  }
  std::shared_ptr<Plugin> plugin = identity_.pluginManager->getPlugin(kDebugPluginName, status);
  if (!plugin || !zqerr::isOpen(status)) return;
  plugin_.setPlugin(plugin);
  zqvorexPlugin_Task_undefined* session = plugin->createDebugSession(identity_.name.c_str(), status);
  plugin_.setTask(holdPluginHandle<PluginDebugSessionDeleter>(session, plugin));
}

void Task::commitDebugSessionOwn(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    debug_.checkControl(true, status);
    ChannelCreationScope scope(*this, plugin_, names_, debug_);
    if (!plugin_.bound()) createDebugSessionTask(status);
    if (!zqerr::isOpen(status) || !plugin_.bound()) return;
    debug_.attributes().applyDebugAttributes(plugin_.plugin().get(), plugin_.task(), status);
    plugin_.plugin()->commitDebugSession(plugin_.task(), status);
    if (!zqerr::isOpen(status)) return;
    debug_.attributes().markCommitted();
    scope.commit();
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

}  // namespace zqvorexRedir
