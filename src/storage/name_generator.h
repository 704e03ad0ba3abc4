// The task catalog's numbers and names for unnamed tasks: 2 operations.
#pragma once

#include "storage/bound_class_macros.h"

namespace zqvorexTaskCatalogCpp {

#define ZQ_BOUND_INTERFACE NameGeneratorInterface
#define ZQ_BOUND_CLASS NameGenerator
#define ZQ_BOUND_OPERATIONS "storage/name_generator_operations.inc"
#include "storage/bound_class.inc"

}  // namespace zqvorexTaskCatalogCpp
