#include "utilities/text_forms.h"

#include <cstring>

#include "text/list_parser.h"
#include "text/nstring.h"
#include "text/trim_split.h"

namespace zqutility {

std::string convertedText(const char* text, zqerr_Status* status) {
  std::string value;
  if (!text || !*text) return value;
  zqerr::Status own;
  {
    zqerr::StatusBridge bridge(&own);
    zqwombat::systemTextToUtf8(text, std::strlen(text), &value, bridge.fixed());
  }
  zqerr::adopt(status, &own);
  return value;
}

std::string trimmedText(const char* text, zqerr_Status* status) {
  std::string value = convertedText(text, status);
  if (zqerr::isOpen(status)) zqwombat::trimText(&value, status);
  return value;
}

std::string copiedText(const char* text, zqerr_Status* status) {
  std::string value = text ? text : "";
  if (zqerr::isOpen(status)) zqwombat::trimText(&value, status);
  return value;
}

NameList nameList(const std::string& text, zqerr_Status* status) {
  std::vector<std::string> names;
  zqwombat::parseCommaList(text, &names, status);
  return NameList(std::move(names));
}

}  // namespace zqutility
