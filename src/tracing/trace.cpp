// The recording side of TraceCall: only reached with a cookie, so the bound operations are there.
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "tracing/trace.h"

namespace zqtrace {

namespace {

using detail::gBinding;

constexpr uint32_t kPointerSize = 8;

// The pair that an enumeration is traced as: the attribute id names the value's enumeration.
struct EnumPair {
  int32_t attributeId;
  int32_t value;
};
static_assert(sizeof(EnumPair) == 8);

}  // namespace

void TraceCall::writeParam(const char* name, int32_t code, const void* address, uint32_t elementSize,
                           uint64_t totalSize) noexcept {
  gBinding.setParam(cookie_, params_++, address, elementSize, totalSize, name, code);
}

void TraceCall::writeReturn(const char* name, int32_t code, const void* address, uint32_t elementSize,
                            uint64_t totalSize) noexcept {
  gBinding.setReturn(cookie_, returns_++, address, elementSize, totalSize, name, code);
}

void TraceCall::writeParamCopy(const char* name, int32_t code, uint64_t bits, uint32_t size) noexcept {
  writeParam(name, code, &bits, size, size);
}

void TraceCall::writeReturnCopy(const char* name, int32_t code, uint64_t bits, uint32_t size) noexcept {
  writeReturn(name, code, &bits, size, size);
}

void TraceCall::writeText(const char* name, const char* text, Side side) noexcept {
  if (side == kReturn)
    writeTextOfLength(name, text, text ? std::strlen(text) : 0);
  else if (text)
    writeParam(name, kText, text, 1, std::strlen(text));
  else
    writeParam(name, kPointer, &text, kPointerSize, kPointerSize);
}

void TraceCall::writeTextOfLength(const char* name, const char* text, size_t length) noexcept {
  if (text)
    writeReturn(name, kText, text, 1, length);
  else
    writeReturn(name, kPointer, &text, kPointerSize, kPointerSize);
}

void TraceCall::writeEnum(const char* name, int32_t attributeId, int32_t value, Side side) noexcept {
  EnumPair pair{attributeId, value};
  if (side == kReturn)
    writeReturn(name, kEnum, &pair, 4, sizeof pair);
  else
    writeParam(name, kEnum, &pair, 4, sizeof pair);
}

void TraceCall::writeNamed(const char* name, Literals set, int32_t value) noexcept {
  if (const char* literal = namedLiteral(set, value))
    writeParam(name, kText, literal, 1, std::strlen(literal));
  else
    writeParam(name, kI32, &value, sizeof value, sizeof value);
}

void TraceCall::writeNamedOrEnum(const char* name, Literals set, int32_t attributeId, int32_t value) noexcept {
  if (const char* literal = namedLiteral(set, value))
    writeParam(name, kText, literal, 1, std::strlen(literal));
  else
    writeEnum(name, attributeId, value, kParam);
}

void TraceCall::writeTimeout(const char* name, double value) noexcept {
  if (const char* literal = namedTimeout(value))
    writeParam(name, kText, literal, 1, std::strlen(literal));
  else
    writeParam(name, kF64, &value, sizeof value, sizeof value);
}

void TraceCall::writeInputArray(const char* name, int32_t code, const void* array, uint64_t count,
                                size_t elementSize) noexcept {
  writeParam(name, code, &array, kPointerSize, kPointerSize);
  if (!array) {
    writeParam(name, kPointer, &array, kPointerSize, kPointerSize);
    return;
  }
  if (elementSize >= kPointerSize) {
    writeParam(name, code, array, kPointerSize, kPointerSize * count);
    return;
  }
  // The record's total is 8 bytes an element whatever the element's size: the tool gets a copy
  // of that size, the array's bytes first and zeros after them. Small arrays stay on the stack.
  constexpr uint64_t kInlineBytes = 512;
  const uint64_t total = kPointerSize * count;
  unsigned char inlineCopy[kInlineBytes];
  std::unique_ptr<unsigned char[]> heapCopy;
  unsigned char* copy = inlineCopy;
  if (total > kInlineBytes) {
    heapCopy.reset(total <= SIZE_MAX ? new (std::nothrow) unsigned char[total] : nullptr);
    copy = heapCopy.get();
  }
  if (!copy) {  // too large to copy: the record of a pointer, not a read past the array
    writeParam(name, kPointer, &array, kPointerSize, kPointerSize);
    return;
  }
  const uint64_t bytes = elementSize * count;
  std::memcpy(copy, array, bytes);
  std::memset(copy + bytes, 0, total - bytes);
  writeParam(name, code, copy, kPointerSize, total);
}

void TraceCall::writeOutputArray(const char* name, int32_t code, const void* array, uint64_t bytes) noexcept {
  if (array)
    writeReturn(name, code, array, kPointerSize, bytes);
  else
    writeReturn(name, kPointer, &array, kPointerSize, kPointerSize);
}

void TraceCall::writeEndParams() noexcept { gBinding.endParams(cookie_, params_); }

void TraceCall::finish(const char* name, int32_t value, bool success) noexcept {
  gBinding.setFuncReturn(cookie_, returns_, &value, sizeof value, sizeof value, name, kI32, success ? 1 : 0);
  gBinding.endReturns(&cookie_, returns_ + 1);
  ++returns_;
  cookie_ = 0;  // the tool clears it too; later records and the guard then do nothing
}

void TraceCall::interrupt() noexcept {
  gBinding.endReturns(&cookie_, 0);
  cookie_ = 0;
}

}  // namespace zqtrace
