// The global pointer to the record of shared services, set when a build starts.
#pragma once

#include <atomic>

#include "globals/shared_globals.h"

namespace nZQCAI100::detail {

extern std::atomic<SharedGlobals*> gSharedGlobals;

}  // namespace nZQCAI100::detail
