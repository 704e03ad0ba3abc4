#include "boundary/array_buffer_adapter.h"

#include "boundary/element_counts.h"
#include "boundary/guard.h"
#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqgopher {

namespace {

using Read = zqgopher_ArrayBufferReadFields;
using Write = zqgopher_ArrayBufferWriteFields;
using Scalar = zqgopher_ArrayBufferScalarFields;
using detail::multiplySaturated;
using detail::withExtensionBit;


// Each object begins with its interface, so the plug-in's pointer is the object's address.
template <class F>
const F& fieldsOf(const zqgopher_IArrayBuffer* self) {
  return *reinterpret_cast<const F*>(self);
}
template <class F>
F& fieldsOf(zqgopher_IArrayBuffer* self) {
  return *reinterpret_cast<F*>(self);
}

bool failed(const zqerr_Status* status) { return !status || !zqerr::isOpen(status); }

// The channel test of an unconstrained array: with channels present, an index beyond them.
bool channelOutOfRange(uint32_t channel, uint32_t numChannels) { return numChannels != 0 && channel >= numChannels; }

template <class F>
bool isEmpty(const zqgopher_IArrayBuffer* self, zqerr_Status* status) {
  if (failed(status)) return true;
  const F& f = fieldsOf<F>(self);
  return f.numChannels == 0 || f.totalElements == 0;
}

template <class F>
uint32_t getNumChannels(const zqgopher_IArrayBuffer* self, zqerr_Status* status) {
  return failed(status) ? 0 : fieldsOf<F>(self).numChannels;
}

template <class F>
uint64_t getNumSampsPerChan(const zqgopher_IArrayBuffer* self, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return 0;
  const F& f = fieldsOf<F>(self);
  if (channelOutOfRange(channel, f.numChannels)) {
    ZQ_FAIL(status, kArrayBufferAdapterBadSelector);
    return 0;
  }
  return f.numSampsPerChan;
}

// One pointer serves every channel, so only channel 0 has one.
template <class F>
const void* dataOf(const F& f, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return nullptr;
  if (!f.data) {
    ZQ_FAIL(status, kArrayBufferAdapterBadPointer);
    return nullptr;
  }
  if (channel != 0) {
    ZQ_FAIL(status, kArrayBufferAdapterBadSelector67);
    return nullptr;
  }
  return f.data;
}

template <class F>
const void* getData(const zqgopher_IArrayBuffer* self, uint32_t channel, zqerr_Status* status) {
  return dataOf(fieldsOf<F>(self), channel, status);
}

void reserved(const zqgopher_IArrayBuffer*, zqerr_Status*) {}
void reservedMutable(zqgopher_IArrayBuffer*, zqerr_Status*) {}

template <class F>
uint64_t getExtension(const zqgopher_IArrayBuffer* self) {
  return fieldsOf<F>(self).extension;
}

void clear(zqgopher_IArrayBuffer* self, zqerr_Status* status) {
  if (failed(status)) return;
  Read& f = fieldsOf<Read>(self);
  if (!f.data) {
    ZQ_FAIL(status, kArrayBufferAdapterBadPointer90);
    return;
  }
  f.numChannels = 0;
  f.numSampsPerChan = 0;
  f.totalElements = 0;
}

// The capacity test and the new shape, common to the free and the constrained read form.
void applyShape(Read& f, uint32_t numChannels, uint64_t numSampsPerChan, zqerr_Status* status) {
  const uint64_t total = multiplySaturated(numChannels, numSampsPerChan);
  if (total > f.capacity) {
    if (ZQ_FAIL(status, kArrayBufferAdapterReadBufferTooSmall)) {
      zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
      w = zqerr::addItem(w, zqerr::usage::kUsageTypeBufferLength, uint64_t{f.capacity});
      zqerr::addItem(w, zqerr::usage::kUsageTypeReqBufSizeInSamps, uint64_t{total});
    }
    return;
  }
  f.totalElements = total;
  f.numChannels = numChannels;
  f.numSampsPerChan = numSampsPerChan;
}

void resize(zqgopher_IArrayBuffer* self, uint32_t numChannels, uint64_t numSampsPerChan, zqerr_Status* status) {
  if (failed(status)) return;
  if (numChannels == 0 || numSampsPerChan == 0) numChannels = 0, numSampsPerChan = 0;
  applyShape(fieldsOf<Read>(self), numChannels, numSampsPerChan, status);
}

void* getMutableData(zqgopher_IArrayBuffer* self, uint32_t channel, zqerr_Status* status) {
  const Read& f = fieldsOf<Read>(self);
  return dataOf(f, channel, status) ? f.data : nullptr;
}

// ---- write form: the caller's samples are read-only ----

uint32_t getWriteCapabilities(const zqgopher_IArrayBuffer* self) {
  return withExtensionBit(0, fieldsOf<Write>(self).extension);
}

void refuseClear(zqgopher_IArrayBuffer*, zqerr_Status* status) {
  if (!failed(status)) ZQ_FAIL(status, kArrayBufferAdapterFeatureUnsupported);
}

void refuseResize(zqgopher_IArrayBuffer*, uint32_t, uint64_t, zqerr_Status* status) {
  if (!failed(status)) ZQ_FAIL(status, kArrayBufferAdapterFeatureUnsupported136);
}

void* refuseMutableData(zqgopher_IArrayBuffer*, uint32_t, zqerr_Status* status) {
  if (!failed(status)) ZQ_FAIL(status, kArrayBufferAdapterFeatureUnsupported140);
  return nullptr;
}

// ---- read form ----

uint32_t getReadCapabilities(const zqgopher_IArrayBuffer* self) {
  return withExtensionBit(40, fieldsOf<Read>(self).extension);
}

// ---- constrained read form ----

uint32_t getScalarCapabilities(const zqgopher_IArrayBuffer* self) {
  const Scalar& s = fieldsOf<Scalar>(self);
  const uint32_t bits = s.kind == 0 ? 8 : s.kind == 1 ? 32 : 0;
  return withExtensionBit(bits, s.buffer.extension);
}

uint64_t getScalarNumSampsPerChan(const zqgopher_IArrayBuffer* self, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return 0;
  const Scalar& s = fieldsOf<Scalar>(self);
  const bool refused = s.kind <= 1 ? channel != 0 : channelOutOfRange(channel, s.buffer.numChannels);
  if (refused) {
    ZQ_FAIL(status, kArrayBufferAdapterBadSelector163);
    return 0;
  }
  return s.buffer.numSampsPerChan;
}

void resizeScalar(zqgopher_IArrayBuffer* self, uint32_t numChannels, uint64_t numSampsPerChan,
                  zqerr_Status* status) {
  if (failed(status)) return;
  Scalar& s = fieldsOf<Scalar>(self);
  if (numChannels == 0 || numSampsPerChan == 0) numChannels = 0, numSampsPerChan = 0;
  if ((s.kind == 1 && numChannels > 1) || (s.kind == 0 && numSampsPerChan >= 2)) {
    ZQ_FAIL(status, kArrayBufferAdapterBadCount);
    return;
  }
  applyShape(s.buffer, numChannels, numSampsPerChan, status);
}

void failNullData(const void* data, zqerr_Status* status) {
  if (!data && !failed(status)) ZQ_FAIL(status, kArrayBufferAdapterInvalidParameter);
}

}  // namespace

