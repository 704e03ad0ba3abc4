// Registering and unregistering a task's events: which task supports which event, and the
// reference the plug-in keeps on the library's event object until the event goes.
#pragma once

#include <cstdint>

#include "task.h"

namespace zqsim {

uint64_t registerEvent(SimTask& task, int32_t eventId, uint32_t samples, int32_t signal,
                       zqgopher_IEventBase* object, zqerr_Status* status);
void unregisterEvent(SimTask& task, uint64_t token, zqerr_Status* status);

}  // namespace zqsim
