// Reads INI task text (docs/task-ini-format.md) into specifications, and into a store.
#pragma once

#include <string_view>
#include <vector>

#include "stored_definitions.h"

namespace zqstorage {

struct IniDocument {
  std::vector<TaskSpec> tasks;        // in the order of the text
  std::vector<ChannelSpec> channels;  // in the order of the text
};

// -52005, naming the line, for text that is not of the form; -52002 for a newer version.
IniDocument parseIniText(std::string_view text);

// Parses and saves: the tasks first, then the channels, each in the order of the text, so that
// the store lists its objects in that order.
void loadIniText(Database& db, std::string_view text);

}  // namespace zqstorage
