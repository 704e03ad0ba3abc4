// The raw write: one channel of width x numSamps bytes of the caller's array.
#include "write_fixture.h"

namespace zqtest {
namespace {

using RawPath = WriteTest;

TEST_F(RawPath, TheBufferIsOneChannelOfWidthTimesCountBytes) {
  uint8_t bytes[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  struct Shape {
    uint32_t width;
    int32_t numSamps;
  };
  const Shape shapes[] = {{2, 3}, {4, 3}, {1, 12}, {3, 0}};
  for (const Shape& s : shapes) {
    SCOPED_TRACE(std::to_string(s.width) + "x" + std::to_string(s.numSamps));
    channels(5, 0, s.width);
    task->on("writeRawU8").value(uint32_t{static_cast<uint32_t>(s.numSamps)});
    int32_t written = -7;
    ASSERT_EQ(VorexWriteRaw(handle, s.numSamps, 1, 2.0, bytes, &written, nullptr), 0);
    EXPECT_EQ(task->seen.channels, 1u);
    EXPECT_EQ(task->seen.sampsPerChan, uint64_t{s.width} * static_cast<uint64_t>(s.numSamps));
    if (s.numSamps) {
      EXPECT_EQ(task->seen.data, bytes);
    }
    EXPECT_EQ(task->seen.bytes, std::vector<uint8_t>(bytes, bytes + s.width * s.numSamps));
    EXPECT_EQ(written, s.numSamps);
    EXPECT_EQ(task->calls().front().attributeId, kWriteRawDataWidth);
    EXPECT_EQ(callsOf("getWriteAttributeU32"), 1u);  // the raw path needs no channel count
    task->clearCalls();
  }
}

TEST_F(RawPath, FailedChecksStopBeforeTheTask) {
  channels(1, 0, 2);
  uint8_t bytes[4] = {};
  struct Check {
    const char* what;
    int32_t numSamps;
    const void* array;
    int32_t code;
    const char* usage;
    const char* value;
  };
  const Check checks[] = {
      {"null array with a count", 2, nullptr, -200230, "kUsageTypeParamNum", "5"},
      {"negative count", -3, bytes, -200622, "kUsageTypeNumSampsToWrite", "-3"},
      {"null array, count 0", 0, nullptr, -52005, nullptr, nullptr},
  };
  for (const Check& k : checks) {
    SCOPED_TRACE(k.what);
    task->clearCalls();
    clearLastError();
    int32_t written = -7;
    EXPECT_EQ(VorexWriteRaw(handle, k.numSamps, 0, 1.0, k.array, &written, nullptr), k.code);
    EXPECT_EQ(callsOf("writeRawU8"), 0u);
    EXPECT_EQ(written, 0);
    if (k.usage) {
      EXPECT_TRUE(task->calls().empty());
      EXPECT_EQ(lastErrorItem(0, "usage"), k.usage);
      EXPECT_EQ(lastErrorItem(0, "value"), k.value);
    }
  }
}

}  // namespace
}  // namespace zqtest
