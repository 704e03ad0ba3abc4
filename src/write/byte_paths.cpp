#include "write/byte_paths.h"

#include <vector>

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"
#include "write/vector_paths.h"

namespace zqwrite {

namespace {

// Every channel holds `bytesPerChan` lines, one byte each, so the line buffer takes the shape
// the application wrote for.
uint32_t writeLines(ITask& task, const uint8_t* writeArray, const VectorArgs& a, zqerr_Status* status) {
  const uint32_t numChans = writeAttributeU32(task, Vorex_WriteNumChans, status);
  const uint32_t bytesPerChan = writeAttributeU32(task, Vorex_WriteDigitalLinesBytesPerChan, status);
  if (!zqerr::isOpen(status)) return 0;
  const std::vector<uint32_t> lines(numChans, bytesPerChan);
  const uint64_t numSamps = static_cast<uint64_t>(a.numSampsPerChan);
  const uint64_t capacity = uint64_t{bytesPerChan} * numSamps * numChans;
  const zqgopher::ArrayViewAdapter<uint32_t> view(lines.data(), lines.size(), status);
  zqgopher::ArrayLineBufferWriteAdapter buffer(writeArray, capacity, &view, numSamps, status);
  if (!zqerr::isOpen(status)) return 0;
  const zqvorexPlugin_ReadLayout layout = layoutOf(a.dataLayout);
  return task.writeLineVectorU8(kKindDigital, buffer.boundary(), &layout, a.autoStart != 0, a.timeout,
                                nullptr, status);
}

uint32_t writeBytes(ITask& task, const void* writeArray, const VectorArgs& a, zqerr_Status* status) {
  const uint32_t width = writeAttributeU32(task, Vorex_WriteRawDataWidth, status);
  if (!zqerr::isOpen(status)) return 0;
  zqgopher::ArrayBufferWriteAdapter buffer(
      writeArray, 1, uint64_t{width} * static_cast<uint64_t>(a.numSampsPerChan), status);
  if (!zqerr::isOpen(status)) return 0;
  return task.writeRawU8(kKindAnalog, buffer.boundary(), a.autoStart != 0, a.timeout, nullptr, status);
}

}  // namespace

int32_t writeDigitalLines(const WriteInfo& info, TaskHandle handle, const uint8_t* writeArray,
                          const VectorArgs& a) {
  return zqframe::dataCallFrame(
      info.name, handle,
      [&](zqtrace::TraceCall& trace) { traceVectorParams(trace, info, writeArray, a); },
      [&](ITask* task, zqerr_Status* status) {
        uint32_t written = 0;
        checkVector(writeArray, a, status);
        if (task && zqerr::isOpen(status)) written = writeLines(*task, writeArray, a, status);
        if (a.written) *a.written = static_cast<int32_t>(written);
      },
      [&](zqtrace::TraceCall& trace) { traceReturns(trace, info, a.written, a.reserved); });
}

int32_t writeRaw(const WriteInfo& info, TaskHandle handle, const void* writeArray, const VectorArgs& a) {
  return zqframe::dataCallFrame(
      info.name, handle,
      [&](zqtrace::TraceCall& trace) {
        traceLeading(trace, "numSamps", a.numSampsPerChan, a.autoStart, a.timeout);
        trace.param(info.firstArray, zqtrace::kU8Array, writeArray);
        traceTail(trace, info, a.written, a.reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        uint32_t written = 0;
        checkReserved(a.reserved, status);
        checkArray(writeArray, a.numSampsPerChan, 5, status);
        checkCount(a.numSampsPerChan, status);
        if (task && zqerr::isOpen(status)) written = writeBytes(*task, writeArray, a, status);
        if (a.written) *a.written = static_cast<int32_t>(written);
      },
      [&](zqtrace::TraceCall& trace) { traceReturns(trace, info, a.written, a.reserved); });
}

}  // namespace zqwrite
