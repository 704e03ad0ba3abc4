// Locks of the Windows backend.
#pragma once

#include <windows.h>

namespace zqplatform {

// A slim reader-writer lock: no recursion, shared or exclusive.
class SlimLock {
 public:
  SlimLock() = default;
  SlimLock(const SlimLock&) = delete;
  SlimLock& operator=(const SlimLock&) = delete;
  void lock() { AcquireSRWLockExclusive(&lock_); }
  void unlock() { ReleaseSRWLockExclusive(&lock_); }
  void lock_shared() { AcquireSRWLockShared(&lock_); }
  void unlock_shared() { ReleaseSRWLockShared(&lock_); }

 private:
  SRWLOCK lock_ = SRWLOCK_INIT;
};

// A critical section: recursive, exclusive.
class CriticalSection {
 public:
  CriticalSection() { InitializeCriticalSection(&section_); }
  CriticalSection(const CriticalSection&) = delete;
  CriticalSection& operator=(const CriticalSection&) = delete;
  ~CriticalSection() { DeleteCriticalSection(&section_); }
  void lock() { EnterCriticalSection(&section_); }
  void unlock() { LeaveCriticalSection(&section_); }

 private:
  CRITICAL_SECTION section_;
};

}  // namespace zqplatform
