// The labels that a person reads in place of the usage names of a report's items. The table
// holds one label for every usage the driver writes and for the usages its plug-ins write; a
// usage that a newer plug-in writes and the table lacks is shown as its name in words.
#pragma once

#include <string>
#include <string_view>

namespace qxlator {

// The table's label of a usage, or null when it has none.
const char* tableLabel(std::string_view usage);

// The label of a usage: the table's, else the name without "kUsageType", its words apart
// ("kUsageTypePhysicalChannel" gives "Physical Channel").
std::string usageLabel(std::string_view usage);

}  // namespace qxlator
