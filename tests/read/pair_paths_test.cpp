// The pair reads: records read into a temporary array and split into the caller's two arrays.
#include <algorithm>
#include <functional>

#include "read_task.h"

namespace zqtest {
namespace {

using PairPath = ReadTest;
using PowerPath = ReadTest;

using FreqRecord = zqvorexPlugin_DutyCycleAndFrequencyF64;

TEST_F(PairPath, TimesAndTicksGoHighToTheFirstArrayAndLowToTheSecond) {
  channels({"ctr0", "ctr1"}, 0);
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) {
    deliver<zqvorexPlugin_HighAndLowTimesF64>(b, 1, 2, {{1.5, 2.5}, {3.5, 4.5}}, s);
  };
  double high[2] = {}, low[2] = {};
  EXPECT_EQ(VorexReadCtrTime(handle, 1, 1.0, 0, high, low, 2, nullptr, nullptr), 0);
  EXPECT_EQ(std::vector<double>(high, high + 2), (std::vector<double>{1.5, 3.5}));
  EXPECT_EQ(std::vector<double>(low, low + 2), (std::vector<double>{2.5, 4.5}));
  EXPECT_EQ(task->capacitySeen, 2u);  // the adapter announces the caller's array size in pairs

  // Ticks without sampsPerChanRead: the arrays are filled all the same.
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) {
    deliver<zqvorexPlugin_HighAndLowTicksU32>(b, 1, 2, {{10, 20}, {30, 40}}, s);
  };
  uint32_t highTicks[2] = {}, lowTicks[2] = {};
  EXPECT_EQ(VorexReadCtrTicks(handle, 1, 1.0, 0, highTicks, lowTicks, 2, nullptr, nullptr), 0);
  EXPECT_EQ(std::vector<uint32_t>(highTicks, highTicks + 2), (std::vector<uint32_t>{10, 30}));
  EXPECT_EQ(std::vector<uint32_t>(lowTicks, lowTicks + 2), (std::vector<uint32_t>{20, 40}));
}

// The failures of the pair and power paths before the plug-in, in the order in which they are
// tested. The power path resolves the count before it reads the channels, and stores the count
// read (0 without a call) on any status; the pair path leaves it.
struct PairFailure {
  const char* what;
  bool power;
  bool firstNull, secondNull;
  int32_t count;
  size_t channels;
  uint32_t size;
  int32_t code;
  const char* usage;
  const char* value;
};

const PairFailure kPairFailures[] = {
    {"first array null", false, true, false, 2, 1, 4, -200230, "kUsageTypeParamNum", "5"},
    {"second array null", false, false, true, 2, 1, 4, -200230, "kUsageTypeParamNum", "6"},
    {"both null: the first is named", false, true, true, 2, 1, 4, -200230, "kUsageTypeParamNum", "5"},
    {"no channels to read", false, false, false, 2, 0, 4, -201395, kAbsent, kAbsent},
    {"no channels and a bad count", false, false, false, -3, 0, 4, -201395, kAbsent, kAbsent},
    {"bad count", false, false, false, -3, 1, 4, -200096, "kUsageTypeRequestedNumberSamples", "-3"},
    {"array too small", false, false, false, 3, 2, 5, -200229, "kUsageTypeBufferLength", "5"},
    {"power: a bad count ahead of no channels", true, false, false, -3, 0, 4, -200096,
     "kUsageTypeRequestedNumberSamples", "-3"},
    {"power: no channels", true, false, false, 2, 0, 4, -201395, kAbsent, kAbsent},
    {"power: array too small", true, false, false, 3, 2, 5, -200229, "kUsageTypeBufferLength", "5"},
};

