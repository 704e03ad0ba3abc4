// The storage and task-catalog libraries as the driver binds them: loaded by name from the
// program's folder and looked up symbol by symbol, one function pointer per operation.
#pragma once

#include <string>
#include <vector>

#include "zqvorex_storage.h"

namespace zqtest {

struct StorageApi {
#define ZQT_STORAGE_FIELD(result, operation, parameters) zqvorexStorage_##operation##_fn operation = nullptr;
#define ZQT_CATALOG_FIELD(result, operation, parameters) zqvorexTaskCatalog_##operation##_fn operation = nullptr;
  ZQVOREX_STORAGE_OPERATIONS(ZQT_STORAGE_FIELD)
  ZQVOREX_STORAGE_SPEC_OPERATIONS(ZQT_STORAGE_FIELD)
  ZQVOREX_STORAGE_CHANNEL_SPECIFICATION_OPERATIONS(ZQT_STORAGE_FIELD)
  ZQVOREX_STORAGE_CHANNEL_TASK_SPECIFICATION_OPERATIONS(ZQT_STORAGE_FIELD)
  ZQVOREX_STORAGE_CAPABILITIES_OPERATIONS(ZQT_STORAGE_FIELD)
  ZQVOREX_TASK_CATALOG_OPERATIONS(ZQT_CATALOG_FIELD)
#undef ZQT_STORAGE_FIELD
#undef ZQT_CATALOG_FIELD

  // The symbols that could not be found; empty when both libraries bound whole.
  std::vector<std::string> missing;
  bool loaded = false;
};

// Binds once per process.
const StorageApi& storageApi();

}  // namespace zqtest
