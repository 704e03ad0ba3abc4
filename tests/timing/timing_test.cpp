// The timing functions against the recording task: each reaches its operation with its
// arguments in order and width, texts trimmed and lists split after trimming; and the two waits.
#include <gtest/gtest.h>

#include "timing_operation_cases.h"

namespace zqtest {
namespace {

// More samples than 32 bits hold, so that a narrowing shows.
constexpr uInt64 kSamples = 0x100000005ull;

const OperationCase kCases[] = {
    {"SampClk", [](TaskHandle t) { return VorexCfgSampClkTiming(t, " \tPFI7 \n", 1e6 + 0.5, 10280, 10178, kSamples); },
     "configureSampleClockTiming",
     {{"source", "PFI7"}, {"rate", "1000000.5"}, {"activeEdge", "10280"}, {"sampleMode", "10178"},
      {"sampsPerChan", "4294967301"}}},
    {"PipelinedSampClk",
     [](TaskHandle t) { return VorexCfgPipelinedSampClkTiming(t, "PFI1 ", 250.25, -3, 10123, 7); },
     "configurePipelinedSampleClockTiming",
     {{"source", "PFI1"}, {"rate", "250.25"}, {"activeEdge", "-3"}, {"sampleMode", "10123"}, {"sampsPerChan", "7"}}},
    {"Handshaking", [](TaskHandle t) { return VorexCfgHandshakingTiming(t, 10178, kSamples); },
     "configureHandshakingTiming", {{"sampleMode", "10178"}, {"sampsPerChan", "4294967301"}}},
    {"Implicit", [](TaskHandle t) { return VorexCfgImplicitTiming(t, -70000, 0); }, "configureImplicitTiming",
     {{"sampleMode", "-70000"}, {"sampsPerChan", "0"}}},
    {"ChangeDetection",
     [](TaskHandle t) { return VorexCfgChangeDetectionTiming(t, " a, b ", nullptr, 10123, kSamples); },
     "configureChangeDetectionTiming",
     {{"risingEdgeChan", "a, b"}, {"fallingEdgeChan", ""}, {"sampleMode", "10123"}, {"sampsPerChan", "4294967301"}}},
    {"BurstImport",
     [](TaskHandle t) {
       return VorexCfgBurstHandshakingTimingImportClock(t, 10178, 12, 2e7, "  PFI2", 10171, 10192, -1);
     },
     "configureBurstHandshakingTimingImportClock",
     {{"sampleMode", "10178"}, {"sampsPerChan", "12"}, {"sampleClkRate", "2e+07"}, {"sampleClkSrc", "PFI2"},
      {"sampleClkActiveEdge", "10171"}, {"pauseWhen", "10192"}, {"readyEventActiveLevel", "-1"}}},
    {"BurstExport",
     [](TaskHandle t) {
       return VorexCfgBurstHandshakingTimingExportClock(t, 10123, kSamples, 1.5, " PFI4,PFI5:6 ", 10192, 1, 2);
     },
     "configureBurstHandshakingTimingExportClock",
     {{"sampleMode", "10123"}, {"sampsPerChan", "4294967301"}, {"sampleClkRate", "1.5"},
      {"sampleClkOutpTerm", "PFI4, PFI5, PFI6"}, {"sampleClkPulsePolarity", "10192"}, {"pauseWhen", "1"},
      {"readyEventActiveLevel", "2"}}},
};

class Timing : public ReachesOperation {};
TEST_P(Timing, ReachesItsOperationWithTheArgumentsInOrder) { check(); }
INSTANTIATE_TEST_SUITE_P(Functions, Timing, testing::ValuesIn(kCases), operationCaseName);

TEST(TimingText, AListTheParserRefusesStaysInTheStatus) {
  auto task = RecordingTask::create();
  EXPECT_EQ(VorexCfgChangeDetectionTiming(task->handle(), "ai0:", "b", 10123, 1), -200498);
}

// --- waits ----------------------------------------------------------------------------------

TEST(WaitForNextSampleClock, TellsWhetherTheTaskIsLateWithOrWithoutAFlag) {
  auto task = RecordingTask::create();
  bool32 late = 7;
  task->on("waitForNextSampleClock").out(true);
  ASSERT_EQ(VorexWaitForNextSampleClock(task->handle(), 2.5, &late), 0);
  EXPECT_EQ(late, 1u);
  EXPECT_EQ(task->lastCall().text("timeout"), "2.5");
  EXPECT_EQ(VorexWaitForNextSampleClock(task->handle(), -1, nullptr), 0);
  EXPECT_EQ(task->callCount("waitForNextSampleClock"), 2u) << "a wait without a flag still waits";
  task->on("waitForNextSampleClock").out(false);
  ASSERT_EQ(VorexWaitForNextSampleClock(task->handle(), 2.5, &late), 0);
  EXPECT_EQ(late, 0u);
  late = 7;
  EXPECT_EQ(VorexWaitForNextSampleClock(nullptr, 1, &late), -200230);
  EXPECT_EQ(late, 0u) << "a failed lookup clears the flag";
}

TEST(WaitForValidTimestamp, ThePluginWritesTheCallersTimeAndANullTimeIsRefused) {
  auto task = RecordingTask::create();
  const zqvorexPlugin_AbsoluteTime written{0x8000000000000000ull, 3786825600};
  task->on("waitForValidTimestamp").out(written);
  VorexAbsoluteTime time{1, 2};
  ASSERT_EQ(VorexWaitForValidTimestamp(task->handle(), 99999, 10, &time), 0);
  EXPECT_EQ(time.fraction, written.fraction);
  EXPECT_EQ(time.seconds, written.seconds);
  EXPECT_EQ(task->lastCall().text("timestampEvent"), "99999") << "an event outside the table goes unchanged";
  task->clearCalls();
  EXPECT_EQ(VorexWaitForValidTimestamp(task->handle(), 12491, 10, nullptr), -200604);
  EXPECT_TRUE(task->calls().empty());
  EXPECT_EQ(VorexWaitForValidTimestamp(nullptr, 12491, 10, nullptr), -200230) << "the handle's error comes first";
}

}  // namespace
}  // namespace zqtest
