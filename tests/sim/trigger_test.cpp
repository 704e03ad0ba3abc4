// Triggers evaluated on the simulated signals: an analog edge or window starts the acquisition
// at the sample where the condition holds, and a reference trigger falls exactly after the
// pretrigger samples.
#include <gtest/gtest.h>

#include <cmath>

#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr double kRate = 10000;
// ai0 sees a 1 V sine of 10 Hz: its steepest step between two samples, and the noise.
constexpr double kPi = 3.14159265358979;
const double kStep = 2 * kPi * 10 * 1.0 / kRate;
constexpr double kNoise = 0.0011;

struct EdgeCase {
  double level;
  int32_t slope;
};

class AnalogStart : public testing::TestWithParam<EdgeCase> {};

TEST_P(AnalogStart, TheFirstSampleIsTheOneThatCrossedTheLevel) {
  auto task = makeTask("analog start");
  ASSERT_EQ(addVoltage(*task, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(*task, kRate, Vorex_Val_FiniteSamps, 500).code, 0);
  zqerr::Status status;
  task->configureAnalogEdgeStartTrigger("SimDev1/ai0", GetParam().slope, GetParam().level, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  const Samples read = readVoltages(*task, -1, 30.0, 500);
  ASSERT_EQ(read.count, 500u) << read.outcome.report;
  const double beyond =
      GetParam().slope == Vorex_Val_Rising ? read.data[0] - GetParam().level : GetParam().level - read.data[0];
  EXPECT_GE(beyond, 0.0);
  EXPECT_LE(beyond, kStep + 2 * kNoise);
  const double heading = read.data[10] - read.data[0];
  EXPECT_EQ(heading > 0, GetParam().slope == Vorex_Val_Rising) << "the signal goes on the way it crossed";
}

INSTANTIATE_TEST_SUITE_P(Levels, AnalogStart,
                         testing::Values(EdgeCase{0.5, Vorex_Val_Rising}, EdgeCase{0.0, Vorex_Val_Rising},
                                         EdgeCase{-0.3, Vorex_Val_Falling}, EdgeCase{0.8, Vorex_Val_Falling}));

TEST(AnalogWindow, EnteringTheWindowStartsTheAcquisitionInsideIt) {
  auto task = makeTask("window start");
  ASSERT_EQ(addVoltage(*task, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(*task, kRate, Vorex_Val_FiniteSamps, 100).code, 0);
  zqerr::Status status;
  task->configureAnalogWindowStartTrigger("SimDev1/ai0", Vorex_Val_EnteringWin, 0.6, 0.4, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  const Samples read = readVoltages(*task, -1, 30.0, 100);
  ASSERT_EQ(read.count, 100u) << read.outcome.report;
  EXPECT_GE(read.data[0], 0.4);
  EXPECT_LE(read.data[0], 0.6);
}

class Reference : public testing::TestWithParam<uint32_t> {};

TEST_P(Reference, HasExactlyThePretriggerSamplesBeforeIt) {
  const uint32_t pretrigger = GetParam();
  auto task = makeTask("reference");
  ASSERT_EQ(addVoltage(*task, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(*task, kRate, Vorex_Val_FiniteSamps, 2000).code, 0);
  zqerr::Status status;
  task->configureAnalogEdgeReferenceTrigger("SimDev1/ai0", Vorex_Val_Rising, 0.25, pretrigger, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  const Samples read = readVoltages(*task, -1, 30.0, 2000);
  ASSERT_EQ(read.count, 2000u) << read.outcome.report;
  EXPECT_LT(read.data[pretrigger - 1], 0.25);
  EXPECT_GE(read.data[pretrigger], 0.25);
  // The samples before it are the signal's own, on one clock: the first lies that far back on the sine.
  EXPECT_NEAR(read.data[0], std::sin(std::asin(0.25) - 2 * kPi * 10 * pretrigger / kRate), 2 * (kStep + kNoise));
}

INSTANTIATE_TEST_SUITE_P(Pretrigger, Reference, testing::Values(2u, 300u, 1500u));

TEST(ReferenceTrigger, NeedsAFiniteAcquisitionLongerThanItsPretrigger) {
  auto task = makeTask("reference refused");
  ASSERT_EQ(addVoltage(*task, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(*task, kRate, Vorex_Val_ContSamps, 1000).code, 0);
  zqerr::Status status;
  task->configureAnalogEdgeReferenceTrigger("SimDev1/ai0", Vorex_Val_Rising, 0.25, 100, &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(control(*task, 0).code, nZQMDEV::kErrorReferenceTriggerNeedsFinite);
}

TEST(AnalogTrigger, OnAChannelOutsideTheTaskIsRefused) {
  auto task = makeTask("foreign source");
  ASSERT_EQ(addVoltage(*task, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(*task, kRate, Vorex_Val_FiniteSamps, 100).code, 0);
  zqerr::Status status;
  task->configureAnalogEdgeStartTrigger("SimDev1/ai3", Vorex_Val_Rising, 0.0, &status);
  const Outcome started = control(*task, 0);
  EXPECT_EQ(started.code, nZQMDEV::kErrorRouteNotSupported);
  EXPECT_EQ(itemValue(started.report, "kUsageTypeTerminalName"), "SimDev1/ai3");
}

TEST(DigitalTrigger, OnATerminalTheDeviceLacksIsRefused) {
  auto task = makeTask("no such terminal");
  ASSERT_EQ(addVoltage(*task, "SimDev1/ai0").code, 0);
  ASSERT_EQ(sampleClock(*task, kRate, Vorex_Val_FiniteSamps, 100).code, 0);
  zqerr::Status status;
  task->configureDigitalEdgeStartTrigger("/SimDev1/PFI99", Vorex_Val_Rising, &status);
  EXPECT_EQ(control(*task, 0).code, nZQMDEV::kErrorPhysicalChannelNotFound);
}

}  // namespace
}  // namespace zqtest::sim
