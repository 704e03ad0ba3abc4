#include "device_classes.h"

#include <set>

namespace zqstorage {

namespace {

DeviceClass readClass(const Statement& s) {
  DeviceClass c;
  c.classId = static_cast<uint32_t>(s.int64(0));
  c.name = s.text(1);
  if (!s.isNull(2)) c.productNumber = static_cast<uint32_t>(s.int64(2));
  if (!s.isNull(3)) c.parentClass = static_cast<uint32_t>(s.int64(3));
  return c;
}

void requireClass(Database& db, uint32_t classId) {
  if (!findClass(db, classId)) {
    StorageError error(kObjectNotFound, ZQS_HERE, "no device class has the id " + std::to_string(classId));
    throw error.with("class", std::to_string(classId));
  }
}

}  // namespace

void defineClass(Database& db, const DeviceClass& c) {
  if (c.productNumber) {
    Statement taken(db, "SELECT class_id FROM device_classes WHERE product_number = ?1 AND class_id <> ?2");
    taken.bind(1, static_cast<int64_t>(*c.productNumber)).bind(2, static_cast<int64_t>(c.classId));
    if (taken.step()) {
      fail(kInvalidParameter, ZQS_HERE,
           "product number " + std::to_string(*c.productNumber) + " belongs to class " + std::to_string(taken.int64(0)));
    }
  }
  Statement upsert(db,
                   "INSERT INTO device_classes(class_id, name, product_number, parent_class) VALUES(?1, ?2, ?3, ?4) "
                   "ON CONFLICT(class_id) DO UPDATE SET name = ?2, product_number = ?3, parent_class = ?4");
  upsert.bind(1, static_cast<int64_t>(c.classId)).bindText(2, c.name);
  if (c.productNumber) {
    upsert.bind(3, static_cast<int64_t>(*c.productNumber));
  } else {
    upsert.bindNull(3);
  }
  if (c.parentClass) {
    upsert.bind(4, static_cast<int64_t>(*c.parentClass));
  } else {
    upsert.bindNull(4);
  }
  upsert.run();
}

void removeClass(Database& db, uint32_t classId) {
  requireClass(db, classId);
  Statement remove(db, "DELETE FROM device_classes WHERE class_id = ?1");
  remove.bind(1, static_cast<int64_t>(classId));
  remove.run();
}

std::vector<DeviceClass> listClasses(Database& db) {
  Statement select(db, "SELECT class_id, name, product_number, parent_class FROM device_classes ORDER BY class_id");
  std::vector<DeviceClass> classes;
  while (select.step()) classes.push_back(readClass(select));
  return classes;
}

std::optional<DeviceClass> findClass(Database& db, uint32_t classId) {
  Statement select(db, "SELECT class_id, name, product_number, parent_class FROM device_classes WHERE class_id = ?1");
  select.bind(1, static_cast<int64_t>(classId));
  if (!select.step()) return std::nullopt;
  return readClass(select);
}

void setClassAttribute(Database& db, uint32_t classId, uint32_t attribute, const Value& value) {
  requireClass(db, classId);
  Statement upsert(db, "INSERT OR REPLACE INTO class_attributes(class_id, attribute, type, value) VALUES(?1, ?2, ?3, ?4)");
  upsert.bind(1, static_cast<int64_t>(classId)).bind(2, static_cast<int64_t>(attribute));
  bindValue(upsert, 3, value);
  upsert.run();
}

Value requireClassAttribute(Database& db, uint32_t classId, uint32_t attribute) {
  Statement select(db, "SELECT type, value FROM class_attributes WHERE class_id = ?1 AND attribute = ?2");
  select.bind(1, static_cast<int64_t>(classId)).bind(2, static_cast<int64_t>(attribute));
  if (select.step()) return readValue(select, 0);
  requireClass(db, classId);
  StorageError error(kPropertyNotFound, ZQS_HERE,
                     "device class " + std::to_string(classId) + " has no attribute " + std::to_string(attribute));
  throw error.with("class", std::to_string(classId)).with("attribute", std::to_string(attribute));
}

bool classIsType(Database& db, uint32_t classId, uint32_t typeId) {
  requireClass(db, classId);
  std::set<uint32_t> seen;
  std::optional<uint32_t> current = classId;
  while (current && seen.insert(*current).second) {
    if (*current == typeId) return true;
    auto c = findClass(db, *current);
    current = c ? c->parentClass : std::nullopt;
  }
  return false;
}

uint32_t classForProduct(Database& db, uint32_t productNumber) {
  Statement select(db, "SELECT class_id FROM device_classes WHERE product_number = ?1");
  select.bind(1, static_cast<int64_t>(productNumber));
  if (!select.step()) fail(kObjectNotFound, ZQS_HERE, "no device class has the product number " + std::to_string(productNumber));
  return static_cast<uint32_t>(select.int64(0));
}

}  // namespace zqstorage
