// The storage library's sessions, locks, objects, properties and queries: 60 operations.
#pragma once

#include "storage/bound_class_macros.h"

namespace zqvorexStorageCpp {

#define ZQ_BOUND_INTERFACE StorageInterface
#define ZQ_BOUND_CLASS Storage
#define ZQ_BOUND_OPERATIONS "storage/storage_operations.inc"
#include "storage/bound_class.inc"

}  // namespace zqvorexStorageCpp
