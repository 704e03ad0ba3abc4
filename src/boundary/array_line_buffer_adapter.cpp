#include "boundary/array_line_buffer_adapter.h"

#include <algorithm>

#include "boundary/element_counts.h"
#include "boundary/guard.h"
#include "boundary/line_counts.h"
#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqgopher {

namespace {

using Lines = zqgopher_ArrayLineBufferFields;
using Scalar = zqgopher_ArrayLineBufferScalarFields;
using detail::addSaturated;
using detail::multiplySaturated;
using detail::withExtensionBit;


constexpr uint32_t kNoLineCount = 0xFFFFFFFFu;
constexpr uint64_t kMaxChannels = 0xFFFFFFFFu;

const Lines& linesOf(const zqgopher_IArrayLineBuffer* self) { return *reinterpret_cast<const Lines*>(self); }
Lines& linesOf(zqgopher_IArrayLineBuffer* self) { return *reinterpret_cast<Lines*>(self); }
const Scalar& scalarOf(const zqgopher_IArrayLineBuffer* self) { return *reinterpret_cast<const Scalar*>(self); }

bool failed(const zqerr_Status* status) { return !status || !zqerr::isOpen(status); }

bool channelOutOfRange(uint32_t channel, uint32_t numChannels) { return numChannels != 0 && channel >= numChannels; }

// The view tests that every resize makes first; false with the status set.
bool viewUsable(const zqgopher_ArrayView* view, zqerr_Status* status) {
  if (!view || (view->count != 0 && !view->data)) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadPointer);
    return false;
  }
  if (view->count > kMaxChannels) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadCount);
    return false;
  }
  return true;
}

// ---- entries shared by every form ----

uint32_t getReadCapabilities(const zqgopher_IArrayLineBuffer* self) {
  return withExtensionBit(24, linesOf(self).extension);
}

uint32_t getWriteCapabilities(const zqgopher_IArrayLineBuffer* self) {
  return withExtensionBit(0, linesOf(self).extension);
}

bool isEmpty(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status) {
  if (failed(status)) return true;
  const Lines& f = linesOf(self);
  return f.numChannels == 0 || f.totalElements == 0;
}

uint32_t getNumChannels(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status) {
  return failed(status) ? 0 : linesOf(self).numChannels;
}

uint64_t getNumSampsPerChan(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return 0;
  const Lines& f = linesOf(self);
  if (channelOutOfRange(channel, f.numChannels)) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadSelector);
    return 0;
  }
  return f.numSampsPerChan;
}

uint32_t getNumLines(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return 0;
  const Lines& f = linesOf(self);
  if (channelOutOfRange(channel, f.numChannels)) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadSelector81);
    return 0;
  }
  return channel < f.linesPerChannel.size ? f.linesPerChannel.data[channel] : 0;
}

const void* getData(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return nullptr;
  const Lines& f = linesOf(self);
  if (!f.data) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadPointer91);
    return nullptr;
  }
  if (channel != 0) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadSelector95);
    return nullptr;
  }
  return f.data;
}

void reserved(const zqgopher_IArrayLineBuffer*, zqerr_Status*) {}
void reservedMutable(zqgopher_IArrayLineBuffer*, zqerr_Status*) {}

uint64_t getExtension(const zqgopher_IArrayLineBuffer* self) { return linesOf(self).extension; }

// linesMode 1 and 2 are a plug-in's business; this library's objects have 0.
uint32_t getUniformNumLines(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status) {
  if (failed(status)) return 0;
  const Lines& f = linesOf(self);
  if (f.linesMode != 1) return kNoLineCount;
  const zqgopher_LineCounts& l = f.linesPerChannel;
  return l.size == 0 ? 0 : *std::max_element(l.data, l.data + l.size);
}

uint32_t getNumLinesOfChannel(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return 0;
  const Lines& f = linesOf(self);
  if (f.linesMode != 2) return kNoLineCount;
  if (channel >= f.linesPerChannel.size) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadSelector120);
    return 0;
  }
  return f.linesPerChannel.data[channel];
}

// ---- the mutable part of the read form ----

void clear(zqgopher_IArrayLineBuffer* self, zqerr_Status* status) {
  if (failed(status)) return;
  Lines& f = linesOf(self);
  if (!f.data) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadPointer132);
    return;
  }
  f.numChannels = 0;
  f.numSampsPerChan = 0;
  f.totalElements = 0;
  detail::clearLines(f.linesPerChannel);
}

