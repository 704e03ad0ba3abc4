// The frame of the scalar attribute accessors, written once and instantiated for each class
// and operation; every exported accessor is a thin call into one of these with its constants.
#pragma once

#include <cstdint>
#include <utility>

#include "boundary/array_view.h"
#include "frame/channel_argument.h"
#include "frame/frame_trace.h"
#include "frame/op_traits.h"
#include "frame/task_holder.h"
#include "frame/type_classes.h"
#include "lasterror/last_error.h"
#include "status/exceptions.h"
#include "zqvorex_status_codes.h"

namespace zqframe {

inline constexpr const char* kModule = "APIImplementation";

// Runs one task operation with the channel argument turned into the operation's list form.
template <auto Op, class... Args>
auto callOp(typename OpTraits<decltype(Op)>::Task* task, const char* channel, zqerr_Status* status,
            int32_t id, Args... args) {
  using Traits = OpTraits<decltype(Op)>;
  if constexpr (Traits::kTakesList) {
    using Result = typename Traits::Result;
    using View = typename Traits::FirstArg;
    if (!zqerr::isOpen(status)) return Result();
    // Most accessors have no channel: their empty list needs neither parser nor list.
    if (!channel || !*channel) return (task->*Op)(View(), id, args..., status);
    NameList names;
    parseChannelArgument(channel, &names, status);
    if (!zqerr::isOpen(status)) return Result();
    const View view(names);
    return (task->*Op)(view, id, args..., status);
  } else {
    (void)channel;
    return (task->*Op)(id, args..., status);
  }
}

// Step 11 of the Get frame: a 64-bit result that must fit the caller's narrower type.
template <class Class, class Wide>
typename Class::Value narrowResult(Wide value, zqerr_Status* status, const AccessorInfo& info) {
  if constexpr (narrows<Class>()) {
    if (zqerr::isOpen(status) && value > 0xFFFFFFFFull)
      zqerr::setWithLocation(status, zqpalerr_calculationOverflow,
                             {kModule, info.line, zqerr::kComponent, "zqpalerr_calculationOverflow"});
  }
  return static_cast<typename Class::Value>(value);
}

template <class Class, auto Op>
int32_t getScalar(const AccessorInfo& info, TaskHandle handle, const char* channel,
                  typename Class::Value* data) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, channel);
    trace.param("data", Class::kGetParam, data);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  if (!data)
    zqerr::setWithLocation(&status, nZQMSTS100::kErrorNULLPtr,
                           {kModule, info.line, zqerr::kComponent, "nZQMSTS100::kErrorNULLPtr"});
  if (zqerr::isOpen(&status)) {
    try {
      auto value = callOp<Op>(task.get(), channel, &status, info.attributeId);
      *data = narrowResult<Class>(value, &status, info);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  if (status.code < 0 && data) *data = 0;
  traceGetReturns<Class>(trace, info, data, status.code);
  return status.code;
}

template <class Class, auto Op>
int32_t setScalar(const AccessorInfo& info, TaskHandle handle, const char* channel,
                  typename Class::Value data) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, channel);
    traceValueParam<Class>(trace, info, data);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status)) {
    try {
      callOp<Op>(task.get(), channel, &status, info.attributeId, data);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  trace.retval(status.code);
  return status.code;
}

template <auto Op>
int32_t resetAttribute(const AccessorInfo& info, TaskHandle handle, const char* channel) {
  using Task = typename OpTraits<decltype(Op)>::Task;
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, channel);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status)) {
    try {
      callOp<Op>(task.get(), channel, &status, info.attributeId);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  trace.retval(status.code);
  return status.code;
}

// The offset and size accessors: the narrow operation first, and when the plug-in answers
// exactly -89000, a clean status and the wide one.
inline constexpr int32_t kUseWideOperation = zqvorexPlugin_useWideOperation;

template <class Class, auto NarrowOp, auto WideOp>
int32_t getScalarWithFallback(const AccessorInfo& info, TaskHandle handle, typename Class::Value* data) {
  using Task = typename OpTraits<decltype(NarrowOp)>::Task;
  using Value = typename Class::Value;
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, nullptr);
    trace.param("data", Class::kGetParam, data);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  if (!data)
    zqerr::setWithLocation(&status, nZQMSTS100::kErrorNULLPtr,
                           {kModule, info.line, zqerr::kComponent, "nZQMSTS100::kErrorNULLPtr"});
  if (zqerr::isOpen(&status)) {
    try {
      Value value = static_cast<Value>(callOp<NarrowOp>(task.get(), nullptr, &status, info.attributeId));
      if (status.code == kUseWideOperation) {
        zqerr::clearReport(&status);
        auto wide = callOp<WideOp>(task.get(), nullptr, &status, info.attributeId);
        if (zqerr::isOpen(&status) && !std::in_range<Value>(wide))
          zqerr::setWithLocation(&status, zqpalerr_calculationOverflow,
                                 {kModule, info.line, zqerr::kComponent, "zqpalerr_calculationOverflow"});
        value = static_cast<Value>(wide);
      }
      *data = value;
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  if (status.code < 0 && data) *data = 0;
  traceGetReturns<Class>(trace, info, data, status.code);
  return status.code;
}

// Set (with a value) and Reset (without) of the same accessors.
template <class Class, auto NarrowOp, auto WideOp, class... Value>
int32_t changeWithFallback(const AccessorInfo& info, TaskHandle handle, Value... data) {
  using Task = typename OpTraits<decltype(NarrowOp)>::Task;
  zqtrace::TraceCall trace(info.traceName);
  if (trace) {
    traceHead(trace, info, handle, nullptr);
    (traceValueParam<Class>(trace, info, data), ...);
    trace.endParams();
  }
  zqerr::Status status;
  TaskHolder<Task> task(handle, &status);
  nZQCAI100::LastErrorRecorder<Task> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status)) {
    try {
      callOp<NarrowOp>(task.get(), nullptr, &status, info.attributeId, data...);
      if (status.code == kUseWideOperation) {
        zqerr::clearReport(&status);
        callOp<WideOp>(task.get(), nullptr, &status, info.attributeId, data...);
      }
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  trace.retval(status.code);
  return status.code;
}

}  // namespace zqframe
