// Calibration of a task's channels, which the plug-in performs, and the calibration and expiry
// dates of a channel, which this library turns between calendar fields and absolute time.
#include <utility>

#include "zqcai_rd_mbcs.h"

#include "calibration/calibration_dates.h"
#include "frame/data_call.h"
#include "frame/export.h"
#include "utilities/text_forms.h"

namespace {

using zqcalibration::CalendarDate;
using zqvorexRedir::ITask;

// The shunt resistor the plain shunt calibrations use.
constexpr int32_t kShuntResistorSelectDefault = 12513;
constexpr int32_t kShuntResistorSourceDefault = -1;

// The frame of every calibration function: "taskHandle" and the channel list first, then the
// rest of the parameters; the list converted, trimmed and split; the call when the task is there;
// the out-parameters before "retval".
template <class Params, class Call, class Returns = void (*)(zqtrace::TraceCall&)>
int32_t channelsCall(const char* function, TaskHandle taskHandle, const char* channelParam, const char* channel,
                     Params&& params, Call&& call, Returns&& returns = [](zqtrace::TraceCall&) {}) {
  return zqframe::dataCallFrame(
      function, taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramText(channelParam, channel);
        params(trace);
      },
      [&](ITask* task, zqerr_Status* status) {
        const zqutility::NameList channels = zqutility::nameList(zqutility::trimmedText(channel, status), status);
        if (task) call(*task, channels.view(), status);
      },
      std::forward<Returns>(returns));
}

void traceSkip(zqtrace::TraceCall& trace, bool32 skipUnsupportedChannels) {
  trace.param("skipUnsupportedChannels", zqtrace::kI32, static_cast<int32_t>(skipUnsupportedChannels));
}

void traceShunt(zqtrace::TraceCall& trace, float64 shuntResistorValue, int32 shuntResistorLocation) {
  trace.param("shuntResistorValue", zqtrace::kF64, shuntResistorValue);
  trace.param("shuntResistorLocation", zqtrace::kI32, shuntResistorLocation);
}

void traceSelection(zqtrace::TraceCall& trace, int32 shuntResistorSelect, int32 shuntResistorSource) {
  trace.param("shuntResistorSelect", zqtrace::kI32, shuntResistorSelect);
  trace.param("shuntResistorSource", zqtrace::kI32, shuntResistorSource);
}

int32_t bridgeOffsetNulling(const char* function, TaskHandle taskHandle, const char* channel,
                            bool32 skipUnsupportedChannels, bool traceSkipParam) {
  return channelsCall(
      function, taskHandle, "channel", channel,
      [&](zqtrace::TraceCall& trace) {
        if (traceSkipParam) traceSkip(trace, skipUnsupportedChannels);
      },
      [&](ITask& task, const zqgopher::StringArrayView& channels, zqerr_Status* status) {
        task.performBridgeOffsetNullingCalibration(channels, skipUnsupportedChannels != 0, status);
      });
}

int32_t strainShunt(const char* function, TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                    int32 shuntResistorLocation, int32 shuntResistorSelect, int32 shuntResistorSource,
                    bool32 skipUnsupportedChannels, bool traceSelectionParams) {
  return channelsCall(
      function, taskHandle, "channel", channel,
      [&](zqtrace::TraceCall& trace) {
        traceShunt(trace, shuntResistorValue, shuntResistorLocation);
        if (traceSelectionParams) traceSelection(trace, shuntResistorSelect, shuntResistorSource);
        traceSkip(trace, skipUnsupportedChannels);
      },
      [&](ITask& task, const zqgopher::StringArrayView& channels, zqerr_Status* status) {
        task.performStrainShuntCalibration(channels, shuntResistorValue, shuntResistorLocation, shuntResistorSelect,
                                           shuntResistorSource, skipUnsupportedChannels != 0, status);
      });
}

