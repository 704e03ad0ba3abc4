// The events a task has registered with its plug-in: the plug-in's token of each, under the
// event id it was registered with, with the boundary object the plug-in calls.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>

#include "platform/platform.h"
#include "status/status.h"
#include "task/task_types.h"

namespace zqvorexRedir {

// Event ids as the plug-in knows them.
inline constexpr int32_t kPluginEventDone = 12576;
inline constexpr int32_t kPluginEventSignal = 12575;

class EventCache {
 public:
  // Every operation does nothing when `status` already holds an error.
  void add(int32_t eventId, zqvorexPlugin_EventToken token, const void* boundaryObject, zqerr_Status* status);
  bool isEmpty(zqerr_Status* status) const;
  // The tokens of `eventId` in token order; empty for an id without any.
  EventTokens getEvents(int32_t eventId, zqerr_Status* status) const;
  void remove(zqvorexPlugin_EventToken token, zqerr_Status* status);

 private:
  void insert(int32_t eventId, zqvorexPlugin_EventToken token, const void* boundaryObject);

  mutable zqplatform::SlimLock lock_;
  std::map<int32_t, std::map<zqvorexPlugin_EventToken, const void*>> tokensById_;
  std::map<zqvorexPlugin_EventToken, int32_t> idByToken_;
};

}  // namespace zqvorexRedir
