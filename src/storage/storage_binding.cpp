#include "storage/storage_binding.h"

#include "binding/load_library.h"

namespace zqvorexStorageCpp {

static_assert(Storage::kOperationCount == 60);
static_assert(StorageSpec::kOperationCount == 23);
static_assert(ChannelSpecification::kOperationCount == 38);
static_assert(ChannelTaskSpecification::kOperationCount == 28);
static_assert(Capabilities::kOperationCount == 9);
static_assert(zqvorexTaskCatalogCpp::NameGenerator::kOperationCount == 2);

StorageBindings bindStorage(const char* path, zqerr_Status* status) {
  StorageBindings bound;
  bound.capabilities = zqdynlib::loadBoundLibrary<Capabilities>(path, status, kStoragePrefix);
  bound.storage = zqdynlib::loadBoundLibrary<Storage>(path, status, kStoragePrefix);
  bound.storageSpec = zqdynlib::loadBoundLibrary<StorageSpec>(path, status, kStoragePrefix);
  bound.channelSpecification = zqdynlib::loadBoundLibrary<ChannelSpecification>(path, status, kStoragePrefix);
  bound.channelTaskSpecification =
      zqdynlib::loadBoundLibrary<ChannelTaskSpecification>(path, status, kStoragePrefix);
  // Each load does nothing after a failure, so the ones before it are the only ones to drop.
  if (!zqerr::isOpen(status)) bound = StorageBindings{};
  return bound;
}

}  // namespace zqvorexStorageCpp

namespace zqvorexTaskCatalogCpp {

std::shared_ptr<NameGenerator> bindNameGenerator(const char* path, zqerr_Status* status) {
  return zqdynlib::loadBoundLibrary<NameGenerator>(path, status, kTaskCatalogPrefix);
}

}  // namespace zqvorexTaskCatalogCpp
