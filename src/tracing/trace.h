// Call tracing of one exported function: a guard that opens the call's trace record, writes its
// parameter and return records, and ends the record on every way out of the function.
//
//   zqtrace::TraceCall trace("VorexGetAIMax");        // off: the switch word read and tested
//   if (trace) {                                       // argument copies only under the cookie
//     trace.param("taskHandle", zqtrace::kPointer, task);
//     trace.paramText("channel", channel);
//     trace.param("data", zqtrace::kF64AttributePointer, data);
//     trace.endParams();
//   }
//   ...the work; code = status.code...
//   if (trace) {
//     if (data) trace.ret("*data", zqtrace::kF64Attribute, *data);
//     trace.retval(code);                              // "retval" and the end of returns
//   }
//
// Records are numbered in call order from 0, parameters and returns apart. Every method does
// nothing without a cookie, so the `if (trace)` only saves the work of preparing arguments.
// Nothing here throws, and nothing allocates.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "tracing/named_values.h"
#include "tracing/trace_state.h"
#include "tracing/type_codes.h"

namespace zqtrace {

// The opening alone: the call's cookie, 0 when tracing is off or the tool declines the call.
inline Cookie openCall(const char* function) noexcept {
  if (detail::switchOn()) [[unlikely]]
    return detail::open(function);
  return 0;
}

class TraceCall {
 public:
  explicit TraceCall(const char* function) noexcept : cookie_(openCall(function)) {}
  // End of scope: a call whose returns were not ended, by an exception or an early way out,
  // is closed with 0 return records.
  ~TraceCall() {
    if (cookie_) [[unlikely]]
      interrupt();
  }
  TraceCall(const TraceCall&) = delete;
  TraceCall& operator=(const TraceCall&) = delete;

  explicit operator bool() const noexcept { return cookie_ != 0; }
  Cookie cookie() const noexcept { return cookie_; }
  uint32_t paramCount() const noexcept { return params_; }
  uint32_t returnCount() const noexcept { return returns_; }

  // --- parameters, index from 0 ----------------------------------------------------------
  // One record as it stands.
  void param(const char* name, int32_t code, const void* address, uint32_t elementSize, uint64_t totalSize) noexcept {
    if (cookie_) writeParam(name, code, address, elementSize, totalSize);
  }
  // A scalar by the address of a copy, element and total its size. For a pointer or handle
  // that is the pointer itself: the pointer parameters (codes 22, 82, 86, 89, 91, 92, 93, 96,
  // 109) and the pointer record of an output array.
  template <class T>
  void param(const char* name, int32_t code, const T& value) noexcept {
    static_assert(std::is_trivially_copyable_v<T> && !std::is_array_v<T>);
    if (cookie_) {
      if constexpr (sizeof(T) <= sizeof(uint64_t))
        writeParamCopy(name, code, bitsOf(value), sizeof(T));  // the caller's variable stays in a register
      else
        writeParam(name, code, &value, sizeof(T), sizeof(T));
    }
  }
  // Text: 79 over the text and its length; a null pointer as 93, 8, 8 over a copy of the pointer.
  void paramText(const char* name, const char* text) noexcept {
    if (cookie_) writeText(name, text, kParam);
  }
  // An enumeration: 103 over the pair (attribute id, value), element 4, total 8.
  void paramEnum(const char* name, int32_t attributeId, int32_t value) noexcept {
    if (cookie_) writeEnum(name, attributeId, value, kParam);
  }
  // A value that may have a name: its literal as text, else the number as 75.
  void paramNamed(const char* name, Literals set, int32_t value) noexcept {
    if (cookie_) writeNamed(name, set, value);
  }
  // A value that may have a name: its literal as text, else the enumeration pair as 103.
  void paramNamedOrEnum(const char* name, Literals set, int32_t attributeId, int32_t value) noexcept {
    if (cookie_) writeNamedOrEnum(name, set, attributeId, value);
  }
  // A timeout: "Vorex_Val_WaitInfinitely" for -1.0, else the number as 81.
  void paramTimeout(const char* name, double value) noexcept {
    if (cookie_) writeTimeout(name, value);
  }
  // An input array: the pointer record (code, a copy of the pointer, 8, 8), then at the next
  // index under the same name the content (code, the array, 8, 8 times the count), or 93 over
  // a copy of the pointer when it is null. Elements narrower than 8 bytes are handed over in a
  // copy padded with zeros to that total, so the tool never reads past the caller's array.
  template <class T>
  void paramArray(const char* name, int32_t code, const T* array, uint64_t count) noexcept {
    if (cookie_) writeInputArray(name, code, array, count, sizeof(T));
  }
  // An absolute time by value: 108, element 1, total 16.
  template <class T>
  void paramTime(const char* name, const T& time) noexcept {
    static_assert(sizeof(T) == 16 && std::is_trivially_copyable_v<T>);
    if (cookie_) writeParam(name, kAbsoluteTime, &time, 1, 16);
  }
  void endParams() noexcept {
    if (cookie_) writeEndParams();
  }

