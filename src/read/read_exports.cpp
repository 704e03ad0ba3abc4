// The 27 exported reads, each a thin instance of its path with its operation, channel kind
// and parameter names.
#include "zqcai_rd_mbcs.h"

#include "frame/export.h"
#include "read/byte_paths.h"
#include "read/pair_paths.h"
#include "read/scalar_paths.h"
#include "read/vector_paths.h"

using zqread::FrequencySplit;
using zqread::ITask;
using zqread::kKindAnalog;
using zqread::kKindCounter;
using zqread::kKindDigital;
using zqread::PowerBinarySplit;
using zqread::PowerSplit;
using zqread::ReadInfo;
using zqread::readChecked;
using zqread::readDigitalLines;
using zqread::readDirect;
using zqread::readPair;
using zqread::readPairScalar;
using zqread::readPower;
using zqread::readRaw;
using zqread::readScalar;
using zqread::TicksSplit;
using zqread::TimesSplit;

namespace {

constexpr ReadInfo kAnalogF64{"VorexReadAnalogF64", "fillMode"};
constexpr ReadInfo kBinaryU16{"VorexReadBinaryU16", "fillMode"};
constexpr ReadInfo kBinaryI16{"VorexReadBinaryI16", "fillMode"};
constexpr ReadInfo kBinaryU32{"VorexReadBinaryU32", "fillMode"};
constexpr ReadInfo kBinaryI32{"VorexReadBinaryI32", "fillMode"};
constexpr ReadInfo kCounterF64{"VorexReadCounterF64"};
constexpr ReadInfo kCounterF64Ex{"VorexReadCounterF64Ex", "fillMode"};
constexpr ReadInfo kCounterU32{"VorexReadCounterU32"};
constexpr ReadInfo kCounterU32Ex{"VorexReadCounterU32Ex", "fillMode"};
constexpr ReadInfo kRaw{"VorexReadRaw"};
constexpr ReadInfo kDigitalU8{"VorexReadDigitalU8", "fillMode"};
constexpr ReadInfo kDigitalU16{"VorexReadDigitalU16", "fillMode"};
constexpr ReadInfo kDigitalU32{"VorexReadDigitalU32", "fillMode"};
constexpr ReadInfo kDigitalLines{"VorexReadDigitalLines", "fillMode"};
constexpr ReadInfo kCtrFreq{"VorexReadCtrFreq", "dataLayout", "readArrayFrequency", "readArrayDutyCycle"};
constexpr ReadInfo kCtrTime{"VorexReadCtrTime", "dataLayout", "readArrayHighTime", "readArrayLowTime"};
constexpr ReadInfo kCtrTicks{"VorexReadCtrTicks", "dataLayout", "readArrayHighTicks", "readArrayLowTicks"};
constexpr ReadInfo kPowerF64{"VorexReadPowerF64", "fillMode", "readArrayVoltage", "readArrayCurrent"};
constexpr ReadInfo kPowerBinaryI16{"VorexReadPowerBinaryI16", "fillMode", "readArrayVoltage", "readArrayCurrent"};
constexpr ReadInfo kAnalogScalarF64{"VorexReadAnalogScalarF64"};
constexpr ReadInfo kCounterScalarF64{"VorexReadCounterScalarF64"};
constexpr ReadInfo kCounterScalarU32{"VorexReadCounterScalarU32"};
constexpr ReadInfo kDigitalScalarU32{"VorexReadDigitalScalarU32"};
constexpr ReadInfo kCtrFreqScalar{"VorexReadCtrFreqScalar", nullptr, "frequency", "dutyCycle", "*frequency",
                                  "*dutyCycle"};
constexpr ReadInfo kCtrTimeScalar{"VorexReadCtrTimeScalar", nullptr, "highTime", "lowTime", "*highTime",
                                  "*lowTime"};
constexpr ReadInfo kCtrTicksScalar{"VorexReadCtrTicksScalar", nullptr, "highTicks", "lowTicks", "*highTicks",
                                   "*lowTicks"};
constexpr ReadInfo kPowerScalarF64{"VorexReadPowerScalarF64", nullptr, "voltage", "current", "*voltage", "*current"};

}  // namespace

// ---- direct path ----

ZQ_EXPORT int32 VorexReadAnalogF64(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                   float64* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                   bool32* reserved) {
  return readDirect<double, &ITask::readScaledVectorF64, kKindAnalog>(
      kAnalogF64, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
      reserved);
}

ZQ_EXPORT int32 VorexReadBinaryU16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                   uint16_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                   bool32* reserved) {
  return readDirect<uint16_t, &ITask::readBinaryVectorU16, kKindAnalog>(
      kBinaryU16, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
      reserved);
}

ZQ_EXPORT int32 VorexReadBinaryI16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                   int16_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                   bool32* reserved) {
  return readDirect<int16_t, &ITask::readBinaryVectorI16, kKindAnalog>(
      kBinaryI16, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
      reserved);
}

