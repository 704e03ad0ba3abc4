// What the write tests share: a task that answers like a plug-in, the fixture that owns it, and
// a table of every write function.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/last_error_probe.h"
#include "recording_task.h"
#include "status/status.h"
#include "zqcai_rd_mbcs.h"

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

// A recording task that also acts as a plug-in on the write operations: it looks at the
// buffer it was given, as a plug-in would read it, before the recorded reply is applied.
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


inline constexpr int32_t kWriteNumChans = 0x217E;
inline constexpr int32_t kWriteDigitalLinesBytesPerChan = 0x217F;
inline constexpr int32_t kWriteRawDataWidth = 0x217D;

// The arguments a case of a write may vary; the timeout is always 1.
struct WriteArgs {
  TaskHandle handle;
  int32_t n = 2;
  int32_t autoStart = 0;
  int32_t layout = 0;
  bool nullFirst = false;
  bool nullSecond = false;
  int32_t* written = nullptr;
  bool32* reserved = nullptr;
  template <class T>
  const T* first(const T* array) const { return nullFirst ? nullptr : array; }
  template <class T>
  const T* second(const T* array) const { return nullSecond ? nullptr : array; }
};

enum class WriteShape { kVector, kLines, kRaw, kPair, kScalar };

// Every write function: its plug-in operation and channel kind, and for the vector writes the
// caller's array of six elements that reaches the plug-in uncopied.
struct WriteRoute {
  const char* name;
  int32_t (*call)(const WriteArgs&);
  const char* op;
  uint64_t kind;
  WriteShape shape;
  const void* array = nullptr;
  size_t elementSize = 0;
};

inline double f64[6] = {1.5, 2.5, 3.5, 4.5, 5.5, 6.5};
inline double f64b[6] = {5, 6, 7, 8, 9, 10};
inline uint16_t u16[6] = {1, 2, 0xFFFF, 4, 5, 6};
inline int16_t i16[6] = {1, 2, -1, 4, 5, 6};
inline uint32_t u32[6] = {1, 2, 0xFFFFFFFF, 4, 5, 6};
inline uint32_t u32b[6] = {5, 6, 7, 8, 9, 10};
inline int32_t i32[6] = {1, 2, -1, 4, 5, 6};
inline uint8_t u8[8] = {1, 2, 3, 4, 5, 6, 7, 8};

#define ZQ_VECTOR(fn, array, op, kind, shape)                                                       \
  {#fn,                                                                                             \
   [](const WriteArgs& a) {                                                                         \
     return fn(a.handle, a.n, a.autoStart, 1.0, a.layout, a.first(array), a.written, a.reserved); \
   },                                                                                               \
   op, kind, shape, array, sizeof *array}
#define ZQ_PAIR(fn, one, two, op)                                                                                    \
  {#fn,                                                                                                              \
   [](const WriteArgs& a) {                                                                                          \
     return fn(a.handle, a.n, a.autoStart, 1.0, a.layout, a.first(one), a.second(two), a.written, a.reserved);     \
   },                                                                                                                \
   op, 10132, WriteShape::kPair}
#define ZQ_SCALAR(fn, op, kind, ...)                                                                          \
  {#fn, [](const WriteArgs& a) { return fn(a.handle, a.autoStart, 1.0, __VA_ARGS__, a.reserved); }, op, kind, \
   WriteShape::kScalar}

inline const WriteRoute kWrites[] = {
    ZQ_VECTOR(VorexWriteAnalogF64, f64, "writeScaledVectorF64", 10102, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteBinaryU16, u16, "writeBinaryVectorI16", 10102, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteBinaryI16, i16, "writeBinaryVectorI16", 10102, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteBinaryU32, u32, "writeBinaryVectorI32", 10102, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteBinaryI32, i32, "writeBinaryVectorI32", 10102, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteDigitalU8, u8, "writePortVectorU8", 10153, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteDigitalU16, u16, "writePortVectorU16", 10153, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteDigitalU32, u32, "writePortVectorU32", 10153, WriteShape::kVector),
    ZQ_VECTOR(VorexWriteDigitalLines, u8, "writeLineVectorU8", 10153, WriteShape::kLines),
    {"VorexWriteRaw",
     [](const WriteArgs& a) {
       return VorexWriteRaw(a.handle, a.n, a.autoStart, 1.0, a.first(u8), a.written, a.reserved);
     },
     "writeRawU8", 10102, WriteShape::kRaw},
    ZQ_PAIR(VorexWriteCtrFreq, f64, f64b, "writeVectorCounterDutyCycleAndFrequencyF64"),
    ZQ_PAIR(VorexWriteCtrTime, f64, f64b, "writeVectorCounterHighAndLowTimesF64"),
    ZQ_PAIR(VorexWriteCtrTicks, u32, u32b, "writeVectorCounterHighAndLowTicksU32"),
    ZQ_SCALAR(VorexWriteAnalogScalarF64, "writeScaledScalarF64", 10102, 2.5),
    ZQ_SCALAR(VorexWriteDigitalScalarU32, "writePortScalarU32", 10153, 7),
    ZQ_SCALAR(VorexWriteCtrFreqScalar, "writeScalarCounterDutyCycleAndFrequencyF64", 10132, 100, 0.5),
    ZQ_SCALAR(VorexWriteCtrTimeScalar, "writeScalarCounterHighAndLowTimesF64", 10132, 0.1, 0.2),
    ZQ_SCALAR(VorexWriteCtrTicksScalar, "writeScalarCounterHighAndLowTicksU32", 10132, 3, 4),
};
#undef ZQ_VECTOR
#undef ZQ_PAIR
#undef ZQ_SCALAR

// The writes of the given shapes, in table order.
inline std::vector<WriteRoute> writesOf(const std::vector<WriteShape>& shapes) {
  std::vector<WriteRoute> out;
  for (const WriteRoute& w : kWrites)
    if (std::find(shapes.begin(), shapes.end(), w.shape) != shapes.end()) out.push_back(w);
  return out;
}

class WriteTest : public testing::Test {
 protected:
  void SetUp() override { clearLastError(); }

  // The task's write attributes: its channel count, bytes per channel of lines, raw width.
  void channels(uint32_t numChans, uint32_t bytesPerChan = 0, uint32_t width = 0) {
    task->writeAttributes = {{kWriteNumChans, numChans},
                             {kWriteDigitalLinesBytesPerChan, bytesPerChan},
                             {kWriteRawDataWidth, width}};
  }
  size_t callsOf(const std::string& op) const { return task->callCount(op); }
  uint64_t unsignedArg(const std::string& op, const char* name) const {
    return std::get<uint64_t>(last(op).arg(name)->value);
  }
  const RecordedCall& last(const std::string& op) const {
    for (auto it = task->calls().rbegin(); it != task->calls().rend(); ++it)
      if (it->op == op) return *it;
    throw std::runtime_error("no call of " + op);
  }

  std::shared_ptr<WriteTask> task = WriteTask::make();
  TaskHandle handle = task->handle();
  bool32 reservedWord = 0;
};

}  // namespace zqtest
