// The text value of a Set accessor, and the check of the terminal attributes.
#pragma once

#include <string>

#include "frame/type_classes.h"
#include "status/status.h"

namespace zqframe {

// The caller's text in the system code page as UTF-8 (null is ""), without white space at
// either end. Empty on a failed status.
std::string textValueArgument(const char* data, zqerr_Status* status);

// A terminal attribute names one terminal: a value that the list parser splits into more than
// one name gives -200098, with the attribute and the count of names in the report.
void requireOneTerminal(const AccessorInfo& info, const std::string& value, zqerr_Status* status);

}  // namespace zqframe
