// The states of a task and the waits for its end, and the binary and raw forms of a read.
#include <gtest/gtest.h>

#include <cmath>

#include "boundary/array_buffer_adapter.h"
#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr int32_t kStart = 0, kStop = 1, kVerify = 2, kCommit = 3, kReserve = 4, kUnreserve = 5;

int16_t codeOf(double volts, double range) {
  return static_cast<int16_t>(std::nearbyint((volts + range) / (2 * range / 65535.0)) - 32768);
}

TEST(Control, AWrongConfigurationFailsAtVerifyAndNotBefore) {
  auto task = makeTask("verify");
  zqerr::Status status;
  task->createAIVoltageChannel("SimDev1/ai0", "", -1, -12, 12, Vorex_Val_Volts, "", nullptr, &status);
  ASSERT_EQ(status.code, 0);
  const Outcome verified = control(*task, kVerify);
  EXPECT_EQ(verified.code, nZQMDEV::kErrorValueOutOfRange);
  EXPECT_EQ(itemValue(verified.report, "kUsageTypeMaximumValue"), "10") << "the widest range the device has";
  EXPECT_EQ(control(*task, kStart).code, nZQMDEV::kErrorValueOutOfRange);
  task->setChannelAttributeF64(zqgopher::StringArrayView(), Vorex_AIMax, 5, &status);
  task->setChannelAttributeF64(zqgopher::StringArrayView(), Vorex_AIMin, -5, &status);
  EXPECT_EQ(control(*task, kVerify).code, 0);
}

TEST(Control, AReservationHeldUntilUnreserved) {
  auto holder = makeTask("reserving");
  ASSERT_EQ(addVoltage(*holder, "SimDev1/ai0").code, 0);
  ASSERT_EQ(control(*holder, kReserve).code, 0);
  auto other = makeTask("waiting");
  ASSERT_EQ(addVoltage(*other, "SimDev1/ai1").code, 0);
  EXPECT_EQ(control(*other, kCommit).code, nZQMDEV::kErrorResourceReserved);
  ASSERT_EQ(control(*holder, kStart).code, 0);
  ASSERT_EQ(control(*holder, kStop).code, 0);
  EXPECT_EQ(control(*other, kStart).code, nZQMDEV::kErrorResourceReserved)
      << "a stop keeps what was reserved first";
  ASSERT_EQ(control(*holder, kUnreserve).code, 0);
  EXPECT_EQ(control(*other, kStart).code, 0);
  control(*other, kStop);
}

TEST(Control, WaitingForAContinuousTaskToEndTimesOut) {
  auto task = clockedVoltage("endless", "SimDev1/ai0", 1000, Vorex_Val_ContSamps, 1000);
  ASSERT_EQ(control(*task, kStart).code, 0);
  zqerr::Status status;
  task->waitUntilTaskDone(0.02, &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorWaitTimeout);
  zqerr::Status done;
  EXPECT_EQ(task->isTaskDone(&done), 0u);
  control(*task, kStop);
  EXPECT_NE(task->isTaskDone(&done), 0u);
}

TEST(BinaryReads, GiveTheConverterCodesOfTheRange) {
  auto task = clockedVoltage("binary", "SimDev1/ai5:6", 1000, Vorex_Val_FiniteSamps, 10, 5.0);
  std::vector<int16_t> codes(20, 0);
  zqerr::Status status;
  zqgopher::ArrayBufferAdapter buffer(codes.data(), codes.size(), &status);
  const zqvorexPlugin_ReadLayout byScan{1, 0};
  EXPECT_EQ(task->readBinaryVectorI16(kAnalogInput, buffer.boundary(), &byScan, 10, 10.0, nullptr, &status),
            10u);
  ASSERT_EQ(status.code, 0) << status.report;
  for (int k = 0; k < 10; ++k) {
    EXPECT_EQ(codes[2 * k], codeOf(kConstantVolts, 5.0));
    EXPECT_EQ(codes[2 * k + 1], codeOf(-2.5, 5.0));
  }
}

TEST(RawReads, GiveTheCodesAsLittleEndianBytesByScan) {
  auto task = clockedVoltage("raw", "SimDev1/ai5:6", 1000, Vorex_Val_FiniteSamps, 4);
  std::vector<uint8_t> bytes(16, 0);
  zqerr::Status status;
  zqgopher::ArrayBufferAdapter buffer(bytes.data(), bytes.size(), &status);
  uint32_t width = 0;
  EXPECT_EQ(task->readRawU8(kAnalogInput, buffer.boundary(), 4, 10.0, &width, nullptr, &status), 4u);
  ASSERT_EQ(status.code, 0) << status.report;
  EXPECT_EQ(width, 2u);
  const auto first = static_cast<uint16_t>(codeOf(kConstantVolts, 10));
  const auto second = static_cast<uint16_t>(codeOf(-2.5, 10));
  EXPECT_EQ(bytes[0] | bytes[1] << 8, first);
  EXPECT_EQ(bytes[2] | bytes[3] << 8, second);
  EXPECT_EQ(bytes[12] | bytes[13] << 8, first);
}

}  // namespace
}  // namespace zqtest::sim
