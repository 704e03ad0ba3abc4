// The name tables of the storage and task-catalog libraries, in slot order: the order in
// which a binding looks the symbols up and lays out its function pointers. Taken from the
// operation lists of zqvorex_storage.h, so the two cannot drift apart.
#pragma once

#include <array>
#include <cstddef>

#include "zqvorex_storage.h"

namespace zqvorexStorageCpp::names {

#define ZQ_STORAGE_SYMBOL(result, operation, parameters) "zqvorexStorage_" #operation,
#define ZQ_CATALOG_SYMBOL(result, operation, parameters) "zqvorexTaskCatalog_" #operation,
#define ZQ_COUNT_ONE(result, operation, parameters) +1

inline constexpr const char* kStoragePrefix = "zqvorexStorage_";
inline constexpr const char* kTaskCatalogPrefix = "zqvorexTaskCatalog_";

inline constexpr std::array<const char*, 0 ZQVOREX_STORAGE_OPERATIONS(ZQ_COUNT_ONE)> kStorage{
    ZQVOREX_STORAGE_OPERATIONS(ZQ_STORAGE_SYMBOL)};
inline constexpr std::array<const char*, 0 ZQVOREX_STORAGE_SPEC_OPERATIONS(ZQ_COUNT_ONE)> kStorageSpec{
    ZQVOREX_STORAGE_SPEC_OPERATIONS(ZQ_STORAGE_SYMBOL)};
inline constexpr std::array<const char*, 0 ZQVOREX_STORAGE_CHANNEL_SPECIFICATION_OPERATIONS(ZQ_COUNT_ONE)>
    kChannelSpecification{ZQVOREX_STORAGE_CHANNEL_SPECIFICATION_OPERATIONS(ZQ_STORAGE_SYMBOL)};
inline constexpr std::array<const char*, 0 ZQVOREX_STORAGE_CHANNEL_TASK_SPECIFICATION_OPERATIONS(ZQ_COUNT_ONE)>
    kChannelTaskSpecification{ZQVOREX_STORAGE_CHANNEL_TASK_SPECIFICATION_OPERATIONS(ZQ_STORAGE_SYMBOL)};
inline constexpr std::array<const char*, 0 ZQVOREX_STORAGE_CAPABILITIES_OPERATIONS(ZQ_COUNT_ONE)> kCapabilities{
    ZQVOREX_STORAGE_CAPABILITIES_OPERATIONS(ZQ_STORAGE_SYMBOL)};
inline constexpr std::array<const char*, 0 ZQVOREX_TASK_CATALOG_OPERATIONS(ZQ_COUNT_ONE)> kNameGenerator{
    ZQVOREX_TASK_CATALOG_OPERATIONS(ZQ_CATALOG_SYMBOL)};

#undef ZQ_STORAGE_SYMBOL
#undef ZQ_CATALOG_SYMBOL
#undef ZQ_COUNT_ONE

static_assert(kStorage.size() == 60);
static_assert(kStorageSpec.size() == 23);
static_assert(kChannelSpecification.size() == 38);
static_assert(kChannelTaskSpecification.size() == 28);
static_assert(kCapabilities.size() == 9);
static_assert(kNameGenerator.size() == 2);

}  // namespace zqvorexStorageCpp::names
