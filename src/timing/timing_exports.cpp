// The timing functions: seven forms of sample clocking, each one operation of the task with its
// arguments in the order of the API, and the two waits on the running clock.
#include "zqcai_rd_mbcs.h"

#include "configuration/absolute_time.h"
#include "configuration/config_call.h"
#include "frame/export.h"
#include "status/error_sites.h"
#include "timing/timestamp_events.h"

namespace {

using zqconfig::CallInfo;
using zqconfig::configCall;
using zqconfig::List;
using zqconfig::Trimmed;
using zqvorexRedir::ITask;

constexpr int32_t kActiveEdge = Vorex_SampClkActiveEdge;
constexpr int32_t kSampleMode = Vorex_SampQuantSampMode;
constexpr int32_t kPauseWhen = Vorex_DigLvlPauseTrigWhen;
constexpr int32_t kReadyLevel = Vorex_InterlockedHshkTrigAssertedLvl;
constexpr int32_t kPulsePolarity = Vorex_ExportedHshkEventInterlockedAssertedLvl;

constexpr CallInfo kSampClk{"VorexCfgSampClkTiming",
                            {{{"source"}, {"rate"}, {"activeEdge", kActiveEdge}, {"sampleMode", kSampleMode},
                              {"sampsPerChan"}}}};
constexpr CallInfo kPipelinedSampClk{"VorexCfgPipelinedSampClkTiming",
                                     {{{"source"}, {"rate"}, {"activeEdge", kActiveEdge},
                                       {"sampleMode", kSampleMode}, {"sampsPerChan"}}}};
constexpr CallInfo kHandshaking{"VorexCfgHandshakingTiming", {{{"sampleMode", kSampleMode}, {"sampsPerChan"}}}};
constexpr CallInfo kImplicit{"VorexCfgImplicitTiming", {{{"sampleMode", kSampleMode}, {"sampsPerChan"}}}};
constexpr CallInfo kChangeDetection{"VorexCfgChangeDetectionTiming",
                                    {{{"risingEdgeChan"}, {"fallingEdgeChan"}, {"sampleMode", kSampleMode},
                                      {"sampsPerChan"}}}};
constexpr CallInfo kBurstImport{"VorexCfgBurstHandshakingTimingImportClock",
                                {{{"sampleMode", kSampleMode}, {"sampsPerChan"}, {"sampleClkRate"},
                                  {"sampleClkSrc"}, {"sampleClkActiveEdge", kActiveEdge}, {"pauseWhen", kPauseWhen},
                                  {"readyEventActiveLevel", kReadyLevel}}}};
constexpr CallInfo kBurstExport{"VorexCfgBurstHandshakingTimingExportClock",
                                {{{"sampleMode", kSampleMode}, {"sampsPerChan"}, {"sampleClkRate"},
                                  {"sampleClkOutpTerm"}, {"sampleClkPulsePolarity", kPulsePolarity},
                                  {"pauseWhen", kPauseWhen}, {"readyEventActiveLevel", kReadyLevel}}}};

}  // namespace

ZQ_EXPORT int32 VorexCfgSampClkTiming(TaskHandle taskHandle, const char* source, float64 rate, int32 activeEdge,
                                      int32 sampleMode, uInt64 sampsPerChan) {
  return configCall<&ITask::configureSampleClockTiming>(kSampClk, taskHandle, Trimmed{source}, rate, activeEdge,
                                                        sampleMode, sampsPerChan);
}

ZQ_EXPORT int32 VorexCfgPipelinedSampClkTiming(TaskHandle taskHandle, const char* source, float64 rate,
                                               int32 activeEdge, int32 sampleMode, uInt64 sampsPerChan) {
  return configCall<&ITask::configurePipelinedSampleClockTiming>(kPipelinedSampClk, taskHandle, Trimmed{source}, rate,
                                                                 activeEdge, sampleMode, sampsPerChan);
}

ZQ_EXPORT int32 VorexCfgHandshakingTiming(TaskHandle taskHandle, int32 sampleMode, uInt64 sampsPerChan) {
  return configCall<&ITask::configureHandshakingTiming>(kHandshaking, taskHandle, sampleMode, sampsPerChan);
}

