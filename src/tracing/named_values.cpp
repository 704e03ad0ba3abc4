#include "tracing/named_values.h"

namespace zqtrace {

namespace {

struct NamedValue {
  Literals set;
  int32_t value;
  const char* text;
};

constexpr NamedValue kNamedValues[] = {
    {Literals::kTerminalConfig, -1, "Vorex_Val_Cfg_Default"},
    {Literals::kLineGrouping, 0, "Vorex_Val_ChanPerLine"},
    {Literals::kLineGrouping, 1, "Vorex_Val_ChanForAllLines"},
    {Literals::kSampsPerChan, -1, "Vorex_Val_Auto"},
    {Literals::kGrouping, 0, "Vorex_Val_GroupByChannel"},
    {Literals::kGrouping, 1, "Vorex_Val_GroupByScanNumber"},
    {Literals::kEveryNSamplesEventType, 1, "Vorex_Val_Acquired_Into_Buffer"},
    {Literals::kEveryNSamplesEventType, 2, "Vorex_Val_Transferred_From_Buffer"},
    {Literals::kTaskAction, 0, "Vorex_Val_Task_Start"},
    {Literals::kTaskAction, 1, "Vorex_Val_Task_Stop"},
    {Literals::kTaskAction, 2, "Vorex_Val_Task_Verify"},
    {Literals::kTaskAction, 3, "Vorex_Val_Task_Commit"},
    {Literals::kTaskAction, 4, "Vorex_Val_Task_Reserve"},
    {Literals::kTaskAction, 5, "Vorex_Val_Task_Unreserve"},
    {Literals::kTaskAction, 6, "Vorex_Val_Task_Abort"},
    {Literals::kSignal, 12484, "Vorex_Val_AIConvertClock"},
    {Literals::kSignal, 12536, "Vorex_Val_10MHzRefClock"},
    {Literals::kSignal, 12486, "Vorex_Val_20MHzTimebaseClock"},
    {Literals::kSignal, 12487, "Vorex_Val_SampleClock"},
    {Literals::kSignal, 12488, "Vorex_Val_ReferenceTrigger"},
    {Literals::kSignal, 12491, "Vorex_Val_StartTrigger"},
    {Literals::kSignal, 12492, "Vorex_Val_AIHoldCmpltEvent"},
    {Literals::kSignal, 12494, "Vorex_Val_CounterOutputEvent"},
    {Literals::kSignal, 12511, "Vorex_Val_ChangeDetectionEvent"},
    {Literals::kSignal, 12512, "Vorex_Val_WDTExpiredEvent"},
    {Literals::kSignal, 12530, "Vorex_Val_SampleCompleteEvent"},
};

constexpr double kWaitInfinitely = -1.0;

}  // namespace

const char* namedLiteral(Literals set, int32_t value) noexcept {
  for (const NamedValue& named : kNamedValues)
    if (named.set == set && named.value == value) return named.text;
  return nullptr;
}

const char* namedTimeout(double value) noexcept {
  return value == kWaitInfinitely ? "Vorex_Val_WaitInfinitely" : nullptr;
}

}  // namespace zqtrace
