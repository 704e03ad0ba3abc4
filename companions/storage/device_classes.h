// Device classes and their capability attributes: what the plug-in selection reads to learn
// which plug-in serves a device (attribute 12696, text).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sqlite_db.h"
#include "values.h"

namespace zqstorage {

inline constexpr uint32_t kAttributePluginName = 12696;

struct DeviceClass {
  uint32_t classId = 0;
  std::string name;
  std::optional<uint32_t> productNumber;
  std::optional<uint32_t> parentClass;  // the class it derives from
};

// Adds the class or replaces its name, product number and parent; its attributes stay.
void defineClass(Database& db, const DeviceClass& deviceClass);
// -201233 when there is no such class. Its attributes go with it.
void removeClass(Database& db, uint32_t classId);
std::vector<DeviceClass> listClasses(Database& db);
std::optional<DeviceClass> findClass(Database& db, uint32_t classId);

void setClassAttribute(Database& db, uint32_t classId, uint32_t attribute, const Value& value);
// -201233 for an unknown class, -201266 for an attribute that it lacks.
Value requireClassAttribute(Database& db, uint32_t classId, uint32_t attribute);
// The class is typeId or derives from it (parents followed, cycles cut).
bool classIsType(Database& db, uint32_t classId, uint32_t typeId);
// -201233 for an unknown product number.
uint32_t classForProduct(Database& db, uint32_t productNumber);

}  // namespace zqstorage
