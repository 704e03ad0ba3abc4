#include "watchdog/watchdog_creation.h"

#include "boundary/array_view.h"
#include "lasterror/last_error.h"
#include "lifecycle/task_creation.h"
#include "status/error_sites.h"
#include "status/exceptions.h"
#include "tracing/trace.h"
#include "utilities/text_forms.h"
#include "zqcai_rd_mbcs.h"

namespace zqwatchdog {

namespace {

using zqvorexRedir::ITask;

void traceParams(zqtrace::TraceCall& trace, const Request& request, const std::vector<RawPair>* pairs) {
  trace.paramText("deviceName", request.deviceName);
  trace.paramText("taskName", request.taskName);
  trace.param("taskHandle", zqtrace::kPointer, request.taskHandle);
  trace.param("timeout", zqtrace::kF64, request.timeout);
  if (!pairs) return;
  for (const RawPair& pair : *pairs) {
    trace.paramText("lines", pair.lines);
    trace.param("expState", zqtrace::kI32, pair.expState);
  }
  // The null that ends the pairs.
  trace.paramText("lines", nullptr);
}

nZQCAI100::TaskRef build(const Request& request, const std::vector<RawPair>* pairs, zqerr_Status* status) {
  const std::string device = zqutility::trimmedText(request.deviceName, status);
  const std::string name = zqutility::trimmedText(request.taskName, status);
  const ExpirationStates states = pairs ? convertPairs(*pairs, status) : ExpirationStates{};
  nZQCAI100::TaskCreation creation(status);
  const std::string taskName = nZQCAI100::newTaskName(name, status);
  nZQCAI100::TaskRef task =
      creation.make([&](zqvorexRedir::ITaskFactory& factory, auto context, zqerr_Status* s) {
        return factory.createWatchdogTask(std::move(context), device, taskName, s);
      });
  if (!task) return nullptr;
  configureNewWatchdog(*task, request.timeout, states, status);
  // A failure from here on makes the creation's rollback take the task out of the pool.
  return zqerr::isOpen(status) ? task : nullptr;
}

}  // namespace

std::vector<RawPair> collectPairs(const PairSource& source) {
  std::vector<RawPair> pairs;
  RawPair pair{source.lines, source.expState};
  while (pair.lines) {
    pairs.push_back(pair);
    pair.lines = va_arg(*source.rest, const char*);
    if (pair.lines) pair.expState = va_arg(*source.rest, int32_t);
  }
  return pairs;
}

ExpirationStates convertPairs(const std::vector<RawPair>& pairs, zqerr_Status* status) {
  ExpirationStates out;
  for (const RawPair& pair : pairs) {
    if (!zqerr::isOpen(status)) break;
    out.lines.push_back(zqutility::trimmedText(pair.lines, status));
    out.states.push_back(pair.expState);
  }
  return out;
}

void configureNewWatchdog(ITask& task, double timeout, const ExpirationStates& states, zqerr_Status* status) {
  const zqgopher::StringArrayView none;
  task.setDeviceAttributeF64(none, Vorex_WatchdogTimeout, timeout, status);
  const zqgopher::StringArrayView lines(states.lines);
  const zqgopher::ArrayViewAdapter<int32_t> expirStates(states.states);
  task.configureWatchdogDOExpirStates(lines.boundary(), expirStates.boundary(), status);
}

int32_t createTimerTask(const char* function, const Request& request, const PairSource* source) {
  zqtrace::TraceCall trace(function);
  zqerr::Status status;
  std::vector<RawPair> collected;
  try {
    if (source) collected = collectPairs(*source);
  } catch (...) {
    zqerr::convertCurrentException(&status);
  }
  const std::vector<RawPair>* pairs = source ? &collected : nullptr;
  if (trace) {
    traceParams(trace, request, pairs);
    trace.endParams();
  }
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, nullptr, request.taskName);
  if (!request.taskHandle) {
    ZQ_FAIL(&status, kCtaskWatchdogNullHandle);
  } else {
    try {
      nZQCAI100::TaskRef task = build(request, pairs, &status);
      *request.taskHandle = task ? static_cast<zqframe::TaskHandle>(task.get()) : nullptr;
    } catch (...) {
      zqerr::convertCurrentException(&status);
      *request.taskHandle = nullptr;
    }
  }
  trace.retOut("*taskHandle", zqtrace::kOutHandle, request.taskHandle);
  trace.retval(status.code);
  return status.code;
}

}  // namespace zqwatchdog
