#include "stored_definitions.h"

#include <map>

#include "properties.h"
#include "definition_properties.h"

namespace zqstorage {

namespace {

using namespace specprop;

// The properties of one object, read once.
class Bag {
 public:
  Bag(Database& db, const ObjectId& id) {
    for (uint32_t property : propertyIds(db, id)) values_.emplace(property, requireProperty(db, id, property));
  }
  bool flag(uint32_t property) const {
    auto it = values_.find(property);
    return it != values_.end() && isScalarInteger(it->second.type) && it->second.integer != 0;
  }
  int32_t i32(uint32_t property) const {
    auto it = values_.find(property);
    return it != values_.end() && isScalarInteger(it->second.type) ? static_cast<int32_t>(it->second.integer) : 0;
  }
  std::string bytes(uint32_t property) const {
    auto it = values_.find(property);
    return it != values_.end() ? it->second.bytes : std::string();
  }
  std::vector<std::string> strings(uint32_t property) const {
    auto it = values_.find(property);
    return it != values_.end() ? it->second.strings : std::vector<std::string>();
  }
  std::vector<uint32_t> u32s(uint32_t property) const {
    std::vector<uint32_t> out;
    if (auto it = values_.find(property); it != values_.end()) {
      for (int64_t v : it->second.integers) out.push_back(static_cast<uint32_t>(v));
    }
    return out;
  }

 private:
  std::map<uint32_t, Value> values_;
};

class Writer {
 public:
  Writer(Database& db, const ObjectId& id) : db_(db), id_(id) {}
  void flag(uint32_t property, bool value) { put(property, Value::ofInteger(ValueType::kBool, value ? 1 : 0)); }
  void i32(uint32_t property, int32_t value) { put(property, Value::ofInteger(ValueType::kI32, value)); }
  void text(uint32_t property, const std::string& value) { put(property, Value::ofBytes(ValueType::kString, value)); }
  void bytes(uint32_t property, const std::string& value) { put(property, Value::ofBytes(ValueType::kBytes, value)); }
  void strings(uint32_t property, const std::vector<std::string>& value) { put(property, Value::ofStrings(value)); }
  void u32s(uint32_t property, const std::vector<uint32_t>& value) {
    put(property, Value::ofIntegers(ValueType::kU32Vtr, std::vector<int64_t>(value.begin(), value.end())));
  }

