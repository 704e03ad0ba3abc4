// A failure that explains another: the inner status goes into the outer report whole.
#pragma once

#include "status/status.h"

namespace zqdynlib {

// Appends "nested_error" at the root of `status`'s report: `nested`'s report object with its
// code added as "code", the form the translator walks. Nothing when either report is not a
// valid object or the text cannot be had.
void appendNestedError(zqerr_Status* status, const zqerr_Status& nested);

}  // namespace zqdynlib