ZQ_EXPORT int32 VorexReadBinaryU32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                   uInt32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                   bool32* reserved) {
  return readDirect<uint32_t, &ITask::readBinaryVectorU32, kKindAnalog>(
      kBinaryU32, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
      reserved);
}

ZQ_EXPORT int32 VorexReadBinaryI32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                   int32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                   bool32* reserved) {
  return readDirect<int32_t, &ITask::readBinaryVectorI32, kKindAnalog>(
      kBinaryI32, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
      reserved);
}

ZQ_EXPORT int32 VorexReadCounterF64(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout,
                                    float64* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                    bool32* reserved) {
  return readDirect<double, &ITask::readScaledVectorF64, kKindCounter>(
      kCounterF64, taskHandle, numSampsPerChan, timeout, 0, readArray, arraySizeInSamps, sampsPerChanRead, reserved);
}

ZQ_EXPORT int32 VorexReadCounterF64Ex(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                      float64* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                      bool32* reserved) {
  return readDirect<double, &ITask::readScaledVectorF64, kKindCounter>(
      kCounterF64Ex, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
      reserved);
}

ZQ_EXPORT int32 VorexReadCounterU32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout,
                                    uInt32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                    bool32* reserved) {
  return readDirect<uint32_t, &ITask::readBinaryVectorU32, kKindCounter>(
      kCounterU32, taskHandle, numSampsPerChan, timeout, 0, readArray, arraySizeInSamps, sampsPerChanRead, reserved);
}

ZQ_EXPORT int32 VorexReadCounterU32Ex(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                      uInt32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                      bool32* reserved) {
  return readDirect<uint32_t, &ITask::readBinaryVectorU32, kKindCounter>(
      kCounterU32Ex, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
      reserved);
}

// ---- checked path ----

ZQ_EXPORT int32 VorexReadRaw(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, void* readArray,
                             uInt32 arraySizeInBytes, int32* sampsRead, int32* numBytesPerSamp, bool32* reserved) {
  return readRaw(kRaw, taskHandle, numSampsPerChan, timeout, readArray, arraySizeInBytes, sampsRead, numBytesPerSamp,
                 reserved);
}

ZQ_EXPORT int32 VorexReadDigitalU8(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                   uint8_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                   bool32* reserved) {
  return readChecked<uint8_t, &ITask::readPortVectorU8>(kDigitalU8, taskHandle, numSampsPerChan, timeout, fillMode,
                                                        readArray, arraySizeInSamps, sampsPerChanRead, reserved);
}

ZQ_EXPORT int32 VorexReadDigitalU16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                    uint16_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                    bool32* reserved) {
  return readChecked<uint16_t, &ITask::readPortVectorU16>(kDigitalU16, taskHandle, numSampsPerChan, timeout,
                                                          fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
                                                          reserved);
}

ZQ_EXPORT int32 VorexReadDigitalU32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                    uInt32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead,
                                    bool32* reserved) {
  return readChecked<uint32_t, &ITask::readPortVectorU32>(kDigitalU32, taskHandle, numSampsPerChan, timeout,
                                                          fillMode, readArray, arraySizeInSamps, sampsPerChanRead,
                                                          reserved);
}

ZQ_EXPORT int32 VorexReadDigitalLines(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                      uint8_t* readArray, uInt32 arraySizeInBytes, int32* sampsPerChanRead,
                                      int32* numBytesPerSamp, bool32* reserved) {
  return readDigitalLines(kDigitalLines, taskHandle, numSampsPerChan, timeout, fillMode, readArray, arraySizeInBytes,
                          sampsPerChanRead, numBytesPerSamp, reserved);
}

// ---- pair path ----

ZQ_EXPORT int32 VorexReadCtrFreq(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 dataLayout,
                                 float64* readArrayFrequency, float64* readArrayDutyCycle, uInt32 arraySizeInSamps,
                                 int32* sampsPerChanRead, bool32* reserved) {
  return readPair<FrequencySplit, &ITask::readVectorCounterDutyCycleAndFrequencyF64>(
      kCtrFreq, taskHandle,
      {numSampsPerChan, timeout, dataLayout, readArrayFrequency, readArrayDutyCycle, arraySizeInSamps,
       sampsPerChanRead, reserved});
}

ZQ_EXPORT int32 VorexReadCtrTime(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 dataLayout,
                                 float64* readArrayHighTime, float64* readArrayLowTime, uInt32 arraySizeInSamps,
                                 int32* sampsPerChanRead, bool32* reserved) {
  return readPair<TimesSplit, &ITask::readVectorCounterHighAndLowTimesF64>(
      kCtrTime, taskHandle,
      {numSampsPerChan, timeout, dataLayout, readArrayHighTime, readArrayLowTime, arraySizeInSamps, sampsPerChanRead,
       reserved});
}

