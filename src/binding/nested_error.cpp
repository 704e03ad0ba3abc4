#include "binding/nested_error.h"

#include <string_view>

#include "status/report_reader.h"
#include "status/report_writer.h"

namespace zqdynlib {

void appendNestedError(zqerr_Status* status, const zqerr_Status& nested) {
  std::string_view text = "{}";
  if (nested.report) {
    const char* close = nested.report[0] == '{' ? zqerr::json::endOfValue(nested.report) : nullptr;
    if (!close) return;
    text = std::string_view(nested.report, static_cast<size_t>(close - nested.report) + 1);
  }
  zqerr::ReportWriter w = zqerr::writeRaw(zqerr::rootWriter(status), "nested_error", text);
  if (!w) return;
  // The cursor stands behind the object just written; on its opening brace "code" goes first.
  w.cursor -= text.size();
  zqerr::writeInt32(w, "code", nested.code);
}

}  // namespace zqdynlib
