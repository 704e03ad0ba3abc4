// The dynamic description of a report in the json1 form: every usage item of its ordered data
// becomes an item with a label and the value as text, every separator an empty item, and the
// report's location (file, line, constant) the debug items.
//
//   {"dynamic":[{"key":"Required Buffer Size in Bytes","value":"13"},{},{"key":"Task Name",...}],
//    "debug":[{"key":"File","value":"zqgopher/OutParameters"},{"key":"Line","value":"70"},...]}
#pragma once

#include <string>

#include "status/status.h"

namespace qxlator {

// The description of `report`, a JSON object; false with zqapalerr_invalidParameter when it is
// not one, or zqapalerr_memoryFull.
bool describeReport(const char* report, std::string* description, zqerr_Status* status);

}  // namespace qxlator
