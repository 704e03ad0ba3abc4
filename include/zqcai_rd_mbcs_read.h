/* The read functions: samples from a task's channels into the caller's arrays. Included by
 * zqcai_rd_mbcs.h.
 *
 * numSampsPerChan may be Vorex_Val_Auto (-1); fillMode and dataLayout are
 * Vorex_Val_GroupByChannel (0) or Vorex_Val_GroupByScanNumber (any other value); reserved
 * must be null. The counter reads without fillMode read grouped by channel. */
#ifndef ZQCAI_RD_MBCS_READ_H
#define ZQCAI_RD_MBCS_READ_H

int32 VorexReadAnalogF64(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                         float64* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadBinaryU16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                         uint16_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadBinaryI16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                         int16_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadBinaryU32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                         uInt32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadBinaryI32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                         int32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadCounterF64(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, float64* readArray,
                          uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadCounterF64Ex(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                            float64* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadCounterU32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, uInt32* readArray,
                          uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadCounterU32Ex(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                            uInt32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadRaw(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, void* readArray,
                   uInt32 arraySizeInBytes, int32* sampsRead, int32* numBytesPerSamp, bool32* reserved);
int32 VorexReadDigitalU8(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                         uint8_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadDigitalU16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                          uint16_t* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadDigitalU32(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                          uInt32* readArray, uInt32 arraySizeInSamps, int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadDigitalLines(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                            uint8_t* readArray, uInt32 arraySizeInBytes, int32* sampsPerChanRead,
                            int32* numBytesPerSamp, bool32* reserved);
int32 VorexReadCtrFreq(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 dataLayout,
                       float64* readArrayFrequency, float64* readArrayDutyCycle, uInt32 arraySizeInSamps,
                       int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadCtrTime(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 dataLayout,
                       float64* readArrayHighTime, float64* readArrayLowTime, uInt32 arraySizeInSamps,
                       int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadCtrTicks(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 dataLayout,
                        uInt32* readArrayHighTicks, uInt32* readArrayLowTicks, uInt32 arraySizeInSamps,
                        int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadPowerF64(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                        float64* readArrayVoltage, float64* readArrayCurrent, uInt32 arraySizeInSamps,
                        int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadPowerBinaryI16(TaskHandle taskHandle, int32 numSampsPerChan, float64 timeout, int32 fillMode,
                              int16_t* readArrayVoltage, int16_t* readArrayCurrent, uInt32 arraySizeInSamps,
                              int32* sampsPerChanRead, bool32* reserved);
int32 VorexReadAnalogScalarF64(TaskHandle taskHandle, float64 timeout, float64* value, bool32* reserved);
int32 VorexReadCounterScalarF64(TaskHandle taskHandle, float64 timeout, float64* value, bool32* reserved);
int32 VorexReadCounterScalarU32(TaskHandle taskHandle, float64 timeout, uInt32* value, bool32* reserved);
int32 VorexReadDigitalScalarU32(TaskHandle taskHandle, float64 timeout, uInt32* value, bool32* reserved);
int32 VorexReadCtrFreqScalar(TaskHandle taskHandle, float64 timeout, float64* frequency, float64* dutyCycle,
                             bool32* reserved);
int32 VorexReadCtrTimeScalar(TaskHandle taskHandle, float64 timeout, float64* highTime, float64* lowTime,
                             bool32* reserved);
int32 VorexReadCtrTicksScalar(TaskHandle taskHandle, float64 timeout, uInt32* highTicks, uInt32* lowTicks,
                              bool32* reserved);
int32 VorexReadPowerScalarF64(TaskHandle taskHandle, float64 timeout, float64* voltage, float64* current,
                              bool32* reserved);

#endif