const zqgopher_IArrayBufferTable ArrayBufferAdapter::kTable = {
    &getReadCapabilities, &isEmpty<Read>,      &getNumChannels<Read>, &getNumSampsPerChan<Read>,
    &getData<Read>,       &reserved,           &reserved,             &getExtension<Read>,
    &clear,               &resize,             &getMutableData,       &reservedMutable,
    &reservedMutable,     &getExtension<Read>};

const zqgopher_IArrayBufferTable ArrayBufferWriteAdapter::kTable = {
    &getWriteCapabilities, &isEmpty<Write>,   &getNumChannels<Write>, &getNumSampsPerChan<Write>,
    &getData<Write>,       &reserved,         &reserved,              &getExtension<Write>,
    &refuseClear,          &refuseResize,     &refuseMutableData,     &reservedMutable,
    &reservedMutable,      &getExtension<Write>};

const zqgopher_IArrayBufferTable ScalarArrayBufferAdapter::kTable = {
    &getScalarCapabilities, &isEmpty<Read>,      &getNumChannels<Read>, &getScalarNumSampsPerChan,
    &getData<Read>,         &reserved,           &reserved,             &getExtension<Read>,
    &clear,                 &resizeScalar,       &getMutableData,       &reservedMutable,
    &reservedMutable,       &getExtension<Read>};

ArrayBufferAdapter::ArrayBufferAdapter(void* data, uint64_t capacity, zqerr_Status* status) noexcept
    : zqgopher_ArrayBufferReadFields{{&kTable}, data, 1, capacity, capacity, capacity, 0} {
  failNullData(data, status);
}

ArrayBufferAdapter::ArrayBufferAdapter(void* data, uint32_t numChannels, uint64_t numSampsPerChan,
                                       zqerr_Status* status) noexcept
    : zqgopher_ArrayBufferReadFields{{&kTable},
                                     data,
                                     numChannels,
                                     numSampsPerChan,
                                     multiplySaturated(numChannels, numSampsPerChan),
                                     multiplySaturated(numChannels, numSampsPerChan),
                                     0} {
  failNullData(data, status);
}

ArrayBufferWriteAdapter::ArrayBufferWriteAdapter(const void* data, uint32_t numChannels, uint64_t numSampsPerChan,
                                                 zqerr_Status* status) noexcept
    : zqgopher_ArrayBufferWriteFields{
          {&kTable}, data, numChannels, numSampsPerChan, multiplySaturated(numChannels, numSampsPerChan), 0} {
  failNullData(data, status);
}

ScalarArrayBufferAdapter::ScalarArrayBufferAdapter(void* data, uint64_t n, zqerr_Status* status,
                                                   uint32_t kind) noexcept
    : zqgopher_ArrayBufferScalarFields{
          {{&kTable}, data, n != 0 ? 1u : 0u, n, n != 0 ? n : 0, n != 0 ? n : 0, 0}, kind} {
  failNullData(data, status);
}

}  // namespace zqgopher
