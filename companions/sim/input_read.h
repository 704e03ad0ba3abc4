// Reading a task's input channels: the common road of every read (start the task when it may,
// work out how many samples, wait for them up to the timeout, report an overrun or a timeout
// with its numbers) and the element types and layouts of the caller's array.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>

#include "task.h"
#include "zqvorex_plugin.h"

namespace zqsim {

// Writes `count` samples per channel of the delivered stream from sample `first`, whose times
// are `times`, into the caller's array.
using FillFn =
    std::function<bool(uint64_t first, const SampleTimes& times, uint64_t count, zqerr_Status* status)>;

// Reads `requested` samples per channel (-1: what the task has, or its whole finite
// acquisition) and gives the count delivered. The lock is the task's, held by the caller.
uint32_t readSamples(SimTask& task, std::unique_lock<std::mutex>& lock, int64_t requested, double timeout,
                     const FillFn& fill, zqerr_Status* status);

// Starts the task for a read or write when it is not running and may be started; true when
// this call started it.
bool startForAccess(SimTask& task, bool allowed, zqerr_Status* status);
// Stops a task that a read or write started, once its work is done.
void finishAccess(SimTask& task, bool started);

// The caller's array shaped to `channels` by `count`: null (with the status set) when it does
// not fit.
template <class T>
T* shapeBuffer(zqgopher_IArrayBuffer* buffer, uint32_t channels, uint64_t count, zqerr_Status* status) {
  if (!buffer) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return nullptr;
  }
  buffer->table->resize(buffer, channels, count, status);
  if (!isOpen(status) || count == 0 || channels == 0) return nullptr;
  return static_cast<T*>(buffer->table->getMutableData(buffer, 0, status));
}

// The times of delivered samples from `first` on.
SampleTimes deliveredTimes(const Run& run, uint64_t first);

// The element count a write hands over per channel, and its data.
uint64_t writeCount(const zqgopher_IArrayBuffer* buffer, uint32_t channels, zqerr_Status* status);

bool requireKind(const SimTask& task, std::initializer_list<int32_t> kinds, const char* operation,
                 zqerr_Status* status);

}  // namespace zqsim
