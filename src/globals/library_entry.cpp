// What this library does at the operating system's notifications. Nothing is built here: the
// shared services are built on the first call that needs them, never from the entry point.
#include "platform/library_entry.h"

#include <atomic>

#include "events/event_actions.h"
#include "events/thread_window.h"
#include "lasterror/last_error.h"

namespace zqentry {

namespace {
std::atomic<void*> gModule{nullptr};
std::atomic<void*> gWindowModule{nullptr};
}  // namespace

bool processAttach(void* module) noexcept {
  void* process = zqplatform::processModule();
  if (!process) return false;
  if (!zqplatform::registerEventWindowClass(process, &nZQCAI100::handleEventMessage,
                                            &nZQCAI100::dropEventMessage))
    return false;
  gWindowModule.store(process, std::memory_order_release);
  gModule.store(module, std::memory_order_release);
  return true;
}

void processDetach() noexcept {
  if (void* process = gWindowModule.exchange(nullptr, std::memory_order_acq_rel)) {
    nZQCAI100::destroyThreadEventWindow();
    zqplatform::unregisterEventWindowClass(process);
  }
  gModule.store(nullptr, std::memory_order_release);
}

void threadDetach() noexcept {
  nZQCAI100::destroyThreadEventWindow();
  nZQCAI100::tlsManager().releaseThreadRecord();
}

void* libraryModule() noexcept { return gModule.load(std::memory_order_acquire); }

void* windowModule() noexcept { return gWindowModule.load(std::memory_order_acquire); }

}  // namespace zqentry
