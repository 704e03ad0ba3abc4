// The reads and writes of a task, one per sample type, each under the task's lock.
#pragma once

#include <cstdint>

#include "task.h"
#include "zqvorex_plugin.h"

namespace zqsim {

// Analog and counter inputs, scaled.
uint32_t readScaled(SimTask& task, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                    int64_t samples, double timeout, zqerr_Status* status);
uint32_t readScaledScalar(SimTask& task, double timeout, double* value, zqerr_Status* status);
// Analog inputs as converter codes in the element type T; counter inputs as counts.
template <class T>
uint32_t readBinary(SimTask& task, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                    int64_t samples, double timeout, zqerr_Status* status);
uint32_t readBinaryScalar(SimTask& task, double timeout, uint32_t* value, zqerr_Status* status);
// Converter codes as bytes, two per sample, interleaved by scan.
uint32_t readRaw(SimTask& task, zqgopher_IArrayBuffer* buffer, int64_t samples, double timeout,
                 uint32_t* bytesPerSample, zqerr_Status* status);

// Digital inputs.
template <class T>
uint32_t readPort(SimTask& task, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                  int64_t samples, double timeout, zqerr_Status* status);
uint32_t readLines(SimTask& task, zqgopher_IArrayLineBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                   int64_t samples, double timeout, zqerr_Status* status);
uint32_t readPortScalar(SimTask& task, double timeout, uint32_t* value, zqerr_Status* status);

// Counter inputs as pairs: frequency and duty cycle, high and low times, high and low ticks.
enum class PairKind { kFrequency, kTime, kTicks };
uint32_t readPairs(SimTask& task, PairKind kind, zqgopher_IArrayBuffer* buffer, int64_t samples,
                   double timeout, zqerr_Status* status);
uint32_t readPairScalar(SimTask& task, PairKind kind, double timeout, void* pair, zqerr_Status* status);

// Analog outputs.
uint32_t writeScaled(SimTask& task, const zqgopher_IArrayBuffer* buffer,
                     const zqvorexPlugin_ReadLayout* layout, bool autoStart, double timeout,
                     zqerr_Status* status);
uint32_t writeScaledScalar(SimTask& task, bool autoStart, double timeout, double value, zqerr_Status* status);
template <class T>
uint32_t writeBinary(SimTask& task, const zqgopher_IArrayBuffer* buffer,
                     const zqvorexPlugin_ReadLayout* layout, bool autoStart, double timeout,
                     zqerr_Status* status);

// Digital outputs.
template <class T>
uint32_t writePort(SimTask& task, const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                   bool autoStart, zqerr_Status* status);
uint32_t writeLines(SimTask& task, const zqgopher_IArrayLineBuffer* buffer,
                    const zqvorexPlugin_ReadLayout* layout, bool autoStart, zqerr_Status* status);
uint32_t writePortScalar(SimTask& task, bool autoStart, uint32_t value, zqerr_Status* status);

// Counter outputs: the pulse settings of each channel, as pairs.
uint32_t writePairs(SimTask& task, PairKind kind, const void* pairs, uint64_t count, bool autoStart,
                    zqerr_Status* status);

}  // namespace zqsim
