// Sets a code and its JSON report in a caller's status record, on its own: this library does
// not link the driver's core. The report keeps the record's buffer form (NUL-terminated text,
// zero fill, the sentinel 'J' in the last byte) and grows only through status->storage.
#pragma once

#include <string>
#include <string_view>

#include "error.h"
#include "zqvorex_status.h"

namespace zqstorage {

inline constexpr const char* kComponent = "zqvorexStorage";

// Appends text as a JSON string, quotes and escapes included.
void appendJsonString(std::string& out, std::string_view text);

// The report of one failure:
//   {"error_constant":..,"file":..,"line":..,"component":"zqvorexStorage",
//    "zqvorexStorage_debug":{"desc":..<extra members>}}
std::string buildReport(ErrorConstant constant, Site site, std::string_view desc, std::string_view extra);

// The replacement rule: `code` replaces 0, and an error replaces a warning; anything else
// leaves the status alone. Returns whether the code changed. The code stands even when the
// report cannot be written.
bool setStatus(zqerr_Status* status, ErrorConstant constant, Site site, std::string_view desc,
               std::string_view extra = {});

}  // namespace zqstorage
