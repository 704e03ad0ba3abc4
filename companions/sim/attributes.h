// Getting, setting and resetting attributes of a task or its channels by id, checked against
// the table: an attribute the device lacks gives -200452, a read-only one refuses a set, and a
// value outside its range or its list is refused with the attribute, the value and the range.
#pragma once

#include <cstdint>

#include "attribute_table.h"
#include "attribute_values.h"
#include "task.h"
#include "zqgopher_boundary.h"

namespace zqsim {

// `channels` is the caller's list: empty means every channel (or the task), names must be
// channels of the task. `wanted` is the type of the operation that asks.
Value getAttribute(SimTask& task, const zqgopher_ArrayView* channels, int32_t id, AttrType wanted,
                   zqerr_Status* status);
void setAttribute(SimTask& task, const zqgopher_ArrayView* channels, int32_t id, Value value,
                  zqerr_Status* status);
void resetAttribute(SimTask& task, const zqgopher_ArrayView* channels, int32_t id, zqerr_Status* status);

// Checks a value against the attribute's range and list, as a set does.
bool checkValue(const AttrDef& def, const Value& value, zqerr_Status* status);
// 100 MHz divided by a whole number: the rate the device can make nearest to `rate`.
double coerceRate(double rate);

}  // namespace zqsim
