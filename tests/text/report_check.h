// Reading back what a failure wrote: the site of a report and its elaboration items.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "status/report_reader.h"
#include "status/status.h"

namespace zqtest {

struct Site {
  std::string file;
  int32_t line = -1;
  std::string component;
  bool operator==(const Site&) const = default;
};

inline std::string stringMember(const char* object, std::string_view key) {
  const char* value = zqerr::json::findKey(object, key);
  zqerr::json::ParsedValue parsed;
  std::string out;
  if (!value || !zqerr::json::parseValue(value, &parsed) || parsed.type != zqerr::json::kString) return "<none>";
  zqerr::json::decodeString(parsed.begin + 1, parsed.length - 2, &out);
  return out;
}

inline Site siteOf(const zqerr_Status& status) {
  if (!status.report) return {"<no report>", -1, ""};
  const char* line = zqerr::json::findKey(status.report, "line");
  return {stringMember(status.report, "file"), line ? zqerr::json::readInt(line) : -1,
          stringMember(status.report, "component")};
}

// The raw text of "ordered_data", or "" when the report has no elaboration.
inline std::string orderedData(const zqerr_Status& status) {
  if (!status.report) return "";
  const char* info = zqerr::json::findKey(status.report, "translator_info");
  const char* data = info ? zqerr::json::findKey(info, "ordered_data") : nullptr;
  zqerr::json::ParsedValue parsed;
  if (!data || !zqerr::json::parseValue(data, &parsed)) return "";
  return std::string(parsed.begin, parsed.length);
}

// Expected item texts; values need no JSON escaping.
inline std::string stringItem(const char* usage, std::string_view value) {
  return std::string(R"({"type":"usage","usage":")") + usage + R"(","value":")" + std::string(value) +
         R"(","value_type":"string"})";
}

inline std::string uint32Item(const char* usage, uint32_t value) {
  return std::string(R"({"type":"usage","usage":")") + usage + R"(","value":)" + std::to_string(value) +
         R"(,"value_type":"uint32_t"})";
}

}  // namespace zqtest
