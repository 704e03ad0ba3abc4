// Counter reads and writes: counts and positions sampled like any input, measurements one
// after another as the input signal completes them, and new pulse settings for an output.
#pragma once

#include <cstdint>
#include <mutex>

#include "counter_model.h"
#include "task.h"
#include "task_io.h"

namespace zqsim {

uint32_t readCounterScaled(SimTask& task, std::unique_lock<std::mutex>& lock, zqgopher_IArrayBuffer* buffer,
                           bool byScan, int64_t samples, double timeout, zqerr_Status* status);
template <class T>
uint32_t readCounterTicks(SimTask& task, std::unique_lock<std::mutex>& lock, zqgopher_IArrayBuffer* buffer,
                          bool byScan, int64_t samples, double timeout, zqerr_Status* status);
uint32_t readCounterScalar(SimTask& task, std::unique_lock<std::mutex>& lock, double timeout, double* value,
                           zqerr_Status* status);
uint32_t readCounterTicksScalar(SimTask& task, std::unique_lock<std::mutex>& lock, double timeout,
                                uint32_t* value, zqerr_Status* status);

}  // namespace zqsim
