// The three operations behind every absolute-time accessor: the task's Timing operation of the
// attribute, with an empty list of names, whatever the attribute's class.
#pragma once

#include <cstdint>

#include "task/itask.h"
#include "zqcai_rd_mbcs.h"

namespace nZQCAI100 {

// `value` is written only when the task's operation succeeded.
void getAbsoluteTime(zqvorexRedir::ITask& task, int32_t id, VorexAbsoluteTime* value, zqerr_Status* status);
void setAbsoluteTime(zqvorexRedir::ITask& task, int32_t id, const VorexAbsoluteTime* value, zqerr_Status* status);
void resetAbsoluteTime(zqvorexRedir::ITask& task, int32_t id, zqerr_Status* status);

}  // namespace nZQCAI100
