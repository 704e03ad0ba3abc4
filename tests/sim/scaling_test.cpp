// The sensor models and the converter: volts to each measurement's units, and the 16-bit
// codes of a range.
#include "scaling.h"

#include <gtest/gtest.h>

#include "sim_values.h"

namespace zqsim {
namespace {

using namespace val;

struct ModelCase {
  const char* name;
  int32_t type;
  Store settings;
  double volts;
  double value;
};

class Models : public testing::TestWithParam<ModelCase> {};

TEST_P(Models, TurnVoltsIntoTheirUnits) {
  Channel channel;
  channel.kind = kAI;
  channel.type = GetParam().type;
  channel.store = GetParam().settings;
  channel.store[Vorex_AIMin] = Value::f64(-1e6);
  channel.store[Vorex_AIMax] = Value::f64(1e6);
  AnalogScale scale;
  std::string error;
  ASSERT_TRUE(compileScale(channel, 0, &scale, &error)) << error;
  EXPECT_NEAR(scale.toUnits(GetParam().volts), GetParam().value, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    Types, Models,
    testing::Values(
        ModelCase{"celsius", kMeasTempTC, {{Vorex_AITempUnits, Value::i32(kDegC)}}, 1.0, 35.0},
        ModelCase{"fahrenheit", kMeasTempRTD, {{Vorex_AITempUnits, Value::i32(kDegF)}}, 1.0, 95.0},
        ModelCase{"kelvin", kMeasTempThrmstr, {{Vorex_AITempUnits, Value::i32(kKelvins)}}, -2.5, 273.15},
        ModelCase{"rankine", kMeasTempBuiltIn, {{Vorex_AITempUnits, Value::i32(kDegR)}}, 0.0, 536.67},
        ModelCase{"current", kMeasCurrent, {{Vorex_AICurrentShuntResistance, Value::f64(249)}}, 2.49, 0.01},
        ModelCase{"resistance", kMeasResistance, {}, 1.0, 110.0},
        ModelCase{"accelerometer in g",
                  kMeasAccel,
                  {{Vorex_AIAccelSensitivity, Value::f64(100)},
                   {Vorex_AIAccelSensitivityUnits, Value::i32(kMilliVoltsPerG)}},
                  1.0,
                  10.0},
        ModelCase{"accelerometer in m/s2",
                  kMeasAccel,
                  {{Vorex_AIAccelSensitivity, Value::f64(1)},
                   {Vorex_AIAccelSensitivityUnits, Value::i32(kVoltsPerG)},
                   {Vorex_AIAccelUnits, Value::i32(kMetersPerSecondSquared)}},
                  0.5,
                  0.5 * 9.80665},
        ModelCase{
            "microphone", kMeasMicrophone, {{Vorex_AIMicrophoneSensitivity, Value::f64(50)}}, 1.0, 20.0},
        ModelCase{"two-point bridge",
                  kMeasForceBridge,
                  {{Vorex_AIBridgeScaleType, Value::i32(1)},
                   {Vorex_AIBridgeTwoPointLinFirstElectricalVal, Value::f64(0)},
                   {Vorex_AIBridgeTwoPointLinSecondElectricalVal, Value::f64(2)},
                   {Vorex_AIBridgeTwoPointLinFirstPhysicalVal, Value::f64(0)},
                   {Vorex_AIBridgeTwoPointLinSecondPhysicalVal, Value::f64(100)}},
                  1.0,
                  50.0},
        ModelCase{"table bridge",
                  kMeasPressureBridge,
                  {{Vorex_AIBridgeScaleType, Value::i32(2)},
                   {Vorex_AIBridgeTableElectricalVals, Value::f64s({0, 1, 3})},
                   {Vorex_AIBridgeTablePhysicalVals, Value::f64s({0, 10, 50})}},
                  2.0,
                  30.0},
        ModelCase{"polynomial bridge",
                  kMeasTorqueBridge,
                  {{Vorex_AIBridgeScaleType, Value::i32(3)},
                   {Vorex_AIBridgePolyForwardCoeff, Value::f64s({1, 2, 3})}},
                  2.0,
                  17.0}),
    [](const testing::TestParamInfo<ModelCase>& info) { return "case" + std::to_string(info.index); });

TEST(Ranges, TheSmallestDeviceRangeThatHoldsBothEndsIsChosen) {
  EXPECT_EQ(voltageRangeFor(-0.1, 0.15), 0.2);
  EXPECT_EQ(voltageRangeFor(-0.2, 0.2), 0.2);
  EXPECT_EQ(voltageRangeFor(0, 0.21), 1.0);
  EXPECT_EQ(voltageRangeFor(-5, 1), 5.0);
  EXPECT_EQ(voltageRangeFor(-10, 10), 10.0);
  EXPECT_EQ(voltageRangeFor(0, 10.01), 0.0);
}

TEST(Converter, CodesSpanTheRangeAndClipBeyondIt) {
  AnalogScale scale;
  scale.low = -10;
  scale.high = 10;
  EXPECT_EQ(scale.code(-10), -32768);
  EXPECT_EQ(scale.code(10), 32767);
  EXPECT_EQ(scale.code(25), 32767);
  EXPECT_EQ(scale.code(-1e9), -32768);
}

}  // namespace
}  // namespace zqsim
