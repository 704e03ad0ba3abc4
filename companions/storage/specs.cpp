#include "specs.h"

#include <map>

#include "properties.h"
#include "spec_properties.h"

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

void writeTask(Database& db, const ObjectId& id, const TaskSpec& spec) {
  removeProperties(db, id, kTaskFirst, kTaskLast);
  Writer w(db, id);
  w.i32(kTaskMark, static_cast<int32_t>(kLayoutVersion));
  w.flag(kTaskVerified, spec.verified);
  w.strings(kTaskChannels, spec.channels);
  w.strings(kTaskGlobalChannels, spec.globalChannels);
  w.strings(kTaskChannelNameTable, spec.channelNameTable);
  w.strings(kTaskScaleNameTable, spec.scaleNameTable);
  w.bytes(kTaskDeviceAttributes, spec.deviceAttributes);
  w.bytes(kTaskTimingAttributes, spec.timingAttributes);
  w.bytes(kTaskReadAttributes, spec.readAttributes);
  w.bytes(kTaskWriteAttributes, spec.writeAttributes);
  w.text(kTaskAuthor, spec.author);
  w.flag(kTaskQexLocked, spec.qexLocked);
  w.flag(kTaskQexDeleteProhibited, spec.qexDeleteProhibited);
  w.text(kTaskDescription, spec.description);
  w.flag(kTaskSavedFromApi, spec.savedFromApi);
}

