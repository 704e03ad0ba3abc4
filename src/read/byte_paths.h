// The two checked reads into a byte array: digital lines, one byte per line, and raw samples
// of the width the task reports.
#pragma once

#include <cstdint>

#include "read/read_frame.h"

namespace zqread {

int32_t readDigitalLines(const ReadInfo& info, TaskHandle handle, int32_t numSampsPerChan, double timeout,
                         int32_t fillMode, uint8_t* readArray, uint32_t arraySizeInBytes, int32_t* sampsPerChanRead,
                         int32_t* numBytesPerSamp, uint32_t* reserved);

int32_t readRaw(const ReadInfo& info, TaskHandle handle, int32_t numSampsPerChan, double timeout, void* readArray,
                uint32_t arraySizeInBytes, int32_t* sampsRead, int32_t* numBytesPerSamp, uint32_t* reserved);

}  // namespace zqread
