// A recording task that also acts as a plug-in on the read operations: it keeps the layout it
// was given and fills the buffer it was given, before the recorded reply is applied. And the
// fixture that owns one.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frame/last_error_probe.h"
#include "recording_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {

// Resizes an array buffer to `channels` x `sampsPerChan` and writes `samples` from the start.
template <class T>
void deliver(zqgopher_IArrayBuffer* buffer, uint32_t channels, uint64_t sampsPerChan, const std::vector<T>& samples,
             zqerr_Status* status) {
  buffer->table->resize(buffer, channels, sampsPerChan, status);
  if (status->code < 0) return;
  void* data = buffer->table->getMutableData(buffer, 0, status);
  if (data && !samples.empty()) std::memcpy(data, samples.data(), samples.size() * sizeof(T));
}

class ReadTask : public RecordingTask {
 public:
  using BufferFill = std::function<void(zqgopher_IArrayBuffer*, zqerr_Status*)>;
  using LineFill = std::function<void(zqgopher_IArrayLineBuffer*, zqerr_Status*)>;

  static std::shared_ptr<ReadTask> make() { return std::make_shared<ReadTask>(); }

  BufferFill fill;       // what the plug-in writes into an array buffer
  LineFill fillLines;    // and into a line buffer
  int64_t layoutSeen = -1;  // groupByScanNumber of the last vector read; -1 before any
  uint64_t capacitySeen = 0;  // the buffer's capacity as the adapter announced it

#define ZQ_READ_TASK_VECTOR(op)                                                                            \
  uint32_t op(uint32_t kind, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout, int64_t n, \
              double timeout, void* reserved, zqerr_Status* status) override {                              \
    layoutSeen = layout ? layout->groupByScanNumber : -2;                                                    \
    capacitySeen = reinterpret_cast<const zqgopher_ArrayBufferReadFields*>(buffer)->capacity;                \
    if (fill) fill(buffer, status);                                                                          \
    return RecordingTask::op(kind, buffer, layout, n, timeout, reserved, status);                            \
  }
  ZQ_READ_TASK_VECTOR(readScaledVectorF64)
  ZQ_READ_TASK_VECTOR(readBinaryVectorU16)
  ZQ_READ_TASK_VECTOR(readBinaryVectorI16)
  ZQ_READ_TASK_VECTOR(readBinaryVectorU32)
  ZQ_READ_TASK_VECTOR(readBinaryVectorI32)
  ZQ_READ_TASK_VECTOR(readPortVectorU8)
  ZQ_READ_TASK_VECTOR(readPortVectorU16)
  ZQ_READ_TASK_VECTOR(readPortVectorU32)
  ZQ_READ_TASK_VECTOR(readVectorCounterDutyCycleAndFrequencyF64)
  ZQ_READ_TASK_VECTOR(readVectorCounterHighAndLowTimesF64)
  ZQ_READ_TASK_VECTOR(readVectorCounterHighAndLowTicksU32)
  ZQ_READ_TASK_VECTOR(readVectorPowerVoltageAndCurrentF64)
  ZQ_READ_TASK_VECTOR(readVectorPowerVoltageAndCurrentI16)
#undef ZQ_READ_TASK_VECTOR

  uint32_t readLineVectorU8(uint32_t kind, zqgopher_IArrayLineBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                            int64_t n, double timeout, void* reserved, zqerr_Status* status) override {
    layoutSeen = layout ? layout->groupByScanNumber : -2;
    capacitySeen = reinterpret_cast<const zqgopher_ArrayLineBufferFields*>(buffer)->capacity;
    if (fillLines) fillLines(buffer, status);
    return RecordingTask::readLineVectorU8(kind, buffer, layout, n, timeout, reserved, status);
  }

  uint32_t readRawU8(uint32_t kind, zqgopher_IArrayBuffer* buffer, int64_t n, double timeout, uint32_t* width,
                     void* reserved, zqerr_Status* status) override {
    capacitySeen = reinterpret_cast<const zqgopher_ArrayBufferReadFields*>(buffer)->capacity;
    widthSeen = width ? *width : 0;
    if (fill) fill(buffer, status);
    return RecordingTask::readRawU8(kind, buffer, n, timeout, width, reserved, status);
  }
  uint32_t widthSeen = 0;  // *numBytesPerSamp as readRawU8 received it
};

// The fixture of the read tests: a fresh task for each.
class ReadTest : public testing::Test {
 protected:
  void SetUp() override { clearLastError(); }

  // The task reads `names.size()` channels and has `available` samples per channel.
  void channels(std::vector<std::string> names, uint64_t available = 0) {
    task->on("getReadAttributeStringVtr").strings(std::move(names));
    task->on("getReadAttributeSize").value(available);
  }
  size_t readCalls(const std::string& op) const { return task->callCount(op); }
  int64_t countSeen() const { return std::get<int64_t>(task->lastCall().arg("numSampsPerChan")->value); }
  uint64_t kindSeen() const { return std::get<uint64_t>(task->lastCall().arg("channelKind")->value); }

  std::shared_ptr<ReadTask> task = ReadTask::make();
  TaskHandle handle = task->handle();
  bool32 reservedWord = 0;
};

}  // namespace zqtest
