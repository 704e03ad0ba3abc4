// Triggers evaluated on the simulated signals: an analog window starts the acquisition inside
// it, and triggers the run cannot have are refused. Where analog edge and reference triggers
// fall is checked through the public interface in sim_e2e.
#include <gtest/gtest.h>

#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr double kRate = 10000;

TEST(AnalogWindow, EnteringTheWindowStartsTheAcquisitionInsideIt) {
  auto task = clockedVoltage("window start", "SimDev1/ai0", kRate, Vorex_Val_FiniteSamps, 100);
  zqerr::Status status;
  task->configureAnalogWindowStartTrigger("SimDev1/ai0", Vorex_Val_EnteringWin, 0.6, 0.4, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  const Samples read = readVoltages(*task, -1, 30.0, 100);
  ASSERT_EQ(read.count, 100u) << read.outcome.report;
  EXPECT_GE(read.data[0], 0.4);
  EXPECT_LE(read.data[0], 0.6);
}

TEST(ReferenceTrigger, NeedsAFiniteAcquisitionLongerThanItsPretrigger) {
  auto task = clockedVoltage("reference refused", "SimDev1/ai0", kRate, Vorex_Val_ContSamps, 1000);
  zqerr::Status status;
  task->configureAnalogEdgeReferenceTrigger("SimDev1/ai0", Vorex_Val_Rising, 0.25, 100, &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(control(*task, 0).code, nZQMDEV::kErrorReferenceTriggerNeedsFinite);
}

TEST(StartTrigger, FromASourceTheRunCannotHaveIsRefusedAtTheStart) {
  auto task = clockedVoltage("foreign source", "SimDev1/ai0", kRate, Vorex_Val_FiniteSamps, 100);
  zqerr::Status status;
  task->configureAnalogEdgeStartTrigger("SimDev1/ai3", Vorex_Val_Rising, 0.0, &status);
  const Outcome started = control(*task, 0);
  EXPECT_EQ(started.code, nZQMDEV::kErrorRouteNotSupported) << "an analog channel outside the task";
  EXPECT_EQ(itemValue(started.report, "kUsageTypeTerminalName"), "SimDev1/ai3");
  task->configureDigitalEdgeStartTrigger("/SimDev1/PFI99", Vorex_Val_Rising, &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(control(*task, 0).code, nZQMDEV::kErrorPhysicalChannelNotFound) << "a terminal the device lacks";
}

}  // namespace
}  // namespace zqtest::sim
