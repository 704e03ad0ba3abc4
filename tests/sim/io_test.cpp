// Outputs wired back to inputs like a loopback cable: analog outputs seen on ai0:3, digital
// lines read back, a counter output measured by a counter input (the count_edges example counts
// one). An acquisition started by an output's start trigger is in sim_e2e.
#include <gtest/gtest.h>

#include <cmath>

#include "boundary/array_line_buffer_adapter.h"
#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr double kNoise = 0.0011;

double readScalar(zqvorexRedir::ITask& task, uint32_t kind) {
  zqerr::Status status;
  double value = -99;
  task.readScaledScalarF64(kind, 10.0, &value, nullptr, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return value;
}

TEST(Loopback, AnAnalogOutputIsSeenOnItsInputWhileItsTaskLives) {
  auto input = makeTask("looking");
  ASSERT_EQ(addVoltage(*input, "SimDev1/ai2").code, 0);
  {
    auto output = voltageOutput("SimDev1/ao2");
    zqerr::Status status;
    output->writeScaledScalarF64(kAnalogOutput, true, 10.0, 2.5, nullptr, &status);
    ASSERT_EQ(status.code, 0) << status.report;
    EXPECT_NEAR(readScalar(*input, kAnalogInput), 2.5, 2 * kNoise);
  }
  EXPECT_LE(std::fabs(readScalar(*input, kAnalogInput)), 2.0 + 2 * kNoise)
      << "ai2's own sine, once the output is gone";
}

TEST(Loopback, AnOutputOutsideItsRangeIsRefusedWithTheRange) {
  auto output = makeTask("narrow output");
  zqerr::Status status;
  output->createAOVoltageChannel("SimDev1/ao0", "", -1, 1, Vorex_Val_Volts, "", nullptr, &status);
  output->writeScaledScalarF64(kAnalogOutput, true, 10.0, 1.5, nullptr, &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorValueOutOfRange);
  EXPECT_EQ(itemValue(status.report, "kUsageTypeMaximumValue"), "1");
}

TEST(Loopback, AnOutputThatRunsOutOfSamplesIsAnUnderflow) {
  auto output = voltageOutput("SimDev1/ao3");
  ASSERT_EQ(sampleClock(*output, 1000, Vorex_Val_ContSamps, 1000).code, 0);
  zqerr::Status status;
  output->setWriteAttributeI32(zqgopher::StringArrayView(), Vorex_WriteRegenMode, Vorex_Val_DoNotAllowRegen, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_EQ(writeVoltages(*output, std::vector<double>(200, 1.0), 1, true).code, 0);
  ASSERT_TRUE(eventually([&] {
    zqerr::Status done;
    output->isTaskDone(&done);
    return done.code != 0;
  }));
  const Outcome late = writeVoltages(*output, std::vector<double>(200, 1.0), 1, false);
  EXPECT_EQ(late.code, nZQMDEV::kErrorOutputUnderflow);
  EXPECT_EQ(itemValue(late.report, "kUsageTypeSamplesWritten"), "200");
  control(*output, 1);
}

struct PortCase {
  std::string lines;
  uint32_t value;
};

class DigitalLoopback : public testing::TestWithParam<PortCase> {};

TEST_P(DigitalLoopback, LinesReadBackWhatWasWritten) {
  auto output = makeTask("digital out");
  auto input = makeTask("digital in");
  zqerr::Status status;
  output->createDOChannel(GetParam().lines, "", Vorex_Val_ChanForAllLines, nullptr, &status);
  input->createDIChannel(GetParam().lines, "", Vorex_Val_ChanForAllLines, nullptr, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  output->writePortScalarU32(kDigitalOutput, true, 10.0, GetParam().value, nullptr, &status);
  uint32_t value = 0;
  input->readPortScalarU32(kDigitalInput, 10.0, &value, nullptr, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_EQ(value, GetParam().value);
}

// Lines cleared by a later write are read back in the digital_io example, which names its
// lines; a port named whole is expanded only here.
INSTANTIATE_TEST_SUITE_P(Ports, DigitalLoopback,
                         testing::Values(PortCase{"SimDev1/port0", 0xA5}, PortCase{"SimDev1/port2/line0:3", 0x9},
                                         PortCase{"SimDev1/port1/line7", 1}));

TEST(DigitalLoopback, LinesReadAsOneByteEach) {
  auto output = makeTask("lines out");
  auto input = makeTask("lines in");
  zqerr::Status status;
  output->createDOChannel("SimDev1/port0/line4:7", "", Vorex_Val_ChanForAllLines, nullptr, &status);
  input->createDIChannel("SimDev1/port0/line4:7", "", Vorex_Val_ChanForAllLines, nullptr, &status);
  output->writePortScalarU32(kDigitalOutput, true, 10.0, 0x6, nullptr, &status);
  std::vector<uint8_t> bytes(4, 9);
  const uint32_t lines[] = {4};
  const zqgopher_ArrayView view{lines, 1};
  zqgopher::ArrayLineBufferAdapter buffer(bytes.data(), bytes.size(), &view, 1, &status);
  const zqvorexPlugin_ReadLayout layout{0, 0};
  input->readLineVectorU8(kDigitalInput, buffer.boundary(), &layout, 1, 10.0, nullptr, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_EQ(bytes, (std::vector<uint8_t>{0, 1, 1, 0}));
}

std::shared_ptr<zqvorexRedir::Task> pulses(const std::string& counter, double frequency, int32_t mode,
                                           uint64_t count) {
  auto task = makeTask("pulses " + counter);
  zqerr::Status status;
  task->createCOPulseChannelFreq(counter, "", Vorex_Val_Hz, Vorex_Val_Low, 0.0, frequency, 0.5, nullptr, &status);
  task->configureImplicitTiming(mode, count, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return task;
}

TEST(Counters, AFrequencyInputMeasuresAnOutputsFrequency) {
  auto output = pulses("SimDev1/ctr3", 2000, Vorex_Val_ContSamps, 1000);
  ASSERT_EQ(control(*output, 0).code, 0);
  auto meter = makeTask("frequency meter");
  zqerr::Status status;
  meter->createCIFreqChannel("SimDev1/ctr2", "", 1, 100000, Vorex_Val_Hz, Vorex_Val_Rising, 10105, 0.001, 4, "",
                             nullptr, &status);
  const std::vector<std::string> name{"SimDev1/ctr2"};
  meter->setChannelAttributeString(zqgopher::StringArrayView(name), Vorex_CIFreqTerm,
                                   "/SimDev1/Ctr3InternalOutput", &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_NEAR(readScalar(*meter, kCounterInput), 2000.0, 1e-6);
  control(*output, 1);
}

TEST(Counters, AnUndrivenInputMeasuresNothingAndTimesOut) {
  auto meter = makeTask("idle meter");
  zqerr::Status status;
  meter->createCIPeriodChannel("SimDev1/ctr1", "", 1e-6, 1, 10364, Vorex_Val_Rising, 10105, 0.001, 4, "", nullptr,
                               &status);
  double value = 0;
  meter->readScaledScalarF64(kCounterInput, 0.05, &value, nullptr, &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorReadTimeout);
}

}  // namespace
}  // namespace zqtest::sim
