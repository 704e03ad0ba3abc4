// The trigger functions: start, reference and advance triggers. Most are one operation of the
// task in the frame every configuration call shares; the multi-edge triggers build views of the
// caller's arrays, and the advance trigger is written as timing attributes.
#include "zqcai_rd_mbcs.h"

#include "configuration/config_call.h"
#include "frame/export.h"
#include "triggers/advance_trigger.h"
#include "triggers/multi_edge.h"

namespace {

using zqconfig::CallInfo;
using zqconfig::configCall;
using zqconfig::Copied;
using zqconfig::CopiedList;
using zqconfig::OneTerminal;
using zqconfig::Trimmed;
using zqvorexRedir::ITask;

constexpr CallInfo kDisableStart{"VorexDisableStartTrig", {}};
constexpr CallInfo kDisableRef{"VorexDisableRefTrig", {}};
constexpr CallInfo kDigEdgeStart{"VorexCfgDigEdgeStartTrig",
                                 {{{"triggerSource"}, {"triggerEdge", Vorex_DigEdgeStartTrigEdge}}}};
constexpr CallInfo kDigEdgeRef{"VorexCfgDigEdgeRefTrig",
                               {{{"triggerSource"}, {"triggerEdge", Vorex_DigEdgeRefTrigEdge}, {"pretriggerSamples"}}}};
constexpr CallInfo kAnlgEdgeStart{"VorexCfgAnlgEdgeStartTrig",
                                  {{{"triggerSource"}, {"triggerSlope", Vorex_AnlgEdgeStartTrigSlope},
                                    {"triggerLevel"}}}};
constexpr CallInfo kAnlgEdgeRef{"VorexCfgAnlgEdgeRefTrig",
                                {{{"triggerSource"}, {"triggerSlope", Vorex_AnlgEdgeRefTrigSlope}, {"triggerLevel"},
                                  {"pretriggerSamples"}}}};
constexpr CallInfo kAnlgWindowStart{"VorexCfgAnlgWindowStartTrig",
                                    {{{"triggerSource"}, {"triggerWhen", Vorex_AnlgWinStartTrigTrigWhen},
                                      {"windowTop"}, {"windowBottom"}}}};
constexpr CallInfo kAnlgWindowRef{"VorexCfgAnlgWindowRefTrig",
                                  {{{"triggerSource"}, {"triggerWhen", Vorex_AnlgWinRefTrigTrigWhen}, {"windowTop"},
                                    {"windowBottom"}, {"pretriggerSamples"}}}};
constexpr CallInfo kTimeStart{"VorexCfgTimeStartTrig",
                              {{{"timestamp"}, {"timescale", Vorex_TimeStartTrigTimescale}}}};
constexpr CallInfo kDigPatternStart{"VorexCfgDigPatternStartTrig",
                                    {{{"triggerSource"}, {"triggerPattern"},
                                      {"triggerWhen", Vorex_DigPatternStartTrigTrigWhen}}}};
constexpr CallInfo kDigPatternRef{"VorexCfgDigPatternRefTrig",
                                  {{{"triggerSource"}, {"triggerPattern"},
                                    {"triggerWhen", Vorex_DigPatternRefTrigTrigWhen}, {"pretriggerSamples"}}}};

}  // namespace

ZQ_EXPORT int32 VorexDisableStartTrig(TaskHandle taskHandle) {
  return configCall<&ITask::disableStartTrigger>(kDisableStart, taskHandle);
}

ZQ_EXPORT int32 VorexDisableRefTrig(TaskHandle taskHandle) {
  return configCall<&ITask::disableReferenceTrigger>(kDisableRef, taskHandle);
}

ZQ_EXPORT int32 VorexCfgDigEdgeStartTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerEdge) {
  return configCall<&ITask::configureDigitalEdgeStartTrigger>(
      kDigEdgeStart, taskHandle, OneTerminal{triggerSource, Vorex_DigEdgeStartTrigSrc}, triggerEdge);
}

ZQ_EXPORT int32 VorexCfgDigEdgeRefTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerEdge,
                                       uInt32 pretriggerSamples) {
  return configCall<&ITask::configureDigitalEdgeReferenceTrigger>(
      kDigEdgeRef, taskHandle, OneTerminal{triggerSource, Vorex_DigEdgeRefTrigSrc}, triggerEdge, pretriggerSamples);
}

ZQ_EXPORT int32 VorexCfgAnlgEdgeStartTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerSlope,
                                          float64 triggerLevel) {
  return configCall<&ITask::configureAnalogEdgeStartTrigger>(kAnlgEdgeStart, taskHandle, Copied{triggerSource},
                                                             triggerSlope, triggerLevel);
}

ZQ_EXPORT int32 VorexCfgAnlgEdgeRefTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerSlope,
                                        float64 triggerLevel, uInt32 pretriggerSamples) {
  return configCall<&ITask::configureAnalogEdgeReferenceTrigger>(kAnlgEdgeRef, taskHandle, Copied{triggerSource},
                                                                 triggerSlope, triggerLevel, pretriggerSamples);
}

