// The generic entries where the walk of every id does not look: the size query and the buffer of
// a text through the variable part, a ParmInfo that is null or whose time is, the fallback of the
// device-list Timing entries, and whose last error stands.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "../frame/last_error_probe.h"
#include "parm_slots.h"
#include "recording_task.h"

namespace zqtest {
namespace {

class GenericEdges : public testing::Test {
 protected:
  void SetUp() override { clearLastError(); }
  std::shared_ptr<RecordingTask> task = RecordingTask::create();
};

TEST_F(GenericEdges, ATextGetTakesItsBufferSizeFromTheVariablePart) {
  task->on("getChannelAttributeString").text("Volts");
  EXPECT_EQ(VorexGetChanAttribute(task->handle(), "ai0", Vorex_AICustomScaleName, nullptr, 0u), 6);
  char buffer[6];
  EXPECT_EQ(VorexGetChanAttribute(task->handle(), "ai0", Vorex_AICustomScaleName, buffer, 6u), 0);
  EXPECT_STREQ(buffer, "Volts");
  EXPECT_EQ(VorexGetChanAttribute(task->handle(), "ai0", Vorex_AICustomScaleName, buffer, 5u), -200228);
  // A null ParmInfo reads as zeros: a size of 0 asks for the size.
  EXPECT_EQ(__VorexGetChanAttributeFromParmInfo(task->handle(), "ai0", Vorex_AICustomScaleName, buffer, nullptr), 6);
}

TEST_F(GenericEdges, ATimeSetWithoutARecordIsRefused) {
  const Slots none{0, 0};
  EXPECT_EQ(__VorexSetTrigAttributeFromParmInfo(task->handle(), Vorex_TimeStartTrigWhen, none.data()), -200604);
  EXPECT_EQ(__VorexSetTrigAttributeFromParmInfo(task->handle(), Vorex_TimeStartTrigWhen, nullptr), -200604);
  EXPECT_EQ(lastErrorItems(),
            itemList({usageItem("kUsageTypeAttributeIdentifier", Vorex_TimeStartTrigWhen, "int32_t")}));
  EXPECT_TRUE(task->calls().empty());
}

struct FallbackCase {
  const char* deviceNames;
  int32 id;
  int32 code;           // what the device-list entry answers
  const char* op;       // the operation it reaches, or null
};

class TimingExFallback : public GenericEdges, public testing::WithParamInterface<FallbackCase> {};

TEST_P(TimingExFallback, APlainTimingIdNeedsABlankDeviceList) {
  const FallbackCase& c = GetParam();
  task->on("getTimingAttributeU64").value(uint64_t{1000});
  uInt64 value = 0;
  EXPECT_EQ(VorexGetTimingAttributeEx(task->handle(), c.deviceNames, c.id, &value), c.code);
  EXPECT_EQ(task->calls().size(), c.op ? 1u : 0u);
  if (c.op) {
    EXPECT_EQ(task->lastCall().op, c.op);
    EXPECT_EQ(task->lastCall().channels, std::vector<std::string>{}) << "the plain accessor has no list";
    EXPECT_EQ(value, 1000u);
  } else {
    EXPECT_EQ(lastErrorItems(), itemList({usageItem("kUsageTypeAttributeIdentifier", c.id, "int32_t")}));
  }
}

INSTANTIATE_TEST_SUITE_P(
    DeviceLists, TimingExFallback,
    testing::Values(FallbackCase{"", Vorex_SampQuantSampPerChan, 0, "getTimingAttributeU64"},
                    FallbackCase{nullptr, Vorex_SampQuantSampPerChan, 0, "getTimingAttributeU64"},
                    FallbackCase{" \t\r\n\f\v", Vorex_SampQuantSampPerChan, 0, "getTimingAttributeU64"},
                    FallbackCase{"Dev1", Vorex_SampQuantSampPerChan, -200233, nullptr},
                    FallbackCase{" , ", Vorex_SampQuantSampPerChan, -200233, nullptr},
                    FallbackCase{"", -1, -200233, nullptr},
                    FallbackCase{"", Vorex_AIMax, -200233, nullptr}));

TEST_F(GenericEdges, AnExIdKeepsItsDeviceListWhateverItHolds) {
  task->on("getTimingAttributeF64").value(2e6);
  float64 rate = 0;
  EXPECT_EQ(VorexGetTimingAttributeEx(task->handle(), "", Vorex_AIConvRate, &rate), 0);
  EXPECT_EQ(rate, 2e6);
  EXPECT_EQ(task->lastCall().channels, std::vector<std::string>{});
  EXPECT_EQ(VorexSetTimingAttributeEx(task->handle(), "Dev1", Vorex_AIConvMaxRate, 1.0), -200231);
  EXPECT_EQ(VorexResetTimingAttributeEx(task->handle(), " ", Vorex_SampQuantSampPerChan), 0);
  EXPECT_EQ(task->lastCall().op, "resetTimingAttributeU64");
}

// With a good handle the entry leaves the accessor's failure in the last-error slot as it was.
TEST_F(GenericEdges, AFailingAccessorsReportStands) {
  task->on("getReadAttributeU32").status(-201003);
  uInt32 value = 9;
  EXPECT_EQ(VorexGetReadAttribute(task->handle(), Vorex_ReadNumChans, &value), -201003);
  EXPECT_EQ(value, 0u);
  EXPECT_EQ(lastErrorCode(), -201003);
  EXPECT_EQ(lastErrorItems(), "<none>");
}

}  // namespace
}  // namespace zqtest
