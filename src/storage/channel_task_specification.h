// A task specification's readers and writers: 28 operations.
#pragma once

#include "storage/bound_class_macros.h"

namespace zqvorexStorageCpp {

#define ZQ_BOUND_INTERFACE ChannelTaskSpecificationInterface
#define ZQ_BOUND_CLASS ChannelTaskSpecification
#define ZQ_BOUND_OPERATIONS "storage/channel_task_specification_operations.inc"
#include "storage/bound_class.inc"

}  // namespace zqvorexStorageCpp
