// Binding the storage and task-catalog libraries: each bound class is a separate object with
// its own reference on its library, bound all or nothing.
#pragma once

#include <memory>

#include "status/status.h"
#include "storage/capabilities.h"
#include "storage/channel_specification.h"
#include "storage/channel_task_specification.h"
#include "storage/name_generator.h"
#include "storage/storage.h"
#include "storage/storage_spec.h"

namespace zqvorexStorageCpp {

inline constexpr const char* kStorageLibrary = "zqvorexStorage";
inline constexpr const char* kStoragePrefix = "zqvorexStorage_";

// The five classes over the one storage library.
struct StorageBindings {
  std::shared_ptr<Capabilities> capabilities;
  std::shared_ptr<Storage> storage;
  std::shared_ptr<StorageSpec> storageSpec;
  std::shared_ptr<ChannelSpecification> channelSpecification;
  std::shared_ptr<ChannelTaskSpecification> channelTaskSpecification;
};

// Binds the five classes from the library at `path`. On failure `status` tells the first
// class that could not be bound and every pointer is empty.
StorageBindings bindStorage(const char* path, zqerr_Status* status);

}  // namespace zqvorexStorageCpp

namespace zqvorexTaskCatalogCpp {

inline constexpr const char* kTaskCatalogLibrary = "zqvorexTaskCatalog";
inline constexpr const char* kTaskCatalogPrefix = "zqvorexTaskCatalog_";

// Empty on failure, with the reason in `status`.
std::shared_ptr<NameGenerator> bindNameGenerator(const char* path, zqerr_Status* status);

}  // namespace zqvorexTaskCatalogCpp
