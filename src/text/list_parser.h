// The list parser: a delimited text split into trimmed, non-empty entries, with number ranges
// such as "Dev1/ai0:3" expanded in place. Every channel-based accessor runs it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "status/status.h"

namespace zqwombat {

// With a failed status nothing happens. Otherwise the output is cleared and filled; on a
// failure it stays empty and the report names the blamed entry (and the limit it broke).
void parseList(std::string_view text, std::string_view delimiter, std::vector<std::string>* out,
               zqerr_Status* status);
void parseCommaList(std::string_view text, std::vector<std::string>* out, zqerr_Status* status);

}  // namespace zqwombat
