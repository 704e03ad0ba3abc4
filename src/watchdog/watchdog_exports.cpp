// Watchdog tasks: creation with the timeout and the digital expiration states, the expiration
// states of analog, counter and digital outputs, and control of the timer.
#include <algorithm>
#include <cstdarg>
#include <initializer_list>

#include "zqcai_rd_mbcs.h"

#include "frame/data_call.h"
#include "frame/export.h"
#include "status/error_sites.h"
#include "utilities/text_forms.h"
#include "watchdog/watchdog_creation.h"

namespace {

using zqvorexRedir::ITask;

// What every expiration-state function does before the task sees the arrays: with a size other
// than 0 the names and the arrays must be there, and there must be one name for each element.
template <class Call>
void expirationStates(const char* channelNames, uint32_t arraySize, std::initializer_list<const void*> arrays,
                      ITask* task, zqerr_Status* status, Call&& call) {
  if (!zqerr::isOpen(status)) return;
  if (arraySize != 0 && (!channelNames || std::find(arrays.begin(), arrays.end(), nullptr) != arrays.end())) {
    ZQ_FAIL(status, kWatchdogNullArray);
    return;
  }
  const zqutility::NameList names = zqutility::nameList(zqutility::convertedText(channelNames, status), status);
  if (!zqerr::isOpen(status)) return;
  if (names.names().size() != arraySize) {
    ZQ_FAIL(status, kWatchdogNamesMismatchArraySize);
    return;
  }
  if (task) call(*task, names.view());
}

}  // namespace

ZQ_EXPORT int32 VorexCreateWatchdogTimerTask(const char* deviceName, const char* taskName, TaskHandle* taskHandle,
                                             float64 timeout, const char* lines, int32 expState, ...) {
  std::va_list rest;
  va_start(rest, expState);
  const zqwatchdog::PairSource pairs{lines, expState, &rest};
  const int32_t code = zqwatchdog::createTimerTask("VorexCreateWatchdogTimerTask",
                                                   {deviceName, taskName, taskHandle, timeout}, &pairs);
  va_end(rest);
  return code;
}

ZQ_EXPORT int32 VorexCreateWatchdogTimerTaskEx(const char* deviceName, const char* taskName, TaskHandle* taskHandle,
                                               float64 timeout) {
  return zqwatchdog::createTimerTask("VorexCreateWatchdogTimerTaskEx", {deviceName, taskName, taskHandle, timeout},
                                     nullptr);
}

ZQ_EXPORT int32 VorexCfgWatchdogAOExpirStates(TaskHandle taskHandle, const char* channelNames,
                                              const float64 expirStateArray[], const int32 outputTypeArray[],
                                              uInt32 arraySize) {
  return zqframe::dataCallFrame(
      "VorexCfgWatchdogAOExpirStates", taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramText("channelNames", channelNames);
        trace.paramArray("expirStateArray", zqtrace::kF64Array, expirStateArray, arraySize);
        trace.paramArray("outputTypeArray", zqtrace::kI32Array, outputTypeArray, arraySize);
        trace.param("arraySize", zqtrace::kWatchdogArraySize, arraySize);
      },
      [&](ITask* task, zqerr_Status* status) {
        expirationStates(channelNames, arraySize, {expirStateArray, outputTypeArray}, task, status,
                         [&](ITask& t, const zqgopher::StringArrayView& names) {
                           const zqgopher::ArrayViewAdapter<int32_t> types(outputTypeArray, arraySize, status);
                           const zqgopher::ArrayViewAdapter<double> states(expirStateArray, arraySize, status);
                           t.configureWatchdogAOExpirStates(names.boundary(), types.boundary(), states.boundary(),
                                                            status);
                         });
      },
      [](zqtrace::TraceCall&) {});
}

namespace {

// The counter and digital forms: one array of 32-bit states.
template <auto Op>
int32_t integerStates(const char* function, TaskHandle taskHandle, const char* channelNames,
                      const int32 expirStateArray[], uInt32 arraySize) {
  return zqframe::dataCallFrame(
      function, taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramText("channelNames", channelNames);
        trace.paramArray("expirStateArray", zqtrace::kI32Array, expirStateArray, arraySize);
        trace.param("arraySize", zqtrace::kWatchdogArraySize, arraySize);
      },
      [&](ITask* task, zqerr_Status* status) {
        expirationStates(channelNames, arraySize, {expirStateArray}, task, status,
                         [&](ITask& t, const zqgopher::StringArrayView& names) {
                           const zqgopher::ArrayViewAdapter<int32_t> states(expirStateArray, arraySize, status);
                           (t.*Op)(names.boundary(), states.boundary(), status);
                         });
      },
      [](zqtrace::TraceCall&) {});
}

}  // namespace

ZQ_EXPORT int32 VorexCfgWatchdogCOExpirStates(TaskHandle taskHandle, const char* channelNames,
                                              const int32 expirStateArray[], uInt32 arraySize) {
  return integerStates<&ITask::configureWatchdogCOExpirStates>("VorexCfgWatchdogCOExpirStates", taskHandle,
                                                               channelNames, expirStateArray, arraySize);
}

ZQ_EXPORT int32 VorexCfgWatchdogDOExpirStates(TaskHandle taskHandle, const char* channelNames,
                                              const int32 expirStateArray[], uInt32 arraySize) {
  return integerStates<&ITask::configureWatchdogDOExpirStates>("VorexCfgWatchdogDOExpirStates", taskHandle,
                                                               channelNames, expirStateArray, arraySize);
}

ZQ_EXPORT int32 VorexControlWatchdogTask(TaskHandle taskHandle, int32 action) {
  return zqframe::dataCallFrame(
      "VorexControlWatchdogTask", taskHandle,
      [&](zqtrace::TraceCall& trace) { trace.param("action", zqtrace::kI32, action); },
      [&](ITask* task, zqerr_Status* status) {
        if (task) task->controlWatchdogTask(action, status);
      },
      [](zqtrace::TraceCall&) {});
}
