// Attributes from the plug-in's table: what the device lacks, what may not be set, what lies
// outside its range, and what a channel keeps and gives back.
#include <gtest/gtest.h>

#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

std::shared_ptr<zqvorexRedir::Task> voltageTask() {
  auto task = makeTask("attributes");
  EXPECT_EQ(addVoltage(*task, "SimDev1/ai0:1").code, 0);
  return task;
}

const std::vector<std::string> kFirst{"SimDev1/ai0"};

struct Refusal {
  const char* what;
  std::function<void(zqvorexRedir::ITask&, zqerr_Status*)> call;
  int32_t code;
  int32_t attribute;
};

class Refused : public testing::TestWithParam<Refusal> {};

TEST_P(Refused, WithItsCodeAndTheAttributeInTheReport) {
  auto task = voltageTask();
  zqerr::Status status;
  GetParam().call(*task, &status);
  EXPECT_EQ(status.code, GetParam().code) << (status.report ? status.report : "");
  EXPECT_EQ(itemValue(status.report ? status.report : "", "kUsageTypeAttributeIdentifier"),
            std::to_string(GetParam().attribute));
}

INSTANTIATE_TEST_SUITE_P(
    Attributes, Refused,
    testing::Values(
        Refusal{"an attribute the device lacks",
                [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                  t.getChannelAttributeF64(zqgopher::StringArrayView(kFirst), Vorex_AIImpedance, s);
                },
                nZQMSTS::kErrorAttributeNotSupportedInTaskContext, Vorex_AIImpedance},
        Refusal{"a counter attribute on an analog input",
                [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                  t.getChannelAttributeF64(zqgopher::StringArrayView(kFirst), Vorex_COPulseFreq, s);
                },
                nZQMSTS::kErrorAttributeNotSupportedInTaskContext, Vorex_COPulseFreq},
        Refusal{"a read-only attribute",
                [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                  t.setChannelAttributeI32(zqgopher::StringArrayView(kFirst), Vorex_AIMeasType, 10134, s);
                },
                nZQMSTS100::kErrorAttrCannotBeSet, Vorex_AIMeasType},
        Refusal{"a value outside an attribute's list",
                [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                  t.setTimingAttributeI32(zqgopher::StringArrayView(), Vorex_SampQuantSampMode, 12345, s);
                },
                nZQMDEV::kErrorValueOutOfRange, Vorex_SampQuantSampMode},
        Refusal{"a rate the converter cannot make",
                [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                  t.setTimingAttributeF64(zqgopher::StringArrayView(), Vorex_SampClkRate, 0.01, s);
                },
                nZQMDEV::kErrorSampleRateOutOfRange, Vorex_SampClkRate}),
    [](const testing::TestParamInfo<Refusal>& info) { return "case" + std::to_string(info.index); });

TEST(Attributes, AValueOutOfRangeCarriesTheValueAndTheRange) {
  auto task = voltageTask();
  zqerr::Status status;
  task->setTimingAttributeU64(zqgopher::StringArrayView(), Vorex_SampQuantSampPerChan, 0, &status);
  const std::string report = status.report;
  EXPECT_EQ(status.code, nZQMDEV::kErrorValueOutOfRange);
  EXPECT_EQ(itemValue(report, "kUsageTypeAttributeIdentifier"), std::to_string(Vorex_SampQuantSampPerChan));
  EXPECT_EQ(itemValue(report, "kUsageTypeValueRequested"), "0");
  EXPECT_EQ(itemValue(report, "kUsageTypeMinimumValue"), "1");
  EXPECT_NE(report.find("\"comment\":\"SampQuantSampPerChan\""), std::string::npos) << report;
}

TEST(Attributes, AChannelSettingIsKeptAndAResetGivesBackTheCreatedOne) {
  auto task = voltageTask();
  const zqgopher::StringArrayView first(kFirst);
  zqerr::Status status;
  task->setChannelAttributeF64(first, Vorex_AIMax, 5.0, &status);
  task->setChannelAttributeF64(first, Vorex_AIMin, -5.0, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_EQ(task->getChannelAttributeF64(first, Vorex_AIMax, &status), 5.0);
  EXPECT_EQ(task->getChannelAttributeF64(first, Vorex_AIRngHigh, &status), 5.0)
      << "the device range that holds it";
  const std::vector<std::string> second{"SimDev1/ai1"};
  EXPECT_EQ(task->getChannelAttributeF64(zqgopher::StringArrayView(second), Vorex_AIMax, &status), 10.0);
  task->resetChannelAttributeF64(first, Vorex_AIMax, &status);
  EXPECT_EQ(task->getChannelAttributeF64(first, Vorex_AIMax, &status), 10.0);
  EXPECT_EQ(status.code, 0);
}

TEST(Attributes, TheTaskNamesItsChannelsAndDevice) {
  auto task = voltageTask();
  zqerr::Status status;
  std::vector<std::string> channels;
  zqgopher::ItemAdderAdapter<std::string> channelList(channels);
  task->getTaskAttributeStringVtr(Vorex_TaskChannels, channelList.boundary(), &status);
  std::vector<std::string> devices;
  zqgopher::ItemAdderAdapter<std::string> deviceList(devices);
  task->getTaskAttributeStringVtr(Vorex_TaskDevices, deviceList.boundary(), &status);
  std::string physical;
  zqgopher::StringAdapter text(physical);
  task->getChannelAttributeString(zqgopher::StringArrayView(kFirst), Vorex_PhysicalChanName, text.boundary(),
                                  &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_EQ(channels, (std::vector<std::string>{"SimDev1/ai0", "SimDev1/ai1"}));
  EXPECT_EQ(devices, (std::vector<std::string>{"SimDev1"}));
  EXPECT_EQ(physical, "SimDev1/ai0");
}

TEST(Attributes, TimingCannotChangeWhileTheTaskRuns) {
  auto task = voltageTask();
  ASSERT_EQ(sampleClock(*task, 1000, Vorex_Val_ContSamps, 1000).code, 0);
  ASSERT_EQ(control(*task, 0).code, 0);
  zqerr::Status status;
  task->setTimingAttributeF64(zqgopher::StringArrayView(), Vorex_SampClkRate, 2000, &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorTaskRunning);
  zqerr::Status read;
  task->setReadAttributeI32(zqgopher::StringArrayView(), Vorex_ReadRelativeTo, Vorex_Val_CurrReadPos, &read);
  EXPECT_EQ(read.code, 0) << "read settings may change while the task runs";
  control(*task, 1);
}

}  // namespace
}  // namespace zqtest::sim
