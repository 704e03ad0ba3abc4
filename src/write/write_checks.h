// The tests and look-ups of the write paths before the plug-in sees a write: each one passes
// through when the status is already bad, and the first failure stays.
#pragma once

#include <cstdint>

#include "status/status.h"
#include "task/itask.h"
#include "utilities/cutility.h"
#include "zqcai_rd_mbcs_attribute_ids.h"

namespace zqwrite {

using zqutility::writeAttributeU32;
using zqvorexRedir::ITask;

// The kind of channel a write names, first argument of every write operation.
inline constexpr uint32_t kKindAnalog = 10102;
inline constexpr uint32_t kKindCounter = 10132;
inline constexpr uint32_t kKindDigital = 10153;


// -200492 when the caller passed something in `reserved`.
void checkReserved(const void* reserved, zqerr_Status* status);
// -200230 with the parameter's position when an array is missing for a non-zero count.
void checkArray(const void* array, int32_t count, int32_t paramNum, zqerr_Status* status);
// -200622 with the count when it is negative: writes have no automatic count.
void checkCount(int32_t count, zqerr_Status* status);

}  // namespace zqwrite
