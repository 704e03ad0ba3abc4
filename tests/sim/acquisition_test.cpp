// Analog acquisition on the simulated device through the real task and plug-in manager: sample
// counts, values, timing, waits, timeouts, overruns and the reservation of the subsystem.
#include <gtest/gtest.h>

#include <cmath>
#include <thread>

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
  zqvorexRedir::Task& task(const std::string& name = "acquisition") {
    task_ = makeTask(name);
    return *task_;
  }
  std::shared_ptr<zqvorexRedir::Task> task_;
};

TEST_F(Acquisition, FiniteReadGivesExactlyTheSamplesAndTheStoredValues) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai5:6").code, 0);
  ASSERT_EQ(sampleClock(t, 10000, kFinite, 500).code, 0);
  const Samples read = readVoltages(t, -1, 10.0, 2000);
  ASSERT_EQ(read.outcome.code, 0) << read.outcome.report;
  ASSERT_EQ(read.count, 500u);
  for (uint32_t k = 0; k < 500; ++k) {
    ASSERT_EQ(read.data[k], quantized(kConstantVolts, 10)) << k;
    ASSERT_EQ(read.data[500 + k], quantized(-2.5, 10)) << k;
  }
  EXPECT_EQ(read.data[1000], -99.0) << "nothing is written behind the samples";
}

TEST_F(Acquisition, ContinuousReadsDeliverEveryChunkInOrderWithinRange) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai0:3").code, 0);
  // A buffer of 20 s of samples: the test is about order and range, and a busy machine (or
  // ThreadSanitizer) may hold the reader back for a while.
  ASSERT_EQ(sampleClock(t, 100000, kContinuous, 2000000).code, 0);
  ASSERT_EQ(control(t, 0).code, 0);
  uint64_t total = 0;
  for (int chunk = 0; chunk < 10; ++chunk) {
    const Samples read = readVoltages(t, 10000, 10.0, 40000);
    ASSERT_EQ(read.outcome.code, 0) << read.outcome.report;
    ASSERT_EQ(read.count, 10000u);
    total += read.count;
    for (uint32_t c = 0; c < 4; ++c) {
      const double amplitude = 1.0 + 0.5 * c + 0.002;
      for (uint32_t k = 0; k < 10000; ++k) ASSERT_LE(std::fabs(read.data[c * 10000 + k]), amplitude);
    }
  }
  EXPECT_EQ(readU64(t, Vorex_ReadCurrReadPos), total);
}

// The default sine of ai<n> runs at 10 (n + 1) Hz: a second of samples crosses zero upwards
// that many times, give or take the crossing at either end.
class SineFrequency : public Acquisition, public testing::WithParamInterface<uint32_t> {};

TEST_P(SineFrequency, IsFoundFromTheZeroCrossings) {
  const uint32_t input = GetParam();
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai" + std::to_string(input)).code, 0);
  const double rate = 20000;
  ASSERT_EQ(sampleClock(t, rate, kFinite, 40000).code, 0);
  const Samples read = readVoltages(t, -1, 30.0, 40000);
  ASSERT_EQ(read.count, 40000u) << read.outcome.report;
  int crossings = 0;
  for (size_t k = 1; k < read.data.size(); ++k) crossings += read.data[k - 1] < 0 && read.data[k] >= 0;
  const double expected = 10.0 * (input + 1) * 40000 / rate;
  EXPECT_NEAR(crossings, expected, 1.0);
}

INSTANTIATE_TEST_SUITE_P(Inputs, SineFrequency, testing::Values(0u, 1u, 2u, 3u, 9u));

TEST_F(Acquisition, ARecordingPlaysFromTheStartOfTheAcquisition) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai7", 5.0).code, 0);
  ASSERT_EQ(sampleClock(t, 1000, kFinite, 20).code, 0);
  const Samples read = readVoltages(t, -1, 10.0, 20);
  ASSERT_EQ(read.count, 20u) << read.outcome.report;
  for (uint32_t k = 0; k < 20; ++k)
    EXPECT_EQ(read.data[k], quantized(recording()[k % recording().size()], 5.0)) << k;
}

struct RateCase {
  double asked;
  double made;
};

class RateCoercion : public Acquisition, public testing::WithParamInterface<RateCase> {};

TEST_P(RateCoercion, TheAttributeGivesWhatTheTimebaseCanDivide) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(t, GetParam().asked, kContinuous, 1000).code, 0);
  EXPECT_DOUBLE_EQ(timingF64(t, Vorex_SampClkRate), GetParam().made);
}

INSTANTIATE_TEST_SUITE_P(Rates, RateCoercion,
                         testing::Values(RateCase{1000, 1000}, RateCase{3333, 1e8 / 30003},
                                         RateCase{7e5, 1e8 / 143}, RateCase{0.3, 1e8 / 333333333}));

TEST_F(Acquisition, ARateBeyondTheConverterIsRefusedWithItsRange) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai0:3").code, 0);
  const Outcome refused = sampleClock(t, 2e6, kContinuous, 1000);
  EXPECT_EQ(refused.code, nZQMDEV::kErrorSampleRateOutOfRange);
  EXPECT_EQ(itemValue(refused.report, "kUsageTypeMaximumValue"), "1000000");
  EXPECT_EQ(itemValue(refused.report, "kUsageTypeAttributeIdentifier"), std::to_string(Vorex_SampClkRate));
}

