// The caller's sample array as a plug-in sees it: zqgopher_IArrayBuffer. The adapter carries
// the caller's pointer, so a plug-in reads or writes the samples in place; it allocates
// nothing and lives on the stack of one call.
#pragma once

#include <cstdint>

#include "zqgopher_boundary.h"

namespace zqgopher {

// The read form: the plug-in resizes it within its capacity and fills it.
class ArrayBufferAdapter : public zqgopher_ArrayBufferReadFields {
 public:
  // One channel of `capacity` samples; the capacity is the caller's array size in elements.
  ArrayBufferAdapter(void* data, uint64_t capacity, zqerr_Status* status) noexcept;
  // numChannels by numSampsPerChan; the capacity is their product.
  ArrayBufferAdapter(void* data, uint32_t numChannels, uint64_t numSampsPerChan, zqerr_Status* status) noexcept;
  ArrayBufferAdapter(const ArrayBufferAdapter&) = delete;
  ArrayBufferAdapter& operator=(const ArrayBufferAdapter&) = delete;

  zqgopher_IArrayBuffer* boundary() noexcept { return &base; }

  static const zqgopher_IArrayBufferTable kTable;
};

// The write form: the plug-in only reads the caller's samples; it has no capacity.
class ArrayBufferWriteAdapter : public zqgopher_ArrayBufferWriteFields {
 public:
  ArrayBufferWriteAdapter(const void* data, uint32_t numChannels, uint64_t numSampsPerChan,
                          zqerr_Status* status) noexcept;
  ArrayBufferWriteAdapter(const ArrayBufferWriteAdapter&) = delete;
  ArrayBufferWriteAdapter& operator=(const ArrayBufferWriteAdapter&) = delete;

  zqgopher_IArrayBuffer* boundary() noexcept { return &base; }

  static const zqgopher_IArrayBufferTable kTable;
};

// The constrained read form over the n elements of one scalar value, shown to a debug target.
// kind 0: one sample of up to n channels; kind 1: one channel of up to n samples.
class ScalarArrayBufferAdapter : public zqgopher_ArrayBufferScalarFields {
 public:
  static constexpr uint32_t kKindOneSample = 0;
  static constexpr uint32_t kKindOneChannel = 1;

  ScalarArrayBufferAdapter(void* data, uint64_t n, zqerr_Status* status, uint32_t kind = kKindOneChannel) noexcept;
  ScalarArrayBufferAdapter(const ScalarArrayBufferAdapter&) = delete;
  ScalarArrayBufferAdapter& operator=(const ScalarArrayBufferAdapter&) = delete;

  zqgopher_IArrayBuffer* boundary() noexcept { return &buffer.base; }

  static const zqgopher_IArrayBufferTable kTable;
};

}  // namespace zqgopher
