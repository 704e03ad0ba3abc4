// What a debug target may do to its task, from the server's own thread: lock and unlock it,
// abort its plug-in task, and raise or lower the two flags that the task reads without a lock.
#pragma once

#include <atomic>
#include <cstdint>

#include "status/status.h"
#include "task/itask.h"
#include "zqvorex_debugserver.h"

namespace zqvorexRedir {

// The flags that a target writes and the task's API threads read.
struct DebugTargetFlags {
  std::atomic<int32_t> controlCheckPending{0};
  std::atomic<int32_t> cacheSamples{0};
};

// The table of five functions with its task, in the form the library keeps a pointer to: it
// must stay where it is for as long as a target holds it.
class TargetCallbacks : public zqvorexDebugServer_Callbacks {
 public:
  // Aborts the plug-in task of `task`; it may run while another thread holds the task's lock.
  using AbortFn = void (*)(ILockable& task, zqerr_Status* status);

  TargetCallbacks(ILockable& task, DebugTargetFlags& flags, AbortFn abort) noexcept;
  TargetCallbacks(const TargetCallbacks&) = delete;
  TargetCallbacks& operator=(const TargetCallbacks&) = delete;

  const zqvorexDebugServer_Callbacks* boundary() const noexcept { return this; }

  static const zqvorexDebugServer_CallbacksTable kTable;

 private:
  static const TargetCallbacks& self(const zqvorexDebugServer_Callbacks* callbacks) noexcept;
  static void lockTask(const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status);
  static void unlockTask(const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status);
  static void abortTask(const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status);
  static void setControlCheckPending(const zqvorexDebugServer_Callbacks* callbacks, bool pending,
                                     zqerr_Status* status);
  static void setCacheSamples(const zqvorexDebugServer_Callbacks* callbacks, bool cache,
                              zqerr_Status* status);

  DebugTargetFlags& flags_;
  AbortFn abort_;
};

}  // namespace zqvorexRedir
