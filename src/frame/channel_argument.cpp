#include "frame/channel_argument.h"

#include <algorithm>
#include <string_view>

#include "text/list_parser.h"
#include "text/nstring.h"

namespace zqframe {

namespace {

// Longer texts take the converter's road, which refuses them.
constexpr size_t kMaxConvertedLength = 0x7FFFFFFF;

bool isAscii(std::string_view text) {
  return text.size() <= kMaxConvertedLength &&
         std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

}  // namespace

void parseChannelArgument(const char* channel, NameList* names, zqerr_Status* status) {
  names->clear();
  if (!zqerr::isOpen(status)) return;
  const std::string_view text = channel ? std::string_view(channel) : std::string_view();
  // The accessors without a channel pass none: an empty list needs no parser.
  if (text.empty()) return;
  // Most channel lists are ASCII, which reads the same in every system code page: parsed as
  // they stand, they cost no conversion and no copy.
  if (isAscii(text)) {
    zqwombat::parseCommaList(text, names, status);
    return;
  }
  std::string utf8;
  {
    zqerr::StatusBridge bridge(status);
    zqwombat::systemTextToUtf8(text.data(), text.size(), &utf8, bridge.fixed());
  }
  zqwombat::parseCommaList(utf8, names, status);
}

}  // namespace zqframe
