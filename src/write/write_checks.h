// The tests and look-ups of the write paths before the plug-in sees a write: each one passes
// through when the status is already bad, and the first failure stays.
#pragma once

#include <cstdint>

#include "status/status.h"
#include "task/itask.h"

namespace zqwrite {

using zqvorexRedir::ITask;

// The kind of channel a write names, first argument of every write operation.
inline constexpr uint32_t kKindAnalog = 10102;
inline constexpr uint32_t kKindCounter = 10132;
inline constexpr uint32_t kKindDigital = 10153;

inline constexpr int32_t kWriteRawDataWidth = 0x217D;
inline constexpr int32_t kWriteNumChans = 0x217E;
inline constexpr int32_t kWriteDigitalLinesBytesPerChan = 0x217F;

// -200492 when the caller passed something in `reserved`.
void checkReserved(const void* reserved, zqerr_Status* status);
// -200230 with the parameter's position when an array is missing for a non-zero count.
void checkArray(const void* array, int32_t count, int32_t paramNum, zqerr_Status* status);
// -200622 with the count when it is negative: writes have no automatic count.
void checkCount(int32_t count, zqerr_Status* status);
// A write attribute of the task's channels as a uint32_t; 0 on a bad status.
uint32_t writeAttributeU32(ITask& task, int32_t attributeId, zqerr_Status* status);

}  // namespace zqwrite
