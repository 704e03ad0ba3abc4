// Report objects that say which system call failed and how, shared by the registry, shell and
// library-loading sites.
#pragma once

#include <cstdint>

#include "status/report_writer.h"

namespace zqsysq {

// A writer inside a new empty object `key` at the cursor; closeObject steps back out of it.
zqerr::ReportWriter openObject(zqerr::ReportWriter w, const char* key);
zqerr::ReportWriter closeObject(zqerr::ReportWriter w);

// "internal_error": {"api": "win32", "code": code, "string": the system's text of the code},
// without "string" when the system has no text for it.
zqerr::ReportWriter writeWin32Error(zqerr::ReportWriter w, uint32_t code);

}  // namespace zqsysq