 private:
  void put(uint32_t property, const Value& value) { setProperty(db_, id_, property, value); }
  Database& db_;
  const ObjectId& id_;
};

void writeTask(Database& db, const ObjectId& id, const TaskSpec& definition) {
  removeProperties(db, id, kTaskFirst, kTaskLast);
  Writer w(db, id);
  w.i32(kTaskMark, static_cast<int32_t>(kLayoutVersion));
  w.flag(kTaskVerified, definition.verified);
  w.strings(kTaskChannels, definition.channels);
  w.strings(kTaskGlobalChannels, definition.globalChannels);
  w.strings(kTaskChannelNameTable, definition.channelNameTable);
  w.strings(kTaskScaleNameTable, definition.scaleNameTable);
  w.bytes(kTaskDeviceAttributes, definition.deviceAttributes);
  w.bytes(kTaskTimingAttributes, definition.timingAttributes);
  w.bytes(kTaskReadAttributes, definition.readAttributes);
  w.bytes(kTaskWriteAttributes, definition.writeAttributes);
  w.text(kTaskAuthor, definition.author);
  w.flag(kTaskQexLocked, definition.qexLocked);
  w.flag(kTaskQexDeleteProhibited, definition.qexDeleteProhibited);
  w.text(kTaskDescription, definition.description);
  w.flag(kTaskSavedFromApi, definition.savedFromApi);
}

void writeChannel(Database& db, const ObjectId& id, const ChannelSpec& definition) {
  removeProperties(db, id, kChannelFirst, kChannelLast);
  Writer w(db, id);
  w.i32(kChannelMark, static_cast<int32_t>(kLayoutVersion));
  w.strings(kChannelScaleNames, definition.scaleNames);
  w.text(kChannelCustomScale, definition.customScaleName);
  w.text(kChannelEndpointDevice, definition.endpointDevice);
  w.strings(kChannelPhysicalChannels, definition.physicalChannels);
  w.u32s(kChannelProductIds, definition.productIds);
  w.flag(kChannelIsGlobal, definition.isGlobal);
  w.flag(kChannelVerified, definition.verified);
  w.i32(kChannelType, definition.channelType);
  w.bytes(kChannelAttributes, definition.channelAttributes);
  w.bytes(kChannelBufferAttributes, definition.bufferAttributes);
  w.strings(kChannelDependencies, definition.dependencies);
  w.strings(kChannelExpertDependencies, definition.expertDependencies);
  w.strings(kChannelNameTable, definition.nameTable);
  w.text(kChannelAuthor, definition.author);
  w.flag(kChannelQexLocked, definition.qexLocked);
  w.flag(kChannelQexDeleteProhibited, definition.qexDeleteProhibited);
  w.flag(kChannelSavedFromApi, definition.savedFromApi);
}

std::optional<ObjectId> findTask(Database& db, std::string_view name) {
  return findByName(db, kClassTask, nullptr, name);
}

ObjectId requireTask(Database& db, std::string_view name) {
  if (auto id = findTask(db, name)) return *id;
  StorageError error(kTaskNotFound, ZQS_HERE, "no saved task is named \"" + std::string(name) + "\"");
  throw error.with("task", std::string(name));
}

void checkSpecName(const std::string& name, const char* what) {
  if (name.empty()) fail(kInvalidParameter, ZQS_HERE, std::string("a ") + what + " specification needs a name");
}

}  // namespace

void normaliseChannelList(TaskSpec& definition) {
  if (definition.globalChannels.size() > definition.channels.size()) {
    fail(kInvalidParameter, ZQS_HERE, "a task lists more global channels than channels");
  }
  definition.globalChannels.resize(definition.channels.size());
}

TaskSpec loadTask(Database& db, const ObjectId& id) {
  const ObjectRow row = requireObject(db, id);
  const Bag bag(db, id);
  TaskSpec definition;
  definition.name = row.name;
  definition.verified = bag.flag(kTaskVerified);
  definition.channels = bag.strings(kTaskChannels);
  definition.globalChannels = bag.strings(kTaskGlobalChannels);
  definition.globalChannels.resize(definition.channels.size());
  definition.channelNameTable = bag.strings(kTaskChannelNameTable);
  definition.scaleNameTable = bag.strings(kTaskScaleNameTable);
  definition.deviceAttributes = bag.bytes(kTaskDeviceAttributes);
  definition.timingAttributes = bag.bytes(kTaskTimingAttributes);
  definition.readAttributes = bag.bytes(kTaskReadAttributes);
  definition.writeAttributes = bag.bytes(kTaskWriteAttributes);
  definition.author = bag.bytes(kTaskAuthor);
  definition.qexLocked = bag.flag(kTaskQexLocked);
  definition.qexDeleteProhibited = bag.flag(kTaskQexDeleteProhibited);
  definition.description = bag.bytes(kTaskDescription);
  definition.savedFromApi = bag.flag(kTaskSavedFromApi);
  return definition;
}

std::optional<TaskSpec> loadTask(Database& db, std::string_view name) {
  auto id = findTask(db, name);
  if (!id) return std::nullopt;
  return loadTask(db, *id);
}

ChannelSpec loadChannel(Database& db, const ObjectId& id) {
  const ObjectRow row = requireObject(db, id);
  const Bag bag(db, id);
  ChannelSpec definition;
  definition.name = row.name;
  definition.scaleNames = bag.strings(kChannelScaleNames);
  definition.customScaleName = bag.bytes(kChannelCustomScale);
  definition.endpointDevice = bag.bytes(kChannelEndpointDevice);
  definition.physicalChannels = bag.strings(kChannelPhysicalChannels);
  definition.productIds = bag.u32s(kChannelProductIds);
  definition.isGlobal = bag.flag(kChannelIsGlobal);
  definition.verified = bag.flag(kChannelVerified);
  if (row.parent) definition.parentTaskName = requireObject(db, *row.parent).name;
  definition.channelType = bag.i32(kChannelType);
  definition.channelAttributes = bag.bytes(kChannelAttributes);
  definition.bufferAttributes = bag.bytes(kChannelBufferAttributes);
  definition.dependencies = bag.strings(kChannelDependencies);
  definition.expertDependencies = bag.strings(kChannelExpertDependencies);
  definition.nameTable = bag.strings(kChannelNameTable);
  definition.author = bag.bytes(kChannelAuthor);
  definition.qexLocked = bag.flag(kChannelQexLocked);
  definition.qexDeleteProhibited = bag.flag(kChannelQexDeleteProhibited);
  definition.savedFromApi = bag.flag(kChannelSavedFromApi);
  return definition;
}

std::optional<ChannelSpec> loadGlobalChannel(Database& db, std::string_view name) {
  auto id = findByName(db, kClassChannel, nullptr, name);
  if (!id) return std::nullopt;
  return loadChannel(db, *id);
}

std::optional<ChannelSpec> loadLocalChannel(Database& db, std::string_view task, std::string_view channel) {
  auto taskId = findTask(db, task);
  if (!taskId) return std::nullopt;
  auto id = findByName(db, kClassChannel, &*taskId, channel);
  if (!id) return std::nullopt;
  return loadChannel(db, *id);
}

std::vector<std::string> localChannelNames(Database& db, std::string_view task) {
  std::vector<std::string> names;
  for (const ObjectId& child : childrenOf(db, requireTask(db, task))) {
    const ObjectRow row = requireObject(db, child);
    if (row.storageClass == kClassChannel) names.push_back(row.name);
  }
  return names;
}

ObjectId storeTask(Database& db, const TaskSpec& definition, bool mustBeNew) {
  checkSpecName(definition.name, "task");
  TaskSpec normalised = definition;
  normaliseChannelList(normalised);
  auto id = findTask(db, definition.name);
  if (id && mustBeNew) {
    StorageError error(kDuplicateTask, ZQS_HERE, "a task named \"" + definition.name + "\" is saved already");
    throw error.with("task", definition.name);
  }
  if (!id) {
    id = createObject(db, kClassTask, kClassTask, definition.name, nullptr);
  } else if (requireObject(db, *id).name != definition.name) {
    renameObject(db, *id, definition.name);  // the same name in another case: keep the caller's spelling
  }
  writeTask(db, *id, normalised);
  return *id;
}

ObjectId storeChannel(Database& db, const ChannelSpec& definition, bool mustBeNew) {
  checkSpecName(definition.name, "channel");
  std::optional<ObjectId> parent;
  if (!definition.parentTaskName.empty()) parent = requireTask(db, definition.parentTaskName);
  const ObjectId* parentPtr = parent ? &*parent : nullptr;
  auto id = findByName(db, kClassChannel, parentPtr, definition.name);
  if (id && mustBeNew) {
    fail(kInvalidParameter, ZQS_HERE, "a channel named \"" + definition.name + "\" is saved already" +
                                          (parent ? " in task \"" + definition.parentTaskName + "\"" : std::string()));
  }
  if (!id) {
    id = createObject(db, kClassChannel, kClassChannel, definition.name, parentPtr);
  } else if (requireObject(db, *id).name != definition.name) {
    renameObject(db, *id, definition.name);
  }
  writeChannel(db, *id, definition);
  return *id;
}

void deleteTask(Database& db, std::string_view name) { deleteObject(db, requireTask(db, name)); }

void deleteGlobalChannel(Database& db, std::string_view name) {
  auto id = findByName(db, kClassChannel, nullptr, name);
  if (!id) {
    StorageError error(kChannelNotFound, ZQS_HERE, "no global channel is named \"" + std::string(name) + "\"");
    throw error.with("channel", std::string(name));
  }
  deleteObject(db, *id);
}

void deleteLocalChannel(Database& db, std::string_view task, std::string_view channel) {
  const ObjectId taskId = requireTask(db, task);
  auto id = findByName(db, kClassChannel, &taskId, channel);
  if (!id) {
    StorageError error(kChannelNotFound, ZQS_HERE,
                       "task \"" + std::string(task) + "\" has no channel named \"" + std::string(channel) + "\"");
    throw error.with("channel", std::string(channel));
  }
  deleteObject(db, *id);
}

bool holdsTaskSpec(Database& db, const ObjectId& id) {
  return requireObject(db, id).storageClass == kClassTask && findProperty(db, id, kTaskMark).has_value();
}

bool holdsChannelSpec(Database& db, const ObjectId& id) {
  return requireObject(db, id).storageClass == kClassChannel && findProperty(db, id, kChannelMark).has_value();
}

}  // namespace zqstorage
