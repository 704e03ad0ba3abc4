#include "boundary/out_parameters.h"

#include <algorithm>
#include <cstring>

#include "boundary/guard.h"
#include "status/report_writer.h"
#include "status/error_sites.h"
#include "text/nstring.h"

namespace zqgopher {

namespace {

constexpr uint64_t kMaxReturnedSize = 0x7FFFFFFF;
constexpr std::string_view kListSeparator = ", ";

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// The text as the system code page holds it. ASCII reads the same in every system code page,
// so it is taken as it stands; anything else goes through the system conversion, into
// `converted`.
std::string_view toSystemText(std::string_view utf8, std::string& converted, zqerr_Status* status) {
  if (utf8.size() <= kMaxReturnedSize && isAscii(utf8)) return utf8;
  {
    zqerr::StatusBridge bridge(status);
    zqwombat::utf8ToSystemText(utf8.data(), utf8.size(), &converted, bridge.fixed());
  }
  return converted;
}

}  // namespace

int32_t copyStringToCaller(std::string_view text, char* buffer, uint32_t bufferSize, bool& isSizeQuery,
                           zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  std::string converted;
  const std::string_view systemText = toSystemText(text, converted, status);
  if (!zqerr::isOpen(status)) return 0;
  const uint64_t length = systemText.size();
  if (!buffer || bufferSize == 0) {
    isSizeQuery = true;
    if (length == 0) return 0;
    // The size is the return value, which must stay a positive 32-bit number.
    if (length >= kMaxReturnedSize) {
      ZQ_FAIL(status, kOutParametersCalculationOverflow);
      return 0;
    }
    return static_cast<int32_t>(length + 1);
  }
  if (length > uint64_t{bufferSize} - 1) {
    ZQ_FAIL(status, kOutParametersBufferTooSmallForString);
    return 0;
  }
  std::memcpy(buffer, systemText.data(), static_cast<size_t>(length));
  buffer[length] = '\0';
  return 0;
}

int32_t copyStringOut(std::string_view text, char* buffer, uint32_t bufferSize, bool& isSizeQuery,
                      zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  zqerr::Status local;
  const int32_t result = copyStringToCaller(text, buffer, bufferSize, isSizeQuery, &local);
  const int32_t code = local.code;
  if (code == 0 || !zqerr::adopt(status, &local) || code != nZQMSTS::kErrorBufferTooSmallForString) return result;
  bool sizeQuery = false;
  zqerr::Status again;
  const int32_t needed = copyStringToCaller(text, nullptr, 0, sizeQuery, &again);
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeReqBufSizeInBytes, int32_t{needed});
  zqerr::addItem(w, zqerr::usage::kUsageTypeBufferLength, uint32_t{bufferSize});
  return result;
}

int32_t copyStringListOut(const std::vector<std::string>& items, char* buffer, uint32_t bufferSize,
                          bool& isSizeQuery, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  if (items.empty()) {
    if (buffer && bufferSize != 0)
      buffer[0] = '\0';
    else
      isSizeQuery = true;
    return 0;
  }
  size_t length = (items.size() - 1) * kListSeparator.size();
  for (const std::string& item : items) length += item.size();
  std::string joined;
  joined.reserve(length);
  for (size_t i = 0; i < items.size(); ++i) {
    if (i != 0) joined += kListSeparator;
    joined += items[i];
  }
  const int32_t result = copyStringOut(joined, buffer, bufferSize, isSizeQuery, status);
  return isSizeQuery && zqerr::isOpen(status) ? result : 0;
}

int32_t detail::copyElementsOut(const void* items, uint64_t count, size_t elementSize, void* data,
                                uint32_t arraySizeInElements, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  if (!data || arraySizeInElements == 0) {
    // The count is the return value, which must stay a positive 32-bit number.
    if (count > kMaxReturnedSize) {
      ZQ_FAIL(status, kOutParametersCalculationOverflow106);
      return 0;
    }
    return static_cast<int32_t>(count);
  }
  if (arraySizeInElements < count) {
    if (ZQ_FAIL(status, kOutParametersArrayTooSmall)) {
      const uint32_t needed = count > 0xFFFFFFFFu ? 0xFFFFFFFFu : static_cast<uint32_t>(count);
      zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
      w = zqerr::addItem(w, zqerr::usage::kUsageTypeBufferLength, uint32_t{arraySizeInElements});
      zqerr::addItem(w, zqerr::usage::kUsageTypeReqBufSizeInSamps, needed);
    }
    return 0;
  }
  if (count != 0) std::memcpy(data, items, static_cast<size_t>(count) * elementSize);
  return 0;
}

}  // namespace zqgopher