int32_t bridgeShunt(const char* function, TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                    int32 shuntResistorLocation, int32 shuntResistorSelect, int32 shuntResistorSource,
                    float64 bridgeResistance, bool32 skipUnsupportedChannels, bool traceSelectionParams) {
  return channelsCall(
      function, taskHandle, "channel", channel,
      [&](zqtrace::TraceCall& trace) {
        traceShunt(trace, shuntResistorValue, shuntResistorLocation);
        if (traceSelectionParams) traceSelection(trace, shuntResistorSelect, shuntResistorSource);
        trace.param("bridgeResistance", zqtrace::kF64, bridgeResistance);
        traceSkip(trace, skipUnsupportedChannels);
      },
      [&](ITask& task, const zqgopher::StringArrayView& channels, zqerr_Status* status) {
        task.performBridgeShuntCalibration(channels, shuntResistorValue, shuntResistorLocation, shuntResistorSelect,
                                           shuntResistorSource, bridgeResistance, skipUnsupportedChannels != 0,
                                           status);
      });
}

// --- dates ----------------------------------------------------------------------------------

struct DateFields {
  uInt32* year;
  uInt32* month;
  uInt32* day;
  uInt32* hour;
  uInt32* minute;
};

void storeDate(const DateFields& out, const CalendarDate& date) {
  if (out.year) *out.year = date.year;
  if (out.month) *out.month = date.month;
  if (out.day) *out.day = date.day;
  if (out.hour) *out.hour = date.hour;
  if (out.minute) *out.minute = date.minute;
}

int32_t getDate(const char* function, int32_t attributeId, TaskHandle taskHandle, const char* channelName,
                const DateFields& out) {
  return channelsCall(
      function, taskHandle, "channelName", channelName,
      [&](zqtrace::TraceCall& trace) {
        trace.param("year", zqtrace::kU32Pointer, out.year);
        trace.param("month", zqtrace::kU32Pointer, out.month);
        trace.param("day", zqtrace::kU32Pointer, out.day);
        trace.param("hour", zqtrace::kU32Pointer, out.hour);
        trace.param("minute", zqtrace::kU32Pointer, out.minute);
      },
      [&](ITask& task, const zqgopher::StringArrayView& channels, zqerr_Status* status) {
        zqvorexPlugin_AbsoluteTime time{};
        task.getChannelAttributeAbsoluteTime(channels, attributeId, &time, status);
        // A failed read leaves the fields as they were; a date the calendar cannot show, 0.
        if (!zqerr::isOpen(status)) return;
        storeDate(out, zqcalibration::localDate(time, status));
      },
      [&](zqtrace::TraceCall& trace) {
        trace.retOut("*year", zqtrace::kSize, out.year);
        trace.retOut("*month", zqtrace::kSize, out.month);
        trace.retOut("*day", zqtrace::kSize, out.day);
        trace.retOut("*hour", zqtrace::kSize, out.hour);
        trace.retOut("*minute", zqtrace::kSize, out.minute);
      });
}

int32_t setDate(const char* function, int32_t attributeId, TaskHandle taskHandle, const char* channelName,
                const CalendarDate& date) {
  return channelsCall(
      function, taskHandle, "channelName", channelName,
      [&](zqtrace::TraceCall& trace) {
        trace.param("year", zqtrace::kSize, date.year);
        trace.param("month", zqtrace::kSize, date.month);
        trace.param("day", zqtrace::kSize, date.day);
        trace.param("hour", zqtrace::kSize, date.hour);
        trace.param("minute", zqtrace::kSize, date.minute);
      },
      [&](ITask& task, const zqgopher::StringArrayView& channels, zqerr_Status* status) {
        zqvorexPlugin_AbsoluteTime time{};
        if (zqerr::isOpen(status)) time = zqcalibration::timeOfDate(date, status);
        // Called on a failed conversion too, which makes it return at once.
        task.setChannelAttributeAbsoluteTime(channels, attributeId, &time, status);
      });
}

}  // namespace

ZQ_EXPORT int32 VorexPerformBridgeOffsetNullingCal(TaskHandle taskHandle, const char* channel) {
  return bridgeOffsetNulling("VorexPerformBridgeOffsetNullingCal", taskHandle, channel, 0, false);
}

ZQ_EXPORT int32 VorexPerformBridgeOffsetNullingCalEx(TaskHandle taskHandle, const char* channel,
                                                     bool32 skipUnsupportedChannels) {
  return bridgeOffsetNulling("VorexPerformBridgeOffsetNullingCalEx", taskHandle, channel, skipUnsupportedChannels,
                             true);
}

