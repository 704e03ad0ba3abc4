// The pair paths: the plug-in fills a temporary array of pair records, which is then split
// into the caller's two arrays. This is the only read that copies samples.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "boundary/array_buffer_adapter.h"
#include "read/read_frame.h"
#include "read/vector_paths.h"
#include "status/error_sites.h"

namespace zqread {

template <class Element>
struct PairArgs {
  int32_t numSampsPerChan;
  double timeout;
  int32_t mode;
  Element* first;
  Element* second;
  uint32_t arraySizeInSamps;
  int32_t* sampsPerChanRead;
  uint32_t* reserved;
};

template <class Element>
void tracePairParams(zqtrace::TraceCall& trace, const ReadInfo& info, const PairArgs<Element>& a) {
  traceCountAndMode(trace, info, a.numSampsPerChan, a.timeout, a.mode);
  trace.param(info.firstArray, arrayCode<Element>(), a.first);
  trace.param(info.secondArray, arrayCode<Element>(), a.second);
  trace.param("arraySizeInSamps", zqtrace::kSize, a.arraySizeInSamps);
  trace.param("sampsPerChanRead", zqtrace::kI32Pointer, a.sampsPerChanRead);
  trace.param("reserved", zqtrace::kBool32Pointer, a.reserved);
}

template <class Element>
void tracePairReturns(zqtrace::TraceCall& trace, const ReadInfo& info, const PairArgs<Element>& a) {
  trace.retArray(info.firstArray, arrayCode<Element>(), a.first, a.arraySizeInSamps);
  trace.retArray(info.secondArray, arrayCode<Element>(), a.second, a.arraySizeInSamps);
  trace.retOut("*sampsPerChanRead", zqtrace::kI32, a.sampsPerChanRead);
}

// Steps shared by both pair paths: the two arrays required and cleared.
template <class Element>
void clearPair(const PairArgs<Element>& a, zqerr_Status* status) {
  const bool firstMissing = failNullArray(a.first, a.numSampsPerChan, 5, status);
  const bool secondMissing = failNullArray(a.second, a.numSampsPerChan, 6, status);
  if (firstMissing || secondMissing) return;
  if (a.first) std::fill_n(a.first, a.arraySizeInSamps, Element{});
  if (a.second) std::fill_n(a.second, a.arraySizeInSamps, Element{});
}

// The temporary array: zeroed, and never smaller than the capacity the adapter announces,
// so that a plug-in that fills its whole buffer stays inside it.
template <class Record>
std::vector<Record> temporaryPairs(uint32_t arraySizeInSamps) {
  return std::vector<Record>(std::max<uint32_t>(arraySizeInSamps, 1u), Record{});
}

template <class Split, class Element>
void splitPairs(const std::vector<typename Split::Record>& pairs, uint64_t count, const PairArgs<Element>& a) {
  count = std::min<uint64_t>({count, pairs.size(), a.arraySizeInSamps});
  for (uint64_t i = 0; i < count; ++i) {
    a.first[i] = Split::first(pairs[i]);
    a.second[i] = Split::second(pairs[i]);
  }
}

template <class Split, VectorOp Op>
int32_t readPair(const ReadInfo& info, TaskHandle handle, const PairArgs<typename Split::Element>& a) {
  using Record = typename Split::Record;
  return readFrame(
      info, handle, [&](zqtrace::TraceCall& trace) { tracePairParams(trace, info, a); },
      [&](ITask* task, zqerr_Status* status) {
        checkReserved(a.reserved, status);
        clearPair(a, status);
        if (!task || !zqerr::isOpen(status)) return;
        const zqvorexPlugin_ReadLayout layout = layoutOf(a.mode);
        const uint32_t numChans = channelsToRead(*task, status);
        if (zqerr::isOpen(status) && numChans == 0)
          ZQ_FAIL(status, kCreadNonbufferedOrNoChannels);
        uint64_t numSamps = resolveNumSamps(*task, a.numSampsPerChan, status);
        if (numChans != 0) numSamps = limitAuto(numSamps, a.numSampsPerChan, a.arraySizeInSamps / numChans);
        checkSampleSpace(a.arraySizeInSamps, numSamps * numChans, status);
        if (!zqerr::isOpen(status)) return;
        std::vector<Record> pairs = temporaryPairs<Record>(a.arraySizeInSamps);
        zqgopher::ArrayBufferAdapter buffer(pairs.data(), 1, a.arraySizeInSamps, status);
        const uint32_t read = (task->*Op)(kKindCounter, buffer.boundary(), &layout,
                                          static_cast<int64_t>(numSamps), a.timeout, nullptr, status);
        if (!zqerr::isOpen(status)) return;
        if (a.sampsPerChanRead) *a.sampsPerChanRead = static_cast<int32_t>(read);
        splitPairs<Split>(pairs, numSamps * numChans, a);
      },
      [&](zqtrace::TraceCall& trace) { tracePairReturns(trace, info, a); });
}

// The power reads: the count is resolved first, the plug-in gets the caller's count as it
// stands, only the pairs read are split, and the count read is stored on any status.
template <class Split, VectorOp Op>
int32_t readPower(const ReadInfo& info, TaskHandle handle, const PairArgs<typename Split::Element>& a) {
  using Record = typename Split::Record;
  return readFrame(
      info, handle, [&](zqtrace::TraceCall& trace) { tracePairParams(trace, info, a); },
      [&](ITask* task, zqerr_Status* status) {
        uint32_t read = 0;
        checkReserved(a.reserved, status);
        clearPair(a, status);
        if (task && zqerr::isOpen(status)) {
          const zqvorexPlugin_ReadLayout layout = layoutOf(a.mode);
          uint64_t numSamps = resolveNumSamps(*task, a.numSampsPerChan, status);
          const uint32_t numChans = channelsToRead(*task, status);
          if (zqerr::isOpen(status) && numChans == 0)
            ZQ_FAIL(status, kCreadNonbufferedOrNoChannels380);
          if (numChans != 0) numSamps = limitAuto(numSamps, a.numSampsPerChan, a.arraySizeInSamps / numChans);
          checkSampleSpace(a.arraySizeInSamps, static_cast<uint32_t>(static_cast<uint32_t>(numSamps) * numChans),
                           status);
          if (zqerr::isOpen(status)) {
            std::vector<Record> pairs = temporaryPairs<Record>(a.arraySizeInSamps);
            zqgopher::ArrayBufferAdapter buffer(pairs.data(), a.arraySizeInSamps, status);
            read = (task->*Op)(kKindAnalog, buffer.boundary(), &layout, a.numSampsPerChan, a.timeout, nullptr,
                               status);
            if (zqerr::isOpen(status)) splitPairs<Split>(pairs, uint64_t{read} * numChans, a);
          }
        }
        if (a.sampsPerChanRead) *a.sampsPerChanRead = static_cast<int32_t>(read);
      },
      [&](zqtrace::TraceCall& trace) { tracePairReturns(trace, info, a); });
}

}  // namespace zqread
