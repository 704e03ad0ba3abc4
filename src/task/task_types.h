// The types the task interface names that belong to other parts of the library. Until those
// parts define them, they stand here as declarations only.
#pragma once

#include <string>
#include <vector>

#include "zqvorex_plugin.h"

namespace zqgopher {
class StringArrayView;  // a list of names as the plug-in sees it
}  // namespace zqgopher

namespace zqvorexRedir {

class IContext;

// Text inside the library: UTF-8.
using Text = std::string;

// The plug-in's tokens of the events registered under one event id, in token order.
using EventTokens = std::vector<zqvorexPlugin_EventToken>;

}  // namespace zqvorexRedir
