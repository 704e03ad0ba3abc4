// Conversion between the system code page, UTF-8 and UTF-16, with the codes and sites of the
// nstring module. The code-page directions always go through UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "status/status.h"
#include "text/basic_string.h"

namespace zqwombat {

// A UTF-16 form up to this many units stays on the stack.
inline constexpr size_t kStackWideUnits = 2048;

// The lower routines. `out` null asks for the length; otherwise at most `outSize` units are
// written. With `terminated`, the input ends at its first zero byte (or unit) if that comes
// before `length`, and a zero goes behind the output. The result is the count of units
// written or needed, terminator excluded; 0 with the status set on failure.
size_t codePageToWide(uint32_t codePage, const char* text, size_t length, char16_t* out, size_t outSize,
                      bool terminated, zqerr::FixedStatus* status);
size_t wideToCodePage(uint32_t codePage, const char16_t* text, size_t length, char* out, size_t outSize,
                      bool terminated, zqerr::FixedStatus* status);

// Whole-text conversions: an empty input clears the output; a failure leaves it empty.
void systemTextToUtf8(const char* text, size_t length, std::string* out, zqerr::FixedStatus* status);
void systemTextToUtf8(const char* text, size_t length, zqhtl::String* out, zqerr::FixedStatus* status);
void utf8ToSystemText(const char* text, size_t length, std::string* out, zqerr::FixedStatus* status);
void utf8ToSystemText(const char* text, size_t length, zqhtl::String* out, zqerr::FixedStatus* status);
void utf8ToWide(const char* text, size_t length, std::u16string* out, zqerr::FixedStatus* status);
void utf8ToWide(const char* text, size_t length, zqhtl::WideString* out, zqerr::FixedStatus* status);
void wideToUtf8(const char16_t* text, size_t length, std::string* out, zqerr::FixedStatus* status);
void wideToUtf8(const char16_t* text, size_t length, zqhtl::String* out, zqerr::FixedStatus* status);

}  // namespace zqwombat
