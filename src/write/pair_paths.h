// The counter pair writes: the caller's two arrays are merged into one temporary array of
// pair records, the only write that copies samples.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <vector>

#include "boundary/array_buffer_adapter.h"
#include "status/error_sites.h"
#include "write/vector_paths.h"

namespace zqwrite {

// numSampsPerChan x numChans records, with the byte count tested for overflow; never empty,
// so that the adapter gets an address even for a count of 0.
template <class Record>
std::vector<Record> temporaryPairs(uint64_t numSampsPerChan, uint32_t numChans) {
  constexpr uint64_t kMaxRecords = std::numeric_limits<size_t>::max() / sizeof(Record);
  if (numChans != 0 && numSampsPerChan > kMaxRecords / numChans) throw std::bad_alloc();
  const uint64_t count = numSampsPerChan * numChans;
  return std::vector<Record>(count != 0 ? static_cast<size_t>(count) : 1u);
}

template <class Pair>
void mergePairs(std::vector<typename Pair::Record>& pairs, uint64_t count,
                const typename Pair::Element* first, const typename Pair::Element* second) {
  for (uint64_t i = 0; i < count; ++i) pairs[i] = Pair::make(first[i], second[i]);
}

template <class Pair>
uint32_t writeMerged(ITask& task, VectorOp op, const typename Pair::Element* first,
                     const typename Pair::Element* second, const VectorArgs& a, zqerr_Status* status) {
  const uint32_t numChans = writeAttributeU32(task, Vorex_WriteNumChans, status);
  if (zqerr::isOpen(status) && numChans == 0)
    ZQ_FAIL(status, kCwriteNonbufferedOrNoChannels);
  if (!zqerr::isOpen(status)) return 0;
  const auto numSamps = static_cast<uint64_t>(a.numSampsPerChan);
  std::vector<typename Pair::Record> pairs = temporaryPairs<typename Pair::Record>(numSamps, numChans);
  mergePairs<Pair>(pairs, numSamps * numChans, first, second);
  zqgopher::ArrayBufferAdapter buffer(pairs.data(), numChans, numSamps, status);
  const zqvorexPlugin_ReadLayout layout = layoutOf(a.dataLayout);
  if (!zqerr::isOpen(status)) return 0;
  return (task.*op)(kKindCounter, buffer.boundary(), &layout, a.autoStart != 0, a.timeout, nullptr, status);
}

template <class Pair, VectorOp Op>
int32_t writePair(const WriteInfo& info, TaskHandle handle, const typename Pair::Element* first,
                  const typename Pair::Element* second, const VectorArgs& a) {
  return zqframe::dataCallFrame(
      info.name, handle,
      [&](zqtrace::TraceCall& trace) {
        traceLeading(trace, "numSampsPerChan", a.numSampsPerChan, a.autoStart, a.timeout);
        trace.paramNamed("dataLayout", zqtrace::Literals::kGrouping, a.dataLayout);
        traceInput(trace, info.firstArray, first, a.numSampsPerChan);
        traceInput(trace, info.secondArray, second, a.numSampsPerChan);
        traceTail(trace, info, a.written, a.reserved);
      },
      [&](ITask* task, zqerr_Status* status) {
        if (a.written) *a.written = 0;  // also when the temporary array cannot be had
        uint32_t written = 0;
        checkReserved(a.reserved, status);
        checkArray(first, a.numSampsPerChan, 6, status);
        checkArray(second, a.numSampsPerChan, 7, status);
        checkCount(a.numSampsPerChan, status);
        if (task && zqerr::isOpen(status)) written = writeMerged<Pair>(*task, Op, first, second, a, status);
        if (a.written) *a.written = static_cast<int32_t>(written);
      },
      [&](zqtrace::TraceCall& trace) { traceReturns(trace, info, a.written, a.reserved); });
}

}  // namespace zqwrite
