// Typed properties of objects, keyed by a 32-bit property id.
#pragma once

#include <optional>
#include <utility>
#include <vector>

#include "objects.h"
#include "values.h"

namespace zqstorage {

// An object with its properties and children, lifted out of one store to be put in another.
struct ObjectTree {
  ObjectRow row;
  std::vector<std::pair<uint32_t, Value>> properties;
  std::vector<ObjectTree> children;
};

ObjectTree readTree(Database& db, const ObjectId& id);
// Writes the tree under parent (null: top level), replacing an object of the same class and
// name there; gives the new object's id.
ObjectId writeTree(Database& db, const ObjectTree& tree, const ObjectId* parent);

std::optional<Value> findProperty(Database& db, const ObjectId& id, uint32_t property);
// -201266 when the object lacks the property (-201233 when there is no such object).
Value requireProperty(Database& db, const ObjectId& id, uint32_t property);
void setProperty(Database& db, const ObjectId& id, uint32_t property, const Value& value);
// Ascending.
std::vector<uint32_t> propertyIds(Database& db, const ObjectId& id);
// Removes the properties with ids in [first, last].
void removeProperties(Database& db, const ObjectId& id, uint32_t first, uint32_t last);
// "property N of <class> \"name\"", for messages.
std::string describeProperty(Database& db, const ObjectId& id, uint32_t property);

}  // namespace zqstorage
