#include "read/read_checks.h"

#include <algorithm>
#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqread {

namespace {

constexpr int32_t kReadChannelsToRead = 0x1823;
constexpr int32_t kReadAvailSampPerChan = 0x1223;

zqerr::ReportWriter items(zqerr_Status* status) {
  return zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
}

}  // namespace

void checkReserved(const void* reserved, zqerr_Status* status) {
  if (reserved) ZQ_FAIL(status, kCreadReservedParamNotNULL);
}

bool failNullArray(const void* array, int32_t numSampsPerChan, int32_t paramNum, zqerr_Status* status) {
  if (array || numSampsPerChan == 0) return false;
  if (ZQ_FAIL(status, kCreadNullArray))
    zqerr::addItem(items(status), zqerr::usage::kUsageTypeParamNum, paramNum);
  return true;
}

uint32_t channelsToRead(ITask& task, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  std::vector<std::string> names;
  zqgopher::ItemAdderAdapter<std::string> sink(names);
  const zqgopher::StringArrayView none;
  task.getReadAttributeStringVtr(none, kReadChannelsToRead, sink.boundary(), status);
  return static_cast<uint32_t>(names.size());
}

uint64_t resolveNumSamps(ITask& task, int32_t numSampsPerChan, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  if (numSampsPerChan == kAuto) {
    const zqgopher::StringArrayView none;
    return task.getReadAttributeSize(none, kReadAvailSampPerChan, status);
  }
  if (numSampsPerChan < kAuto) {
    if (ZQ_FAIL(status, kCreadInvalidNumberSamplesToRead))
      zqerr::addItem(items(status), zqerr::usage::kUsageTypeRequestedNumberSamples, numSampsPerChan);
    return 0;
  }
  return static_cast<uint64_t>(numSampsPerChan);
}

uint64_t limitAuto(uint64_t numSamps, int32_t numSampsPerChan, uint64_t perChannel) {
  return numSampsPerChan == kAuto ? std::min(numSamps, perChannel) : numSamps;
}

void checkSampleSpace(uint32_t arraySizeInSamps, uint64_t required, zqerr_Status* status) {
  if (!zqerr::isOpen(status) || arraySizeInSamps >= required) return;
  if (ZQ_FAIL(status, kCreadReadBufferTooSmall)) {
    auto w = zqerr::addItem(items(status), zqerr::usage::kUsageTypeBufferLength, arraySizeInSamps);
    zqerr::addItem(w, zqerr::usage::kUsageTypeReqBufSizeInSamps, static_cast<uint32_t>(required));
  }
}

void checkByteSpace(uint32_t arraySizeInBytes, uint64_t required, zqerr_Status* status) {
  if (!zqerr::isOpen(status) || arraySizeInBytes >= required) return;
  if (ZQ_FAIL(status, kCreadReadBufferTooSmall104)) {
    auto w = zqerr::addItem(items(status), zqerr::usage::kUsageTypeBufferLength, arraySizeInBytes);
    zqerr::addItem(w, zqerr::usage::kUsageTypeReqBufSizeInBytes, required);
  }
}

uint32_t readAttributeU32(ITask& task, int32_t attributeId, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  const zqgopher::StringArrayView none;
  return task.getReadAttributeU32(none, attributeId, status);
}

}  // namespace zqread
