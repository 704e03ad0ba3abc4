// Where a toggle's value comes from: the value "Value" of a key of its own under
// HKEY_LOCAL_MACHINE, named after the company, "SystemSettings" and the product word.
#pragma once

#include <cstddef>
#include <string>

#include "status/status.h"

namespace runtime_toggles {

inline constexpr size_t kToggleKeySize = 512;  // bytes of the key text, terminator included

// "SOFTWARE\WOW6432Node\<company>\SystemSettings\<product><name>": the name follows the
// product word with no separator. False when it does not fit in kToggleKeySize.
bool toggleKeyText(const char* company, const char* product, const char* name, std::string* key);

// Reads the toggle's value into `buffer` of `units` wide characters, which it clears first.
// A value larger than the buffer fails. Failures go through the system error table.
void readToggleValue(const std::string& key, char16_t* buffer, size_t units, zqerr::FixedStatus* status);

// Whether the text in `buffer` (zero-terminated within `units`) is "True" in any case.
bool isTrueText(const char16_t* buffer, size_t units);

}  // namespace runtime_toggles
