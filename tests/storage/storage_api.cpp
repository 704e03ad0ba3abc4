#include "storage_api.h"

#include "platform/platform.h"

namespace zqtest {

namespace {

template <class Fn>
void bind(zqplatform::LibraryHandle library, const std::string& name, Fn& slot, std::vector<std::string>& missing) {
  void* symbol = library ? zqplatform::findSymbol(library, name.c_str()) : nullptr;
  if (symbol == nullptr) missing.push_back(name);
  slot = reinterpret_cast<Fn>(symbol);
}

StorageApi load() {
  StorageApi api;
  // Kept loaded for the life of the process, as the driver keeps its bindings.
  zqplatform::LibraryHandle storage = zqplatform::loadLibrary("zqvorexStorage", 0);
  zqplatform::LibraryHandle catalog = zqplatform::loadLibrary("zqvorexTaskCatalog", 0);
  api.loaded = storage != nullptr && catalog != nullptr;
#define ZQT_BIND_STORAGE(result, operation, parameters) \
  bind(storage, "zqvorexStorage_" #operation, api.operation, api.missing);
#define ZQT_BIND_CATALOG(result, operation, parameters) \
  bind(catalog, "zqvorexTaskCatalog_" #operation, api.operation, api.missing);
  ZQVOREX_STORAGE_OPERATIONS(ZQT_BIND_STORAGE)
  ZQVOREX_STORAGE_SPEC_OPERATIONS(ZQT_BIND_STORAGE)
  ZQVOREX_STORAGE_CHANNEL_SPECIFICATION_OPERATIONS(ZQT_BIND_STORAGE)
  ZQVOREX_STORAGE_CHANNEL_TASK_SPECIFICATION_OPERATIONS(ZQT_BIND_STORAGE)
  ZQVOREX_STORAGE_CAPABILITIES_OPERATIONS(ZQT_BIND_STORAGE)
  ZQVOREX_TASK_CATALOG_OPERATIONS(ZQT_BIND_CATALOG)
#undef ZQT_BIND_STORAGE
#undef ZQT_BIND_CATALOG
  return api;
}

}  // namespace

const StorageApi& storageApi() {
  static const StorageApi api = load();
  return api;
}

}  // namespace zqtest
