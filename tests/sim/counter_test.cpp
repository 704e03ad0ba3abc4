// Counters beyond counting edges: an encoder's position, the ticks of a pulse, a digital input
// that samples a counter's output on its PFI line, and a pulse train that changes while it runs.
#include <gtest/gtest.h>

#include "boundary/array_buffer_adapter.h"
#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr int32_t kX1 = 10090;

std::shared_ptr<zqvorexRedir::Task> pulseTicks(const std::string& counter, int32_t low, int32_t high,
                                               int32_t mode, uint64_t count) {
  auto task = makeTask("ticks " + counter);
  zqerr::Status status;
  task->createCOPulseChannelTicks(counter, "", "", Vorex_Val_Low, 0, low, high, nullptr, &status);
  task->configureImplicitTiming(mode, count, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return task;
}

TEST(Counters, AnEncoderFollowsThePulsesOnItsInput) {
  auto encoder = makeTask("encoder");
  zqerr::Status status;
  encoder->createCILinEncoderChannel("SimDev1/ctr1", "", kX1, 0, 0, 10040, Vorex_Val_Meters, 0.001, 0.5, "", nullptr,
                                     &status);
  const std::vector<std::string> name{"SimDev1/ctr1"};
  encoder->setChannelAttributeString(zqgopher::StringArrayView(name), Vorex_CIEncoderAInputTerm,
                                     "/SimDev1/Ctr0InternalOutput", &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_EQ(control(*encoder, 0).code, 0);
  auto pulses = pulseTicks("SimDev1/ctr0", 50000, 50000, Vorex_Val_FiniteSamps, 300);
  ASSERT_EQ(control(*pulses, 0).code, 0);
  pulses->waitUntilTaskDone(60.0, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  double position = 0;
  encoder->readScaledScalarF64(kCounterInput, 10.0, &position, nullptr, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_DOUBLE_EQ(position, 0.5 + 300 * 0.001);
  control(*encoder, 1);
}

TEST(Counters, APulseIsMeasuredInTicksOfTheTimebase) {
  auto pulses = pulseTicks("SimDev1/ctr2", 30000, 10000, Vorex_Val_ContSamps, 1000);
  ASSERT_EQ(control(*pulses, 0).code, 0);
  auto meter = makeTask("tick meter");
  zqerr::Status status;
  meter->createCIPulseChannelTicks("SimDev1/ctr3", "", "OnboardClock", 2, 1e9, nullptr, &status);
  const std::vector<std::string> name{"SimDev1/ctr3"};
  meter->setChannelAttributeString(zqgopher::StringArrayView(name), Vorex_CIPulseTicksTerm, "/SimDev1/PFI14",
                                   &status);
  zqvorexPlugin_HighAndLowTicksU32 ticks{0, 0};
  meter->readScalarCounterHighAndLowTicksU32(kCounterInput, 10.0, &ticks, nullptr, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_EQ(ticks.highTicks, 10000u);
  EXPECT_EQ(ticks.lowTicks, 30000u);
  control(*pulses, 1);
}

TEST(Counters, ADigitalInputSamplesACounterOutputOnItsPfiLine) {
  // ctr0 drives PFI12, which is port2/line4: 1 kHz at half duty, sampled at 20 kS/s.
  auto pulses = makeTask("pfi pulses");
  zqerr::Status status;
  pulses->createCOPulseChannelFreq("SimDev1/ctr0", "", Vorex_Val_Hz, Vorex_Val_Low, 0.0, 1000, 0.5, nullptr, &status);
  pulses->configureImplicitTiming(Vorex_Val_ContSamps, 1000, &status);
  ASSERT_EQ(control(*pulses, 0).code, 0);
  auto input = makeTask("pfi line");
  input->createDIChannel("SimDev1/port2/line4", "", Vorex_Val_ChanForAllLines, nullptr, &status);
  input->configureSampleClockTiming("", 20000, Vorex_Val_Rising, Vorex_Val_FiniteSamps, 400, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  std::vector<uint8_t> values(400, 7);
  zqgopher::ArrayBufferAdapter buffer(values.data(), values.size(), &status);
  const zqvorexPlugin_ReadLayout layout{0, 0};
  EXPECT_EQ(input->readPortVectorU8(kDigitalInput, buffer.boundary(), &layout, 400, 30.0, nullptr, &status),
            400u);
  ASSERT_EQ(status.code, 0) << status.report;
  int rises = 0;
  for (size_t k = 1; k < values.size(); ++k) rises += values[k - 1] == 0 && values[k] == 1;
  EXPECT_NEAR(rises, 20, 1) << "one rise a millisecond";
  control(*pulses, 1);
}

TEST(Counters, ANewFrequencyTakesOverWhileTheOutputRuns) {
  auto pulses = makeTask("changing pulses");
  zqerr::Status status;
  pulses->createCOPulseChannelFreq("SimDev1/ctr1", "", Vorex_Val_Hz, Vorex_Val_Low, 0.0, 1000, 0.5, nullptr, &status);
  pulses->configureImplicitTiming(Vorex_Val_ContSamps, 1000, &status);
  ASSERT_EQ(control(*pulses, 0).code, 0);
  pulses->writeScalarCounterDutyCycleAndFrequencyF64(kCounterOutput, false, 10.0, {0.25, 4000}, nullptr,
                                                     &status);
  ASSERT_EQ(status.code, 0) << status.report;
  zqvorexPlugin_DutyCycleAndFrequencyF64 measured{0, 0};
  auto duty = makeTask("changed duty");
  duty->createCIPulseChannelFreq("SimDev1/ctr3", "", 1, 1e6, Vorex_Val_Hz, nullptr, &status);
  const std::vector<std::string> dutyName{"SimDev1/ctr3"};
  duty->setChannelAttributeString(zqgopher::StringArrayView(dutyName), Vorex_CIPulseFreqTerminal,
                                  "/SimDev1/Ctr1InternalOutput", &status);
  duty->readScalarCounterDutyCycleAndFrequencyF64(kCounterInput, 10.0, &measured, nullptr, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_NEAR(measured.frequency, 4000, 1e-6);
  EXPECT_NEAR(measured.dutyCycle, 0.25, 1e-9);
  EXPECT_EQ(
      pulses->getChannelAttributeF64(zqgopher::StringArrayView(std::vector<std::string>{"SimDev1/ctr1"}),
                                     Vorex_COPulseFreq, &status),
      4000.0);
  control(*pulses, 1);
}

}  // namespace
}  // namespace zqtest::sim
