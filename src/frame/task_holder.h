// The task of one call: the handle is the task object's address, and the object's weak
// self-reference gives the call its own strong reference. No pool lookup, no lock. A handle
// that is no task cannot be told without a lookup, save one whose memory is zeroed: a task
// object's first word, its table of operations, never is, so such a handle is refused rather
// than called through.
#pragma once

#include <cstring>
#include <memory>

#include "status/status.h"
#include "status/error_sites.h"

namespace zqframe {

using TaskHandle = void*;

template <class Task>
class TaskHolder {
 public:
  TaskHolder(TaskHandle handle, zqerr_Status* status) : task_(take(handle, status)) {}
  Task* get() const { return task_.get(); }
  const std::shared_ptr<Task>& shared() const { return task_; }
  Task* operator->() const { return task_.get(); }
  explicit operator bool() const { return task_ != nullptr; }

 private:
  // Made in place: no second shared reference to move from.
  static std::shared_ptr<Task> take(TaskHandle handle, zqerr_Status* status) {
    if (!zqerr::isOpen(status)) return nullptr;
    if (!handle) {
      ZQ_FAIL(status, kGlobalsNullHandle);
      return nullptr;
    }
    void* firstWord = nullptr;
    std::memcpy(&firstWord, handle, sizeof firstWord);
    if (!firstWord) {  // zeroed memory is no object: refused before any call through it
      ZQ_FAIL(status, kGlobalsNotATask);
      return nullptr;
    }
    std::shared_ptr<Task> task = static_cast<Task*>(handle)->sharedFromThis();
    if (!task) zqerr::setPlain(status, zqpalerr_badPointer, zqsite::kSharedFromThisExpired.location);
    return task;
  }

  std::shared_ptr<Task> task_;
};

}  // namespace zqframe
