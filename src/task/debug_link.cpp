#include "task/debug_link.h"

#include <mutex>
#include <shared_mutex>
#include <string>
#include <utility>

#include "status/error_sites.h"

namespace zqvorexRedir {

DebugLink::DebugLink(ILockable& task, TargetCallbacks::AbortFn abort, zqplatform::SlimLock& stateLock,
                     TaskLock& lock)
    : stateLock_(stateLock), lock_(lock), callbacks_(task, flags_, abort) {}

void DebugLink::reviewControl(bool revoke, zqerr_Status* status) {
  std::shared_ptr<IDebugTarget> target;
  {
    std::shared_lock<zqplatform::SlimLock> state(stateLock_);
    target = target_;
  }
  if (target) target->revokeControl(revoke, status);
}

bool DebugLink::refuse(zqerr_Status* status) {
  ZQ_FAIL(status, kTaskDebugConfigurationNotCommitted);
  return true;
}

void DebugLink::setServer(std::shared_ptr<IDebugServer> server) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  server_ = std::move(server);
}

void DebugLink::setTarget(std::shared_ptr<IDebugTarget> target) {
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  target_ = std::move(target);
}

DebugRelease DebugLink::takeOut(uint32_t bits) {
  DebugRelease released;
  std::lock_guard<zqplatform::SlimLock> state(stateLock_);
  if (bits & kReleaseDebugTarget) released.target = std::move(target_);
  if (bits & kReleaseDebugServer) released.server = std::move(server_);
  return released;
}

void DebugLink::restore(DebugSnapshot& before) {
  if (before.server != server_) {
    if (before.server) {
      std::lock_guard<zqplatform::SlimLock> state(stateLock_);
      std::swap(server_, before.server);
    } else {
      lock_.requestRelease(kReleaseDebugServer);
    }
  }
  if (before.target != target_) {
    if (before.target) {
      std::lock_guard<zqplatform::SlimLock> state(stateLock_);
      std::swap(target_, before.target);
    } else {
      lock_.requestRelease(kReleaseDebugTarget);
    }
  }
}

void DebugLink::attach(IDebugServerFactory* factory, const Text& taskName, zqerr_Status* status) {
  if (server_ || target_ || !factory) return;
  // Level 2 with no name: the one server that all tasks of the process share.
  std::shared_ptr<IDebugServer> server = factory->createDebugServer(2, std::string(), status);
  setServer(server);
  if (server) setTarget(server->createDebugTarget(taskName, callbacks_.boundary(), status));
  if (!zqerr::isOpen(status)) lock_.requestRelease(kReleaseDebugServer | kReleaseDebugTarget);
}

}  // namespace zqvorexRedir
