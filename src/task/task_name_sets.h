// The devices and physical channels of a task, as its binding has learnt them from its channel
// creations, its saved task or the plug-in.
#pragma once

#include <string>
#include <vector>

#include "selection/plugin_selector.h"

namespace zqvorexRedir {

struct TaskNameSets {
  NameSet devices;
  NameSet channels;
};

// The names of a set as the list that a string array view lends out.
inline std::vector<std::string> namesOf(const NameSet& set) { return {set.begin(), set.end()}; }

}  // namespace zqvorexRedir
