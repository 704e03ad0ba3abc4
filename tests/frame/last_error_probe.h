// What a failed accessor left in the calling thread's last-error record: its code, task name
// and the usage items of its report.
#pragma once

#include <cstdint>
#include <string>

#include "../paths/report_query.h"
#include "lasterror/last_error.h"
#include "report_items.h"

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
  return reportItems(record ? record->status.report : nullptr);
}

// A field of the n-th usage item of the last failure's report; kAbsent when there is none.
inline std::string lastErrorItem(int n, const char* key) {
  const auto* record = lastError();
  const std::string step = "#" + std::to_string(n);
  return reportAt(record ? record->status.report : nullptr, {"translator_info", "ordered_data", step, key});
}

}  // namespace zqtest
