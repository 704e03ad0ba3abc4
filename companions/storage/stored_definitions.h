// Saved tasks and channels as specifications: plain records in memory, kept in the store as
// properties of the task and channel objects (ids in a range of this library's own, listed in
// definition_properties.h). A task's own channels are children of its object; global channels are
// channel objects at the top level.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "objects.h"

namespace zqstorage {

struct ChannelSpec {
  std::string name;
  std::vector<std::string> scaleNames;
  std::string customScaleName;
  std::string endpointDevice;
  std::vector<std::string> physicalChannels;
  std::vector<uint32_t> productIds;
  bool isGlobal = false;
  bool verified = false;
  std::string parentTaskName;  // empty for a global channel
  int32_t channelType = 0;
  std::string channelAttributes;  // opaque bytes
  std::string bufferAttributes;   // opaque bytes
  std::vector<std::string> dependencies;
  std::vector<std::string> expertDependencies;
  std::vector<std::string> nameTable;
  std::string author;
  bool qexLocked = false;
  bool qexDeleteProhibited = false;
  bool savedFromApi = false;
  bool operator==(const ChannelSpec&) const = default;
};

struct TaskSpec {
  std::string name;
  bool verified = false;
  std::vector<std::string> channels;
  std::vector<std::string> globalChannels;  // one per channel: the global channel used, or ""
  std::vector<std::string> channelNameTable;
  std::vector<std::string> scaleNameTable;
  std::string deviceAttributes;  // opaque bytes, as the three below
  std::string timingAttributes;
  std::string readAttributes;
  std::string writeAttributes;
  std::string author;
  bool qexLocked = false;
  bool qexDeleteProhibited = false;
  std::string description;
  bool savedFromApi = false;
  bool operator==(const TaskSpec&) const = default;
};

// Makes globalChannels as long as channels ("" for the missing ones); -52005 if it is longer.
void normaliseChannelList(TaskSpec& definition);

std::optional<TaskSpec> loadTask(Database& db, std::string_view name);
TaskSpec loadTask(Database& db, const ObjectId& id);
std::optional<ChannelSpec> loadGlobalChannel(Database& db, std::string_view name);
std::optional<ChannelSpec> loadLocalChannel(Database& db, std::string_view task, std::string_view channel);
ChannelSpec loadChannel(Database& db, const ObjectId& id);
// -200485 for an unknown task.
std::vector<std::string> localChannelNames(Database& db, std::string_view task);

// Store under the definition's name; mustBeNew refuses a name in use (-200089 for a task, -52005 for
// a channel). A task keeps its local channels when it is replaced.
ObjectId storeTask(Database& db, const TaskSpec& definition, bool mustBeNew);
ObjectId storeChannel(Database& db, const ChannelSpec& definition, bool mustBeNew);

void deleteTask(Database& db, std::string_view name);
void deleteGlobalChannel(Database& db, std::string_view name);
void deleteLocalChannel(Database& db, std::string_view task, std::string_view channel);

bool holdsTaskSpec(Database& db, const ObjectId& id);
bool holdsChannelSpec(Database& db, const ObjectId& id);

}  // namespace zqstorage
