#include "status_report.h"

#include <cstdio>
#include <cstring>

namespace zqstorage {

namespace {

constexpr char kSentinel = 'J';

bool replaces(int32_t present, int32_t next) {
  return (present == 0 && next != 0) || (present > 0 && next < 0);
}

// Writes text into the buffer in its form; false when the buffer cannot be had.
bool writeBuffer(zqerr_Status* status, const std::string& text) {
  const uint64_t need = text.size() + 2;  // the terminator and the sentinel
  if (need > 0x7FFFFFFFu) return false;
  if (status->report == nullptr || status->capacity < need) {
    if (status->storage == nullptr || !status->storage(status, static_cast<uint32_t>(need))) return false;
    if (status->report == nullptr || status->capacity < need) return false;
  }
  std::memcpy(status->report, text.data(), text.size());
  std::memset(status->report + text.size(), 0, status->capacity - text.size() - 1);
  status->report[status->capacity - 1] = kSentinel;
  return true;
}

}  // namespace

void appendJsonString(std::string& out, std::string_view text) {
  out += '"';
  for (unsigned char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\b': out += "\\b"; break;
      case '\f': out += "\\f"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20 || c == 0x7F) {
          char escaped[8];
          std::snprintf(escaped, sizeof escaped, "\\u%04x", c);
          out += escaped;
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  out += '"';
}

std::string buildReport(ErrorConstant constant, Site site, std::string_view desc, std::string_view extra) {
  std::string text = "{\"error_constant\":";
  appendJsonString(text, constant.name);
  text += ",\"file\":";
  appendJsonString(text, site.file);
  text += ",\"line\":" + std::to_string(site.line);
  text += ",\"component\":";
  appendJsonString(text, kComponent);
  text += ",\"zqvorexStorage_debug\":{\"desc\":";
  appendJsonString(text, desc);
  text += extra;
  text += "}}";
  return text;
}

bool setStatus(zqerr_Status* status, ErrorConstant constant, Site site, std::string_view desc,
               std::string_view extra) {
  if (status == nullptr || !replaces(status->code, constant.code)) return false;
  status->code = constant.code;
  try {
    if (!writeBuffer(status, buildReport(constant, site, desc, extra))) writeBuffer(status, "{}");
  } catch (...) {
    // No memory for the text: the code stands without its report.
  }
  return true;
}

}  // namespace zqstorage
