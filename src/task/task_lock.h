// The task's lock: a recursive mutex, held for the whole of a forwarded call, how often it is
// held, and what the last unlock is to let go once the mutex is free.
#pragma once

#include <cstdint>
#include <mutex>
#include <utility>

namespace zqvorexRedir {

// Bits of the deferred release: what the last unlock lets go.
inline constexpr uint32_t kReleaseDebugServer = 1u << 0;
inline constexpr uint32_t kReleaseDebugTarget = 1u << 1;

class TaskLock {
 public:
  void lock() {
    mutex_.lock();
    ++depth_;
  }

  // At the last unlock with a release pending, `takeOut(bits)` runs under the mutex and gives
  // back what is to go; that goes only once the mutex is free, since its destruction may call
  // back into the task.
  // The usual unlock stays in line; the release is out of the way.
  template <class TakeOut>
  void unlock(TakeOut&& takeOut) {
    if (deferred_ == 0 || depth_ > 1) [[likely]] {
      --depth_;
      mutex_.unlock();
      return;
    }
    unlockReleasing(takeOut);
  }

  // Only a holder of the mutex asks, or looks.
  void requestRelease(uint32_t bits) { deferred_ |= bits; }
  bool releasePending(uint32_t bits) const { return (deferred_ & bits) != 0; }

  int32_t depth() const { return depth_; }

 private:
  template <class TakeOut>
  void unlockReleasing(TakeOut& takeOut) {
    --depth_;
    auto released = takeOut(std::exchange(deferred_, 0u));
    mutex_.unlock();
  }

  std::recursive_mutex mutex_;
  int32_t depth_ = 0;
  uint32_t deferred_ = 0;
};

}  // namespace zqvorexRedir
