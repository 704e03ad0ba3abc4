// Attribute ids to names, for reports and traces.
#pragma once

#include <cstdint>

namespace zqcatalogue {

// The attribute's name, or null when the id is not in the table. A linear search.
const char* attributeName(int32_t id);

}  // namespace zqcatalogue
