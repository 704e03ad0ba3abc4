// The scalar reads: one sample per channel through an out-parameter, no array, no adapter.
#pragma once

#include <cstdint>
#include <type_traits>

#include "read/read_frame.h"

namespace zqread {

template <class Value>
using ScalarOp = uint32_t (ITask::*)(uint32_t, double, Value*, void*, zqerr_Status*);

// Pointer and value codes of a scalar output.
template <class Value>
constexpr int32_t pointerCode() {
  return std::is_same_v<Value, double> ? zqtrace::kF64Pointer : zqtrace::kU32Pointer;
}
template <class Value>
constexpr int32_t valueCode() {
  return std::is_same_v<Value, double> ? zqtrace::kF64 : zqtrace::kU32;
}

// Plain: `value` goes to the plug-in as given. Checked: a null `value` is an error and a
// non-null one starts at 0.
template <class Value, ScalarOp<Value> Op, uint32_t Kind, bool Checked>
int32_t readScalar(const ReadInfo& info, TaskHandle handle, double timeout, Value* value, uint32_t* reserved) {
  return readFrame(
      info, handle,
      [&](zqtrace::TraceCall& trace) {
        trace.param("timeout", zqtrace::kF64, timeout);
        trace.param("value", pointerCode<Value>(), value);
        trace.param("reserved", zqtrace::kBool32Pointer, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        if constexpr (Checked) {
          failNullArray(value, 1, 3, status);
          if (value) *value = 0;
        }
        if (task && zqerr::isOpen(status)) (task->*Op)(Kind, timeout, value, nullptr, status);
      },
      [&](zqtrace::TraceCall& trace) {
        trace.retOut("*value", valueCode<Value>(), value);
      });
}

// The plug-in fills a local record, whose fields go to the outputs when it says the value is
// valid; the power read stores them whenever the status is good.
template <class Split, ScalarOp<typename Split::Record> Op, uint32_t Kind, bool StoreAlways>
int32_t readPairScalar(const ReadInfo& info, TaskHandle handle, double timeout, typename Split::Element* first,
                       typename Split::Element* second, uint32_t* reserved) {
  using Element = typename Split::Element;
  return readFrame(
      info, handle,
      [&](zqtrace::TraceCall& trace) {
        trace.param("timeout", zqtrace::kF64, timeout);
        trace.param(info.firstArray, pointerCode<Element>(), first);
        trace.param(info.secondArray, pointerCode<Element>(), second);
        trace.param("reserved", zqtrace::kBool32Pointer, reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(reserved, status);
        failNullArray(first, 1, 3, status);
        failNullArray(second, 1, 4, status);
        if (!task || !zqerr::isOpen(status)) return;
        typename Split::Record record{};
        const uint32_t valid = (task->*Op)(Kind, timeout, &record, nullptr, status);
        if (!zqerr::isOpen(status) || (!valid && !StoreAlways)) return;
        *first = Split::first(record);
        *second = Split::second(record);
      },
      [&](zqtrace::TraceCall& trace) {
        trace.retOut(info.firstOut, valueCode<Element>(), first);
        trace.retOut(info.secondOut, valueCode<Element>(), second);
      });
}

}  // namespace zqread