void writeChannel(Database& db, const ObjectId& id, const ChannelSpec& spec) {
  removeProperties(db, id, kChannelFirst, kChannelLast);
  Writer w(db, id);
  w.i32(kChannelMark, static_cast<int32_t>(kLayoutVersion));
  w.strings(kChannelScaleNames, spec.scaleNames);
  w.text(kChannelCustomScale, spec.customScaleName);
  w.text(kChannelEndpointDevice, spec.endpointDevice);
  w.strings(kChannelPhysicalChannels, spec.physicalChannels);
  w.u32s(kChannelProductIds, spec.productIds);
  w.flag(kChannelIsGlobal, spec.isGlobal);
  w.flag(kChannelVerified, spec.verified);
  w.i32(kChannelType, spec.channelType);
  w.bytes(kChannelAttributes, spec.channelAttributes);
  w.bytes(kChannelBufferAttributes, spec.bufferAttributes);
  w.strings(kChannelDependencies, spec.dependencies);
  w.strings(kChannelExpertDependencies, spec.expertDependencies);
  w.strings(kChannelNameTable, spec.nameTable);
  w.text(kChannelAuthor, spec.author);
  w.flag(kChannelQexLocked, spec.qexLocked);
  w.flag(kChannelQexDeleteProhibited, spec.qexDeleteProhibited);
  w.flag(kChannelSavedFromApi, spec.savedFromApi);
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

void normaliseChannelList(TaskSpec& spec) {
  if (spec.globalChannels.size() > spec.channels.size()) {
    fail(kInvalidParameter, ZQS_HERE, "a task lists more global channels than channels");
  }
  spec.globalChannels.resize(spec.channels.size());
}

TaskSpec loadTask(Database& db, const ObjectId& id) {
  const ObjectRow row = requireObject(db, id);
  const Bag bag(db, id);
  TaskSpec spec;
  spec.name = row.name;
  spec.verified = bag.flag(kTaskVerified);
  spec.channels = bag.strings(kTaskChannels);
  spec.globalChannels = bag.strings(kTaskGlobalChannels);
  spec.globalChannels.resize(spec.channels.size());
  spec.channelNameTable = bag.strings(kTaskChannelNameTable);
  spec.scaleNameTable = bag.strings(kTaskScaleNameTable);
  spec.deviceAttributes = bag.bytes(kTaskDeviceAttributes);
  spec.timingAttributes = bag.bytes(kTaskTimingAttributes);
  spec.readAttributes = bag.bytes(kTaskReadAttributes);
  spec.writeAttributes = bag.bytes(kTaskWriteAttributes);
  spec.author = bag.bytes(kTaskAuthor);
  spec.qexLocked = bag.flag(kTaskQexLocked);
  spec.qexDeleteProhibited = bag.flag(kTaskQexDeleteProhibited);
  spec.description = bag.bytes(kTaskDescription);
  spec.savedFromApi = bag.flag(kTaskSavedFromApi);
  return spec;
}

std::optional<TaskSpec> loadTask(Database& db, std::string_view name) {
  auto id = findTask(db, name);
  if (!id) return std::nullopt;
  return loadTask(db, *id);
}

ChannelSpec loadChannel(Database& db, const ObjectId& id) {
  const ObjectRow row = requireObject(db, id);
  const Bag bag(db, id);
  ChannelSpec spec;
  spec.name = row.name;
  spec.scaleNames = bag.strings(kChannelScaleNames);
  spec.customScaleName = bag.bytes(kChannelCustomScale);
  spec.endpointDevice = bag.bytes(kChannelEndpointDevice);
  spec.physicalChannels = bag.strings(kChannelPhysicalChannels);
  spec.productIds = bag.u32s(kChannelProductIds);
  spec.isGlobal = bag.flag(kChannelIsGlobal);
  spec.verified = bag.flag(kChannelVerified);
  if (row.parent) spec.parentTaskName = requireObject(db, *row.parent).name;
  spec.channelType = bag.i32(kChannelType);
  spec.channelAttributes = bag.bytes(kChannelAttributes);
  spec.bufferAttributes = bag.bytes(kChannelBufferAttributes);
  spec.dependencies = bag.strings(kChannelDependencies);
  spec.expertDependencies = bag.strings(kChannelExpertDependencies);
  spec.nameTable = bag.strings(kChannelNameTable);
  spec.author = bag.bytes(kChannelAuthor);
  spec.qexLocked = bag.flag(kChannelQexLocked);
  spec.qexDeleteProhibited = bag.flag(kChannelQexDeleteProhibited);
  spec.savedFromApi = bag.flag(kChannelSavedFromApi);
  return spec;
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

ObjectId storeTask(Database& db, const TaskSpec& spec, bool mustBeNew) {
  checkSpecName(spec.name, "task");
  TaskSpec normalised = spec;
  normaliseChannelList(normalised);
  auto id = findTask(db, spec.name);
  if (id && mustBeNew) {
    StorageError error(kDuplicateTask, ZQS_HERE, "a task named \"" + spec.name + "\" is saved already");
    throw error.with("task", spec.name);
  }
  if (!id) {
    id = createObject(db, kClassTask, kClassTask, spec.name, nullptr);
  } else if (requireObject(db, *id).name != spec.name) {
    renameObject(db, *id, spec.name);  // the same name in another case: keep the caller's spelling
  }
  writeTask(db, *id, normalised);
  return *id;
}

ObjectId storeChannel(Database& db, const ChannelSpec& spec, bool mustBeNew) {
  checkSpecName(spec.name, "channel");
  std::optional<ObjectId> parent;
  if (!spec.parentTaskName.empty()) parent = requireTask(db, spec.parentTaskName);
  const ObjectId* parentPtr = parent ? &*parent : nullptr;
  auto id = findByName(db, kClassChannel, parentPtr, spec.name);
  if (id && mustBeNew) {
    fail(kInvalidParameter, ZQS_HERE, "a channel named \"" + spec.name + "\" is saved already" +
                                          (parent ? " in task \"" + spec.parentTaskName + "\"" : std::string()));
  }
  if (!id) {
    id = createObject(db, kClassChannel, kClassChannel, spec.name, parentPtr);
  } else if (requireObject(db, *id).name != spec.name) {
    renameObject(db, *id, spec.name);
  }
  writeChannel(db, *id, spec);
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
