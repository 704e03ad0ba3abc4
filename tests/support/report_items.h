// Reading back what a failure wrote into a status report: members of the root, the site and
// the usage items of the elaboration.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "status/report_reader.h"
#include "zqvorex_status.h"

namespace zqtest {

// The raw JSON text of a member of the report's root, "<none>" when absent.
inline std::string member(const zqerr_Status& status, const char* key) {
  const char* value = status.report ? zqerr::json::findKey(status.report, key) : nullptr;
  zqerr::json::ParsedValue parsed;
  if (!value || !zqerr::json::parseValue(value, &parsed)) return "<none>";
  return std::string(parsed.begin, parsed.length);
}

// A string member of `object`, decoded; "<none>" when absent or not a string.
inline std::string stringMember(const char* object, std::string_view key) {
  const char* value = object ? zqerr::json::findKey(object, key) : nullptr;
  zqerr::json::ParsedValue parsed;
  std::string out;
  if (!value || !zqerr::json::parseValue(value, &parsed) || parsed.type != zqerr::json::kString) return "<none>";
  zqerr::json::decodeString(parsed.begin + 1, parsed.length - 2, &out);
  return out;
}

struct Site {
  std::string file;
  int32_t line = -1;
  std::string component;
  bool operator==(const Site&) const = default;
};

inline Site siteOf(const zqerr_Status& status) {
  if (!status.report) return {"<no report>", -1, ""};
  const char* line = zqerr::json::findKey(status.report, "line");
  return {stringMember(status.report, "file"), line ? zqerr::json::readInt(line) : -1,
          stringMember(status.report, "component")};
}

// The raw "ordered_data" array of a report's elaboration, "<none>" when it has none.
inline std::string reportItems(const char* report) {
  const char* info = report ? zqerr::json::findKey(report, "translator_info") : nullptr;
  const char* data = info ? zqerr::json::findKey(info, "ordered_data") : nullptr;
  zqerr::json::ParsedValue parsed;
  if (!data || !zqerr::json::parseValue(data, &parsed)) return "<none>";
  return std::string(parsed.begin, parsed.length);
}

inline std::string items(const zqerr_Status& status) { return reportItems(status.report); }

// One usage item as the report writer prints it: `value` is the raw JSON text of the value;
// `comment` only for attribute usages.
inline std::string usageItem(const char* usage, const std::string& value, const char* valueType,
                             const char* comment = nullptr) {
  std::string item = std::string(R"({"type":"usage","usage":")") + usage + R"(","value":)" + value +
                     R"(,"value_type":")" + valueType + "\"";
  if (comment) item += std::string(R"(,"comment":")") + comment + "\"";
  return item + "}";
}

inline std::string usageItem(const char* usage, int64_t value, const char* valueType,
                             const char* comment = nullptr) {
  return usageItem(usage, std::to_string(value), valueType, comment);
}

// Item texts whose values need no JSON escaping.
inline std::string stringItem(const char* usage, std::string_view value) {
  return usageItem(usage, "\"" + std::string(value) + "\"", "string");
}

inline std::string uint32Item(const char* usage, uint32_t value) {
  return usageItem(usage, std::to_string(value), "uint32_t");
}

inline std::string itemList(std::initializer_list<std::string> list) {
  std::string text = "[";
  for (const std::string& item : list) text += (text.size() > 1 ? "," : "") + item;
  return text + "]";
}

// A status that has already failed, for the no-op rule.
inline void fail(zqerr_Status* status, int32_t code = -1) { status->code = code; }

}  // namespace zqtest
