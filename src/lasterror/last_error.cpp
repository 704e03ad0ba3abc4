#include "lasterror/last_error.h"

#include <cstring>
#include <mutex>
#include <new>

#include "platform/library_entry.h"
#include "text/nstring.h"

namespace nZQCAI100 {

TlsManager::TlsManager()
    : tlsIndex_(zqplatform::tlsAlloc()), tlsValid_(tlsIndex_ != zqplatform::kTlsOutOfIndexes) {}

TlsManager::~TlsManager() { releaseAll(); }

ExtendedErrorInfo* TlsManager::getThreadRecord() {
  if (!tlsValid_) return nullptr;
  return static_cast<ExtendedErrorInfo*>(zqplatform::tlsGetValue(tlsIndex_));
}

ExtendedErrorInfo* TlsManager::getOrCreateThreadRecord() {
  if (!tlsValid_) return nullptr;
  if (auto* existing = getThreadRecord()) return existing;
  auto* record = new (std::nothrow) ExtendedErrorInfo;
  if (!record) return nullptr;
  if (!zqplatform::tlsSetValue(tlsIndex_, record)) {
    delete record;
    return nullptr;
  }
  zqplatform::watchThreadExit();
  std::lock_guard<zqplatform::SlimLock> lock(listLock_);
  record->previous = records_.previous;
  record->next = &records_;
  records_.previous->next = record;
  records_.previous = record;
  return record;
}

void TlsManager::unlink(ExtendedErrorInfo* record) {
  record->previous->next = record->next;
  record->next->previous = record->previous;
  delete record;
}

void TlsManager::releaseThreadRecord() {
  ExtendedErrorInfo* record = getThreadRecord();
  if (!record) return;
  zqplatform::tlsSetValue(tlsIndex_, nullptr);
  std::lock_guard<zqplatform::SlimLock> lock(listLock_);
  unlink(record);
}

void TlsManager::releaseAll() {
  if (!tlsValid_) return;
  zqplatform::tlsFree(tlsIndex_);
  tlsIndex_ = zqplatform::kTlsOutOfIndexes;
  tlsValid_ = false;
  std::lock_guard<zqplatform::SlimLock> lock(listLock_);
  while (records_.next != &records_) {
    // A thread still alive at unload loses its event window too: on Linux its delivery thread
    // must end before the library's code goes.
    zqplatform::destroyEventWindow(records_.next->eventWindow);
    unlink(records_.next);
  }
}

size_t TlsManager::recordCount() {
  std::lock_guard<zqplatform::SlimLock> lock(listLock_);
  size_t count = 0;
  for (const ExtendedErrorInfo* record = records_.next; record != &records_; record = record->next) ++count;
  return count;
}

TlsManager& tlsManager() {
  static TlsManager manager;
  return manager;
}

ExtendedErrorInfo* recordFailure(const zqerr_Status& status) noexcept {
  ExtendedErrorInfo* record = tlsManager().getOrCreateThreadRecord();
  if (!record) return nullptr;
  zqerr_Status* stored = &record->status;
  stored->code = 0;
  if (stored->report || stored->storage(stored, 4)) zqerr::resetReport(stored);
  stored->code = status.code;
  if (status.report) {
    size_t length = std::strlen(status.report);
    if (length <= 0x7FFFFFFDu && stored->storage(stored, static_cast<uint32_t>(length + 2)) && stored->report &&
        stored->capacity >= length + 2) {
      std::memcpy(stored->report, status.report, length + 1);
    }
  }
  record->taskName.clear();
  return record;
}

void storeTaskNameText(ExtendedErrorInfo* record, const char* text) noexcept {
  try {
    zqerr::FixedStatus converted = zqerr::makeFixedStatus();
    zqwombat::systemTextToUtf8(text, std::strlen(text), &record->taskName, &converted);
    if (converted.code < 0) record->taskName.clear();
  } catch (...) {
    record->taskName.clear();
  }
}

}  // namespace nZQCAI100
