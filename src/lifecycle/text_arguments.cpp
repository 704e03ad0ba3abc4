#include "lifecycle/text_arguments.h"

#include <cstring>

#include "text/nstring.h"
#include "text/trim_split.h"

namespace nZQCAI100 {

std::string utf8Argument(const char* text, bool strip, zqerr_Status* status) {
  std::string value;
  if (!zqerr::isOpen(status) || !text) return value;
  {
    zqerr::StatusBridge bridge(status);
    zqwombat::systemTextToUtf8(text, std::strlen(text), &value, bridge.fixed());
  }
  if (strip) zqwombat::trimText(&value, status);
  return value;
}

std::string utf8FromUtf16(const char16_t* text, bool strip, zqerr_Status* status) {
  std::string value;
  if (!zqerr::isOpen(status) || !text) return value;
  {
    zqerr::StatusBridge bridge(status);
    zqwombat::wideToUtf8(text, std::char_traits<char16_t>::length(text), &value, bridge.fixed());
  }
  if (strip) zqwombat::trimText(&value, status);
  return value;
}

}  // namespace nZQCAI100