ZQ_EXPORT int32 VorexPerformThrmcplLeadOffsetNullingCal(TaskHandle taskHandle, const char* channel,
                                                        bool32 skipUnsupportedChannels) {
  return channelsCall(
      "VorexPerformThrmcplLeadOffsetNullingCal", taskHandle, "channel", channel,
      [&](zqtrace::TraceCall& trace) { traceSkip(trace, skipUnsupportedChannels); },
      [&](ITask& task, const zqgopher::StringArrayView& channels, zqerr_Status* status) {
        task.performThermocoupleLeadOffsetNullingCalibration(channels, skipUnsupportedChannels != 0, status);
      });
}

ZQ_EXPORT int32 VorexPerformStrainShuntCal(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                           int32 shuntResistorLocation, bool32 skipUnsupportedChannels) {
  return strainShunt("VorexPerformStrainShuntCal", taskHandle, channel, shuntResistorValue, shuntResistorLocation,
                     kShuntResistorSelectDefault, kShuntResistorSourceDefault, skipUnsupportedChannels, false);
}

ZQ_EXPORT int32 VorexPerformStrainShuntCalEx(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                             int32 shuntResistorLocation, int32 shuntResistorSelect,
                                             int32 shuntResistorSource, bool32 skipUnsupportedChannels) {
  return strainShunt("VorexPerformStrainShuntCalEx", taskHandle, channel, shuntResistorValue, shuntResistorLocation,
                     shuntResistorSelect, shuntResistorSource, skipUnsupportedChannels, true);
}

ZQ_EXPORT int32 VorexPerformBridgeShuntCal(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                           int32 shuntResistorLocation, float64 bridgeResistance,
                                           bool32 skipUnsupportedChannels) {
  return bridgeShunt("VorexPerformBridgeShuntCal", taskHandle, channel, shuntResistorValue, shuntResistorLocation,
                     kShuntResistorSelectDefault, kShuntResistorSourceDefault, bridgeResistance,
                     skipUnsupportedChannels, false);
}

ZQ_EXPORT int32 VorexPerformBridgeShuntCalEx(TaskHandle taskHandle, const char* channel, float64 shuntResistorValue,
                                             int32 shuntResistorLocation, int32 shuntResistorSelect,
                                             int32 shuntResistorSource, float64 bridgeResistance,
                                             bool32 skipUnsupportedChannels) {
  return bridgeShunt("VorexPerformBridgeShuntCalEx", taskHandle, channel, shuntResistorValue, shuntResistorLocation,
                     shuntResistorSelect, shuntResistorSource, bridgeResistance, skipUnsupportedChannels, true);
}

ZQ_EXPORT int32 VorexGetAIChanCalCalDate(TaskHandle taskHandle, const char* channelName, uInt32* year,
                                         uInt32* month, uInt32* day, uInt32* hour, uInt32* minute) {
  return getDate("VorexGetAIChanCalCalDate", Vorex_AIChanCalCalDate, taskHandle, channelName,
                 {year, month, day, hour, minute});
}

ZQ_EXPORT int32 VorexSetAIChanCalCalDate(TaskHandle taskHandle, const char* channelName, uInt32 year, uInt32 month,
                                         uInt32 day, uInt32 hour, uInt32 minute) {
  return setDate("VorexSetAIChanCalCalDate", Vorex_AIChanCalCalDate, taskHandle, channelName,
                 {year, month, day, hour, minute});
}

ZQ_EXPORT int32 VorexGetAIChanCalExpDate(TaskHandle taskHandle, const char* channelName, uInt32* year,
                                         uInt32* month, uInt32* day, uInt32* hour, uInt32* minute) {
  return getDate("VorexGetAIChanCalExpDate", Vorex_AIChanCalExpDate, taskHandle, channelName,
                 {year, month, day, hour, minute});
}

ZQ_EXPORT int32 VorexSetAIChanCalExpDate(TaskHandle taskHandle, const char* channelName, uInt32 year, uInt32 month,
                                         uInt32 day, uInt32 hour, uInt32 minute) {
  return setDate("VorexSetAIChanCalExpDate", Vorex_AIChanCalExpDate, taskHandle, channelName,
                 {year, month, day, hour, minute});
}
