// The 18 exported writes, each a thin instance of its path with its operation, channel kind
// and parameter names.
#include "frame/export.h"
#include "write/byte_paths.h"
#include "write/pair_paths.h"
#include "write/scalar_paths.h"
#include "write/vector_paths.h"
#include "zqcai_rd_mbcs.h"

using zqframe::FrequencySplit;
using zqframe::TicksSplit;
using zqframe::TimesSplit;
using zqwrite::ITask;
using zqwrite::kKindAnalog;
using zqwrite::kKindDigital;
using zqwrite::VectorArgs;
using zqwrite::WriteInfo;

namespace {

// The unsigned binary writes have no operation of their own: the signed one takes the same bits.
template <class Signed, class Unsigned>
const Signed* sameBits(const Unsigned* array) {
  static_assert(sizeof(Signed) == sizeof(Unsigned));
  return reinterpret_cast<const Signed*>(array);
}

constexpr WriteInfo kCtrFreq{"VorexWriteCtrFreq", "frequency", "dutyCycle", "numSampsPerChanWritten",
                             "*numSampsPerChanWritten"};
constexpr WriteInfo kCtrTime{"VorexWriteCtrTime", "highTime", "lowTime", "numSampsPerChanWritten",
                             "*numSampsPerChanWritten"};
constexpr WriteInfo kCtrTicks{"VorexWriteCtrTicks", "highTicks", "lowTicks", "numSampsPerChanWritten",
                              "*numSampsPerChanWritten"};
constexpr WriteInfo kCtrFreqScalar{"VorexWriteCtrFreqScalar", "frequency", "dutyCycle"};
constexpr WriteInfo kCtrTimeScalar{"VorexWriteCtrTimeScalar", "highTime", "lowTime"};
constexpr WriteInfo kCtrTicksScalar{"VorexWriteCtrTicksScalar", "highTicks", "lowTicks"};

}  // namespace

// ---- vector path ----

