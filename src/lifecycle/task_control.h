// What stopping, aborting, starting and clearing a task tell the events list, and in which
// order, so that events queued before a stop are dropped and events of the next run arrive.
#pragma once

#include <cstdint>

#include "events/task_events_list.h"
#include "task/itask.h"

namespace nZQCAI100 {

// VorexTaskControl's work on a resolved task.
void controlTask(zqvorexRedir::ITask& task, TaskHandle handle, int32_t action, zqerr_Status* status);
// VorexClearTask's work after its checks: the events list is told, then the pool lets go.
void clearTask(ICTaskEventsList& events, TaskHandle handle, zqerr_Status* status);

}  // namespace nZQCAI100
