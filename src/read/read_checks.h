// The tests and look-ups that the read paths make before the plug-in sees a read: each one
// passes through when the status is already bad, and the first failure stays.
#pragma once

#include <cstdint>

#include "status/status.h"
#include "task/itask.h"
#include "zqvorex_plugin.h"

namespace zqread {

using zqvorexRedir::ITask;

// The kind of channel a read names, first argument of every read operation.
inline constexpr uint32_t kKindAnalog = 10100;
inline constexpr uint32_t kKindCounter = 10131;
inline constexpr uint32_t kKindDigital = 10151;

inline constexpr int32_t kAuto = -1;

// -200492 when the caller passed something in `reserved`.
void checkReserved(const void* reserved, zqerr_Status* status);
// -200230 with the parameter's position when a required array is missing; true when it is.
bool failNullArray(const void* array, int32_t numSampsPerChan, int32_t paramNum, zqerr_Status* status);
// The number of channels the task reads, from its list of channels to read.
uint32_t channelsToRead(ITask& task, zqerr_Status* status);
// The count the plug-in is asked for: what is available for -1, an error below -1.
uint64_t resolveNumSamps(ITask& task, int32_t numSampsPerChan, zqerr_Status* status);
// For -1, no more samples per channel than `perChannel` (the array's share of one channel).
uint64_t limitAuto(uint64_t numSamps, int32_t numSampsPerChan, uint64_t perChannel);
// -200229 with the array's size and the required size in samples, both as uint32_t.
void checkSampleSpace(uint32_t arraySizeInSamps, uint64_t required, zqerr_Status* status);
// -200229 with the array's size (uint32_t) and the required size in bytes (uint64_t).
void checkByteSpace(uint32_t arraySizeInBytes, uint64_t required, zqerr_Status* status);
// A read attribute of the task's reading channels as a uint32_t.
uint32_t readAttributeU32(ITask& task, int32_t attributeId, zqerr_Status* status);

}  // namespace zqread
