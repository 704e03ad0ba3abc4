#include "read/byte_paths.h"

#include <algorithm>
#include <cstring>

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"

namespace zqread {

namespace {

constexpr int32_t kReadRawDataWidth = 0x217A;
constexpr int32_t kReadDigitalLinesBytesPerChan = 0x217C;

void clearBytes(void* array, uint32_t size) {
  if (array) std::memset(array, 0, size);
}

// The line count for -1 and the space test: each line of each sample takes one byte.
uint64_t fitLines(uint64_t numSamps, int32_t numSampsPerChan, uint32_t bytesPerChan, uint32_t numChans,
                  uint32_t arraySizeInBytes, zqerr_Status* status) {
  if (bytesPerChan != 0 && numChans != 0)
    numSamps = limitAuto(numSamps, numSampsPerChan, arraySizeInBytes / bytesPerChan / numChans);
  const uint32_t bytesPerChannel = static_cast<uint32_t>(numSamps * bytesPerChan);
  checkByteSpace(arraySizeInBytes, uint64_t{bytesPerChannel} * numChans, status);
  return numSamps;
}

}  // namespace

int32_t readDigitalLines(const ReadInfo& info, TaskHandle handle, int32_t numSampsPerChan, double timeout,
                         int32_t fillMode, uint8_t* readArray, uint32_t arraySizeInBytes, int32_t* sampsPerChanRead,
                         int32_t* numBytesPerSamp, uint32_t* reserved) {
  return readFrame(
      info, handle,
      [&](zqtrace::TraceCall& trace) {
        traceCountAndMode(trace, info, numSampsPerChan, timeout, fillMode);
        trace.param("readArray", zqtrace::kU8Array, readArray);
        trace.param("arraySizeInBytes", zqtrace::kSize, arraySizeInBytes);
        trace.param("sampsPerChanRead", zqtrace::kI32Pointer, sampsPerChanRead);
        trace.param("numBytesPerSamp", zqtrace::kI32Pointer, numBytesPerSamp);
        trace.param("reserved", zqtrace::kBool32Pointer, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        if (!failNullArray(readArray, numSampsPerChan, 5, status)) clearBytes(readArray, arraySizeInBytes);
        if (!task || !zqerr::isOpen(status)) return;
        const zqvorexPlugin_ReadLayout layout = layoutOf(fillMode);
        const uint32_t numChans = channelsToRead(*task, status);
        uint64_t numSamps = resolveNumSamps(*task, numSampsPerChan, status);
        const uint32_t bytesPerChan = readAttributeU32(*task, kReadDigitalLinesBytesPerChan, status);
        numSamps = fitLines(numSamps, numSampsPerChan, bytesPerChan, numChans, arraySizeInBytes, status);
        if (!zqerr::isOpen(status)) return;
        // One channel of one line: the plug-in resizes it to the lines it really delivers.
        const uint32_t oneLine = 1;
        const zqgopher::ArrayViewAdapter<uint32_t> lines(oneLine);
        zqgopher::ArrayLineBufferAdapter buffer(readArray, arraySizeInBytes, &lines, arraySizeInBytes, status);
        if (!zqerr::isOpen(status)) return;
        const uint32_t read = task->readLineVectorU8(kKindDigital, buffer.boundary(), &layout,
                                                     static_cast<int64_t>(numSamps), timeout, nullptr, status);
        if (sampsPerChanRead) *sampsPerChanRead = static_cast<int32_t>(read);
        if (numBytesPerSamp) *numBytesPerSamp = static_cast<int32_t>(bytesPerChan);
      },
      [&](zqtrace::TraceCall& trace) {
        trace.retArray("readArray", zqtrace::kU8Array, readArray, arraySizeInBytes);
        trace.retOut("*sampsPerChanRead", zqtrace::kI32, sampsPerChanRead);
        trace.retOut("*numBytesPerSamp", zqtrace::kI32, numBytesPerSamp);
      });
}

int32_t readRaw(const ReadInfo& info, TaskHandle handle, int32_t numSampsPerChan, double timeout, void* readArray,
                uint32_t arraySizeInBytes, int32_t* sampsRead, int32_t* numBytesPerSamp, uint32_t* reserved) {
  const auto* bytes = static_cast<const uint8_t*>(readArray);
  return readFrame(
      info, handle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramNamed("numSampsPerChan", zqtrace::Literals::kSampsPerChan, numSampsPerChan);
        trace.param("timeout", zqtrace::kF64, timeout);
        trace.param("readArray", zqtrace::kU8Array, readArray);
        trace.param("arraySizeInBytes", zqtrace::kSize, arraySizeInBytes);
        trace.param("sampsRead", zqtrace::kI32Pointer, sampsRead);
        trace.param("numBytesPerSamp", zqtrace::kI32Pointer, numBytesPerSamp);
        trace.param("reserved", zqtrace::kBool32Pointer, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        if (!failNullArray(readArray, numSampsPerChan, 4, status)) clearBytes(readArray, arraySizeInBytes);
        if (!task || !zqerr::isOpen(status)) return;
        uint64_t numSamps = resolveNumSamps(*task, numSampsPerChan, status);
        uint32_t width = readAttributeU32(*task, kReadRawDataWidth, status);
        if (width != 0) numSamps = limitAuto(numSamps, numSampsPerChan, arraySizeInBytes / width);
        if (!zqerr::isOpen(status)) return;
        zqgopher::ArrayBufferAdapter buffer(readArray, arraySizeInBytes, status);
        if (!zqerr::isOpen(status)) return;
        const uint32_t read = task->readRawU8(kKindAnalog, buffer.boundary(), static_cast<int64_t>(numSamps), timeout,
                                              &width, nullptr, status);
        if (sampsRead) *sampsRead = static_cast<int32_t>(read);
        if (numBytesPerSamp) *numBytesPerSamp = static_cast<int32_t>(width);
      },
      [&](zqtrace::TraceCall& trace) {
        trace.retArray("readArray", zqtrace::kU8Array, bytes, arraySizeInBytes);
        trace.retOut("*sampsRead", zqtrace::kI32, sampsRead);
        trace.retOut("*numBytesPerSamp", zqtrace::kI32, numBytesPerSamp);
      });
}

}  // namespace zqread
