#include "catalogue/attribute_names.h"

namespace zqcatalogue {

// Filled from the attribute catalogue once it is generated; until then no id has a name.
const char* attributeName(int32_t) { return nullptr; }

}  // namespace zqcatalogue
