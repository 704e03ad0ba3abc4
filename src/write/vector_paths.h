// The vector writes: the plug-in reads the caller's array in place through the write-form
// adapter, so no sample is copied.
#pragma once

#include <cstdint>

#include "boundary/array_buffer_adapter.h"
#include "write/write_frame.h"

namespace zqwrite {

using VectorOp = uint32_t (ITask::*)(uint32_t, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*, bool,
                                     double, void*, zqerr_Status*);

// The steps before the plug-in shared by the vector and lines paths.
inline void checkVector(const void* array, const VectorArgs& a, zqerr_Status* status) {
  checkReserved(a.reserved, status);
  checkArray(array, a.numSampsPerChan, 6, status);
  checkCount(a.numSampsPerChan, status);
}

// The parameter records of a vector or lines write.
template <class Element>
void traceVectorParams(zqtrace::TraceCall& trace, const WriteInfo& info, const Element* writeArray,
                       const VectorArgs& a) {
  traceLeading(trace, "numSampsPerChan", a.numSampsPerChan, a.autoStart, a.timeout);
  trace.paramNamed("dataLayout", zqtrace::Literals::kGrouping, a.dataLayout);
  traceInput(trace, info.firstArray, writeArray, a.numSampsPerChan);
  traceTail(trace, info, a.written, a.reserved);
}

template <class Element, VectorOp Op, uint32_t Kind>
int32_t writeVector(const WriteInfo& info, TaskHandle handle, const Element* writeArray,
                    const VectorArgs& a) {
  return zqframe::dataCallFrame(
      info.name, handle,
      [&](zqtrace::TraceCall& trace) { traceVectorParams(trace, info, writeArray, a); },
      [&](ITask* task, zqerr_Status* status) {
        uint32_t written = 0;
        checkVector(writeArray, a, status);
        if (task && zqerr::isOpen(status)) {
          const uint32_t numChans = writeAttributeU32(*task, Vorex_WriteNumChans, status);
          if (zqerr::isOpen(status)) {
            zqgopher::ArrayBufferWriteAdapter buffer(writeArray, numChans,
                                                     static_cast<uint64_t>(a.numSampsPerChan), status);
            const zqvorexPlugin_ReadLayout layout = layoutOf(a.dataLayout);
            if (zqerr::isOpen(status))
              written =
                  (task->*Op)(Kind, buffer.boundary(), &layout, a.autoStart != 0, a.timeout, nullptr, status);
          }
        }
        if (a.written) *a.written = static_cast<int32_t>(written);
      },
      [&](zqtrace::TraceCall& trace) { traceReturns(trace, info, a.written, a.reserved); });
}

}  // namespace zqwrite
