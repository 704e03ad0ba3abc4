// Included first by the files that define the exported functions: the header's prototypes
// then carry the export attribute, and a definition that strays from them does not compile.
#pragma once

#include "native_export.h"

#define ZQVOREX_STORAGE_API ZQ_NATIVE_EXPORT
#include "zqvorex_storage.h"

#define ZQS_EXPORT extern "C" ZQ_NATIVE_EXPORT
