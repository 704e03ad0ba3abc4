// A strict JSON check: one value (RFC 8259 grammar) and nothing but whitespace after it.
#pragma once

#include <string_view>

namespace zqhostile {

bool isStrictJson(std::string_view text);

}  // namespace zqhostile
