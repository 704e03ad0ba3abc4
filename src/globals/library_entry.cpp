// What this library does at the operating system's notifications. Nothing is built here: the
// shared services are built on the first call that needs them, never from the entry point.
#include "platform/library_entry.h"

#include <atomic>

#include "lasterror/last_error.h"

namespace zqentry {

namespace {
std::atomic<void*> gModule{nullptr};
}  // namespace

bool processAttach(void* module) noexcept {
  gModule.store(module, std::memory_order_release);
  return true;
}

void processDetach() noexcept { gModule.store(nullptr, std::memory_order_release); }

void threadDetach() noexcept { nZQCAI100::tlsManager().releaseThreadRecord(); }

void* libraryModule() noexcept { return gModule.load(std::memory_order_acquire); }

}  // namespace zqentry