ZQ_EXPORT int32 VorexReadCtrTicks(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 dataLayout,
                                  uInt32* readArrayHighTicks, uInt32* readArrayLowTicks, uInt32 arraySizeInSamps,
                                  int32* sampsPerChanRead, bool32* reserved) {
  return readPair<TicksSplit, &ITask::readVectorCounterHighAndLowTicksU32>(
      kCtrTicks, taskHandle,
      {numSampsPerChan, timeout, dataLayout, readArrayHighTicks, readArrayLowTicks, arraySizeInSamps,
       sampsPerChanRead, reserved});
}

ZQ_EXPORT int32 VorexReadPowerF64(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                                  float64* readArrayVoltage, float64* readArrayCurrent, uInt32 arraySizeInSamps,
                                  int32* sampsPerChanRead, bool32* reserved) {
  return readPower<PowerSplit, &ITask::readVectorPowerVoltageAndCurrentF64>(
      kPowerF64, taskHandle,
      {numSampsPerChan, timeout, fillMode, readArrayVoltage, readArrayCurrent, arraySizeInSamps, sampsPerChanRead,
       reserved});
}

ZQ_EXPORT int32 VorexReadPowerBinaryI16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout,
                                        int32 fillMode, int16_t* readArrayVoltage, int16_t* readArrayCurrent,
                                        uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved) {
  return readPower<PowerBinarySplit, &ITask::readVectorPowerVoltageAndCurrentI16>(
      kPowerBinaryI16, taskHandle,
      {numSampsPerChan, timeout, fillMode, readArrayVoltage, readArrayCurrent, arraySizeInSamps, sampsPerChanRead,
       reserved});
}

// ---- scalar paths ----

ZQ_EXPORT int32 VorexReadAnalogScalarF64(TaskHandle taskHandle, float64 timeout, float64* value, bool32* reserved) {
  return readScalar<double, &ITask::readScaledScalarF64, kKindAnalog, false>(kAnalogScalarF64, taskHandle, timeout,
                                                                             value, reserved);
}

ZQ_EXPORT int32 VorexReadCounterScalarF64(TaskHandle taskHandle, float64 timeout, float64* value, bool32* reserved) {
  return readScalar<double, &ITask::readScaledScalarF64, kKindCounter, false>(kCounterScalarF64, taskHandle, timeout,
                                                                              value, reserved);
}

ZQ_EXPORT int32 VorexReadCounterScalarU32(TaskHandle taskHandle, float64 timeout, uInt32* value, bool32* reserved) {
  return readScalar<uint32_t, &ITask::readBinaryScalarU32, kKindCounter, false>(kCounterScalarU32, taskHandle,
                                                                                timeout, value, reserved);
}

ZQ_EXPORT int32 VorexReadDigitalScalarU32(TaskHandle taskHandle, float64 timeout, uInt32* value, bool32* reserved) {
  return readScalar<uint32_t, &ITask::readPortScalarU32, kKindDigital, true>(kDigitalScalarU32, taskHandle, timeout,
                                                                             value, reserved);
}

ZQ_EXPORT int32 VorexReadCtrFreqScalar(TaskHandle taskHandle, float64 timeout, float64* frequency, float64* dutyCycle,
                                       bool32* reserved) {
  return readPairScalar<FrequencySplit, &ITask::readScalarCounterDutyCycleAndFrequencyF64, kKindCounter, false>(
      kCtrFreqScalar, taskHandle, timeout, frequency, dutyCycle, reserved);
}

ZQ_EXPORT int32 VorexReadCtrTimeScalar(TaskHandle taskHandle, float64 timeout, float64* highTime, float64* lowTime,
                                       bool32* reserved) {
  return readPairScalar<TimesSplit, &ITask::readScalarCounterHighAndLowTimesF64, kKindCounter, false>(
      kCtrTimeScalar, taskHandle, timeout, highTime, lowTime, reserved);
}

ZQ_EXPORT int32 VorexReadCtrTicksScalar(TaskHandle taskHandle, float64 timeout, uInt32* highTicks, uInt32* lowTicks,
                                        bool32* reserved) {
  return readPairScalar<TicksSplit, &ITask::readScalarCounterHighAndLowTicksU32, kKindCounter, false>(
      kCtrTicksScalar, taskHandle, timeout, highTicks, lowTicks, reserved);
}

ZQ_EXPORT int32 VorexReadPowerScalarF64(TaskHandle taskHandle, float64 timeout, float64* voltage, float64* current,
                                        bool32* reserved) {
  return readPairScalar<PowerSplit, &ITask::readScalarPowerVoltageAndCurrentF64, kKindAnalog, true>(
      kPowerScalarF64, taskHandle, timeout, voltage, current, reserved);
}
