// The direct and the checked paths of the vector reads: the plug-in writes straight into the
// caller's array through the adapter, so neither path copies a sample.
#pragma once

#include <algorithm>
#include <cstdint>

#include "boundary/array_buffer_adapter.h"
#include "read/read_frame.h"

namespace zqread {

using VectorOp = uint32_t (ITask::*)(uint32_t, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*, int64_t,
                                     double, void*, zqerr_Status*);

template <class Element>
void traceVectorParams(zqtrace::TraceCall& trace, const ReadInfo& info, int32_t numSampsPerChan, double timeout,
                       int32_t fillMode, const Element* readArray, uint32_t arraySizeInSamps,
                       const int32_t* sampsPerChanRead, const uint32_t* reserved) {
  traceCountAndMode(trace, info, numSampsPerChan, timeout, fillMode);
  trace.param(info.firstArray, arrayCode<Element>(), readArray);
  trace.param("arraySizeInSamps", zqtrace::kSize, arraySizeInSamps);
  trace.param("sampsPerChanRead", zqtrace::kI32Pointer, sampsPerChanRead);
  trace.param("reserved", zqtrace::kBool32Pointer, reserved);
}

// Returns: the whole array, whatever was read into it, then the count.
template <class Element>
void traceVectorReturns(zqtrace::TraceCall& trace, const ReadInfo& info, const Element* readArray,
                        uint32_t arraySizeInSamps, const int32_t* sampsPerChanRead) {
  trace.retArray(info.firstArray, arrayCode<Element>(), readArray, arraySizeInSamps);
  trace.retOut("*sampsPerChanRead", zqtrace::kI32, sampsPerChanRead);
}

// Nothing is tested here but `reserved`: the array, the count and the size are the plug-in's.
template <class Element, VectorOp Op, uint32_t Kind>
int32_t readDirect(const ReadInfo& info, TaskHandle handle, int32_t numSampsPerChan, double timeout,
                   int32_t fillMode, Element* readArray, uint32_t arraySizeInSamps, int32_t* sampsPerChanRead,
                   uint32_t* reserved) {
  return readFrame(
      info, handle,
      [&](zqtrace::TraceCall& trace) {
        traceVectorParams(trace, info, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps,
                          sampsPerChanRead, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        uint32_t read = 0;
        if (task) {
          zqgopher::ArrayBufferAdapter buffer(readArray, arraySizeInSamps, status);
          const zqvorexPlugin_ReadLayout layout = layoutOf(fillMode);
          if (zqerr::isOpen(status))
            read = (task->*Op)(Kind, buffer.boundary(), &layout, numSampsPerChan, timeout, nullptr, status);
        }
        if (sampsPerChanRead) *sampsPerChanRead = static_cast<int32_t>(read);
      },
      [&](zqtrace::TraceCall& trace) {
        traceVectorReturns(trace, info, readArray, arraySizeInSamps, sampsPerChanRead);
      });
}

// Zero-fills a non-null array; false, with -200230, when a required one is missing.
template <class Element>
bool clearOrFail(Element* array, uint32_t size, int32_t numSampsPerChan, int32_t paramNum, zqerr_Status* status) {
  if (failNullArray(array, numSampsPerChan, paramNum, status)) return false;
  if (array) std::fill_n(array, size, Element{});
  return true;
}

// The array is cleared and the count resolved and fitted to the array before the plug-in
// sees it, so the plug-in never receives -1 here.
template <class Element, VectorOp Op>
int32_t readChecked(const ReadInfo& info, TaskHandle handle, int32_t numSampsPerChan, double timeout,
                    int32_t fillMode, Element* readArray, uint32_t arraySizeInSamps, int32_t* sampsPerChanRead,
                    uint32_t* reserved) {
  return readFrame(
      info, handle,
      [&](zqtrace::TraceCall& trace) {
        traceVectorParams(trace, info, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps,
                          sampsPerChanRead, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        clearOrFail(readArray, arraySizeInSamps, numSampsPerChan, 5, status);
        if (!task || !zqerr::isOpen(status)) return;
        const zqvorexPlugin_ReadLayout layout = layoutOf(fillMode);
        const uint32_t numChans = channelsToRead(*task, status);
        uint64_t numSamps = resolveNumSamps(*task, numSampsPerChan, status);
        if (numChans != 0) numSamps = limitAuto(numSamps, numSampsPerChan, arraySizeInSamps / numChans);
        checkSampleSpace(arraySizeInSamps, numSamps * numChans, status);
        if (!zqerr::isOpen(status)) return;
        zqgopher::ArrayBufferAdapter buffer(readArray, arraySizeInSamps, status);
        if (!zqerr::isOpen(status)) return;
        const uint32_t read = (task->*Op)(kKindDigital, buffer.boundary(), &layout,
                                          static_cast<int64_t>(numSamps), timeout, nullptr, status);
        if (sampsPerChanRead) *sampsPerChanRead = static_cast<int32_t>(read);
      },
      [&](zqtrace::TraceCall& trace) {
        traceVectorReturns(trace, info, readArray, arraySizeInSamps, sampsPerChanRead);
      });
}

}  // namespace zqread
