// Reading back what an error site wrote into a status report.
#pragma once

#include <string>

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

// The raw "ordered_data" array of the elaboration, "<none>" when absent.
inline std::string items(const zqerr_Status& status) {
  const char* info = status.report ? zqerr::json::findKey(status.report, "translator_info") : nullptr;
  const char* data = info ? zqerr::json::findKey(info, "ordered_data") : nullptr;
  zqerr::json::ParsedValue parsed;
  if (!data || !zqerr::json::parseValue(data, &parsed)) return "<none>";
  return std::string(parsed.begin, parsed.length);
}

// One usage item as the report writer prints it.
inline std::string usageItem(const char* usage, const std::string& value, const char* valueType) {
  return std::string(R"({"type":"usage","usage":")") + usage + R"(","value":)" + value + R"(,"value_type":")" +
         valueType + R"("})";
}

// A status that has already failed, for the no-op rule.
inline void fail(zqerr_Status* status, int32_t code = -1) { status->code = code; }

}  // namespace zqtest
