#include "text/nstring.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "platform/platform.h"
#include "status/error_sites.h"
#include "text/wide_buffer.h"

namespace zqwombat {

namespace {

constexpr size_t kMaxLength = 0x7FFFFFFF;

// Sets the site's code; the 0 is the failed routine's result.
size_t fail(zqerr::FixedStatus* status, const zqerr::Site& site) {
  zqerr::setFixed(status, site);
  return 0;
}

int platformCount(size_t size) { return static_cast<int>(std::min(size, kMaxLength)); }

size_t wideLength(const char16_t* text, size_t max) {
  size_t n = 0;
  while (n < max && text[n]) ++n;
  return n;
}

// The output side, for each kind of string. A std::string that cannot grow is a full memory.
bool resizeOutput(std::string* out, size_t n, zqerr::FixedStatus* status) {
  try {
    out->resize(n);
    return true;
  } catch (const std::exception&) {
    zqhtl::err::StatusRef(status).memoryFull();
    return false;
  }
}
bool resizeOutput(std::u16string* out, size_t n, zqerr::FixedStatus* status) {
  try {
    out->resize(n);
    return true;
  } catch (const std::exception&) {
    zqhtl::err::StatusRef(status).memoryFull();
    return false;
  }
}
template <typename Char>
bool resizeOutput(zqhtl::BasicString<Char>* out, size_t n, zqerr::FixedStatus* status) {
  return out->resize(n, status);
}
void clearOutput(std::string* out) { out->clear(); }
void clearOutput(std::u16string* out) { out->clear(); }
template <typename Char>
void clearOutput(zqhtl::BasicString<Char>* out) {
  out->clear();
}

// UTF-16 to the page, measured first and written straight into the output.
template <typename Out>
void wideInto(uint32_t codePage, const char16_t* wide, size_t units, Out* out, zqerr::FixedStatus* status) {
  size_t n = wideToCodePage(codePage, wide, units, nullptr, 0, false, status);
  if (status->code < 0 || !resizeOutput(out, n, status)) return clearOutput(out);
  if (n > 0) wideToCodePage(codePage, wide, units, out->data(), n, false, status);
  if (status->code < 0) clearOutput(out);
}

template <typename Out>
void narrowInto(uint32_t codePage, const char* text, size_t length, Out* out, zqerr::FixedStatus* status) {
  size_t n = codePageToWide(codePage, text, length, nullptr, 0, false, status);
  if (status->code < 0 || !resizeOutput(out, n, status)) return clearOutput(out);
  if (n > 0) codePageToWide(codePage, text, length, out->data(), n, false, status);
  if (status->code < 0) clearOutput(out);
}

// Page to page through a UTF-16 form of our own.
template <typename Out>
void throughWide(uint32_t from, uint32_t to, const char* text, size_t length, Out* out, zqerr::FixedStatus* status) {
  if (status->code < 0) return;
  if (!text || length == 0) return clearOutput(out);
  size_t units = codePageToWide(from, text, length, nullptr, 0, false, status);
  WideBuffer wide;
  if (status->code < 0 || !wide.prepare(units, status)) return clearOutput(out);
  codePageToWide(from, text, length, wide.data(), units, false, status);
  if (status->code < 0) return clearOutput(out);
  wideInto(to, wide.data(), units, out, status);
}

template <typename Out>
void utf8ToWideInto(const char* text, size_t length, Out* out, zqerr::FixedStatus* status) {
  if (status->code < 0) return;
  if (!text || length == 0) return clearOutput(out);
  narrowInto(zqplatform::kCpUtf8, text, length, out, status);
}

template <typename Out>
void wideToUtf8Into(const char16_t* text, size_t length, Out* out, zqerr::FixedStatus* status) {
  if (status->code < 0) return;
  if (!text || length == 0) return clearOutput(out);
  wideInto(zqplatform::kCpUtf8, text, length, out, status);
}

}  // namespace

size_t codePageToWide(uint32_t codePage, const char* text, size_t length, char16_t* out, size_t outSize,
                      bool terminated, zqerr::FixedStatus* status) {
  if (status->code < 0) return 0;
  if (length > kMaxLength) return fail(status, zqsite::kToWideTooLong);
  if (!text) length = 0;
  if (terminated) length = strnlen(text ? text : "", length);
  if (out && outSize == 0) return fail(status, zqsite::kToWideNoRoom);
  int n = 0;
  if (length > 0) {
    n = zqplatform::multiByteToWide(codePage, 0, text, static_cast<int>(length), out, out ? platformCount(outSize) : 0);
    if (n == 0) {
      if (zqplatform::lastError() == zqplatform::kErrorInsufficientBuffer) return fail(status, zqsite::kToWideShort);
      return fail(status, zqsite::kToWideUnreadable);
    }
  }
  if (terminated && out) {
    if (static_cast<size_t>(n) >= outSize) return fail(status, zqsite::kToWideNoTerminator);
    out[n] = 0;
  }
  return static_cast<size_t>(n);
}

size_t wideToCodePage(uint32_t codePage, const char16_t* text, size_t length, char* out, size_t outSize,
                      bool terminated, zqerr::FixedStatus* status) {
  if (status->code < 0) return 0;
  if (length > kMaxLength) return fail(status, zqsite::kFromWideTooLong);
  if (!text) length = 0;
  if (terminated) length = wideLength(text, length);
  if (out && outSize == 0) return fail(status, zqsite::kFromWideNoRoom);
  int n = 0;
  if (length > 0) {
    n = zqplatform::wideToMultiByte(codePage, 0, text, static_cast<int>(length), out, out ? platformCount(outSize) : 0);
    if (n == 0) {
      if (zqplatform::lastError() == zqplatform::kErrorInsufficientBuffer) return fail(status, zqsite::kFromWideShort);
      return fail(status, zqsite::kFromWideUnwritable);
    }
  }
  if (terminated && out) {
    if (static_cast<size_t>(n) >= outSize) return fail(status, zqsite::kFromWideNoTerminator);
    out[n] = 0;
  }
  return static_cast<size_t>(n);
}

void systemTextToUtf8(const char* text, size_t length, std::string* out, zqerr::FixedStatus* status) {
  throughWide(zqplatform::kCpAcp, zqplatform::kCpUtf8, text, length, out, status);
}
void systemTextToUtf8(const char* text, size_t length, zqhtl::String* out, zqerr::FixedStatus* status) {
  throughWide(zqplatform::kCpAcp, zqplatform::kCpUtf8, text, length, out, status);
}
void utf8ToSystemText(const char* text, size_t length, std::string* out, zqerr::FixedStatus* status) {
  throughWide(zqplatform::kCpUtf8, zqplatform::kCpAcp, text, length, out, status);
}
void utf8ToSystemText(const char* text, size_t length, zqhtl::String* out, zqerr::FixedStatus* status) {
  throughWide(zqplatform::kCpUtf8, zqplatform::kCpAcp, text, length, out, status);
}
void utf8ToWide(const char* text, size_t length, std::u16string* out, zqerr::FixedStatus* status) {
  utf8ToWideInto(text, length, out, status);
}
void utf8ToWide(const char* text, size_t length, zqhtl::WideString* out, zqerr::FixedStatus* status) {
  utf8ToWideInto(text, length, out, status);
}
void wideToUtf8(const char16_t* text, size_t length, std::string* out, zqerr::FixedStatus* status) {
  wideToUtf8Into(text, length, out, status);
}
void wideToUtf8(const char16_t* text, size_t length, zqhtl::String* out, zqerr::FixedStatus* status) {
  wideToUtf8Into(text, length, out, status);
}

}  // namespace zqwombat
