// Analog acquisition on the simulated device through the real task and plug-in manager: sample
// counts, stored values, timing, timeouts and the overwrite mode. The default sines, reads that
// wait, overruns, aborts and the reservation of a subsystem are driven through the public
// interface in sim_e2e.
#include <gtest/gtest.h>

#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

class Acquisition : public testing::Test {
 protected:
  void TearDown() override {
    if (task_) control(*task_, 1);
  }
  zqvorexRedir::Task& task(const std::string& physical, double rate, int32_t mode, uint64_t samples,
                           double range = 10.0) {
    task_ = clockedVoltage("acquisition", physical, rate, mode, samples, range);
    return *task_;
  }
  std::shared_ptr<zqvorexRedir::Task> task_;
};

TEST_F(Acquisition, FiniteReadGivesExactlyTheSamplesAndTheStoredValues) {
  auto& t = task("SimDev1/ai5:6", 10000, Vorex_Val_FiniteSamps, 500);
  const Samples read = readVoltages(t, -1, 10.0, 2000);
  ASSERT_EQ(read.outcome.code, 0) << read.outcome.report;
  ASSERT_EQ(read.count, 500u);
  for (uint32_t k = 0; k < 500; ++k) {
    ASSERT_EQ(read.data[k], quantized(kConstantVolts, 10)) << k;
    ASSERT_EQ(read.data[500 + k], quantized(-2.5, 10)) << k;
  }
  EXPECT_EQ(read.data[1000], -99.0) << "nothing is written behind the samples";
}

TEST_F(Acquisition, ARecordingPlaysFromTheStartOfTheAcquisition) {
  auto& t = task("SimDev1/ai7", 1000, Vorex_Val_FiniteSamps, 20, 5.0);
  const Samples read = readVoltages(t, -1, 10.0, 20);
  ASSERT_EQ(read.count, 20u) << read.outcome.report;
  for (uint32_t k = 0; k < 20; ++k)
    EXPECT_EQ(read.data[k], quantized(recording()[k % recording().size()], 5.0)) << k;
}

TEST_F(Acquisition, ARateBeyondTheConverterIsRefusedWithItsRange) {
  auto t = makeTask("too fast");
  ASSERT_EQ(addVoltage(*t, "SimDev1/ai0:3").code, 0);
  const Outcome refused = sampleClock(*t, 2e6, Vorex_Val_ContSamps, 1000);
  EXPECT_EQ(refused.code, nZQMDEV::kErrorSampleRateOutOfRange);
  EXPECT_EQ(itemValue(refused.report, "kUsageTypeMaximumValue"), "1000000");
  EXPECT_EQ(itemValue(refused.report, "kUsageTypeAttributeIdentifier"), std::to_string(Vorex_SampClkRate));
}

// The rate asked for is one the timebase cannot divide: the attribute gives the one it makes.
TEST_F(Acquisition, TheRateIsTheOneTheTimebaseMakes) {
  auto& t = task("SimDev1/ai5", 3333, Vorex_Val_ContSamps, 1000);
  EXPECT_DOUBLE_EQ(timingF64(t, Vorex_SampClkRate), 1e8 / 30003);
}

TEST_F(Acquisition, AReadThatTimesOutKeepsWhatCameAndSaysWhy) {
  auto& t = task("SimDev1/ai5", 10, Vorex_Val_ContSamps, 1000);
  ASSERT_EQ(control(t, 0).code, 0);
  const Samples read = readVoltages(t, 100000, 0.05, 100000);
  EXPECT_EQ(read.outcome.code, nZQMDEV::kErrorReadTimeout);
  EXPECT_LT(read.count, 100000u);
  EXPECT_EQ(itemValue(read.outcome.report, "kUsageTypeRequestedNumberSamples"), "100000");
  EXPECT_EQ(itemValue(read.outcome.report, "kUsageTypeAvailableSamples"), std::to_string(read.count));
}

TEST_F(Acquisition, InOverwriteModeAReadGetsTheNewestSamples) {
  auto& t = task("SimDev1/ai5", 10000, Vorex_Val_ContSamps, 1000);
  zqerr::Status status;
  t.setBufferAttributeSize(zqgopher::StringArrayView(), Vorex_BufInputBufSize, 1000, &status);
  t.setReadAttributeI32(zqgopher::StringArrayView(), Vorex_ReadOverWrite, Vorex_Val_OverwriteUnreadSamps, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_EQ(control(t, 0).code, 0);
  ASSERT_TRUE(eventually([&] { return readU64(t, Vorex_ReadTotalSampPerChanAcquired) > 3000; }));
  const Samples read = readVoltages(t, 100, 10.0, 100);
  ASSERT_EQ(read.outcome.code, 0) << read.outcome.report;
  EXPECT_EQ(read.count, 100u);
  EXPECT_GE(readU64(t, Vorex_ReadCurrReadPos), 2000u + 100u);
}

}  // namespace
}  // namespace zqtest::sim
