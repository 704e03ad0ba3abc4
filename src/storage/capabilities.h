// The capability data of device classes: 9 operations.
#pragma once

#include "storage/bound_class_macros.h"

namespace zqvorexStorageCpp {

#define ZQ_BOUND_INTERFACE CapabilitiesInterface
#define ZQ_BOUND_CLASS Capabilities
#define ZQ_BOUND_OPERATIONS "storage/capabilities_operations.inc"
#include "storage/bound_class.inc"

}  // namespace zqvorexStorageCpp
