// The tables of a store, and the checks that a file is one before anything reads it.
//
//   objects(seq, id, storage_class, class_id, name, parent)   devices, tasks, channels
//   properties(object, property, type, value)                 typed values of objects
//   device_classes(class_id, name, product_number, parent_class)
//   class_attributes(class_id, attribute, type, value)        capability data of a class
//   meta(key, value)                                          change number, task numbers
//
// A store file carries the application id 0x5A515653 and the schema version in user_version;
// a file without them that is not empty is somebody else's and is left alone.
#pragma once

#include "sqlite_db.h"

namespace zqstorage {

inline constexpr int64_t kApplicationId = 0x5A515653;
inline constexpr int64_t kSchemaVersion = 1;
inline constexpr int kBusyTimeoutMs = 10000;

enum class StoreKind { kFile, kMemory };

// Sets the connection up and makes sure the store's tables are there; throws StorageError
// for a file that is damaged, foreign or of a newer version.
void prepareStore(Database& db, StoreKind kind);

}  // namespace zqstorage
