// Analog outputs over time: a function generator seen on its input, a buffered generation with
// its events, and a write that finds no room before its timeout.
#include <gtest/gtest.h>

#include <cmath>

#include "boundary/array_buffer_adapter.h"
#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr int32_t kSquare = 14753;

TEST(Generation, AFunctionGeneratorIsSeenOnItsInput) {
  auto generator = makeTask("function generator");
  zqerr::Status status;
  generator->createAOFuncGenChannel("SimDev1/ao0", "", kSquare, 100, 2.0, 0.5, nullptr, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_EQ(control(*generator, 0).code, 0);
  auto input = clockedVoltage("function input", "SimDev1/ai0", 10000, Vorex_Val_FiniteSamps, 1000);
  const Samples read = readVoltages(*input, -1, 30.0, 1000);
  ASSERT_EQ(read.count, 1000u) << read.outcome.report;
  int high = 0;
  for (double v : read.data) {
    const bool top = std::fabs(v - 2.5) < 0.005;
    ASSERT_TRUE(top || std::fabs(v + 1.5) < 0.005) << v;
    high += top;
  }
  EXPECT_NEAR(high, 500, 20) << "half of each period high";
  control(*generator, 1);
}

TEST(Generation, AFiniteGenerationTellsItsTransfersAndItsEnd) {
  auto output = voltageOutput("SimDev1/ao1");
  ASSERT_EQ(sampleClock(*output, 10000, Vorex_Val_FiniteSamps, 1000).code, 0);
  std::vector<double> samples(1000);
  for (size_t k = 0; k < samples.size(); ++k) samples[k] = std::sin(k * 0.01);
  ASSERT_EQ(writeVoltages(*output, samples, 1, false).code, 0);
  ASSERT_EQ(control(*output, 0).code, 0);
  zqerr::Status status;
  output->waitUntilTaskDone(60.0, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_EQ(output->getWriteAttributeU64(zqgopher::StringArrayView(), Vorex_WriteTotalSampPerChanGenerated,
                                         &status),
            1000u);
  EXPECT_NE(output->isTaskDone(&status), 0u);
}

TEST(Generation, AWriteThatFindsNoRoomTimesOut) {
  auto output = voltageOutput("SimDev1/ao2");
  ASSERT_EQ(sampleClock(*output, 10, Vorex_Val_ContSamps, 100).code, 0);
  zqerr::Status status;
  output->setWriteAttributeI32(zqgopher::StringArrayView(), Vorex_WriteRegenMode, Vorex_Val_DoNotAllowRegen, &status);
  output->setBufferAttributeSize(zqgopher::StringArrayView(), Vorex_BufOutputBufSize, 100, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_EQ(writeVoltages(*output, std::vector<double>(100, 0.5), 1, true).code, 0);
  zqerr::Status late;
  std::vector<double> more(500, 0.25);
  zqgopher::ArrayBufferWriteAdapter buffer(more.data(), 1, more.size(), &late);
  const zqvorexPlugin_ReadLayout layout{0, 0};
  const uint32_t written =
      output->writeScaledVectorF64(kAnalogOutput, buffer.boundary(), &layout, false, 0.05, nullptr, &late);
  EXPECT_EQ(late.code, nZQMDEV::kErrorWriteTimeout);
  EXPECT_LT(written, 500u);
  control(*output, 1);
}

TEST(Generation, StartingWithNothingWrittenIsRefused) {
  auto output = voltageOutput("SimDev1/ao3");
  ASSERT_EQ(sampleClock(*output, 1000, Vorex_Val_ContSamps, 100).code, 0);
  EXPECT_EQ(control(*output, 0).code, nZQMDEV::kErrorNoSamplesWritten);
}

}  // namespace
}  // namespace zqtest::sim
