// The last failure of each thread: a record per thread that has failed, kept by one
// process-wide manager, and the recorder that every exported call ends with.
#pragma once

#include <cstddef>
#include <string>

#include "platform/platform.h"
#include "status/status.h"

namespace nZQCAI100 {

struct ExtendedErrorInfo {
  zqerr::Status status;
  std::string taskName;  // UTF-8; empty when none was known
  void* eventWindow = nullptr;
  ExtendedErrorInfo* next = this;
  ExtendedErrorInfo* previous = this;
};

class IExtendedErrorInfoManager {
 public:
  virtual ~IExtendedErrorInfoManager() = default;
  // The calling thread's record, made on first use; null when none can be had. Never throws.
  virtual ExtendedErrorInfo* getOrCreateThreadRecord() = 0;
  // The calling thread's record, or null; never makes one.
  virtual ExtendedErrorInfo* getThreadRecord() = 0;
};

class TlsManager final : public IExtendedErrorInfoManager {
 public:
  TlsManager();
  ~TlsManager() override;
  ExtendedErrorInfo* getOrCreateThreadRecord() override;
  ExtendedErrorInfo* getThreadRecord() override;
  // Thread end: frees the calling thread's record.
  void releaseThreadRecord();
  // Library unload: frees the slot and every record still alive.
  void releaseAll();
  // How many records are alive, for the checks of their ends.
  size_t recordCount();

 private:
  void unlink(ExtendedErrorInfo* record);

  zqplatform::TlsIndex tlsIndex_;
  bool tlsValid_;
  zqplatform::SlimLock listLock_;
  ExtendedErrorInfo records_;  // sentinel head of the circular list
};

// The one manager, made during static initialisation.
TlsManager& tlsManager();

// Copies code and report into the thread's record and empties its task name; the record, or
// null when there is none.
ExtendedErrorInfo* recordFailure(const zqerr_Status& status) noexcept;
// The name as the caller gave it, converted from the system code page; empty on failure.
void storeTaskNameText(ExtendedErrorInfo* record, const char* text) noexcept;

// Ends an exported call: a negative code goes to the thread's record with the task's name.
// Works with a private status; nothing here changes the call's result.
template <class Task>
class LastErrorRecorder {
 public:
  LastErrorRecorder(const zqerr_Status* status, const Task* task, const char* taskNameText)
      : status_(status), task_(task), taskNameText_(taskNameText) {}
  LastErrorRecorder(const LastErrorRecorder&) = delete;
  LastErrorRecorder& operator=(const LastErrorRecorder&) = delete;
  // A success only tests the code: the record is touched on a failure alone.
  ~LastErrorRecorder() {
    if (status_->code < 0) [[unlikely]]
      storeFailure();
  }

 private:
  void storeFailure() const {
    ExtendedErrorInfo* record = recordFailure(*status_);
    if (!record) return;
    if (task_) {
      try {
        record->taskName = task_->getName();
      } catch (...) {
        record->taskName.clear();
      }
    } else if (taskNameText_) {
      storeTaskNameText(record, taskNameText_);
    }
  }

  const zqerr_Status* status_;
  const Task* task_;
  const char* taskNameText_;
};


}  // namespace nZQCAI100
