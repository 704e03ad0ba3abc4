// The one-time step in front of every getter: a spin on a flag with a short sleep, not a lock,
// so that it never runs from the library's entry point and costs one compare-and-swap once
// the record is built.
#pragma once

#include <atomic>
#include <cstdint>

#include "status/status.h"

namespace nZQCAI100 {

struct OneTimeRecord {
  std::atomic<uint32_t> state;  // 1 after a successful build
  std::atomic<uint32_t> busy;   // 1 while a thread is in the build
  void (*initialise)(zqerr_Status* status);
  void (*finish)();
  uint32_t sleepMilliseconds;
};

// The record of the shared services: builds with buildSharedGlobals, ends with
// abandonSharedGlobals.
OneTimeRecord& oneTimeRecord();

// Returns at once after a successful build. Otherwise waits for the flag and builds if no
// other thread has; the build's failure goes to `status` and the next caller tries again.
// Writes into the caller's status itself, so a failure keeps its report items.
void runOnce(OneTimeRecord& record, zqerr_Status* status);

// The build in its fixed order. On failure nothing of it stays behind.
void buildSharedGlobals(zqerr_Status* status) noexcept;

// Exit: forgets a built record without releasing it, so no plug-in code and no library
// unloading runs at process exit.
void abandonSharedGlobals();

}  // namespace nZQCAI100
