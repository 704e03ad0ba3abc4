// Marks a function of the C interface: C linkage and exported; everything else stays hidden.
#pragma once

#include "native_export.h"

#define ZQ_EXPORT extern "C" ZQ_NATIVE_EXPORT
