#include "frame/channel_argument.h"

#include <algorithm>
#include <string_view>

#include "text/list_parser.h"
#include "text/nstring.h"
#include "text/trim_split.h"

namespace zqframe {

namespace {

// Longer texts take the converter's road, which refuses them.
constexpr size_t kMaxConvertedLength = 0x7FFFFFFF;

bool isAscii(std::string_view text) {
  return text.size() <= kMaxConvertedLength &&
         std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// A text without a delimiter or a range colon is one name, trimmed, or none when it is all white
// space: the list parser would give the same, and a short one is kept in place.
bool takeSingleName(std::string_view text, NameList* names) {
  if (text.find_first_of(",:") != std::string_view::npos) return false;
  size_t begin = 0, end = text.size();
  while (begin < end && zqwombat::isWhite(static_cast<unsigned char>(text[begin]))) ++begin;
  while (end > begin && zqwombat::isWhite(static_cast<unsigned char>(text[end - 1]))) --end;
  if (begin == end) return true;
  return names->assignShort(text.substr(begin, end - begin));
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
    if (!takeSingleName(text, names)) zqwombat::parseCommaList(text, names->vector(), status);
    return;
  }
  std::string utf8;
  {
    zqerr::StatusBridge bridge(status);
    zqwombat::systemTextToUtf8(text.data(), text.size(), &utf8, bridge.fixed());
  }
  zqwombat::parseCommaList(utf8, names->vector(), status);
}

}  // namespace zqframe