ZQ_EXPORT int32 VorexWriteAnalogF64(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                    float64 timeout, int32 dataLayout, const float64* writeArray,
                                    int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteAnalogF64"};
  return zqwrite::writeVector<double, &ITask::writeScaledVectorF64, kKindAnalog>(
      kInfo, taskHandle, writeArray,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteBinaryU16(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                    float64 timeout, int32 dataLayout, const uint16_t* writeArray,
                                    int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteBinaryU16"};
  return zqwrite::writeVector<int16_t, &ITask::writeBinaryVectorI16, kKindAnalog>(
      kInfo, taskHandle, sameBits<int16_t>(writeArray),
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteBinaryI16(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                    float64 timeout, int32 dataLayout, const int16_t* writeArray,
                                    int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteBinaryI16"};
  return zqwrite::writeVector<int16_t, &ITask::writeBinaryVectorI16, kKindAnalog>(
      kInfo, taskHandle, writeArray,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteBinaryU32(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                    float64 timeout, int32 dataLayout, const uInt32* writeArray,
                                    int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteBinaryU32"};
  return zqwrite::writeVector<int32_t, &ITask::writeBinaryVectorI32, kKindAnalog>(
      kInfo, taskHandle, sameBits<int32_t>(writeArray),
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteBinaryI32(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                    float64 timeout, int32 dataLayout, const int32* writeArray,
                                    int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteBinaryI32"};
  return zqwrite::writeVector<int32_t, &ITask::writeBinaryVectorI32, kKindAnalog>(
      kInfo, taskHandle, writeArray,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteDigitalU8(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                    float64 timeout, int32 dataLayout, const uint8_t* writeArray,
                                    int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteDigitalU8"};
  return zqwrite::writeVector<uint8_t, &ITask::writePortVectorU8, kKindDigital>(
      kInfo, taskHandle, writeArray,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteDigitalU16(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                     float64 timeout, int32 dataLayout, const uint16_t* writeArray,
                                     int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteDigitalU16"};
  return zqwrite::writeVector<uint16_t, &ITask::writePortVectorU16, kKindDigital>(
      kInfo, taskHandle, writeArray,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteDigitalU32(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                     float64 timeout, int32 dataLayout, const uInt32* writeArray,
                                     int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteDigitalU32"};
  return zqwrite::writeVector<uint32_t, &ITask::writePortVectorU32, kKindDigital>(
      kInfo, taskHandle, writeArray,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

// ---- lines and raw ----

ZQ_EXPORT int32 VorexWriteDigitalLines(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                       float64 timeout, int32 dataLayout, const uint8_t* writeArray,
                                       int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteDigitalLines"};
  return zqwrite::writeDigitalLines(
      kInfo, taskHandle, writeArray,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, sampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteRaw(TaskHandle taskHandle, int32 numSamps, int32 autoStart, float64 timeout,
                              const void* writeArray, int32* sampsPerChanWritten, bool32* reserved) {
  static constexpr WriteInfo kInfo{"VorexWriteRaw"};
  return zqwrite::writeRaw(kInfo, taskHandle, writeArray,
                           VectorArgs{numSamps, autoStart, timeout, 0, sampsPerChanWritten, reserved});
}

// ---- pair path ----

ZQ_EXPORT int32 VorexWriteCtrFreq(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                  float64 timeout, int32 dataLayout, const float64* frequency,
                                  const float64* dutyCycle, int32* numSampsPerChanWritten, bool32* reserved) {
  return zqwrite::writePair<FrequencySplit, &ITask::writeVectorCounterDutyCycleAndFrequencyF64>(
      kCtrFreq, taskHandle, frequency, dutyCycle,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, numSampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteCtrTime(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                  float64 timeout, int32 dataLayout, const float64* highTime,
                                  const float64* lowTime, int32* numSampsPerChanWritten, bool32* reserved) {
  return zqwrite::writePair<TimesSplit, &ITask::writeVectorCounterHighAndLowTimesF64>(
      kCtrTime, taskHandle, highTime, lowTime,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, numSampsPerChanWritten, reserved});
}

ZQ_EXPORT int32 VorexWriteCtrTicks(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart,
                                   float64 timeout, int32 dataLayout, const uInt32* highTicks,
                                   const uInt32* lowTicks, int32* numSampsPerChanWritten, bool32* reserved) {
  return zqwrite::writePair<TicksSplit, &ITask::writeVectorCounterHighAndLowTicksU32>(
      kCtrTicks, taskHandle, highTicks, lowTicks,
      VectorArgs{numSampsPerChan, autoStart, timeout, dataLayout, numSampsPerChanWritten, reserved});
}

// ---- scalar path ----

ZQ_EXPORT int32 VorexWriteAnalogScalarF64(TaskHandle taskHandle, int32 autoStart, float64 timeout,
                                          float64 value, bool32* reserved) {
  return zqwrite::writeScalar<double, &ITask::writeScaledScalarF64, kKindAnalog>(
      "VorexWriteAnalogScalarF64", taskHandle, autoStart, timeout, value, reserved);
}

ZQ_EXPORT int32 VorexWriteDigitalScalarU32(TaskHandle taskHandle, int32 autoStart, float64 timeout,
                                           uInt32 value, bool32* reserved) {
  return zqwrite::writeScalar<uint32_t, &ITask::writePortScalarU32, kKindDigital>(
      "VorexWriteDigitalScalarU32", taskHandle, autoStart, timeout, value, reserved);
}

ZQ_EXPORT int32 VorexWriteCtrFreqScalar(TaskHandle taskHandle, int32 autoStart, float64 timeout,
                                        float64 frequency, float64 dutyCycle, bool32* reserved) {
  return zqwrite::writePairScalar<FrequencySplit, &ITask::writeScalarCounterDutyCycleAndFrequencyF64>(
      kCtrFreqScalar, taskHandle, autoStart, timeout, frequency, dutyCycle, reserved);
}

ZQ_EXPORT int32 VorexWriteCtrTimeScalar(TaskHandle taskHandle, int32 autoStart, float64 timeout,
                                        float64 highTime, float64 lowTime, bool32* reserved) {
  return zqwrite::writePairScalar<TimesSplit, &ITask::writeScalarCounterHighAndLowTimesF64>(
      kCtrTimeScalar, taskHandle, autoStart, timeout, highTime, lowTime, reserved);
}

ZQ_EXPORT int32 VorexWriteCtrTicksScalar(TaskHandle taskHandle, int32 autoStart, float64 timeout,
                                         uInt32 highTicks, uInt32 lowTicks, bool32* reserved) {
  return zqwrite::writePairScalar<TicksSplit, &ITask::writeScalarCounterHighAndLowTicksU32>(
      kCtrTicksScalar, taskHandle, autoStart, timeout, highTicks, lowTicks, reserved);
}
