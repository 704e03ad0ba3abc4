// The task's link to a debug server: the debug session record, the callbacks a target is given,
// the server and the target, the two flags the target sets, and what the target was last told
// of logging. Server and target are stored under the state lock of the plug-in parts and read
// under the task's mutex; one that is to go is taken out at the task's last unlock, never
// destroyed with the mutex held, since its destruction may call back into the task.
#pragma once

#include <cstdint>
#include <memory>

#include "debug/debug_interfaces.h"
#include "debug/debug_session_attributes.h"
#include "debug/target_callbacks.h"
#include "platform/platform.h"
#include "status/status.h"
#include "task/plugin_parts.h"
#include "task/task_lock.h"
#include "task/task_name_sets.h"

namespace zqvorexRedir {

struct DebugSnapshot {
  std::shared_ptr<IDebugServer> server;
  std::shared_ptr<IDebugTarget> target;
};

// What the last unlock took out. The fields go in reverse: the server first, then the target.
struct DebugRelease {
  std::shared_ptr<IDebugTarget> target;
  std::shared_ptr<IDebugServer> server;
};

// The logging modes that change whether a task logs.
inline constexpr int32_t kLoggingOff = 10231;
inline constexpr int32_t kLoggingLog = 15842;
inline constexpr int32_t kLoggingLogAndRead = 15844;

// What a channel creation changed, as a target hears of it.
struct CreationChanges {
  bool pluginNameChanged;
  bool pluginTaskChanged;
  const NameSet& devices;
  const NameSet& channels;
};

class DebugLink {
 public:
  // `task` and `abort` go to the target's callbacks; a failed attachment or a rollback asks
  // `lock` for the release of what it leaves behind.
  DebugLink(ILockable& task, TargetCallbacks::AbortFn abort, zqplatform::SlimLock& stateLock, TaskLock& lock);
  DebugLink(const DebugLink&) = delete;
  DebugLink& operator=(const DebugLink&) = delete;

  DebugSessionAttributes& attributes() { return attributes_; }
  DebugTargetFlags& flags() { return flags_; }
  IDebugTarget* target() const { return target_.get(); }
  bool empty() const { return !server_ && !target_; }

  // Frame step 2: a target that asked for it reviews who controls the task. What it reports
  // stands, and the operation goes on regardless.
  void checkControl(bool revoke, zqerr_Status* status) {
    if (flags_.controlCheckPending.load() != 0) reviewControl(revoke, status);
  }
  // Frame step 4: an open, uncommitted debug session refuses every forwarded operation.
  bool refusesOperation(zqerr_Status* status) const {
    return attributes_.isDebugSession() && !attributes_.isCommitted() && refuse(status);
  }

  // The stores, each under the state lock.
  void setServer(std::shared_ptr<IDebugServer> server);
  void setTarget(std::shared_ptr<IDebugTarget> target);
  // What the release `bits` name, taken out under the state lock.
  DebugRelease takeOut(uint32_t bits);

  DebugSnapshot snapshot() const { return {server_, target_}; }
  // Puts back a server or target that was there before; one made since goes with `before`, or
  // at the last unlock when there was none.
  void restore(DebugSnapshot& before);

  // A server from the factory and a target for the task on it, unless the task has either.
  void attach(IDebugServerFactory* factory, const Text& taskName, zqerr_Status* status);

  // What a target is told: the whole task after a set-up, what a channel creation added, what
  // its rollback took back (quietly: the caller sees the creation's failure), and the name sets
  // rebuilt after failed creations, when the target stays.
  void tellWholeTask(const PluginParts& plugin, const TaskNameSets& names, zqerr_Status* status);
  void tellCreated(const PluginParts& plugin, const CreationChanges& changes, zqerr_Status* status);
  void tellRolledBack(const PluginParts& plugin, const CreationChanges& changes);
  void tellNameSets(const TaskNameSets& names, bool targetStays, zqerr_Status* status);

  // Tells the target of the change of logging that `mode` makes, runs `call`, and takes the
  // notice back when the plug-in refused. Without a target it only runs `call`.
  template <class Call>
  void withLoggingNotice(int32_t mode, zqerr_Status* status, Call&& call) {
    if (!target_) {
      call();
      return;
    }
    const bool before = loggingActive_;
    noteLogging(mode, status);
    call();
    if (loggingActive_ != before && !zqerr::isOpen(status)) takeBackLogging(before, status);
  }

 private:
  void reviewControl(bool revoke, zqerr_Status* status);
  static bool refuse(zqerr_Status* status);
  void noteLogging(int32_t mode, zqerr_Status* status);
  void takeBackLogging(bool before, zqerr_Status* status);

  zqplatform::SlimLock& stateLock_;
  TaskLock& lock_;
  DebugSessionAttributes attributes_;
  TargetCallbacks callbacks_;
  std::shared_ptr<IDebugServer> server_;
  std::shared_ptr<IDebugTarget> target_;
  DebugTargetFlags flags_;
  bool loggingActive_ = false;
};

}  // namespace zqvorexRedir
