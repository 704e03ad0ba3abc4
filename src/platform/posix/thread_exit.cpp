// Linux tells a library of no thread's end. A thread-local object armed on first need ends
// with its thread, before the thread's keys are cleared, so the thread's records are still
// readable when zqentry::threadDetach runs.
#include "platform/library_entry.h"

namespace zqplatform {

namespace {

struct ThreadExitWatch {
  bool armed = false;
  ~ThreadExitWatch() {
    if (armed) zqentry::threadDetach();
  }
};

thread_local ThreadExitWatch tWatch;

}  // namespace

void watchThreadExit() noexcept { tWatch.armed = true; }

}  // namespace zqplatform
