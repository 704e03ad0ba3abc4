#include "objects.h"

#include <atomic>
#include <chrono>
#include <random>

#include "properties.h"

namespace zqstorage {

namespace {

constexpr const char* kSameNamespace = "storage_class = ?1 AND ifnull(parent, x'') = ifnull(?2, x'') AND name = ?3 COLLATE NOCASE";

void bindId(Statement& statement, int index, const ObjectId& id) { statement.bindBlob(index, id.data(), id.size()); }

void bindParent(Statement& statement, int index, const ObjectId* parent) {
  if (parent) {
    bindId(statement, index, *parent);
  } else {
    statement.bindNull(index);
  }
}

ObjectId idFromBlob(const std::string& blob) {
  ObjectId id{};
  if (blob.size() == id.size()) std::copy(blob.begin(), blob.end(), id.begin());
  return id;
}

std::vector<ObjectId> idList(Statement& statement) {
  std::vector<ObjectId> ids;
  while (statement.step()) ids.push_back(idFromBlob(statement.blob(0)));
  return ids;
}

void checkName(std::string_view name) {
  if (name.empty()) fail(kInvalidParameter, ZQS_HERE, "an object needs a name");
}

[[noreturn]] void nameInUse(uint32_t storageClass, std::string_view name) {
  fail(kInvalidParameter, ZQS_HERE, "a " + className(storageClass) + " named \"" + std::string(name) + "\" already exists");
}

uint64_t splitMix(uint64_t& state) {
  uint64_t z = (state += 0x9E3779B97F4A7C15ull);
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
  return z ^ (z >> 31);
}

}  // namespace

bool isSupportedClass(uint32_t storageClass) {
  return storageClass == kClassChannel || storageClass == kClassTask || storageClass == kClassDevice;
}

std::string className(uint32_t storageClass) {
  switch (storageClass) {
    case kClassChannel: return "channel";
    case kClassTask: return "task";
    case kClassDevice: return "device";
    default: return "object of class " + std::to_string(storageClass);
  }
}

ObjectId newObjectId() {
  // Seeded per process from the system's entropy, the clock and a counter, so that two
  // processes creating objects at the same moment do not collide.
  static std::atomic<uint64_t> counter{0};
  static const uint64_t seed = [] {
    std::random_device device;
    return (static_cast<uint64_t>(device()) << 32) ^ device() ^
           static_cast<uint64_t>(std::chrono::high_resolution_clock::now().time_since_epoch().count());
  }();
  uint64_t state = seed ^ (counter.fetch_add(1) * 0xD1B54A32D192ED03ull) ^
                   static_cast<uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  ObjectId id{};
  for (size_t half = 0; half < 2; ++half) {
    const uint64_t bits = splitMix(state);
    for (size_t i = 0; i < 8; ++i) id[half * 8 + i] = static_cast<uint8_t>(bits >> (8 * i));
  }
  id[6] = static_cast<uint8_t>((id[6] & 0x0F) | 0x40);  // a version-4 GUID
  id[8] = static_cast<uint8_t>((id[8] & 0x3F) | 0x80);
  return id;
}

ObjectId createObject(Database& db, uint32_t storageClass, uint32_t classId, std::string_view name,
                      const ObjectId* parent) {
  checkName(name);
  if (!isSupportedClass(storageClass)) {
    fail(kInvalidParameter, ZQS_HERE, "the store holds no objects of class " + std::to_string(storageClass));
  }
  if (parent) requireObject(db, *parent);
  if (findByName(db, storageClass, parent, name)) nameInUse(storageClass, name);
  const ObjectId id = newObjectId();
  Statement insert(db, "INSERT INTO objects(id, storage_class, class_id, name, parent) VALUES(?1, ?2, ?3, ?4, ?5)");
  bindId(insert, 1, id);
  insert.bind(2, static_cast<int64_t>(storageClass)).bind(3, static_cast<int64_t>(classId)).bindText(4, name);
  bindParent(insert, 5, parent);
  insert.run();
  return id;
}

std::optional<ObjectRow> findObject(Database& db, const ObjectId& id) {
  Statement select(db, "SELECT storage_class, class_id, name, parent FROM objects WHERE id = ?1");
  bindId(select, 1, id);
  if (!select.step()) return std::nullopt;
  ObjectRow row;
  row.id = id;
  row.storageClass = static_cast<uint32_t>(select.int64(0));
  row.classId = static_cast<uint32_t>(select.int64(1));
  row.name = select.text(2);
  if (!select.isNull(3)) row.parent = idFromBlob(select.blob(3));
  return row;
}

ObjectRow requireObject(Database& db, const ObjectId& id) {
  auto row = findObject(db, id);
  if (!row) fail(kObjectNotFound, ZQS_HERE, "no object has this identifier");
  return *row;
}

std::optional<ObjectId> findByName(Database& db, uint32_t storageClass, const ObjectId* parent, std::string_view name) {
  Statement select(db, (std::string("SELECT id FROM objects WHERE ") + kSameNamespace).c_str());
  select.bind(1, static_cast<int64_t>(storageClass));
  bindParent(select, 2, parent);
  select.bindText(3, name);
  if (!select.step()) return std::nullopt;
  return idFromBlob(select.blob(0));
}

ObjectId requireByName(Database& db, uint32_t storageClass, std::string_view name) {
  if (auto id = findByName(db, storageClass, nullptr, name)) return *id;
  const std::string text = "no " + className(storageClass) + " is named \"" + std::string(name) + "\"";
  fail(storageClass == kClassDevice ? kInvalidDeviceID : kObjectNotFound, ZQS_HERE, text);
}

ObjectId requireByNameInAnyClass(Database& db, std::string_view name) {
  Statement select(db,
                   "SELECT id FROM objects WHERE parent IS NULL AND name = ?1 COLLATE NOCASE "
                   "ORDER BY storage_class LIMIT 1");
  select.bindText(1, name);
  if (!select.step()) fail(kObjectNotFound, ZQS_HERE, "no object is named \"" + std::string(name) + "\"");
  return idFromBlob(select.blob(0));
}

void deleteObject(Database& db, const ObjectId& id) {
  Statement remove(db, "DELETE FROM objects WHERE id = ?1");
  bindId(remove, 1, id);
  remove.run();
  if (db.changes() == 0) fail(kObjectNotFound, ZQS_HERE, "no object has this identifier");
}

void renameObject(Database& db, const ObjectId& id, std::string_view name) {
  checkName(name);
  const ObjectRow row = requireObject(db, id);
  const ObjectId* parent = row.parent ? &*row.parent : nullptr;
  if (auto other = findByName(db, row.storageClass, parent, name); other && *other != id) nameInUse(row.storageClass, name);
  Statement update(db, "UPDATE objects SET name = ?2 WHERE id = ?1");
  bindId(update, 1, id);
  update.bindText(2, name);
  update.run();
}

std::vector<ObjectId> childrenOf(Database& db, const ObjectId& id) {
  requireObject(db, id);
  Statement select(db, "SELECT id FROM objects WHERE parent = ?1 ORDER BY seq");
  bindId(select, 1, id);
  return idList(select);
}

std::vector<ObjectId> objectsOfClass(Database& db, uint32_t storageClass, bool sortedByName) {
  Statement select(db, sortedByName ? "SELECT id FROM objects WHERE storage_class = ?1 ORDER BY name COLLATE NOCASE, seq"
                                    : "SELECT id FROM objects WHERE storage_class = ?1 ORDER BY seq");
  select.bind(1, static_cast<int64_t>(storageClass));
  return idList(select);
}

std::vector<ObjectId> configuredDevices(Database& db, uint32_t classId) {
  Statement select(db,
                   "SELECT id FROM objects WHERE storage_class = ?1 AND (?2 = ?1 OR class_id = ?2) "
                   "ORDER BY name COLLATE NOCASE, seq");
  select.bind(1, static_cast<int64_t>(kClassDevice)).bind(2, static_cast<int64_t>(classId));
  return idList(select);
}

std::string uniqueName(Database& db, uint32_t storageClass, std::string_view baseName) {
  checkName(baseName);
  if (!findByName(db, storageClass, nullptr, baseName)) return std::string(baseName);
  std::string_view stem = baseName;
  while (!stem.empty() && stem.back() >= '0' && stem.back() <= '9') stem.remove_suffix(1);
  for (uint64_t n = 1;; ++n) {
    std::string candidate = std::string(stem) + std::to_string(n);
    if (!findByName(db, storageClass, nullptr, candidate)) return candidate;
  }
}

ObjectTree readTree(Database& db, const ObjectId& id) {
  ObjectTree tree;
  tree.row = requireObject(db, id);
  for (uint32_t property : propertyIds(db, id)) tree.properties.emplace_back(property, requireProperty(db, id, property));
  for (const ObjectId& child : childrenOf(db, id)) tree.children.push_back(readTree(db, child));
  return tree;
}

ObjectId writeTree(Database& db, const ObjectTree& tree, const ObjectId* parent) {
  if (auto existing = findByName(db, tree.row.storageClass, parent, tree.row.name)) deleteObject(db, *existing);
  const ObjectId id = createObject(db, tree.row.storageClass, tree.row.classId, tree.row.name, parent);
  for (const auto& [property, value] : tree.properties) setProperty(db, id, property, value);
  for (const ObjectTree& child : tree.children) writeTree(db, child, &id);
  return id;
}

}  // namespace zqstorage
