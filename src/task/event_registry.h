// The events a task has registered with its plug-in: the plug-in's token of each in the task's
// EventCache, and the bookkeeping around it. A debug target hears of events only at the change
// from none to some and back.
#pragma once

#include <cstdint>

#include "debug/debug_interfaces.h"
#include "plugin/plugin.h"
#include "task/event_cache.h"

namespace zqvorexRedir {

class EventRegistry {
 public:
  EventTokens getEvents(int32_t eventId, zqerr_Status* status) const { return cache_.getEvents(eventId, status); }

  // Enters the token that the plug-in gave for a registration, and gives it back; when the
  // task cannot keep it, takes the registration back from the plug-in and gives 0. `target`
  // may be null.
  zqvorexPlugin_EventToken keep(Plugin& plugin, zqvorexPlugin_Task_undefined* pluginTask, int32_t eventId,
                                zqvorexPlugin_EventToken token, const void* boundaryObject, IDebugTarget* target,
                                zqerr_Status* status);
  // After the plug-in let go of `token`: the task forgets it too.
  void forget(zqvorexPlugin_EventToken token, IDebugTarget* target, zqerr_Status* status);

 private:
  EventCache cache_;
};

}  // namespace zqvorexRedir