TEST_F(PairPath, FailuresBeforeThePluginIsCalled) {
  for (const PairFailure& f : kPairFailures) {
    SCOPED_TRACE(f.what);
    task = ReadTask::make();
    channels(std::vector<std::string>(f.channels, "x"), 0);
    clearLastError();
    double a[8] = {9, 9, 9, 9, 9, 9, 9, 9}, b[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    int32_t got = 77;
    const auto read = f.power ? &VorexReadPowerF64 : &VorexReadCtrFreq;
    EXPECT_EQ(read(task->handle(), f.count, 1.0, 0, f.firstNull ? nullptr : a, f.secondNull ? nullptr : b, f.size,
                   &got, nullptr),
              f.code);
    EXPECT_EQ(lastErrorItem(0, "usage"), f.usage);
    EXPECT_EQ(lastErrorItem(0, "value"), f.value);
    EXPECT_EQ(readCalls(f.power ? "readVectorPowerVoltageAndCurrentF64" : "readVectorCounterDutyCycleAndFrequencyF64"),
              0u);
    EXPECT_EQ(got, f.power ? 0 : 77);
    // Cleared only when both arrays are there.
    const bool cleared = !f.firstNull && !f.secondNull;
    EXPECT_EQ(a[0], cleared ? 0 : 9);
    EXPECT_EQ(b[f.size - 1], cleared ? 0 : 9);
    EXPECT_EQ(a[f.size], 9);
  }
}

TEST_F(PairPath, AutoIsResolvedAndFittedBeforeThePluginSeesIt) {
  channels({"a", "b"}, 100);
  double a[8], b[8];
  EXPECT_EQ(VorexReadCtrTime(handle, -1, 1.0, 1, a, b, 8, nullptr, nullptr), 0);
  EXPECT_EQ(countSeen(), 4);
  EXPECT_EQ(task->layoutSeen, 1);
}

TEST_F(PairPath, PluginFailureStoresNothing) {
  channels({"a"}, 0);
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) { deliver<FreqRecord>(b, 1, 1, {{0.5, 50}}, s); };
  task->on("readVectorCounterDutyCycleAndFrequencyF64").status(-200279).value(uint32_t{1});
  double a[2] = {9, 9}, b[2] = {9, 9};
  int32_t got = 77;
  EXPECT_EQ(VorexReadCtrFreq(handle, 1, 1.0, 0, a, b, 2, &got, nullptr), -200279);
  EXPECT_EQ(a[0], 0);
  EXPECT_EQ(got, 77);
}

TEST_F(PowerPath, AutoReachesThePluginAsAutoAndOnlyThePairsReadAreSplit) {
  channels({"pwr0"}, 3);
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) {
    deliver<zqvorexPlugin_VoltageAndCurrentF64>(b, 1, 3, {{1, 10}, {2, 20}, {3, 30}}, s);
  };
  task->on("readVectorPowerVoltageAndCurrentF64").value(uint32_t{2});
  double voltage[4] = {9, 9, 9, 9}, current[4] = {9, 9, 9, 9};
  int32_t got = 0;
  EXPECT_EQ(VorexReadPowerF64(handle, -1, 1.0, 0, voltage, current, 4, &got, nullptr), 0);
  EXPECT_EQ(countSeen(), -1);
  EXPECT_EQ(kindSeen(), 10100u);
  EXPECT_EQ(task->capacitySeen, 4u);
  EXPECT_EQ(std::vector<double>(voltage, voltage + 4), (std::vector<double>{1, 2, 0, 0}));
  EXPECT_EQ(std::vector<double>(current, current + 4), (std::vector<double>{10, 20, 0, 0}));
  EXPECT_EQ(got, 2);
}

TEST_F(PowerPath, BinaryPairsSplitTheSameWay) {
  channels({"pwr0", "pwr1"}, 0);
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) {
    deliver<zqvorexPlugin_VoltageAndCurrentI16>(b, 1, 2, {{-1, 1}, {-2, 2}}, s);
  };
  task->on("readVectorPowerVoltageAndCurrentI16").value(uint32_t{1});
  int16_t voltage[3] = {9, 9, 9}, current[3] = {9, 9, 9};
  EXPECT_EQ(VorexReadPowerBinaryI16(handle, 1, 1.0, 1, voltage, current, 3, nullptr, nullptr), 0);
  EXPECT_EQ(std::vector<int16_t>(voltage, voltage + 3), (std::vector<int16_t>{-1, -2, 0}));
  EXPECT_EQ(std::vector<int16_t>(current, current + 3), (std::vector<int16_t>{1, 2, 0}));
  EXPECT_EQ(task->layoutSeen, 1);
}

TEST_F(PowerPath, PluginFailureStillStoresTheCount) {
  channels({"a"}, 0);
  task->on("readVectorPowerVoltageAndCurrentF64").status(-200279).value(uint32_t{2});
  double a[4], b[4];
  int32_t got = 0;
  EXPECT_EQ(VorexReadPowerF64(handle, 2, 1.0, 0, a, b, 4, &got, nullptr), -200279);
  EXPECT_EQ(got, 2);
}

}  // namespace
}  // namespace zqtest
