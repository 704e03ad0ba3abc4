// The objects of a store: devices, tasks and channels, each of a storage class, with a name
// unique among the objects of its class and parent (without regard to ASCII case), an
// optional parent, and a class id (a device's device class). All run inside the caller's
// transaction.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite_db.h"

namespace zqstorage {

inline constexpr uint32_t kClassChannel = 14795;
inline constexpr uint32_t kClassTask = 14796;
inline constexpr uint32_t kClassDevice = 14798;

using ObjectId = std::array<uint8_t, 16>;

struct ObjectRow {
  ObjectId id{};
  uint32_t storageClass = 0;
  uint32_t classId = 0;
  std::string name;
  std::optional<ObjectId> parent;
};

bool isSupportedClass(uint32_t storageClass);
std::string className(uint32_t storageClass);
// A fresh random identifier.
ObjectId newObjectId();

ObjectId createObject(Database& db, uint32_t storageClass, uint32_t classId, std::string_view name,
                      const ObjectId* parent);
std::optional<ObjectRow> findObject(Database& db, const ObjectId& id);
// -201233 when there is no such object.
ObjectRow requireObject(Database& db, const ObjectId& id);
std::optional<ObjectId> findByName(Database& db, uint32_t storageClass, const ObjectId* parent, std::string_view name);
// A top-level object of the class; -200220 for an unknown device, -201233 otherwise.
ObjectId requireByName(Database& db, uint32_t storageClass, std::string_view name);
// A top-level object of any class, the lowest class first.
ObjectId requireByNameInAnyClass(Database& db, std::string_view name);
void deleteObject(Database& db, const ObjectId& id);
void renameObject(Database& db, const ObjectId& id, std::string_view name);
std::vector<ObjectId> childrenOf(Database& db, const ObjectId& id);
std::vector<ObjectId> objectsOfClass(Database& db, uint32_t storageClass, bool sortedByName);
// Devices sorted by name: all for 14798, else those of the device class.
std::vector<ObjectId> configuredDevices(Database& db, uint32_t classId);
std::string uniqueName(Database& db, uint32_t storageClass, std::string_view baseName);

}  // namespace zqstorage
