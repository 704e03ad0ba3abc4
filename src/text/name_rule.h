// The rule for object names (tasks, channels, scales), by name kind.
#pragma once

#include <cstdint>
#include <string_view>

#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace zqwombat {

// Kinds 0, 1 and 5 forbid the short set and a single colon; 2 and 3 forbid the long set, which
// holds the colon; 4 is 3 with fewer than 255 UTF-16 units. Any other kind refuses every name.
inline constexpr int32_t kNameKindTask = 1;


bool inShortNameSet(char16_t c);
bool inLongNameSet(char16_t c);

// Sets the first failure of the rule, with the position and the name as report items for the
// character failures. A null kind refuses the name like an unknown kind.
void validateObjectName(std::u16string_view name, const int32_t* kind, zqerr_Status* status);

}  // namespace zqwombat
