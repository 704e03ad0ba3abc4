// The frames of the text accessors: Get and Set of a string, of a list of strings shown as one
// text, and Set of a terminal. Like the scalar frames they are written once, generic over the
// task operation, and every exported accessor is a thin call into one of them.
//
// A Get with a null `data` or a `bufferSize` of 0 asks for the size: it returns the length of
// the value in the system code page plus one (0 for an empty value) and writes nothing. A
// buffer without room for the value and its terminator gives -200228 and stays untouched. A
// failed Get leaves the buffer as it was.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "boundary/out_parameters.h"
#include "boundary/string_adapter.h"
#include "frame/scalar_frame.h"
#include "frame/text_value.h"
#include "text/list_parser.h"

namespace zqframe {

namespace detail {

// "data", the caller's buffer (89) or a null pointer (93), then "bufferSize".
inline void traceTextBufferParams(zqtrace::TraceCall& trace, const char* data, uint32_t bufferSize) {
  trace.param("data", data ? zqtrace::kTextBuffer : zqtrace::kPointer, data);
  trace.param("bufferSize", zqtrace::kSize, bufferSize);
}

// A size query that succeeded has the single record "size". Otherwise "data" is the text in
// the caller's buffer, read no further than its size since a failed call may have left it
// unterminated, and "retval" follows.
inline int32_t finishTextGet(zqtrace::TraceCall& trace, const char* data, uint32_t bufferSize, int32_t size,
                             bool sizeQuery, int32_t code) {
  if (sizeQuery && code >= 0) {
    trace.retSize(size);
    return size;
  }
  if (trace) {
    const void* end = data ? std::memchr(data, '\0', bufferSize) : nullptr;
    const size_t length = end ? static_cast<size_t>(static_cast<const char*>(end) - data) : (data ? bufferSize : 0);
    trace.retText("data", data, length);
  }
  trace.retval(code);
  return code;
}

// The Get frame around `fill(task, status, sizeQuery)`, which gets the value and copies it
// out, returning the size for a size query.
template <class Task, class Fill>
int32_t textGetFrame(const AccessorInfo& info, TaskHandle handle, const char* channel, char* data,
                     uint32_t bufferSize, Fill fill) {
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, channel);
    traceTextBufferParams(trace, data, bufferSize);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  int32_t size = 0;
  bool sizeQuery = false;
  if (zqerr::isOpen(&status)) {
    try {
      size = fill(task.get(), &status, sizeQuery);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  return finishTextGet(trace, data, bufferSize, size, sizeQuery, status.code);
}

// The same around one task operation.
template <auto Op, class Fill>
int32_t textGet(const AccessorInfo& info, TaskHandle handle, const char* channel, char* data, uint32_t bufferSize,
                Fill fill) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  return textGetFrame<Task>(info, handle, channel, data, bufferSize, std::move(fill));
}

// The Set frame around `send(task, value, status)`, with the value converted and stripped.
template <auto Op, class Send>
int32_t textSet(const AccessorInfo& info, TaskHandle handle, const char* channel, const char* data, Send send) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, channel);
    trace.paramText("data", data);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status)) {
    try {
      const std::string value = textValueArgument(data, &status);
      if (zqerr::isOpen(&status)) send(task.get(), value, &status);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  trace.retval(status.code);
  return status.code;
}

}  // namespace detail

template <auto Op>
int32_t getString(const AccessorInfo& info, TaskHandle handle, const char* channel, char* data, uint32_t bufferSize) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  return detail::textGet<Op>(info, handle, channel, data, bufferSize,
                             [&](Task* task, zqerr_Status* status, bool& sizeQuery) {
                               std::string value;
                               zqgopher::StringAdapter sink(value);
                               callOp<Op>(task, channel, status, info.attributeId, sink.boundary());
                               return zqgopher::copyStringOut(value, data, bufferSize, sizeQuery, status);
                             });
}

// The list comes back as one text, its items joined with ", ".
template <auto Op>
int32_t getStringList(const AccessorInfo& info, TaskHandle handle, const char* channel, char* data,
                      uint32_t bufferSize) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  return detail::textGet<Op>(info, handle, channel, data, bufferSize,
                             [&](Task* task, zqerr_Status* status, bool& sizeQuery) {
                               std::vector<std::string> items;
                               zqgopher::ItemAdderAdapter<std::string> sink(items);
                               callOp<Op>(task, channel, status, info.attributeId, sink.boundary());
                               return zqgopher::copyStringListOut(items, data, bufferSize, sizeQuery, status);
                             });
}

template <auto Op>
int32_t setString(const AccessorInfo& info, TaskHandle handle, const char* channel, const char* data) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  return detail::textSet<Op>(info, handle, channel, data,
                             [&](Task* task, const std::string& value, zqerr_Status* status) {
                               callOp<Op, const std::string&>(task, channel, status, info.attributeId, value);
                             });
}

// A terminal: the value must not name more than one, or the plug-in is not called at all.
template <auto Op>
int32_t setTerminal(const AccessorInfo& info, TaskHandle handle, const char* channel, const char* data) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  return detail::textSet<Op>(info, handle, channel, data,
                             [&](Task* task, const std::string& value, zqerr_Status* status) {
                               requireOneTerminal(info, value, status);
                               if (zqerr::isOpen(status))
                                 callOp<Op, const std::string&>(task, channel, status, info.attributeId, value);
                             });
}

// The value is a list: split by the list parser and handed over as a view of its names.
template <auto Op>
int32_t setStringList(const AccessorInfo& info, TaskHandle handle, const char* channel, const char* data) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  return detail::textSet<Op>(info, handle, channel, data,
                             [&](Task* task, const std::string& value, zqerr_Status* status) {
                               std::vector<std::string> items;
                               zqwombat::parseCommaList(value, &items, status);
                               if (!zqerr::isOpen(status)) return;
                               const zqgopher::StringArrayView view(items);
                               callOp<Op>(task, channel, status, info.attributeId, view.boundary());
                             });
}

}  // namespace zqframe
