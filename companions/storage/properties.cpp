#include "properties.h"

namespace zqstorage {

namespace {

void bindId(Statement& statement, int index, const ObjectId& id) { statement.bindBlob(index, id.data(), id.size()); }

}  // namespace

std::optional<Value> findProperty(Database& db, const ObjectId& id, uint32_t property) {
  Statement select(db, "SELECT type, value FROM properties WHERE object = ?1 AND property = ?2");
  bindId(select, 1, id);
  select.bind(2, static_cast<int64_t>(property));
  if (!select.step()) return std::nullopt;
  return readValue(select, 0);
}

Value requireProperty(Database& db, const ObjectId& id, uint32_t property) {
  if (auto value = findProperty(db, id, property)) return *value;
  requireObject(db, id);
  fail(kPropertyNotFound, ZQS_HERE, describeProperty(db, id, property) + " is not set");
}

void setProperty(Database& db, const ObjectId& id, uint32_t property, const Value& value) {
  requireObject(db, id);
  Statement upsert(db, "INSERT OR REPLACE INTO properties(object, property, type, value) VALUES(?1, ?2, ?3, ?4)");
  bindId(upsert, 1, id);
  upsert.bind(2, static_cast<int64_t>(property));
  bindValue(upsert, 3, value);
  upsert.run();
}

std::vector<uint32_t> propertyIds(Database& db, const ObjectId& id) {
  requireObject(db, id);
  Statement select(db, "SELECT property FROM properties WHERE object = ?1 ORDER BY property");
  bindId(select, 1, id);
  std::vector<uint32_t> ids;
  while (select.step()) ids.push_back(static_cast<uint32_t>(select.int64(0)));
  return ids;
}

void removeProperties(Database& db, const ObjectId& id, uint32_t first, uint32_t last) {
  Statement remove(db, "DELETE FROM properties WHERE object = ?1 AND property BETWEEN ?2 AND ?3");
  bindId(remove, 1, id);
  remove.bind(2, static_cast<int64_t>(first)).bind(3, static_cast<int64_t>(last));
  remove.run();
}

std::string describeProperty(Database& db, const ObjectId& id, uint32_t property) {
  std::string text = "property " + std::to_string(property);
  if (auto row = findObject(db, id)) text += " of " + className(row->storageClass) + " \"" + row->name + "\"";
  return text;
}

}  // namespace zqstorage
