// The caller's digital-line byte array as a plug-in sees it: zqgopher_IArrayLineBuffer. Like
// the sample arrays it carries the caller's pointer; it allocates only its line counts.
#pragma once

#include <cstdint>

#include "zqgopher_boundary.h"

namespace zqgopher {

// The read form. The write form below differs only in its table.
class ArrayLineBufferAdapter : public zqgopher_ArrayLineBufferFields {
 public:
  // totalElements and capacity start as `capacity` and numChannels as 0; a non-null
  // linesView then sets the shape as resize(linesView, numSampsPerChan) does.
  ArrayLineBufferAdapter(void* data, uint64_t capacity, const zqgopher_ArrayView* linesView,
                         uint64_t numSampsPerChan, zqerr_Status* status) noexcept;
  ~ArrayLineBufferAdapter();
  ArrayLineBufferAdapter(const ArrayLineBufferAdapter&) = delete;
  ArrayLineBufferAdapter& operator=(const ArrayLineBufferAdapter&) = delete;

  zqgopher_IArrayLineBuffer* boundary() noexcept { return &base; }

  static const zqgopher_IArrayLineBufferTable kTable;

 protected:
  ArrayLineBufferAdapter(const zqgopher_IArrayLineBufferTable* table, void* data, uint64_t capacity,
                         const zqgopher_ArrayView* linesView, uint64_t numSampsPerChan, zqerr_Status* status) noexcept;
};

// The write form: the plug-in only reads the caller's lines.
class ArrayLineBufferWriteAdapter : public ArrayLineBufferAdapter {
 public:
  ArrayLineBufferWriteAdapter(const void* data, uint64_t capacity, const zqgopher_ArrayView* linesView,
                              uint64_t numSampsPerChan, zqerr_Status* status) noexcept;

  static const zqgopher_IArrayLineBufferTable kTable;
};

// The constrained form over the n elements of one scalar value, shown to a debug target: one
// sample. kind 0: one line of each channel; kind 1: several lines of one channel.
class ScalarArrayLineBufferAdapter : public zqgopher_ArrayLineBufferScalarFields {
 public:
  static constexpr uint32_t kKindOneLine = 0;
  static constexpr uint32_t kKindOneChannel = 1;

  ScalarArrayLineBufferAdapter(void* data, uint64_t n, zqerr_Status* status, uint32_t kind = kKindOneChannel) noexcept;
  ScalarArrayLineBufferAdapter(const ScalarArrayLineBufferAdapter&) = delete;
  ScalarArrayLineBufferAdapter& operator=(const ScalarArrayLineBufferAdapter&) = delete;

  zqgopher_IArrayLineBuffer* boundary() noexcept { return &buffer.base; }

  static const zqgopher_IArrayLineBufferTable kTable;
};

}  // namespace zqgopher
