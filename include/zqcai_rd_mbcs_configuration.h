/* Configuring a task: timing, triggers, buffers, signal export, calibration and watchdog
 * tasks. Included by zqcai_rd_mbcs.h.
 *
 * Rates, edges, slopes, modes and units go to the device unchecked: the device reports the
 * values it cannot take. Text arguments may be null, which reads as an empty text. */
#ifndef ZQCAI_RD_MBCS_CONFIGURATION_H
#define ZQCAI_RD_MBCS_CONFIGURATION_H

/* Signals of VorexExportSignal (and of VorexRegisterSignalEvent, with those in
 * zqcai_rd_mbcs_events.h). */
#define Vorex_Val_AIConvertClock 12484
#define Vorex_Val_20MHzTimebaseClock 12486
#define Vorex_Val_ReferenceTrigger 12490
#define Vorex_Val_StartTrigger 12491
#define Vorex_Val_AIHoldCmpltEvent 12493
#define Vorex_Val_WDTExpiredEvent 12512
#define Vorex_Val_10MHzRefClock 12536

/* Timing. source and sampleClkSrc lose blanks at both ends, and null or blank picks the device's
 * default clock; risingEdgeChan, fallingEdgeChan and sampleClkOutpTerm are comma-separated
 * lists. */
int32 VorexCfgSampClkTiming(TaskHandle taskHandle, const char* source, float64 rate, int32 activeEdge,
                            int32 sampleMode, uInt64 sampsPerChan);
int32 VorexCfgPipelinedSampClkTiming(TaskHandle taskHandle, const char* source, float64 rate, int32 activeEdge,
                                     int32 sampleMode, uInt64 sampsPerChan);
int32 VorexCfgHandshakingTiming(TaskHandle taskHandle, int32 sampleMode, uInt64 sampsPerChan);
int32 VorexCfgImplicitTiming(TaskHandle taskHandle, int32 sampleMode, uInt64 sampsPerChan);
int32 VorexCfgChangeDetectionTiming(TaskHandle taskHandle, const char* risingEdgeChan, const char* fallingEdgeChan,
                                    int32 sampleMode, uInt64 sampsPerChan);
int32 VorexCfgBurstHandshakingTimingImportClock(TaskHandle taskHandle, int32 sampleMode, uInt64 sampsPerChan,
                                                float64 sampleClkRate, const char* sampleClkSrc,
                                                int32 sampleClkActiveEdge, int32 pauseWhen,
                                                int32 readyEventActiveLevel);
int32 VorexCfgBurstHandshakingTimingExportClock(TaskHandle taskHandle, int32 sampleMode, uInt64 sampsPerChan,
                                                float64 sampleClkRate, const char* sampleClkOutpTerm,
                                                int32 sampleClkPulsePolarity, int32 pauseWhen,
                                                int32 readyEventActiveLevel);

/* Waits on the running sample clock. isLate may be null; timestamp may not (-200604).
 * timestampEvent is Vorex_Val_ReferenceTrigger, Vorex_Val_StartTrigger, or an event the device
 * knows. */
int32 VorexWaitForNextSampleClock(TaskHandle taskHandle, float64 timeout, bool32* isLate);
int32 VorexWaitForValidTimestamp(TaskHandle taskHandle, int32 timestampEvent, float64 timeout,
                                 VorexAbsoluteTime* timestamp);

/* Triggers. A digital edge source names one terminal: more than one is refused with -200098.
 * Sources and patterns lose blanks at both ends; triggerSources of the multi-edge triggers is a
 * comma-separated list with one slope and one level for each name. */
int32 VorexDisableStartTrig(TaskHandle taskHandle);
int32 VorexDisableRefTrig(TaskHandle taskHandle);
int32 VorexCfgDigEdgeStartTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerEdge);
int32 VorexCfgDigEdgeRefTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerEdge,
                             uInt32 pretriggerSamples);
int32 VorexCfgAnlgEdgeStartTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerSlope,
                                float64 triggerLevel);
int32 VorexCfgAnlgEdgeRefTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerSlope,
                              float64 triggerLevel, uInt32 pretriggerSamples);
int32 VorexCfgAnlgWindowStartTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerWhen,
                                  float64 windowTop, float64 windowBottom);
int32 VorexCfgAnlgWindowRefTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerWhen,
                                float64 windowTop, float64 windowBottom, uInt32 pretriggerSamples);
int32 VorexCfgAnlgMultiEdgeStartTrig(TaskHandle taskHandle, const char* triggerSources,
                                     const int32 triggerSlopeArray[], const float64 triggerLevelArray[],
                                     uInt32 arraySize);
int32 VorexCfgAnlgMultiEdgeRefTrig(TaskHandle taskHandle, const char* triggerSources,
                                   const int32 triggerSlopeArray[], const float64 triggerLevelArray[],
                                   uInt32 pretriggerSamples, uInt32 arraySize);
