/* The write functions: samples from the caller's arrays to a task's channels. Included by
 * zqcai_rd_mbcs.h.
 *
 * The arrays hold numSampsPerChan samples of every channel of the task; a negative count is an
 * error. dataLayout is Vorex_Val_GroupByChannel (0) or Vorex_Val_GroupByScanNumber (any other
 * value); autoStart is true when not 0; reserved must be null. The unsigned binary writes send
 * the same bits as their signed twins. */
#ifndef ZQCAI_RD_MBCS_WRITE_H
#define ZQCAI_RD_MBCS_WRITE_H

int32 VorexWriteAnalogF64(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                          int32 dataLayout, const float64* writeArray, int32* sampsPerChanWritten,
                          bool32* reserved);
int32 VorexWriteBinaryU16(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                          int32 dataLayout, const uint16_t* writeArray, int32* sampsPerChanWritten,
                          bool32* reserved);
int32 VorexWriteBinaryI16(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                          int32 dataLayout, const int16_t* writeArray, int32* sampsPerChanWritten,
                          bool32* reserved);
int32 VorexWriteBinaryU32(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                          int32 dataLayout, const uInt32* writeArray, int32* sampsPerChanWritten,
                          bool32* reserved);
int32 VorexWriteBinaryI32(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                          int32 dataLayout, const int32* writeArray, int32* sampsPerChanWritten,
                          bool32* reserved);
int32 VorexWriteDigitalU8(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                          int32 dataLayout, const uint8_t* writeArray, int32* sampsPerChanWritten,
                          bool32* reserved);
int32 VorexWriteDigitalU16(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                           int32 dataLayout, const uint16_t* writeArray, int32* sampsPerChanWritten,
                           bool32* reserved);
int32 VorexWriteDigitalU32(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                           int32 dataLayout, const uInt32* writeArray, int32* sampsPerChanWritten,
                           bool32* reserved);
int32 VorexWriteDigitalLines(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                             int32 dataLayout, const uint8_t* writeArray, int32* sampsPerChanWritten,
                             bool32* reserved);
int32 VorexWriteRaw(TaskHandle taskHandle, int32 numSamps, int32 autoStart, float64 timeout,
                    const void* writeArray, int32* sampsPerChanWritten, bool32* reserved);
int32 VorexWriteCtrFreq(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                        int32 dataLayout, const float64* frequency, const float64* dutyCycle,
                        int32* numSampsPerChanWritten, bool32* reserved);
int32 VorexWriteCtrTime(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                        int32 dataLayout, const float64* highTime, const float64* lowTime,
                        int32* numSampsPerChanWritten, bool32* reserved);
int32 VorexWriteCtrTicks(TaskHandle taskHandle, int32 numSampsPerChan, int32 autoStart, float64 timeout,
                         int32 dataLayout, const uInt32* highTicks, const uInt32* lowTicks,
                         int32* numSampsPerChanWritten, bool32* reserved);
int32 VorexWriteAnalogScalarF64(TaskHandle taskHandle, int32 autoStart, float64 timeout, float64 value,
                                bool32* reserved);
int32 VorexWriteDigitalScalarU32(TaskHandle taskHandle, int32 autoStart, float64 timeout, uInt32 value,
                                 bool32* reserved);
int32 VorexWriteCtrFreqScalar(TaskHandle taskHandle, int32 autoStart, float64 timeout, float64 frequency,
                              float64 dutyCycle, bool32* reserved);
int32 VorexWriteCtrTimeScalar(TaskHandle taskHandle, int32 autoStart, float64 timeout, float64 highTime,
                              float64 lowTime, bool32* reserved);
int32 VorexWriteCtrTicksScalar(TaskHandle taskHandle, int32 autoStart, float64 timeout, uInt32 highTicks,
                               uInt32 lowTicks, bool32* reserved);

#endif
