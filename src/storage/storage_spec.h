// Saved tasks and global channels of the storage library: 23 operations.
#pragma once

#include "storage/bound_class_macros.h"

namespace zqvorexStorageCpp {

#define ZQ_BOUND_INTERFACE StorageSpecInterface
#define ZQ_BOUND_CLASS StorageSpec
#define ZQ_BOUND_OPERATIONS "storage/storage_spec_operations.inc"
#include "storage/bound_class.inc"

}  // namespace zqvorexStorageCpp
