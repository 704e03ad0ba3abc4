#include "task/event_registry.h"

namespace zqvorexRedir {

zqvorexPlugin_EventToken EventRegistry::keep(Plugin& plugin, zqvorexPlugin_Task_undefined* pluginTask,
                                             int32_t eventId, zqvorexPlugin_EventToken token,
                                             const void* boundaryObject, IDebugTarget* target,
                                             zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return token;
  const bool wasEmpty = cache_.isEmpty(status);
  cache_.add(eventId, token, boundaryObject, status);
  bool targetTold = false;
  if (target && wasEmpty && !cache_.isEmpty(status) && zqerr::isOpen(status)) {
    target->setEventsEnabled(true, status);
    targetTold = true;
  }
  if (zqerr::isOpen(status)) return token;
  // The plug-in holds a registration that the task could not keep: take it back. The first
  // failure is the one the caller sees.
  zqerr::Status unregistered;
  plugin.unregisterEvent(pluginTask, token, &unregistered);
  zqerr::adopt(status, &unregistered);
  if (targetTold) {
    zqerr::Status disabled;
    target->setEventsEnabled(false, &disabled);
    zqerr::adopt(status, &disabled);
  }
  return 0;
}

void EventRegistry::forget(zqvorexPlugin_EventToken token, IDebugTarget* target, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  const bool wasEmpty = cache_.isEmpty(status);
  cache_.remove(token, status);
  if (target && !wasEmpty && cache_.isEmpty(status) && zqerr::isOpen(status)) target->setEventsEnabled(false, status);
}

}  // namespace zqvorexRedir
