// A recording task that also acts as a plug-in on the write operations: it looks at the
// buffer it was given, as a plug-in would read it, before the recorded reply is applied.
#pragma once

#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <vector>

#include "recording_task.h"
#include "status/status.h"

namespace zqtest {

// What the plug-in found in the buffer of the last write.
struct BufferSeen {
  uint32_t channels = 0;
  uint64_t sampsPerChan = 0;
  const void* data = nullptr;
  std::vector<uint8_t> bytes;   // channels x sampsPerChan elements from data
  int64_t layout = -1;          // groupByScanNumber; -1 before any write
  int32_t resizeCode = 1;       // the status of a resize to the same shape
  std::vector<uint32_t> lines;  // the lines of each channel, for a line buffer
};

class WriteTask : public RecordingTask {
 public:
  static std::shared_ptr<WriteTask> make() { return std::make_shared<WriteTask>(); }

  BufferSeen seen;
  std::map<int32_t, uint32_t> writeAttributes;  // answers of getWriteAttributeU32 by id

  uint32_t getWriteAttributeU32(const zqgopher::StringArrayView& channels, int32_t attributeId,
                                zqerr_Status* status) override {
    const uint32_t recorded = RecordingTask::getWriteAttributeU32(channels, attributeId, status);
    const auto it = writeAttributes.find(attributeId);
    return it != writeAttributes.end() ? it->second : recorded;
  }

#define ZQ_WRITE_TASK_VECTOR(op, Element)                                                           \
  uint32_t op(uint32_t kind, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout, \
              bool autoStart, double timeout, void* reserved, zqerr_Status* status) override {      \
    look(buffer, sizeof(Element));                                                                  \
    seen.layout = layout ? layout->groupByScanNumber : -2;                                          \
    return RecordingTask::op(kind, buffer, layout, autoStart, timeout, reserved, status);           \
  }
  ZQ_WRITE_TASK_VECTOR(writeScaledVectorF64, double)
  ZQ_WRITE_TASK_VECTOR(writeBinaryVectorI16, int16_t)
  ZQ_WRITE_TASK_VECTOR(writeBinaryVectorI32, int32_t)
  ZQ_WRITE_TASK_VECTOR(writePortVectorU8, uint8_t)
  ZQ_WRITE_TASK_VECTOR(writePortVectorU16, uint16_t)
  ZQ_WRITE_TASK_VECTOR(writePortVectorU32, uint32_t)
  ZQ_WRITE_TASK_VECTOR(writeVectorCounterDutyCycleAndFrequencyF64, zqvorexPlugin_DutyCycleAndFrequencyF64)
  ZQ_WRITE_TASK_VECTOR(writeVectorCounterHighAndLowTimesF64, zqvorexPlugin_HighAndLowTimesF64)
  ZQ_WRITE_TASK_VECTOR(writeVectorCounterHighAndLowTicksU32, zqvorexPlugin_HighAndLowTicksU32)
#undef ZQ_WRITE_TASK_VECTOR

  uint32_t writeRawU8(uint32_t kind, zqgopher_IArrayBuffer* buffer, bool autoStart, double timeout,
                      void* reserved, zqerr_Status* status) override {
    look(buffer, 1);
    return RecordingTask::writeRawU8(kind, buffer, autoStart, timeout, reserved, status);
  }

  uint32_t writeLineVectorU8(uint32_t kind, zqgopher_IArrayLineBuffer* buffer,
                             const zqvorexPlugin_ReadLayout* layout, bool autoStart, double timeout,
                             void* reserved, zqerr_Status* status) override {
    zqerr::Status own;
    seen = {};
    seen.channels = buffer->table->getNumChannels(buffer, &own);
    seen.sampsPerChan = seen.channels ? buffer->table->getNumSampsPerChan(buffer, 0, &own) : 0;
    seen.data = buffer->table->getData(buffer, 0, &own);
    for (uint32_t c = 0; c < seen.channels; ++c)
      seen.lines.push_back(buffer->table->getNumLines(buffer, c, &own));
    seen.layout = layout ? layout->groupByScanNumber : -2;
    return RecordingTask::writeLineVectorU8(kind, buffer, layout, autoStart, timeout, reserved, status);
  }

 private:
  // Reads the shape and the samples, then tries a resize to the same shape.
  void look(zqgopher_IArrayBuffer* buffer, size_t elementSize) {
    zqerr::Status own;
    seen = {};
    seen.channels = buffer->table->getNumChannels(buffer, &own);
    seen.sampsPerChan = buffer->table->getNumSampsPerChan(buffer, 0, &own);
    seen.data = buffer->table->getData(buffer, 0, &own);
    const size_t size = seen.channels * seen.sampsPerChan * elementSize;
    if (seen.data && size) {
      const auto* p = static_cast<const uint8_t*>(seen.data);
      seen.bytes.assign(p, p + size);
    }
    zqerr::Status probe;
    buffer->table->resize(buffer, seen.channels, seen.sampsPerChan, &probe);
    seen.resizeCode = probe.code;
  }
};

}  // namespace zqtest
