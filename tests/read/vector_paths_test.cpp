// The direct path leaves every test to the plug-in; the checked path clears the array, resolves
// the count and fits it to the array before the plug-in sees it.
#include <algorithm>
#include <functional>
#include <stdexcept>

#include "read_task.h"

namespace zqtest {
namespace {

using DirectPath = ReadTest;
using CheckedPath = ReadTest;

TEST_F(DirectPath, NullArrayFailsInTheAdapterWhateverTheCount) {
  for (int32_t count : {5, 0, -1}) {
    SCOPED_TRACE(count);
    clearLastError();
    int32_t got = 77;
    EXPECT_EQ(VorexReadAnalogF64(handle, count, 1.0, 0, nullptr, 10, &got, nullptr), -52005);
    EXPECT_EQ(readCalls("readScaledVectorF64"), 0u);
    EXPECT_EQ(got, 0);  // stored whatever the status
  }
}

TEST_F(DirectPath, CountReachesThePluginAsGivenAndTheArrayIsNotCleared) {
  double array[6] = {9, 9, 9, 9, 9, 9};
  int32_t got = 0;
  for (int32_t count : {-1, 3, 1000, -7}) {
    SCOPED_TRACE(count);
    EXPECT_EQ(VorexReadAnalogF64(handle, count, 2.5, 0, array, 6, &got, nullptr), 0);
    EXPECT_EQ(countSeen(), count);
    EXPECT_EQ(task->capacitySeen, 6u);
  }
  EXPECT_TRUE(std::all_of(array, array + 6, [](double x) { return x == 9; }));
  EXPECT_EQ(readCalls("getReadAttributeStringVtr") + readCalls("getReadAttributeSize"), 0u);
}

TEST_F(DirectPath, PluginWritesStraightIntoTheCallersArray) {
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) { deliver<int16_t>(b, 2, 2, {1, -2, 3, -4}, s); };
  task->on("readBinaryVectorI16").value(uint32_t{2});
  int16_t array[5] = {9, 9, 9, 9, 9};
  int32_t got = 0;
  EXPECT_EQ(VorexReadBinaryI16(handle, 2, 1.0, 0, array, 5, &got, nullptr), 0);
  EXPECT_EQ(std::vector<int16_t>(array, array + 5), (std::vector<int16_t>{1, -2, 3, -4, 9}));
  EXPECT_EQ(got, 2);
}

TEST_F(DirectPath, CountReadIsStoredOnAFailingReadAndAWarningIsTheResult) {
  const struct {
    int32_t pluginCode;
  } cases[] = {{-200279}, {200010}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.pluginCode);
    task->on("readBinaryVectorU32").status(c.pluginCode).value(uint32_t{3});
    uint32_t array[4] = {};
    int32_t got = 0;
    EXPECT_EQ(VorexReadBinaryU32(handle, 3, 1.0, 1, array, 4, &got, nullptr), c.pluginCode);
    EXPECT_EQ(got, 3);
  }
}

// The three port reads share the checked path; each case runs against each of them.
struct PortRead {
  const char* op;
  std::function<int32_t(TaskHandle, int32_t count, int32_t mode, bool nullArray, uint32_t size, int32_t* got)> call;
  std::function<bool(uint32_t size)> allZero;  // the array of the last call
  std::function<void()> poison;                 // fills the array with non-zero values
};

uint8_t port8[64];
uint16_t port16[64];
uint32_t port32[64];

template <class T, size_t N>
PortRead portRead(const char* op, T (&array)[N],
                  int32_t (*fn)(TaskHandle, int32_t, double, int32_t, T*, uint32_t, int32_t*, bool32*)) {
  return {op,
          [&array, fn](TaskHandle h, int32_t count, int32_t mode, bool nullArray, uint32_t size, int32_t* got) {
            return fn(h, count, 1.0, mode, nullArray ? nullptr : array, size, got, nullptr);
          },
          [&array](uint32_t size) { return std::all_of(array, array + size, [](T x) { return x == 0; }); },
          [&array] { std::fill(std::begin(array), std::end(array), T(0x5A)); }};
}

std::vector<PortRead> portReads() {
  return {portRead("readPortVectorU8", port8, &VorexReadDigitalU8),
          portRead("readPortVectorU16", port16, &VorexReadDigitalU16),
          portRead("readPortVectorU32", port32, &VorexReadDigitalU32)};
}

// A null array with a count is parameter 5, without one the adapter fails; a count below auto
// is invalid after the array was cleared. The plug-in is not called, the count read is left.
TEST_F(CheckedPath, NullArrayOrCountBelowAutoFailsBeforeThePlugin) {
  const struct {
    int32_t count;
    bool nullArray;
    int32_t code;
    const char* usage;
    const char* value;
  } cases[] = {{5, true, -200230, "kUsageTypeParamNum", "5"},
               {0, true, -52005, nullptr, nullptr},
               {-2, false, -200096, "kUsageTypeRequestedNumberSamples", "-2"}};
  for (const PortRead& r : portReads()) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(r.op) + " count " + std::to_string(c.count));
      task = ReadTask::make();
      channels({"a"}, 10);
      r.poison();
      clearLastError();
      int32_t got = 77;
      EXPECT_EQ(r.call(task->handle(), c.count, 0, c.nullArray, 64, &got), c.code);
      EXPECT_EQ(readCalls(r.op), 0u);
      EXPECT_EQ(got, 77);
      EXPECT_TRUE(c.nullArray || r.allZero(64));
      if (!c.usage) continue;
      EXPECT_EQ(lastErrorItem(0, "usage"), c.usage);
      EXPECT_EQ(lastErrorItem(0, "value"), c.value);
      EXPECT_EQ(lastErrorItem(0, "value_type"), "int32_t");
    }
  }
}

