// The measurement types of the simulated device: each gives values of its sensor model in the
// units asked for, and a type the device does not model is refused by name.
#include <gtest/gtest.h>

#include <cmath>

#include "sim_support.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

using Create = std::function<void(zqvorexRedir::ITask&, zqerr_Status*)>;

struct TypeCase {
  const char* name;
  Create create;
  double low;  // every value read lies in [low, high]
  double high;
};

class MeasurementTypes : public testing::TestWithParam<TypeCase> {};

TEST_P(MeasurementTypes, ReadValuesOfTheirModelInTheirUnits) {
  auto task = makeTask(GetParam().name);
  zqerr::Status status;
  GetParam().create(*task, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  ASSERT_EQ(sampleClock(*task, 10000, Vorex_Val_FiniteSamps, 2000).code, 0);
  const Samples read = readVoltages(*task, -1, 30.0, 2000);
  ASSERT_EQ(read.count, 2000u) << read.outcome.report;
  for (double v : read.data) {
    ASSERT_GE(v, GetParam().low);
    ASSERT_LE(v, GetParam().high);
  }
}

// ai0 sees a 1 V sine, ai1 a 1.5 V sine, ai5 a constant 1.25 V. Temperatures are 25 degrees
// plus 10 per volt, currents flow through 249 ohm, bridges give 1 mV/V per volt.
INSTANTIATE_TEST_SUITE_P(
    Types, MeasurementTypes,
    testing::Values(TypeCase{"thermocouple",
                             [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                               t.createAIThrmcplChannel("SimDev1/ai0", "", 0, 100, 10143, 10072, 10200, 25,
                                                        "", nullptr, s);
                             },
                             14.9, 35.1},
                    TypeCase{"rtd in fahrenheit",
                             [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                               t.createAIRTDChannel("SimDev1/ai0", "", 0, 200, 10144, 10071, 3, 10200, 0.001,
                                                    nullptr, s);
                             },
                             58.9, 95.1},
                    TypeCase{"current",
                             [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                               t.createAICurrentChannel("SimDev1/ai1", "", -1, -0.02, 0.02, 10342, 10200, 249,
                                                        "", nullptr, s);
                             },
                             -1.51 / 249, 1.51 / 249},
                    TypeCase{"strain",
                             [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                               t.createAIStrainGageChannel("SimDev1/ai0", "", -0.001, 0.001, 10299, 10183,
                                                           10200, 2.5, 2.0, 0, 350, 0.3, 0, "", nullptr, s);
                             },
                             -1.01e-4, 1.01e-4},
                    TypeCase{"accelerometer",
                             [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                               t.createAIAccelChannel("SimDev1/ai0", "", -1, -50, 50, 10186, 100, 12509,
                                                      10200, 0.004, "", nullptr, s);
                             },
                             -10.02, 10.02},
                    TypeCase{"force bridge, two points",
                             [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                               t.createAIForceBridgeTwoPointLinChannel("SimDev1/ai5", "", 0, 100, 15875,
                                                                       10182, 10200, 2.5, 350, 0, 2, 15897, 0,
                                                                       100, 15875, "", nullptr, s);
                             },
                             62.49, 62.51},
                    TypeCase{"pressure bridge, polynomial",
                             [](zqvorexRedir::ITask& t, zqerr_Status* s) {
                               const double forward[] = {0, 50};
                               const double reverse[] = {0, 0.02};
                               const zqgopher_ArrayView f{forward, 2};
                               const zqgopher_ArrayView r{reverse, 2};
                               t.createAIPressureBridgePolynomialChannel("SimDev1/ai5", "", 0, 100, 10081,
                                                                         10182, 10200, 2.5, 350, &f, &r,
                                                                         15897, 10081, "", nullptr, s);
                             },
                             62.49, 62.51}),
    [](const testing::TestParamInfo<TypeCase>& info) { return "case" + std::to_string(info.index); });

// Every type the device does not model is refused the same way, naming itself; one stands for all.
TEST(UnmodelledTypes, AreRefusedByName) {
  auto task = makeTask("refused type");
  zqerr::Status status;
  task->createAIPosLVDTChannel("SimDev1/ai0", "", -0.1, 0.1, 10219, 50, 10, 10200, 1, 2500, 4, "", nullptr, &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorChannelTypeNotSupported);
  EXPECT_EQ(itemValue(status.report ? status.report : "", "kUsageTypeMeasurementType"), "AIPosLVDT");
}

// A name that is no channel of the device is refused in the error_handling example.
struct BadChannel {
  const char* physical;
  int32_t code;
};

class BadChannels : public testing::TestWithParam<BadChannel> {};

TEST_P(BadChannels, AreRefusedAndLeaveTheTaskWithoutThem) {
  auto task = makeTask("bad channel");
  zqerr::Status status;
  task->createAIVoltageChannel(GetParam().physical, "", -1, -10, 10, Vorex_Val_Volts, "", nullptr, &status);
  EXPECT_EQ(status.code, GetParam().code) << (status.report ? status.report : "");
}

INSTANTIATE_TEST_SUITE_P(Names, BadChannels,
                         testing::Values(BadChannel{"SimDev1/ao0", nZQMDEV::kErrorPhysicalChannelNotFound},
                                         BadChannel{"Elsewhere/ai0", nZQMSTS::kErrorInvalidDeviceID}));

TEST(Channels, AnalogOutputsAndInputsDoNotShareATask) {
  auto task = makeTask("mixed");
  ASSERT_EQ(addVoltage(*task, "SimDev1/ai0").code, 0);
  zqerr::Status status;
  task->createAOVoltageChannel("SimDev1/ao0", "", -10, 10, Vorex_Val_Volts, "", nullptr, &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorMixedChannelKinds);
}

TEST(Channels, ACustomScaleIsRefusedRatherThanIgnored) {
  auto task = makeTask("custom scale");
  zqerr::Status status;
  task->createAIVoltageChannel("SimDev1/ai0", "", -1, -10, 10, Vorex_Val_FromCustomScale, "MyScale", nullptr, &status);
  EXPECT_EQ(status.code, zqapalerr_featureUnsupported);
}

}  // namespace
}  // namespace zqtest::sim
