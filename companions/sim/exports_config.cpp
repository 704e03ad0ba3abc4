// Timing and triggers. The forms the device cannot do (handshaking, burst, change detection,
// multi-edge analog triggers) are not exported, so the library reports them as not supported.
#include "configure.h"
#include "sim_export.h"

using namespace zqsim;

namespace {

template <class F>
void onTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status, F&& body) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) body(*t);
  });
}

}  // namespace

SIM_EXPORT void zqvorexSim_configureSampleClockTiming(zqvorexPlugin_Task_undefined* task, const char* source,
                                                      double rate, int32_t activeEdge, int32_t sampleMode,
                                                      uint64_t sampsPerChan, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureSampleClock(t, source, rate, activeEdge, sampleMode, sampsPerChan, status);
  });
}

// Pipelining changes nothing in a simulated converter: the same clock.
SIM_EXPORT void zqvorexSim_configurePipelinedSampleClockTiming(zqvorexPlugin_Task_undefined* task,
                                                               const char* source, double rate,
                                                               int32_t activeEdge, int32_t sampleMode,
                                                               uint64_t sampsPerChan, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureSampleClock(t, source, rate, activeEdge, sampleMode, sampsPerChan, status);
  });
}

SIM_EXPORT void zqvorexSim_configureImplicitTiming(zqvorexPlugin_Task_undefined* task, int32_t sampleMode,
                                                   uint64_t sampsPerChan, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) { configureImplicit(t, sampleMode, sampsPerChan, status); });
}

SIM_EXPORT void zqvorexSim_configureDigitalEdgeStartTrigger(zqvorexPlugin_Task_undefined* task,
                                                            const char* triggerSource, int32_t triggerEdge,
                                                            zqerr_Status* status) {
  onTask(task, status,
         [&](SimTask& t) { configureDigitalEdge(t, false, triggerSource, triggerEdge, 0, status); });
}

SIM_EXPORT void zqvorexSim_configureDigitalEdgeReferenceTrigger(zqvorexPlugin_Task_undefined* task,
                                                                const char* triggerSource,
                                                                int32_t triggerEdge,
                                                                uint32_t pretriggerSamples,
                                                                zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureDigitalEdge(t, true, triggerSource, triggerEdge, pretriggerSamples, status);
  });
}

SIM_EXPORT void zqvorexSim_configureAnalogEdgeStartTrigger(zqvorexPlugin_Task_undefined* task,
                                                           const char* triggerSource, int32_t triggerSlope,
                                                           double triggerLevel, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureAnalogEdge(t, false, triggerSource, triggerSlope, triggerLevel, 0, status);
  });
}

SIM_EXPORT void zqvorexSim_configureAnalogEdgeReferenceTrigger(zqvorexPlugin_Task_undefined* task,
                                                               const char* triggerSource,
                                                               int32_t triggerSlope, double triggerLevel,
                                                               uint32_t pretriggerSamples,
                                                               zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureAnalogEdge(t, true, triggerSource, triggerSlope, triggerLevel, pretriggerSamples, status);
  });
}

SIM_EXPORT void zqvorexSim_configureAnalogWindowStartTrigger(zqvorexPlugin_Task_undefined* task,
                                                             const char* triggerSource, int32_t triggerWhen,
                                                             double windowTop, double windowBottom,
                                                             zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureAnalogWindow(t, false, triggerSource, triggerWhen, windowTop, windowBottom, 0, status);
  });
}

SIM_EXPORT void zqvorexSim_configureAnalogWindowReferenceTrigger(
    zqvorexPlugin_Task_undefined* task, const char* triggerSource, int32_t triggerWhen, double windowTop,
    double windowBottom, uint32_t pretriggerSamples, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureAnalogWindow(t, true, triggerSource, triggerWhen, windowTop, windowBottom, pretriggerSamples,
                          status);
  });
}

SIM_EXPORT void zqvorexSim_configureDigitalPatternStartTrigger(zqvorexPlugin_Task_undefined* task,
                                                               const zqgopher_ArrayView* triggerSource,
                                                               const char* triggerPattern,
                                                               int32_t triggerWhen, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureDigitalPattern(t, false, triggerSource, triggerPattern, triggerWhen, 0, status);
  });
}

SIM_EXPORT void zqvorexSim_configureDigitalPatternReferenceTrigger(
    zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* triggerSource, const char* triggerPattern,
    int32_t triggerWhen, uint32_t pretriggerSamples, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) {
    configureDigitalPattern(t, true, triggerSource, triggerPattern, triggerWhen, pretriggerSamples, status);
  });
}

SIM_EXPORT void zqvorexSim_configureTimeStartTrigger(zqvorexPlugin_Task_undefined* task,
                                                     zqvorexPlugin_AbsoluteTime timestamp, int32_t timescale,
                                                     zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) { configureTimeStart(t, timestamp, timescale, status); });
}

SIM_EXPORT void zqvorexSim_disableReferenceTrigger(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) { disableTrigger(t, true, status); });
}

SIM_EXPORT void zqvorexSim_disableStartTrigger(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  onTask(task, status, [&](SimTask& t) { disableTrigger(t, false, status); });
}

SIM_SIGNATURE(configureSampleClockTiming);
SIM_SIGNATURE(configurePipelinedSampleClockTiming);
SIM_SIGNATURE(configureImplicitTiming);
SIM_SIGNATURE(configureDigitalEdgeStartTrigger);
SIM_SIGNATURE(configureDigitalEdgeReferenceTrigger);
SIM_SIGNATURE(configureAnalogEdgeStartTrigger);
SIM_SIGNATURE(configureAnalogEdgeReferenceTrigger);
SIM_SIGNATURE(configureAnalogWindowStartTrigger);
SIM_SIGNATURE(configureAnalogWindowReferenceTrigger);
SIM_SIGNATURE(configureDigitalPatternStartTrigger);
SIM_SIGNATURE(configureDigitalPatternReferenceTrigger);
SIM_SIGNATURE(configureTimeStartTrigger);
SIM_SIGNATURE(disableReferenceTrigger);
SIM_SIGNATURE(disableStartTrigger);
