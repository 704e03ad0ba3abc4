// The 27 values that the trace shows by name, each only for its own kind of parameter.
#include "tracing/named_values.h"

#include <gtest/gtest.h>

#include <iterator>

namespace {

using zqtrace::Literals;
using zqtrace::namedLiteral;

struct Named {
  Literals set;
  int32_t value;
  const char* text;
};

const Named kAll[] = {
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

const Literals kSets[] = {Literals::kTerminalConfig, Literals::kLineGrouping, Literals::kSampsPerChan,
                          Literals::kGrouping,       Literals::kEveryNSamplesEventType, Literals::kTaskAction,
                          Literals::kSignal};

TEST(NamedValues, EachValueHasItsLiteral) {
  for (const Named& n : kAll) {
    const char* literal = namedLiteral(n.set, n.value);
    ASSERT_NE(literal, nullptr) << n.text;
    EXPECT_STREQ(literal, n.text);
  }
}

// A value is named only in its own set: 0 is a line grouping and a task action, never a
// terminal configuration; a signal number means nothing to the task actions.
TEST(NamedValues, EveryOtherValueOfEachSetIsANumber) {
  const int32_t probes[] = {-2, -1, 0, 1, 2, 3, 6, 7, 12483, 12484, 12485, 12486, 12489, 12490, 12491, 12530, 12536, 12537};
  for (Literals set : kSets)
    for (int32_t value : probes) {
      bool expected = false;
      for (const Named& n : kAll) expected = expected || (n.set == set && n.value == value);
      EXPECT_EQ(namedLiteral(set, value) != nullptr, expected)
          << "set " << static_cast<int>(set) << " value " << value;
    }
}

}  // namespace
