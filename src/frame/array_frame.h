// The frames of the array accessors, for arrays of double and of int32_t (enumeration values).
// A Get with a null `data` or an `arraySizeInElements` of 0 asks for the size: it returns the
// element count and writes nothing. A shorter array gives -200234 and stays untouched.
#pragma once

#include <cstdint>
#include <type_traits>
#include <vector>

#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "boundary/out_parameters.h"
#include "frame/scalar_frame.h"

namespace zqframe {

// The trace code of an array of `Element` in every record of `data`.
template <class Element>
constexpr int32_t arrayTraceCode() {
  static_assert(std::is_same_v<Element, double> || std::is_same_v<Element, int32_t>,
                "attribute arrays hold double or int32_t");
  return std::is_same_v<Element, double> ? zqtrace::kF64Array : zqtrace::kEnumArray;
}

template <class Element, auto Op>
int32_t getArray(const AccessorInfo& info, TaskHandle handle, const char* channel, Element* data,
                 uint32_t arraySizeInElements) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  constexpr int32_t kCode = arrayTraceCode<Element>();
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, channel);
    // The pointer keeps the array's code even when null; only a null value record is 93.
    trace.param("data", kCode, data);
    trace.param("arraySizeInElements", zqtrace::kSize, arraySizeInElements);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  const bool sizeQuery = !data || arraySizeInElements == 0;
  int32_t size = 0;
  uint64_t copied = 0;
  if (zqerr::isOpen(&status)) {
    try {
      std::vector<Element> items;
      zqgopher::ItemAdderAdapter<Element> sink(items);
      callOp<Op>(task.get(), channel, &status, info.attributeId, sink.boundary());
      size = zqgopher::copyArrayOut(items, data, arraySizeInElements, &status);
      if (!sizeQuery && zqerr::isOpen(&status)) copied = items.size();
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  if (sizeQuery && status.code >= 0) {
    trace.retSize(size);
    return size;
  }
  trace.retArray("data", kCode, data, copied);
  trace.retval(status.code);
  return status.code;
}

template <class Element, auto Op>
int32_t setArray(const AccessorInfo& info, TaskHandle handle, const char* channel, const Element* data,
                 uint32_t arraySizeInElements) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, channel);
    trace.paramArray("data", arrayTraceCode<Element>(), data, arraySizeInElements);
    trace.param("arraySizeInElements", zqtrace::kSize, arraySizeInElements);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  // A count with a null array gives -52005; after a bad handle the view stays empty and quiet.
  const zqgopher::ArrayViewAdapter<Element> view(data, arraySizeInElements, &status);
  if (zqerr::isOpen(&status)) {
    try {
      callOp<Op>(task.get(), channel, &status, info.attributeId, view.boundary());
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  trace.retval(status.code);
  return status.code;
}

}  // namespace zqframe
