// Writes specifications as INI task text that parseIniText reads back to the same records.
#pragma once

#include <string>
#include <vector>

#include "stored_definitions.h"

namespace zqstorage {

// The tasks' sections, then the channels'; fields at their default value are left out.
std::string writeIniText(const std::vector<TaskSpec>& tasks, const std::vector<ChannelSpec>& channels);

}  // namespace zqstorage