// numSampsPerChan, channels, available, array size -> the count the plug-in sees, or -200229
// with the required size when it does not fit.
struct Fit {
  int32_t count;
  size_t channels;
  uint64_t available;
  uint32_t size;
  int64_t seen;      // -1: the plug-in is not called
  uint32_t required;  // the required size reported with -200229
};

const Fit kFits[] = {
    {-1, 1, 100, 10, 10, 0},    // auto, more available than fit: cut to the array
    {-1, 3, 100, 10, 3, 0},     // cut to the array's share of each channel, rounded down
    {-1, 2, 4, 10, 4, 0},       // auto, fewer available: what is there
    {-1, 0, 7, 10, 7, 0},       // no channels: no limit, no size test
    {5, 2, 0, 10, 5, 0},        // fixed count that fits exactly
    {6, 2, 0, 10, -1, 12},      // fixed count too large
    {0, 4, 0, 0, 0, 0},         // nothing asked, nothing needed
};

TEST_F(CheckedPath, CountIsResolvedAndFittedToTheArray) {
  for (const PortRead& r : portReads()) {
    for (const Fit& f : kFits) {
      SCOPED_TRACE(std::string(r.op) + " count " + std::to_string(f.count) + " channels " +
                   std::to_string(f.channels) + " size " + std::to_string(f.size));
      task = ReadTask::make();
      channels(std::vector<std::string>(f.channels, "x"), f.available);
      task->on(r.op).value(uint32_t{1});
      clearLastError();
      int32_t got = 77;
      const int32_t code = r.call(task->handle(), f.count, 0, false, f.size, &got);
      if (f.seen < 0) {
        EXPECT_EQ(code, -200229);
        EXPECT_EQ(readCalls(r.op), 0u);
        EXPECT_EQ(got, 77);
        EXPECT_EQ(lastErrorItem(0, "usage"), "kUsageTypeBufferLength");
        EXPECT_EQ(lastErrorItem(0, "value"), std::to_string(f.size));
        EXPECT_EQ(lastErrorItem(0, "value_type"), "uint32_t");
        EXPECT_EQ(lastErrorItem(1, "usage"), "kUsageTypeReqBufSizeInSamps");
        EXPECT_EQ(lastErrorItem(1, "value"), std::to_string(f.required));
        EXPECT_EQ(lastErrorItem(1, "value_type"), "uint32_t");
      } else {
        EXPECT_EQ(code, 0);
        ASSERT_EQ(readCalls(r.op), 1u);
        EXPECT_EQ(countSeen(), f.seen);
        EXPECT_EQ(task->capacitySeen, f.size);
        EXPECT_EQ(got, 1);
      }
    }
  }
}

TEST_F(CheckedPath, ChannelsAreTheListOfChannelsToReadAndAutoUsesTheAvailableCount) {
  channels({"a", "b"}, 3);
  EXPECT_EQ(VorexReadDigitalU8(handle, -1, 1.0, 0, port8, 64, nullptr, nullptr), 0);
  const RecordedCall& list = task->calls().at(0);
  EXPECT_EQ(list.op, "getReadAttributeStringVtr");
  EXPECT_EQ(list.attributeId, 0x1823);
  EXPECT_EQ(list.channels, std::vector<std::string>{});
  const RecordedCall& available = task->calls().at(1);
  EXPECT_EQ(available.op, "getReadAttributeSize");
  EXPECT_EQ(available.attributeId, 0x1223);
  EXPECT_EQ(countSeen(), 3);
}

TEST_F(CheckedPath, FailingLookupStopsTheRead) {
  task->on("getReadAttributeStringVtr").status(-200478);
  int32_t got = 77;
  EXPECT_EQ(VorexReadDigitalU16(handle, 2, 1.0, 0, port16, 64, &got, nullptr), -200478);
  EXPECT_EQ(readCalls("readPortVectorU16"), 0u);
  EXPECT_EQ(readCalls("getReadAttributeSize"), 0u);
  EXPECT_EQ(got, 77);
}

TEST_F(CheckedPath, SamplesLandInTheClearedArrayAndAWarningKeepsThem) {
  channels({"a"}, 0);
  std::fill(std::begin(port32), std::end(port32), 0x5Au);
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) { deliver<uint32_t>(b, 1, 2, {7, 8}, s); };
  task->on("readPortVectorU32").status(200010).value(uint32_t{2});
  int32_t got = 0;
  EXPECT_EQ(VorexReadDigitalU32(handle, 2, 1.0, 0, port32, 4, &got, nullptr), 200010);
  EXPECT_EQ(std::vector<uint32_t>(port32, port32 + 5), (std::vector<uint32_t>{7, 8, 0, 0, 0x5A}));
  EXPECT_EQ(got, 2);
}

TEST_F(CheckedPath, ExceptionFromThePluginBecomesTheStatusAndTheArrayStaysCleared) {
  channels({"a"}, 0);
  std::fill(std::begin(port8), std::end(port8), uint8_t{0x5A});
  task->on("readPortVectorU8").throws(std::runtime_error("plug-in threw"));
  EXPECT_LT(VorexReadDigitalU8(handle, 2, 1.0, 0, port8, 8, nullptr, nullptr), 0);
  EXPECT_TRUE(std::all_of(port8, port8 + 8, [](uint8_t x) { return x == 0; }));
  EXPECT_EQ(port8[8], 0x5A);
}

}  // namespace
}  // namespace zqtest