void failCapacity(const Lines& f, uint64_t total, zqerr_Status* status) {
  if (ZQ_FAIL(status, kArrayLineBufferAdapterBadCount142)) {
    zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
    w = zqerr::addItem(w, zqerr::usage::kUsageTypeBufferLength, uint64_t{f.capacity});
    zqerr::addItem(w, zqerr::usage::kUsageTypeReqBufSizeInSamps, uint64_t{total});
  }
}

// The shape of an unconstrained line array; throws only when the counts cannot be stored,
// and then leaves the shape as it was.
void applyLines(Lines& f, const zqgopher_ArrayView* view, uint64_t numSampsPerChan, zqerr_Status* status) {
  if (!viewUsable(view, status)) return;
  const uint32_t* entries = zqgopher_ArrayView_u32(view);
  uint64_t total = 0;
  for (uint64_t i = 0; i < view->count; ++i) total = addSaturated(total, multiplySaturated(entries[i], numSampsPerChan));
  uint64_t channels = view->count;
  if (channels == 0 || numSampsPerChan == 0) channels = 0, numSampsPerChan = 0;
  if (total > f.capacity) {
    failCapacity(f, total, status);
    return;
  }
  detail::assignLines(f.linesPerChannel, entries, channels);
  f.totalElements = total;
  f.numChannels = static_cast<uint32_t>(channels);
  f.numSampsPerChan = numSampsPerChan;
}

void resize(zqgopher_IArrayLineBuffer* self, const zqgopher_ArrayView* view, uint64_t numSampsPerChan,
            zqerr_Status* status) {
  guarded(status, [&] { applyLines(linesOf(self), view, numSampsPerChan, status); });
}

void* getMutableData(zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status) {
  return getData(self, channel, status) ? linesOf(self).data : nullptr;
}

// ---- the write form's refusals ----

void refuseClear(zqgopher_IArrayLineBuffer*, zqerr_Status* status) {
  if (!failed(status)) ZQ_FAIL(status, kArrayLineBufferAdapterFeatureUnsupported);
}

void refuseResize(zqgopher_IArrayLineBuffer*, const zqgopher_ArrayView*, uint64_t, zqerr_Status* status) {
  if (!failed(status)) ZQ_FAIL(status, kArrayLineBufferAdapterFeatureUnsupported184);
}

void* refuseMutableData(zqgopher_IArrayLineBuffer*, uint32_t, zqerr_Status* status) {
  if (!failed(status)) ZQ_FAIL(status, kArrayLineBufferAdapterFeatureUnsupported188);
  return nullptr;
}

// ---- the constrained form: one sample ----

uint32_t getScalarCapabilities(const zqgopher_IArrayLineBuffer* self) {
  const Scalar& s = scalarOf(self);
  const uint32_t bits = s.kind == 0 ? 8 : s.kind == 1 ? 16 : 0;
  return withExtensionBit(bits, s.buffer.extension);
}

uint64_t getScalarNumSampsPerChan(const zqgopher_IArrayLineBuffer* self, uint32_t, zqerr_Status* status) {
  if (failed(status)) return 0;
  return scalarOf(self).buffer.totalElements != 0 ? 1 : 0;
}

uint32_t getScalarNumLines(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status) {
  if (failed(status)) return 0;
  const Scalar& s = scalarOf(self);
  const uint64_t total = s.buffer.totalElements;
  if ((s.kind == 1 && channel != 0) || (s.kind == 0 && channel >= total)) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadSelector210);
    return 0;
  }
  if (s.kind == 1) return static_cast<uint32_t>(std::min<uint64_t>(total, kNoLineCount));
  return total != 0 ? 1 : 0;
}