TEST_F(Acquisition, AReadWaitsForSamplesThatDoNotExistYet) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai5").code, 0);
  ASSERT_EQ(sampleClock(t, 1000, kContinuous, 1000).code, 0);
  ASSERT_EQ(control(t, 0).code, 0);
  const Samples read = readVoltages(t, 600, 30.0, 600);
  EXPECT_EQ(read.outcome.code, 0) << read.outcome.report;
  EXPECT_EQ(read.count, 600u);
  EXPECT_EQ(read.data[599], quantized(kConstantVolts, 10));
}

TEST_F(Acquisition, AReadThatTimesOutKeepsWhatCameAndSaysWhy) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai5").code, 0);
  ASSERT_EQ(sampleClock(t, 10, kContinuous, 1000).code, 0);
  ASSERT_EQ(control(t, 0).code, 0);
  const Samples read = readVoltages(t, 100000, 0.05, 100000);
  EXPECT_EQ(read.outcome.code, nZQMDEV::kErrorReadTimeout);
  EXPECT_LT(read.count, 100000u);
  EXPECT_EQ(itemValue(read.outcome.report, "kUsageTypeRequestedNumberSamples"), "100000");
  EXPECT_EQ(itemValue(read.outcome.report, "kUsageTypeAvailableSamples"), std::to_string(read.count));
}

// A buffer of 1000 samples that the reader lets fill beyond: an overrun at the next read, or,
// in overwrite mode, the newest samples.
TEST_F(Acquisition, FallingBehindTheBufferIsAnOverrunAtTheNextRead) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai5").code, 0);
  ASSERT_EQ(sampleClock(t, 10000, kContinuous, 1000).code, 0);
  zqerr::Status status;
  t.setBufferAttributeSize(zqgopher::StringArrayView(), 6252, 1000, &status);
  ASSERT_EQ(status.code, 0);
  ASSERT_EQ(control(t, 0).code, 0);
  ASSERT_TRUE(eventually([&] { return readU64(t, Vorex_ReadTotalSampPerChanAcquired) > 1500; }));
  const Samples read = readVoltages(t, 100, 10.0, 100);
  EXPECT_EQ(read.outcome.code, nZQMDEV::kErrorReadOverrun);
  EXPECT_EQ(itemValue(read.outcome.report, "kUsageTypeBufferSizeInSamps"), "1000");
  EXPECT_EQ(readVoltages(t, 100, 10.0, 100).outcome.code, nZQMDEV::kErrorReadOverrun)
      << "the run stays failed";
}

TEST_F(Acquisition, InOverwriteModeAReadGetsTheNewestSamples) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai5").code, 0);
  ASSERT_EQ(sampleClock(t, 10000, kContinuous, 1000).code, 0);
  zqerr::Status status;
  t.setBufferAttributeSize(zqgopher::StringArrayView(), 6252, 1000, &status);
  t.setReadAttributeI32(zqgopher::StringArrayView(), Vorex_ReadOverWrite, kOverwrite, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_EQ(control(t, 0).code, 0);
  ASSERT_TRUE(eventually([&] { return readU64(t, Vorex_ReadTotalSampPerChanAcquired) > 3000; }));
  const Samples read = readVoltages(t, 100, 10.0, 100);
  ASSERT_EQ(read.outcome.code, 0) << read.outcome.report;
  EXPECT_EQ(read.count, 100u);
  EXPECT_GE(readU64(t, Vorex_ReadCurrReadPos), 2000u + 100u);
}

TEST_F(Acquisition, ASecondTaskIsRefusedTheSubsystemWhileTheFirstRuns) {
  auto& first = task("holder");
  ASSERT_EQ(addVoltage(first, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(first, 1000, kContinuous, 1000).code, 0);
  ASSERT_EQ(control(first, 0).code, 0);
  auto second = makeTask("latecomer");
  ASSERT_EQ(addVoltage(*second, "SimDev1/ai1").code, 0);
  const Outcome refused = control(*second, 0);
  EXPECT_EQ(refused.code, nZQMDEV::kErrorResourceReserved);
  EXPECT_EQ(itemValue(refused.report, "kUsageTypeResourceName"), "ai");
  EXPECT_EQ(itemValue(refused.report, "kUsageTypeReservingTaskName"), "holder");
  ASSERT_EQ(control(first, 1).code, 0);
  EXPECT_EQ(control(*second, 0).code, 0) << "the subsystem is free once the first task stops";
  control(*second, 1);
}

TEST_F(Acquisition, AnAbortFromAnotherThreadEndsABlockedRead) {
  auto& t = task();
  ASSERT_EQ(addVoltage(t, "SimDev1/ai5").code, 0);
  ASSERT_EQ(sampleClock(t, 10, kContinuous, 1000).code, 0);
  ASSERT_EQ(control(t, 0).code, 0);
  std::atomic<bool> finished{false};
  Samples read;
  std::thread reader([&] {
    read = readVoltages(t, 100000, -1.0, 100000);
    finished = true;
  });
  // The abort may come before the read blocks; it is repeated until the read has ended.
  const bool ended = eventually([&] {
    zqerr::Status status;
    t.abortTask(&status);
    return finished.load();
  });
  if (!ended) std::abort();
  reader.join();
  EXPECT_EQ(read.outcome.code, nZQMDEV::kErrorOperationAborted);
}

}  // namespace
}  // namespace zqtest::sim
