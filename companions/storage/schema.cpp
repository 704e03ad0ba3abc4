#include "schema.h"

#include <sqlite3.h>

#include <string>

namespace zqstorage {

namespace {

constexpr const char* kTables = R"sql(
CREATE TABLE objects(
  seq INTEGER PRIMARY KEY,
  id BLOB NOT NULL UNIQUE CHECK(length(id) = 16),
  storage_class INTEGER NOT NULL,
  class_id INTEGER NOT NULL DEFAULT 0,
  name TEXT NOT NULL CHECK(name <> ''),
  parent BLOB REFERENCES objects(id) ON DELETE CASCADE);
CREATE UNIQUE INDEX objects_by_name ON objects(storage_class, ifnull(parent, x''), name COLLATE NOCASE);
CREATE INDEX objects_by_parent ON objects(parent);
CREATE TABLE properties(
  object BLOB NOT NULL REFERENCES objects(id) ON DELETE CASCADE,
  property INTEGER NOT NULL,
  type INTEGER NOT NULL,
  value,
  PRIMARY KEY(object, property)) WITHOUT ROWID;
CREATE TABLE device_classes(
  class_id INTEGER PRIMARY KEY,
  name TEXT NOT NULL DEFAULT '',
  product_number INTEGER UNIQUE,
  parent_class INTEGER);
CREATE TABLE class_attributes(
  class_id INTEGER NOT NULL REFERENCES device_classes(class_id) ON DELETE CASCADE,
  attribute INTEGER NOT NULL,
  type INTEGER NOT NULL,
  value,
  PRIMARY KEY(class_id, attribute)) WITHOUT ROWID;
CREATE TABLE meta(key TEXT PRIMARY KEY, value INTEGER NOT NULL) WITHOUT ROWID;
INSERT INTO meta VALUES('change_number', 0), ('next_task_number', 0);
)sql";

int64_t pragmaValue(Database& db, const char* pragma) {
  Statement statement(db, pragma);
  return statement.step() ? statement.int64(0) : 0;
}

void checkVersion(int64_t version) {
  if (version > kSchemaVersion) {
    fail(kFeatureUnsupported, ZQS_HERE,
         "the store was written by a newer version of zqvorexStorage (schema " + std::to_string(version) + ")");
  }
}

void createTables(Database& db) {
  db.exec("BEGIN IMMEDIATE");
  try {
    // Another process may have made the tables while this one waited for the lock.
    if (pragmaValue(db, "PRAGMA application_id") != kApplicationId) {
      if (pragmaValue(db, "SELECT count(*) FROM sqlite_master") != 0) {
        StorageError error(kResourceNotFound, ZQS_HERE, "the file is a database of another program, not a store");
        error.with("store", db.label());
        throw error;
      }
      db.exec(kTables);
      db.exec(("PRAGMA application_id=" + std::to_string(kApplicationId)).c_str());
      db.exec(("PRAGMA user_version=" + std::to_string(kSchemaVersion)).c_str());
    }
    db.exec("COMMIT");
  } catch (...) {
    sqlite3_exec(db.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
}

}  // namespace

void prepareStore(Database& db, StoreKind kind) {
  sqlite3_busy_timeout(db.handle(), kBusyTimeoutMs);
  db.exec("PRAGMA foreign_keys=ON");
  if (kind == StoreKind::kFile) db.exec("PRAGMA synchronous=FULL");
  const int64_t applicationId = pragmaValue(db, "PRAGMA application_id");
  if (applicationId == kApplicationId) {
    checkVersion(pragmaValue(db, "PRAGMA user_version"));
    return;
  }
  if (applicationId != 0) {
    StorageError error(kResourceNotFound, ZQS_HERE, "the file is a database of another program, not a store");
    error.with("store", db.label());
    throw error;
  }
  // Write-ahead logging lets readers keep their snapshot while another process writes.
  if (kind == StoreKind::kFile) db.exec("PRAGMA journal_mode=WAL");
  createTables(db);
}

}  // namespace zqstorage