void resizeScalar(zqgopher_IArrayLineBuffer* self, const zqgopher_ArrayView* view, uint64_t numSampsPerChan,
                  zqerr_Status* status) {
  if (failed(status) || !viewUsable(view, status)) return;
  Scalar& s = *reinterpret_cast<Scalar*>(self);
  const uint32_t firstLines = view->count != 0 ? zqgopher_ArrayView_u32(view)[0] : 0;
  if (numSampsPerChan >= 2 || (s.kind == 1 && view->count > 1) || (s.kind == 0 && firstLines >= 2)) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadCount223);
    return;
  }
  uint64_t channels = view->count;
  if (channels == 0 || numSampsPerChan == 0) channels = 0, numSampsPerChan = 0;
  const uint64_t total = multiplySaturated(multiplySaturated(firstLines, channels), numSampsPerChan);
  if (total > s.buffer.capacity) {
    ZQ_FAIL(status, kArrayLineBufferAdapterBadCount230);
    return;
  }
  s.buffer.totalElements = total;
  s.buffer.numChannels = static_cast<uint32_t>(channels);
  s.buffer.numSampsPerChan = numSampsPerChan;
}

void failNullData(const void* data, zqerr_Status* status) {
  if (!data && !failed(status)) ZQ_FAIL(status, kArrayLineBufferAdapterInvalidParameter);
}

}  // namespace

const zqgopher_IArrayLineBufferTable ArrayLineBufferAdapter::kTable = {
    &getReadCapabilities, &isEmpty,         &getNumChannels,  &getNumSampsPerChan,  &getNumLines,
    &getData,             &reserved,        &reserved,        &getExtension,        &clear,
    &resize,              &getMutableData,  &reservedMutable, &reservedMutable,     &getExtension,
    &getUniformNumLines,  &getNumLinesOfChannel};

const zqgopher_IArrayLineBufferTable ArrayLineBufferWriteAdapter::kTable = {
    &getWriteCapabilities, &isEmpty,           &getNumChannels,  &getNumSampsPerChan,  &getNumLines,
    &getData,              &reserved,          &reserved,        &getExtension,        &refuseClear,
    &refuseResize,         &refuseMutableData, &reservedMutable, &reservedMutable,     &getExtension,
    &getUniformNumLines,   &getNumLinesOfChannel};

const zqgopher_IArrayLineBufferTable ScalarArrayLineBufferAdapter::kTable = {
    &getScalarCapabilities, &isEmpty,        &getNumChannels,  &getScalarNumSampsPerChan, &getScalarNumLines,
    &getData,               &reserved,       &reserved,        &getExtension,             &clear,
    &resizeScalar,          &getMutableData, &reservedMutable, &reservedMutable,          &getExtension,
    &getUniformNumLines,    &getNumLinesOfChannel};

ArrayLineBufferAdapter::ArrayLineBufferAdapter(void* data, uint64_t capacity, const zqgopher_ArrayView* linesView,
                                               uint64_t numSampsPerChan, zqerr_Status* status) noexcept
    : ArrayLineBufferAdapter(&kTable, data, capacity, linesView, numSampsPerChan, status) {}

ArrayLineBufferAdapter::ArrayLineBufferAdapter(const zqgopher_IArrayLineBufferTable* table, void* data,
                                               uint64_t capacity, const zqgopher_ArrayView* linesView,
                                               uint64_t numSampsPerChan, zqerr_Status* status) noexcept
    : zqgopher_ArrayLineBufferFields{{table}, data, 0, numSampsPerChan, {nullptr, 0, 0}, capacity, capacity, 0, 0} {
  failNullData(data, status);
  if (linesView) guarded(status, [&] { applyLines(*this, linesView, numSampsPerChan, status); });
}

ArrayLineBufferAdapter::~ArrayLineBufferAdapter() { detail::releaseLines(linesPerChannel); }

ArrayLineBufferWriteAdapter::ArrayLineBufferWriteAdapter(const void* data, uint64_t capacity,
                                                         const zqgopher_ArrayView* linesView,
                                                         uint64_t numSampsPerChan, zqerr_Status* status) noexcept
    : ArrayLineBufferAdapter(&kTable, const_cast<void*>(data), capacity, linesView, numSampsPerChan, status) {}

ScalarArrayLineBufferAdapter::ScalarArrayLineBufferAdapter(void* data, uint64_t n, zqerr_Status* status,
                                                           uint32_t kind) noexcept
    : zqgopher_ArrayLineBufferScalarFields{
          {{&kTable}, data, n != 0 ? 1u : 0u, n != 0 ? 1u : 0u, {nullptr, 0, 0}, n, n, 0, 0}, kind} {
  failNullData(data, status);
}

}  // namespace zqgopher
