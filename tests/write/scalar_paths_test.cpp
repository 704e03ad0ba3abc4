// The scalar writes: the value, or the pair record, goes to the plug-in by value.
#include <cstring>

#include "write_fixture.h"

namespace zqtest {
namespace {

using ScalarPath = WriteTest;

template <class Record>
std::vector<uint8_t> bytesOf(const Record& record) {
  std::vector<uint8_t> bytes(sizeof(Record));
  std::memcpy(bytes.data(), &record, sizeof(Record));
  return bytes;
}

TEST_F(ScalarPath, PlainValuesGoAsGiven) {
  EXPECT_EQ(VorexWriteAnalogScalarF64(handle, 1, 3.0, -2.75, nullptr), 0);
  EXPECT_EQ(std::get<double>(last("writeScaledScalarF64").arg("value")->value), -2.75);
  EXPECT_EQ(VorexWriteDigitalScalarU32(handle, 1, 3.0, 0xDEADBEEF, nullptr), 0);
  EXPECT_EQ(unsignedArg("writePortScalarU32", "value"), 0xDEADBEEFu);
  EXPECT_EQ(callsOf("getWriteAttributeU32"), 0u);  // a scalar needs no channel count
}

TEST_F(ScalarPath, PairsAreBuiltInTheOrderOfThePlugInsRecord) {
  struct Case {
    const char* op;
    std::vector<uint8_t> expected;
  };
  ASSERT_EQ(VorexWriteCtrFreqScalar(handle, 0, 1.0, 1000.0, 0.25, nullptr), 0);
  ASSERT_EQ(VorexWriteCtrTimeScalar(handle, 0, 1.0, 0.5, 0.75, nullptr), 0);
  ASSERT_EQ(VorexWriteCtrTicksScalar(handle, 0, 1.0, 11, 22, nullptr), 0);
  const Case cases[] = {
      {"writeScalarCounterDutyCycleAndFrequencyF64",
       bytesOf(zqvorexPlugin_DutyCycleAndFrequencyF64{0.25, 1000.0})},
      {"writeScalarCounterHighAndLowTimesF64", bytesOf(zqvorexPlugin_HighAndLowTimesF64{0.5, 0.75})},
      {"writeScalarCounterHighAndLowTicksU32", bytesOf(zqvorexPlugin_HighAndLowTicksU32{11, 22})},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.op);
    EXPECT_EQ(std::get<std::vector<uint8_t>>(last(c.op).arg("value")->value), c.expected);
  }
}

}  // namespace
}  // namespace zqtest
