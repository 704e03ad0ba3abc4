#include "debug/target_callbacks.h"

#include "status/exceptions.h"

namespace zqvorexRedir {

const zqvorexDebugServer_CallbacksTable TargetCallbacks::kTable = {
    &TargetCallbacks::lockTask, &TargetCallbacks::unlockTask, &TargetCallbacks::abortTask,
    &TargetCallbacks::setControlCheckPending, &TargetCallbacks::setCacheSamples};

TargetCallbacks::TargetCallbacks(ILockable& task, DebugTargetFlags& flags, AbortFn abort) noexcept
    : zqvorexDebugServer_Callbacks{&kTable, &task}, flags_(flags), abort_(abort) {}

const TargetCallbacks& TargetCallbacks::self(const zqvorexDebugServer_Callbacks* callbacks) noexcept {
  return *static_cast<const TargetCallbacks*>(callbacks);
}

void TargetCallbacks::lockTask(const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status) {
  if (!callbacks || !status || !zqerr::isOpen(status)) return;
  try {
    static_cast<ILockable*>(callbacks->task)->lock(status);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void TargetCallbacks::unlockTask(const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status) {
  if (!callbacks) return;
  try {
    static_cast<ILockable*>(callbacks->task)->unlock();
  } catch (...) {
    if (status) zqerr::convertCurrentException(status);
  }
}

void TargetCallbacks::abortTask(const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status) {
  if (!callbacks || !status || !zqerr::isOpen(status)) return;
  const TargetCallbacks& links = self(callbacks);
  if (!links.abort_) return;
  try {
    links.abort_(*static_cast<ILockable*>(callbacks->task), status);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void TargetCallbacks::setControlCheckPending(const zqvorexDebugServer_Callbacks* callbacks, bool pending,
                                             zqerr_Status* status) {
  if (callbacks && status && zqerr::isOpen(status))
    self(callbacks).flags_.controlCheckPending.store(pending ? 1 : 0);
}

void TargetCallbacks::setCacheSamples(const zqvorexDebugServer_Callbacks* callbacks, bool cache,
                                      zqerr_Status* status) {
  if (callbacks && status && zqerr::isOpen(status)) self(callbacks).flags_.cacheSamples.store(cache ? 1 : 0);
}

}  // namespace zqvorexRedir