  // --- returns, index from 0 -------------------------------------------------------------
  void ret(const char* name, int32_t code, const void* address, uint32_t elementSize, uint64_t totalSize) noexcept {
    if (cookie_) writeReturn(name, code, address, elementSize, totalSize);
  }
  // A value by the address of a copy: "*data" of a scalar Get is `ret("*data", code, *data)`.
  template <class T>
  void ret(const char* name, int32_t code, const T& value) noexcept {
    static_assert(std::is_trivially_copyable_v<T> && !std::is_array_v<T>);
    if (cookie_) {
      if constexpr (sizeof(T) <= sizeof(uint64_t))
        writeReturnCopy(name, code, bitsOf(value), sizeof(T));
      else
        writeReturn(name, code, &value, sizeof(T), sizeof(T));
    }
  }
  // An out-parameter's value through its pointer, or 93 over a copy of the null pointer.
  template <class T>
  void retOut(const char* name, int32_t code, const T* pointer) noexcept {
    if (!cookie_) return;
    if (pointer)
      writeReturn(name, code, pointer, sizeof(T), sizeof(T));
    else
      writeReturnCopy(name, kPointer, 0, 8);
  }
  // Text output: 79 over `length` bytes, or the text's own length; 93 when null.
  void retText(const char* name, const char* text) noexcept {
    if (cookie_) writeText(name, text, kReturn);
  }
  void retText(const char* name, const char* text, size_t length) noexcept {
    if (cookie_) writeTextOfLength(name, text, length);
  }
  void retEnum(const char* name, int32_t attributeId, int32_t value) noexcept {
    if (cookie_) writeEnum(name, attributeId, value, kReturn);
  }
  // An array output: its content (code, the array, 8, its bytes), or 93 over a copy of the null pointer.
  template <class T>
  void retArray(const char* name, int32_t code, const T* array, uint64_t count) noexcept {
    if (cookie_) writeOutputArray(name, code, array, count * sizeof(T));
  }
  template <class T>
  void retTime(const char* name, const T& time) noexcept {
    static_assert(sizeof(T) == 16 && std::is_trivially_copyable_v<T>);
    if (cookie_) writeReturn(name, kAbsoluteTime, &time, 1, 16);
  }

  // --- the function's result and the end of returns ---------------------------------------
  // "retval", 75, at the next index, success for a non-negative code; then the end of returns.
  void retval(int32_t code) noexcept {
    if (cookie_) finish("retval", code, code >= 0);
  }
  // A size query's result: "size", 75, success 1, at the next index (0 when it stands alone).
  void retSize(int32_t size) noexcept {
    if (cookie_) finish("size", size, true);
  }
  // Any other function-return record (75) followed by the end of returns.
  void funcReturn(const char* name, int32_t value, bool success) noexcept {
    if (cookie_) finish(name, value, success);
  }

 private:
  enum Side : bool { kParam = false, kReturn = true };

  // The bytes of a small value in the low bytes of a 64-bit word, where its copy's address
  // shows them as the value itself.
  template <class T>
  static uint64_t bitsOf(const T& value) noexcept {
    static_assert(std::endian::native == std::endian::little);
    uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(T));
    return bits;
  }

  void writeParam(const char* name, int32_t code, const void* address, uint32_t elementSize,
                  uint64_t totalSize) noexcept;
  void writeReturn(const char* name, int32_t code, const void* address, uint32_t elementSize,
                   uint64_t totalSize) noexcept;
  void writeParamCopy(const char* name, int32_t code, uint64_t bits, uint32_t size) noexcept;
  void writeReturnCopy(const char* name, int32_t code, uint64_t bits, uint32_t size) noexcept;
  void writeText(const char* name, const char* text, Side side) noexcept;
  void writeTextOfLength(const char* name, const char* text, size_t length) noexcept;
  void writeEnum(const char* name, int32_t attributeId, int32_t value, Side side) noexcept;
  void writeNamed(const char* name, Literals set, int32_t value) noexcept;
  void writeNamedOrEnum(const char* name, Literals set, int32_t attributeId, int32_t value) noexcept;
  void writeTimeout(const char* name, double value) noexcept;
  void writeInputArray(const char* name, int32_t code, const void* array, uint64_t count,
                       size_t elementSize) noexcept;
  void writeOutputArray(const char* name, int32_t code, const void* array, uint64_t bytes) noexcept;
  void writeEndParams() noexcept;
  void finish(const char* name, int32_t value, bool success) noexcept;
  void interrupt() noexcept;

  Cookie cookie_;
  uint32_t params_ = 0;
  uint32_t returns_ = 0;
};

}  // namespace zqtrace
