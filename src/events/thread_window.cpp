#include "events/thread_window.h"

#include "lasterror/last_error.h"
#include "platform/library_entry.h"

namespace nZQCAI100 {

zqplatform::EventWindow ensureEventWindow() noexcept {
  if (zqplatform::EventWindow served = zqplatform::servedEventWindow()) return served;
  ExtendedErrorInfo* record = tlsManager().getOrCreateThreadRecord();
  if (!record) return nullptr;
  if (record->eventWindow) {
    if (zqplatform::eventWindowAlive(record->eventWindow)) return record->eventWindow;
    // Closed by its delivery thread when a callback took the thread's last registration away.
    zqplatform::destroyEventWindow(record->eventWindow);
  }
  record->eventWindow = zqplatform::createEventWindow(zqentry::windowModule());
  return record->eventWindow;
}

zqplatform::EventWindow currentEventWindow() noexcept {
  if (zqplatform::EventWindow served = zqplatform::servedEventWindow()) return served;
  ExtendedErrorInfo* record = tlsManager().getThreadRecord();
  return record ? record->eventWindow : nullptr;
}

void destroyThreadEventWindow() noexcept {
  if (zqplatform::EventWindow served = zqplatform::servedEventWindow()) {
    zqplatform::destroyEventWindow(served);  // closes it; its registering thread frees it
    return;
  }
  ExtendedErrorInfo* record = tlsManager().getThreadRecord();
  if (!record || !record->eventWindow) return;
  zqplatform::destroyEventWindow(record->eventWindow);
  record->eventWindow = nullptr;
}

}  // namespace nZQCAI100
