#include "frame/channel_argument.h"

#include <string_view>

#include "platform/platform.h"

namespace zqframe {

// Interim: the caller's text taken as UTF-8 and split at commas with outer white space
// removed, until the list parser with ranges replaces it.
void parseChannelArgument(const char* channel, NameList* names, zqerr_Status* status) {
  names->clear();
  if (!zqerr::isOpen(status) || !channel) return;
  std::string_view text(channel);
  auto isWhite = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; };
  while (!text.empty()) {
    size_t comma = text.find(',');
    std::string_view entry = text.substr(0, comma);
    while (!entry.empty() && isWhite(entry.front())) entry.remove_prefix(1);
    while (!entry.empty() && isWhite(entry.back())) entry.remove_suffix(1);
    if (!entry.empty()) names->emplace_back(entry);
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
}

}  // namespace zqframe