int32 VorexCfgAnlgMultiEdgeRefTrigEx(TaskHandle taskHandle, const char* triggerSources,
                                     const int32 triggerSlopeArray[], const float64 triggerLevelArray[],
                                     uInt32 arraySize, uInt32 pretriggerSamples);
int32 VorexCfgTimeStartTrig(TaskHandle taskHandle, VorexAbsoluteTime timestamp, int32 timescale);
int32 VorexCfgDigPatternStartTrig(TaskHandle taskHandle, const char* triggerSource, const char* triggerPattern,
                                  int32 triggerWhen);
int32 VorexCfgDigPatternRefTrig(TaskHandle taskHandle, const char* triggerSource, const char* triggerPattern,
                                int32 triggerWhen, uInt32 pretriggerSamples);
int32 VorexDisableAdvTrig(TaskHandle taskHandle);
int32 VorexCfgDigEdgeAdvTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerEdge);

/* Buffers and signal export. outputTerminal is a comma-separated list of terminals. */
int32 VorexCfgInputBuffer(TaskHandle taskHandle, uInt32 numSampsPerChan);
int32 VorexCfgOutputBuffer(TaskHandle taskHandle, uInt32 numSampsPerChan);
int32 VorexExportSignal(TaskHandle taskHandle, int32 signalID, const char* outputTerminal);

/* Calibration of the channels in a comma-separated list, and a channel's calibration and expiry
 * dates in local time. Out-parameters of a Get may be null; a date before 1970 is refused with
 * -200077. */
int32 VorexPerformBridgeOffsetNullingCal(TaskHandle taskHandle, const char* channel);
int32 VorexPerformBridgeOffsetNullingCalEx(TaskHandle taskHandle, const char* channel,
                                           bool32 skipUnsupportedChannels);
int32 VorexPerformThrmcplLeadOffsetNullingCal(TaskHandle taskHandle, const char* channel,
                                              bool32 skipUnsupportedChannels);
int32 VorexPerformStrainShuntCal(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                 int32 shuntResistorLocation, bool32 skipUnsupportedChannels);
int32 VorexPerformStrainShuntCalEx(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                   int32 shuntResistorLocation, int32 shuntResistorSelect, int32 shuntResistorSource,
                                   bool32 skipUnsupportedChannels);
int32 VorexPerformBridgeShuntCal(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                 int32 shuntResistorLocation, float64 bridgeResistance,
                                 bool32 skipUnsupportedChannels);
int32 VorexPerformBridgeShuntCalEx(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                   int32 shuntResistorLocation, int32 shuntResistorSelect, int32 shuntResistorSource,
                                   float64 bridgeResistance, bool32 skipUnsupportedChannels);
int32 VorexGetAIChanCalCalDate(TaskHandle taskHandle, const char* channelName, uInt32* year, uInt32* month,
                               uInt32* day, uInt32* hour, uInt32* minute);
int32 VorexSetAIChanCalCalDate(TaskHandle taskHandle, const char* channelName, uInt32 year, uInt32 month,
                               uInt32 day, uInt32 hour, uInt32 minute);
int32 VorexGetAIChanCalExpDate(TaskHandle taskHandle, const char* channelName, uInt32* year, uInt32* month,
                               uInt32* day, uInt32* hour, uInt32* minute);
int32 VorexSetAIChanCalExpDate(TaskHandle taskHandle, const char* channelName, uInt32 year, uInt32 month,
                               uInt32 day, uInt32 hour, uInt32 minute);

/* Watchdog tasks. VorexCreateWatchdogTimerTask takes, after timeout, pairs of a lines text and
 * an int32 expiration state, ended by a null lines: VorexCreateWatchdogTimerTask(dev, "",
 * &task, 0.5, "Dev1/port0/line0", state, (const char*)NULL). The expiration-state functions
 * take one comma-separated name for each element of their arrays (-200672 otherwise). */
int32 VorexCreateWatchdogTimerTask(const char* deviceName, const char* taskName, TaskHandle* taskHandle,
                                   float64 timeout, const char* lines, int32 expState, ...);
int32 VorexCreateWatchdogTimerTaskEx(const char* deviceName, const char* taskName, TaskHandle* taskHandle,
                                     float64 timeout);
int32 VorexCfgWatchdogAOExpirStates(TaskHandle taskHandle, const char* channelNames, const float64 expirStateArray[],
                                    const int32 outputTypeArray[], uInt32 arraySize);
int32 VorexCfgWatchdogCOExpirStates(TaskHandle taskHandle, const char* channelNames, const int32 expirStateArray[],
                                    uInt32 arraySize);
int32 VorexCfgWatchdogDOExpirStates(TaskHandle taskHandle, const char* channelNames, const int32 expirStateArray[],
                                    uInt32 arraySize);
int32 VorexControlWatchdogTask(TaskHandle taskHandle, int32 action);

#endif
