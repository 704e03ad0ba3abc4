// The text arguments of the task calls as UTF-8: the caller's narrow text is in the system code
// page, the INI functions' text in UTF-16. A null text is empty; a failed conversion leaves the
// status failed and the result empty.
#pragma once

#include <string>

#include "status/status.h"

namespace nZQCAI100 {

// With `strip`, without white space at either end.
std::string utf8Argument(const char* text, bool strip, zqerr_Status* status);
// `text` ends at its first zero unit.
std::string utf8FromUtf16(const char16_t* text, bool strip, zqerr_Status* status);

}  // namespace nZQCAI100
