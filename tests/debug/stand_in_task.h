// A task as a debug target's callbacks see it: a lock that counts, and an abort that counts.
#pragma once

#include <mutex>
#include <thread>

#include "debug/target_callbacks.h"

namespace zqtest {

class StandInTask : public zqvorexRedir::ILockable {
 public:
  void lock(zqerr_Status* status) override {
    if (!zqerr::isOpen(status)) return;
    lock();
  }
  void lock() override {
    mutex_.lock();
    ++locks;
    lockedBy = std::this_thread::get_id();
  }
  void unlock() override {
    ++unlocks;
    mutex_.unlock();
  }

  static void abort(zqvorexRedir::ILockable& task, zqerr_Status*) {
    ++static_cast<StandInTask&>(task).aborts;
  }

  int locks = 0;
  int unlocks = 0;
  int aborts = 0;
  std::thread::id lockedBy;
  zqvorexRedir::DebugTargetFlags flags;
  zqvorexRedir::TargetCallbacks callbacks{*this, flags, &StandInTask::abort};

 private:
  std::recursive_mutex mutex_;
};

}  // namespace zqtest
