#include "configure.h"

#include "attribute_table.h"
#include "attributes.h"
#include "run_setup.h"
#include "sim_values.h"
#include "text_util.h"

namespace zqsim {

namespace {

using namespace val;
// Seconds from 1904-01-01 to 1970-01-01.
constexpr double kEpochOffset = 2082844800.0;

std::string text(const char* value) { return std::string(trim(value ? value : "")); }

}  // namespace

bool setTaskSettings(SimTask& task, const std::vector<std::pair<int32_t, Value>>& settings,
                     zqerr_Status* status) {
  if (!isOpen(status)) return false;
  std::lock_guard<std::mutex> guard(task.mutex);
  if (task.running) {
    SIM_FAIL(status, nZQMDEV::kErrorTaskRunning, Items().text(usage::kTaskName, task.name));
    return false;
  }
  std::vector<std::pair<int32_t, Value>> checked;
  for (auto [id, value] : settings) {
    const AttrDef* def = findAttribute(id);
    if (def) {
      value.type = def->type;
      if (def->flags & kCoerced) {
        if (!checkRate(task, value.real, status)) return false;
        value.real = coerceRate(value.real);
      } else if (!checkValue(*def, value, status)) {
        return false;
      }
    }
    checked.emplace_back(id, std::move(value));
  }
  for (auto& [id, value] : checked) task.storeFor(id)[id] = std::move(value);
  task.invalidate();
  return true;
}

void configureSampleClock(SimTask& task, const char* source, double rate, int32_t edge, int32_t mode,
                          uint64_t samples, zqerr_Status* status) {
  setTaskSettings(task,
                  {{Vorex_SampTimingType, Value::i32(kSampClk)},
                   {Vorex_SampClkSrc, Value::string(text(source))},
                   {Vorex_SampClkRate, Value::f64(rate)},
                   {Vorex_SampClkActiveEdge, Value::i32(edge)},
                   {Vorex_SampQuantSampMode, Value::i32(mode)},
                   {Vorex_SampQuantSampPerChan, Value::u64(samples)}},
                  status);
}

void configureImplicit(SimTask& task, int32_t mode, uint64_t samples, zqerr_Status* status) {
  setTaskSettings(task,
                  {{Vorex_SampTimingType, Value::i32(kImplicit)},
                   {Vorex_SampQuantSampMode, Value::i32(mode)},
                   {Vorex_SampQuantSampPerChan, Value::u64(samples)}},
                  status);
}

void configureDigitalEdge(SimTask& task, bool reference, const char* source, int32_t edge,
                          uint32_t pretrigger, zqerr_Status* status) {
  if (reference) {
    setTaskSettings(task,
                    {{Vorex_RefTrigType, Value::i32(kDigEdge)},
                     {Vorex_DigEdgeRefTrigSrc, Value::string(text(source))},
                     {Vorex_DigEdgeRefTrigEdge, Value::i32(edge)},
                     {Vorex_RefTrigPreTrigSamples, Value::u32(pretrigger)}},
                    status);
    return;
  }
  setTaskSettings(task,
                  {{Vorex_StartTrigType, Value::i32(kDigEdge)},
                   {Vorex_DigEdgeStartTrigSrc, Value::string(text(source))},
                   {Vorex_DigEdgeStartTrigEdge, Value::i32(edge)}},
                  status);
}

void configureAnalogEdge(SimTask& task, bool reference, const char* source, int32_t slope, double level,
                         uint32_t pretrigger, zqerr_Status* status) {
  if (reference) {
    setTaskSettings(task,
                    {{Vorex_RefTrigType, Value::i32(kAnlgEdge)},
                     {Vorex_AnlgEdgeRefTrigSrc, Value::string(text(source))},
                     {Vorex_AnlgEdgeRefTrigSlope, Value::i32(slope)},
                     {Vorex_AnlgEdgeRefTrigLvl, Value::f64(level)},
                     {Vorex_RefTrigPreTrigSamples, Value::u32(pretrigger)}},
                    status);
    return;
  }
  setTaskSettings(task,
                  {{Vorex_StartTrigType, Value::i32(kAnlgEdge)},
                   {Vorex_AnlgEdgeStartTrigSrc, Value::string(text(source))},
                   {Vorex_AnlgEdgeStartTrigSlope, Value::i32(slope)},
                   {Vorex_AnlgEdgeStartTrigLvl, Value::f64(level)}},
                  status);
}

void configureAnalogWindow(SimTask& task, bool reference, const char* source, int32_t when, double top,
                           double bottom, uint32_t pretrigger, zqerr_Status* status) {
  if (reference) {
    setTaskSettings(task,
                    {{Vorex_RefTrigType, Value::i32(kAnlgWin)},
                     {Vorex_AnlgWinRefTrigSrc, Value::string(text(source))},
                     {Vorex_AnlgWinRefTrigTrigWhen, Value::i32(when)},
                     {Vorex_AnlgWinRefTrigTop, Value::f64(top)},
                     {Vorex_AnlgWinRefTrigBtm, Value::f64(bottom)},
                     {Vorex_RefTrigPreTrigSamples, Value::u32(pretrigger)}},
                    status);
    return;
  }
  setTaskSettings(task,
                  {{Vorex_StartTrigType, Value::i32(kAnlgWin)},
                   {Vorex_AnlgWinStartTrigSrc, Value::string(text(source))},
                   {Vorex_AnlgWinStartTrigTrigWhen, Value::i32(when)},
                   {Vorex_AnlgWinStartTrigTop, Value::f64(top)},
                   {Vorex_AnlgWinStartTrigBtm, Value::f64(bottom)}},
                  status);
}

void configureDigitalPattern(SimTask& task, bool reference, const zqgopher_ArrayView* sources,
                             const char* pattern, int32_t when, uint32_t pretrigger, zqerr_Status* status) {
  std::vector<std::string> lines;
  for (uint64_t i = 0; sources && i < sources->count; ++i) {
    const char* line = zqgopher_ArrayView_strings(sources)[i];
    if (line) lines.emplace_back(line);
  }
  if (reference) {
    setTaskSettings(task,
                    {{Vorex_RefTrigType, Value::i32(kDigPattern)},
                     {Vorex_DigPatternRefTrigSrc, Value::strings(lines)},
                     {Vorex_DigPatternRefTrigPattern, Value::string(text(pattern))},
                     {Vorex_DigPatternRefTrigTrigWhen, Value::i32(when)},
                     {Vorex_RefTrigPreTrigSamples, Value::u32(pretrigger)}},
                    status);
    return;
  }
  setTaskSettings(task,
                  {{Vorex_StartTrigType, Value::i32(kDigPattern)},
                   {Vorex_DigPatternStartTrigSrc, Value::strings(lines)},
                   {Vorex_DigPatternStartTrigPattern, Value::string(text(pattern))},
                   {Vorex_DigPatternStartTrigTrigWhen, Value::i32(when)}},
                  status);
}

void configureTimeStart(SimTask& task, zqvorexPlugin_AbsoluteTime when, int32_t, zqerr_Status* status) {
  // Kept as seconds of the calendar since 1970; the run turns it into the device's time.
  const double unixSeconds = static_cast<double>(when.seconds) - kEpochOffset +
                             static_cast<double>(when.fraction) / 18446744073709551616.0;
  setTaskSettings(
      task, {{Vorex_StartTrigType, Value::i32(kTime)}, {Vorex_TimeStartTrigWhen, Value::f64(unixSeconds)}},
      status);
}

void disableTrigger(SimTask& task, bool reference, zqerr_Status* status) {
  setTaskSettings(task, {{reference ? Vorex_RefTrigType : Vorex_StartTrigType, Value::i32(kNone)}}, status);
}

}  // namespace zqsim