ZQ_EXPORT int32 VorexCfgImplicitTiming(TaskHandle taskHandle, int32 sampleMode, uInt64 sampsPerChan) {
  return configCall<&ITask::configureImplicitTiming>(kImplicit, taskHandle, sampleMode, sampsPerChan);
}

ZQ_EXPORT int32 VorexCfgChangeDetectionTiming(TaskHandle taskHandle, const char* risingEdgeChan,
                                              const char* fallingEdgeChan, int32 sampleMode, uInt64 sampsPerChan) {
  return configCall<&ITask::configureChangeDetectionTiming>(kChangeDetection, taskHandle, List{risingEdgeChan},
                                                            List{fallingEdgeChan}, sampleMode, sampsPerChan);
}

ZQ_EXPORT int32 VorexCfgBurstHandshakingTimingImportClock(TaskHandle taskHandle, int32 sampleMode,
                                                          uInt64 sampsPerChan, float64 sampleClkRate,
                                                          const char* sampleClkSrc, int32 sampleClkActiveEdge,
                                                          int32 pauseWhen, int32 readyEventActiveLevel) {
  return configCall<&ITask::configureBurstHandshakingTimingImportClock>(
      kBurstImport, taskHandle, sampleMode, sampsPerChan, sampleClkRate, Trimmed{sampleClkSrc}, sampleClkActiveEdge,
      pauseWhen, readyEventActiveLevel);
}

ZQ_EXPORT int32 VorexCfgBurstHandshakingTimingExportClock(TaskHandle taskHandle, int32 sampleMode,
                                                          uInt64 sampsPerChan, float64 sampleClkRate,
                                                          const char* sampleClkOutpTerm, int32 sampleClkPulsePolarity,
                                                          int32 pauseWhen, int32 readyEventActiveLevel) {
  return configCall<&ITask::configureBurstHandshakingTimingExportClock>(
      kBurstExport, taskHandle, sampleMode, sampsPerChan, sampleClkRate, List{sampleClkOutpTerm},
      sampleClkPulsePolarity, pauseWhen, readyEventActiveLevel);
}

// --- waits on the running clock ----------------------------------------------------------------

ZQ_EXPORT int32 VorexWaitForNextSampleClock(TaskHandle taskHandle, float64 timeout, bool32* isLate) {
  return zqframe::dataCallFrame(
      "VorexWaitForNextSampleClock", taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.param("timeout", zqtrace::kF64, timeout);
        trace.param("isLate", zqtrace::kBool32Pointer, isLate);
      },
      [&](ITask* task, zqerr_Status* status) {
        // The flag is stored on any status, so a failed lookup gives 0.
        if (isLate) *isLate = 0;
        bool late = false;
        if (task) task->waitForNextSampleClock(timeout, &late, status);
        if (isLate) *isLate = late ? 1 : 0;
      },
      [&](zqtrace::TraceCall& trace) {
        if (isLate) trace.ret("*isLate", zqtrace::kBool32, *isLate);
      });
}

// The trace shows the time first and the arguments after it.
ZQ_EXPORT int32 VorexWaitForValidTimestamp(TaskHandle taskHandle, int32 timestampEvent, float64 timeout,
                                           VorexAbsoluteTime* timestamp) {
  return zqframe::dataCallFrame(
      "VorexWaitForValidTimestamp", taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.param("timestamp", zqtrace::kAbsoluteTimePointer, timestamp);
        trace.paramText("timestampEvent", zqtiming::timestampEventName(timestampEvent));
        trace.param("timeout", zqtrace::kF64, timeout);
      },
      [&](ITask* task, zqerr_Status* status) {
        if (!timestamp) {
          ZQ_FAIL(status, kCtaskTimestampNull);
          return;
        }
        if (!task || !zqerr::isOpen(status)) return;
        zqvorexPlugin_AbsoluteTime time = zqconfig::toPlugin(*timestamp);
        task->waitForValidTimestamp(timestampEvent, timeout, &time, status);
        *timestamp = zqconfig::fromPlugin(time);
      },
      [&](zqtrace::TraceCall& trace) {
        if (timestamp) trace.retTime("timestamp", *timestamp);
      });
}
