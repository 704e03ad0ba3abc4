// The two calls under every bound library: open a library by path, look a symbol up. Both do
// nothing when the status already holds an error, and on failure set zqapalerr_invalidParameter
// with what the system said.
#pragma once

#include "platform/platform.h"
#include "status/status.h"

// `path` is UTF-8, used as given: the system's loader supplies the default extension.
// The native handle, or null.
zqplatform::LibraryHandle zqdynlib_load(const char* path, zqerr_Status* status);

// The symbol's address, or null.
void* zqdynlib_getSymbol(zqplatform::LibraryHandle library, const char* name, zqerr_Status* status);
