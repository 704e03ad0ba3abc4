// What a failed accessor left in the calling thread's last-error record: its code, task name
// and the usage items of its report.
#pragma once

#include <cstdint>
#include <string>

#include "lasterror/last_error.h"
#include "status/report_reader.h"

namespace zqtest {

inline const nZQCAI100::ExtendedErrorInfo* lastError() { return nZQCAI100::tlsManager().getThreadRecord(); }

inline int32_t lastErrorCode() {
  const auto* record = lastError();
  return record ? record->status.code : 0;
}

// Forgets the thread's last failure, so that a test sees only what its own call stored.
inline void clearLastError() {
  if (auto* record = nZQCAI100::tlsManager().getThreadRecord()) {
    record->status.code = 0;
    zqerr::clearReport(&record->status);
    record->taskName.clear();
  }
}

// The raw "ordered_data" array of the last failure's report; "<none>" when it has none.
inline std::string lastErrorItems() {
  const auto* record = lastError();
  const char* report = record ? record->status.report : nullptr;
  const char* info = report ? zqerr::json::findKey(report, "translator_info") : nullptr;
  const char* data = info ? zqerr::json::findKey(info, "ordered_data") : nullptr;
  zqerr::json::ParsedValue parsed;
  if (!data || !zqerr::json::parseValue(data, &parsed)) return "<none>";
  return std::string(parsed.begin, parsed.length);
}

// One usage item as the report writer prints it; `comment` only for attribute usages.
inline std::string usageItem(const char* usage, int64_t value, const char* valueType,
                             const char* comment = nullptr) {
  std::string item = std::string(R"({"type":"usage","usage":")") + usage + R"(","value":)" +
                     std::to_string(value) + R"(,"value_type":")" + valueType + "\"";
  if (comment) item += std::string(R"(,"comment":")") + comment + "\"";
  return item + "}";
}

inline std::string itemList(std::initializer_list<std::string> items) {
  std::string text = "[";
  for (const std::string& item : items) text += (text.size() > 1 ? "," : "") + item;
  return text + "]";
}

}  // namespace zqtest
