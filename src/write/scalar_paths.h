// The scalar writes: one value, or one pair record, by value; no array and no count.
#pragma once

#include <cstdint>
#include <type_traits>

#include "write/write_frame.h"

namespace zqwrite {

template <class Value>
using ScalarOp = uint32_t (ITask::*)(uint32_t, bool, double, Value, void*, zqerr_Status*);

template <class Value>
constexpr int32_t valueCode() {
  return std::is_same_v<Value, double> ? zqtrace::kF64 : zqtrace::kU32;
}

inline void traceScalarReturns(zqtrace::TraceCall& trace, const uint32_t* reserved) {
  trace.retOut("*reserved", zqtrace::kBool32, reserved);
}

template <class Value, ScalarOp<Value> Op, uint32_t Kind>
int32_t writeScalar(const char* name, TaskHandle handle, int32_t autoStart, double timeout, Value value,
                    uint32_t* reserved) {
  return zqframe::dataCallFrame(
      name, handle,
      [&](zqtrace::TraceCall& trace) {
        trace.param("autoStart", zqtrace::kBool32, autoStart);
        trace.param("timeout", zqtrace::kF64, timeout);
        trace.param("value", valueCode<Value>(), value);
        trace.param("reserved", zqtrace::kBool32Pointer, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        if (task && zqerr::isOpen(status)) (task->*Op)(Kind, autoStart != 0, timeout, value, nullptr, status);
      },
      [&](zqtrace::TraceCall& trace) { traceScalarReturns(trace, reserved); });
}

// `first` and `second` are the caller's two values in the order of its parameters.
template <class Pair, ScalarOp<typename Pair::Record> Op>
int32_t writePairScalar(const WriteInfo& info, TaskHandle handle, int32_t autoStart, double timeout,
                        typename Pair::Element first, typename Pair::Element second, uint32_t* reserved) {
  using Element = typename Pair::Element;
  return zqframe::dataCallFrame(
      info.name, handle,
      [&](zqtrace::TraceCall& trace) {
        trace.param("autoStart", zqtrace::kBool32, autoStart);
        trace.param("timeout", zqtrace::kF64, timeout);
        trace.param(info.firstArray, valueCode<Element>(), first);
        trace.param(info.secondArray, valueCode<Element>(), second);
        trace.param("reserved", zqtrace::kBool32Pointer, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        if (task && zqerr::isOpen(status))
          (task->*Op)(kKindCounter, autoStart != 0, timeout, Pair::make(first, second), nullptr, status);
      },
      [&](zqtrace::TraceCall& trace) { traceScalarReturns(trace, reserved); });
}

}  // namespace zqwrite
