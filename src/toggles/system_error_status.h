// The toggles' translation of a system error code into a status.
#pragma once

#include <cstdint>

#include "status/status.h"

namespace runtime_toggles {

// Sets the status that `systemError` stands for (0 sets nothing), by the rule of replacement,
// at file "runtimetoggles", line 36. A code the table does not hold gives -52003.
void setSystemErrorStatus(uint32_t systemError, zqerr::FixedStatus* status);

// The status of a code, as above; 0 for success.
int32_t statusOfSystemError(uint32_t systemError);

}  // namespace runtime_toggles
