#include "binding/missing_operation.h"

#include "status/report_writer.h"

namespace zqdynlib {

void reportMissingOperation(zqerr_Status* status, int32_t code, const zqerr::SourceLocation& site,
                            const char* symbol) {
  if (!status) return;
  if (!zqerr::setWithLocation(status, code, site)) return;
  zqerr::ReportWriter w = zqerr::rootWriter(status);
  w = zqerr::writeObject(w, "zqdynlib_debug");
  if (w) --w.cursor;
  w = zqerr::writeString(w, "debug", "failed to get symbol");
  zqerr::writeString(w, "zqdynlib_symbol", symbol);
}

}  // namespace zqdynlib
