// A channel specification's readers and writers: 38 operations.
#pragma once

#include "storage/bound_class_macros.h"

namespace zqvorexStorageCpp {

#define ZQ_BOUND_INTERFACE ChannelSpecificationInterface
#define ZQ_BOUND_CLASS ChannelSpecification
#define ZQ_BOUND_OPERATIONS "storage/channel_specification_operations.inc"
#include "storage/bound_class.inc"

}  // namespace zqvorexStorageCpp