ZQ_EXPORT int32 VorexCfgAnlgWindowStartTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerWhen,
                                            float64 windowTop, float64 windowBottom) {
  return configCall<&ITask::configureAnalogWindowStartTrigger>(kAnlgWindowStart, taskHandle, Trimmed{triggerSource},
                                                               triggerWhen, windowTop, windowBottom);
}

ZQ_EXPORT int32 VorexCfgAnlgWindowRefTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerWhen,
                                          float64 windowTop, float64 windowBottom, uInt32 pretriggerSamples) {
  return configCall<&ITask::configureAnalogWindowReferenceTrigger>(
      kAnlgWindowRef, taskHandle, Copied{triggerSource}, triggerWhen, windowTop, windowBottom, pretriggerSamples);
}

ZQ_EXPORT int32 VorexCfgAnlgMultiEdgeStartTrig(TaskHandle taskHandle, const char* triggerSources,
                                               const int32 triggerSlopeArray[], const float64 triggerLevelArray[],
                                               uInt32 arraySize) {
  return zqtriggers::multiEdgeStart(taskHandle, {triggerSources, triggerSlopeArray, triggerLevelArray, arraySize});
}

ZQ_EXPORT int32 VorexCfgAnlgMultiEdgeRefTrig(TaskHandle taskHandle, const char* triggerSources,
                                             const int32 triggerSlopeArray[], const float64 triggerLevelArray[],
                                             uInt32 pretriggerSamples, uInt32 arraySize) {
  return zqtriggers::multiEdgeReference("VorexCfgAnlgMultiEdgeRefTrig", zqtriggers::Order::kPretriggerFirst, taskHandle,
                                        {triggerSources, triggerSlopeArray, triggerLevelArray, arraySize},
                                        pretriggerSamples);
}

ZQ_EXPORT int32 VorexCfgAnlgMultiEdgeRefTrigEx(TaskHandle taskHandle, const char* triggerSources,
                                               const int32 triggerSlopeArray[], const float64 triggerLevelArray[],
                                               uInt32 arraySize, uInt32 pretriggerSamples) {
  return zqtriggers::multiEdgeReference("VorexCfgAnlgMultiEdgeRefTrigEx", zqtriggers::Order::kSizeFirst, taskHandle,
                                        {triggerSources, triggerSlopeArray, triggerLevelArray, arraySize},
                                        pretriggerSamples);
}

ZQ_EXPORT int32 VorexCfgTimeStartTrig(TaskHandle taskHandle, VorexAbsoluteTime timestamp, int32 timescale) {
  return configCall<&ITask::configureTimeStartTrigger>(kTimeStart, taskHandle, timestamp, timescale);
}

ZQ_EXPORT int32 VorexCfgDigPatternStartTrig(TaskHandle taskHandle, const char* triggerSource,
                                            const char* triggerPattern, int32 triggerWhen) {
  return configCall<&ITask::configureDigitalPatternStartTrigger>(
      kDigPatternStart, taskHandle, CopiedList{triggerSource}, Copied{triggerPattern}, triggerWhen);
}

ZQ_EXPORT int32 VorexCfgDigPatternRefTrig(TaskHandle taskHandle, const char* triggerSource,
                                          const char* triggerPattern, int32 triggerWhen, uInt32 pretriggerSamples) {
  return configCall<&ITask::configureDigitalPatternReferenceTrigger>(
      kDigPatternRef, taskHandle, CopiedList{triggerSource}, Copied{triggerPattern}, triggerWhen, pretriggerSamples);
}

// --- the advance trigger: timing attributes on an empty channel list ---------------------------

ZQ_EXPORT int32 VorexDisableAdvTrig(TaskHandle taskHandle) {
  return zqframe::dataCallFrame(
      "VorexDisableAdvTrig", taskHandle, [](zqtrace::TraceCall&) {},
      [](ITask* task, zqerr_Status* status) {
        const zqgopher::StringArrayView none;
        if (task) task->setTimingAttributeI32(none, Vorex_AdvTrigType, zqtriggers::kAdvTrigNone, status);
      },
      [](zqtrace::TraceCall&) {});
}

ZQ_EXPORT int32 VorexCfgDigEdgeAdvTrig(TaskHandle taskHandle, const char* triggerSource, int32 triggerEdge) {
  return zqframe::dataCallFrame(
      "VorexCfgDigEdgeAdvTrig", taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramText("triggerSource", triggerSource);
        trace.paramEnum("triggerEdge", Vorex_DigEdgeAdvTrigEdge, triggerEdge);
      },
      [&](ITask* task, zqerr_Status* status) {
        const std::string source = zqutility::copiedText(triggerSource, status);
        if (task) zqtriggers::configureDigitalEdgeAdvance(*task, source, triggerEdge, status);
      },
      [](zqtrace::TraceCall&) {});
}
