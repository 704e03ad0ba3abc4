// White space of lists and names, the trimmer, and the split of "Dev1/ai0" at its first "/".
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/basic_string.h"
#include "text/status_ref.h"

namespace zqwombat {

// Space, tab, carriage return, line feed, form feed, vertical tab.
constexpr bool isWhite(char32_t c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

// Removes white space at both ends, in place.
void trimText(std::string* text, zqhtl::err::StatusRef status);
void trimText(zqhtl::String* text, zqhtl::err::StatusRef status);

// Device: from `start` up to the first "/" after it, or to the end. Channel: what follows the
// "/", or empty. A start past the end reads as an empty text.
void splitDeviceAndChannel(std::string_view text, std::string* device, std::string* channel,
                           zqhtl::err::StatusRef status, size_t start = 0);
void splitDeviceAndChannel(std::string_view text, zqhtl::String* device, zqhtl::String* channel,
                           zqhtl::err::StatusRef status, size_t start = 0);

}  // namespace zqwombat
