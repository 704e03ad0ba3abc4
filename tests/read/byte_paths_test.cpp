// The digital-line and raw reads: byte arrays sized by the task's bytes per channel or width.
#include <algorithm>

#include "boundary/array_view.h"
#include "read_task.h"

namespace zqtest {
namespace {

using LinesRead = ReadTest;
using RawRead = ReadTest;

// count, channels, available, bytes per channel, array size -> count seen, or the required bytes.
struct LineFit {
  int32_t count;
  size_t channels;
  uint64_t available;
  uint32_t bytesPerChan;
  uint32_t size;
  int64_t seen;       // -1: -200229 and no call
  uint64_t required;
};

const LineFit kLineFits[] = {
    {-1, 2, 100, 3, 20, 3, 0},   // 20 / 3 / 2 = 3
    {-1, 2, 2, 3, 20, 2, 0},     // fewer available than fit
    {-1, 2, 100, 0, 20, 100, 0}, // no bytes per channel: no limit, nothing required
    {3, 2, 0, 3, 18, 3, 0},      // exactly 18 bytes
    {4, 2, 0, 3, 20, -1, 24},    // 24 bytes needed
};

TEST_F(LinesRead, CountIsFittedToTheBytesOfTheArray) {
  for (const LineFit& f : kLineFits) {
    SCOPED_TRACE("count " + std::to_string(f.count) + " bytes " + std::to_string(f.bytesPerChan));
    task = ReadTask::make();
    channels(std::vector<std::string>(f.channels, "x"), f.available);
    task->on("getReadAttributeU32").value(f.bytesPerChan);
    task->on("readLineVectorU8").value(uint32_t{1});
    clearLastError();
    uint8_t array[32] = {};
    int32_t got = 77, bytes = 77;
    const int32_t code = VorexReadDigitalLines(task->handle(), f.count, 1.0, 0, array, f.size, &got, &bytes, nullptr);
    if (f.seen < 0) {
      EXPECT_EQ(code, -200229);
      EXPECT_EQ(readCalls("readLineVectorU8"), 0u);
      EXPECT_EQ(lastErrorItem(0, "usage"), "kUsageTypeBufferLength");
      EXPECT_EQ(lastErrorItem(0, "value_type"), "uint32_t");
      EXPECT_EQ(lastErrorItem(1, "usage"), "kUsageTypeReqBufSizeInBytes");
      EXPECT_EQ(lastErrorItem(1, "value"), std::to_string(f.required));
      EXPECT_EQ(lastErrorItem(1, "value_type"), "uint64_t");
      EXPECT_EQ(got, 77);
      EXPECT_EQ(bytes, 77);
    } else {
      EXPECT_EQ(code, 0);
      EXPECT_EQ(countSeen(), f.seen);
      EXPECT_EQ(task->capacitySeen, f.size);
      EXPECT_EQ(got, 1);
      EXPECT_EQ(bytes, static_cast<int32_t>(f.bytesPerChan));
      const auto& calls = task->calls();
      const auto width = std::find_if(calls.begin(), calls.end(),
                                      [](const RecordedCall& c) { return c.op == "getReadAttributeU32"; });
      ASSERT_NE(width, calls.end());
      EXPECT_EQ(width->attributeId, 0x217C);
    }
  }
}

TEST_F(LinesRead, PluginReshapesTheLinesAndWritesOneBytePerLine) {
  channels({"port0"}, 0);
  task->on("getReadAttributeU32").value(uint32_t{3});
  task->fillLines = [](zqgopher_IArrayLineBuffer* b, zqerr_Status* s) {
    const uint32_t three = 3;
    const zqgopher::ArrayViewAdapter<uint32_t> lines(three);
    b->table->resize(b, &lines, 2, s);
    auto* data = static_cast<uint8_t*>(b->table->getMutableData(b, 0, s));
    if (data) std::copy_n("\1\0\1\0\0\1", 6, data);
  };
  uint8_t array[8];
  std::fill(std::begin(array), std::end(array), uint8_t{9});
  EXPECT_EQ(VorexReadDigitalLines(handle, 2, 1.0, 0, array, 7, nullptr, nullptr, nullptr), 0);
  EXPECT_EQ(std::vector<uint8_t>(array, array + 8), (std::vector<uint8_t>{1, 0, 1, 0, 0, 1, 0, 9}));
}

TEST_F(LinesRead, NullArrayIsParameterFive) {
  EXPECT_EQ(VorexReadDigitalLines(handle, 1, 1.0, 0, nullptr, 8, nullptr, nullptr, nullptr), -200230);
  EXPECT_EQ(lastErrorItem(0, "value"), "5");
  EXPECT_TRUE(task->calls().empty());
}

TEST_F(RawRead, NullArrayIsParameterFourUnlessNothingIsAsked) {
  EXPECT_EQ(VorexReadRaw(handle, 3, 1.0, nullptr, 8, nullptr, nullptr, nullptr), -200230);
  EXPECT_EQ(lastErrorItem(0, "usage"), "kUsageTypeParamNum");
  EXPECT_EQ(lastErrorItem(0, "value"), "4");
  EXPECT_EQ(VorexReadRaw(handle, 0, 1.0, nullptr, 8, nullptr, nullptr, nullptr), -52005);
  EXPECT_EQ(readCalls("readRawU8"), 0u);
}

// count, available, width, size -> count seen: there is no size test on this path.
struct RawFit {
  int32_t count;
  uint64_t available;
  uint32_t width;
  uint32_t size;
  int64_t seen;
};

const RawFit kRawFits[] = {
    {-1, 100, 4, 10, 2},   // cut to whole samples of the array
    {-1, 1, 4, 10, 1},     // fewer available
    {-1, 100, 0, 10, 100}, // no width: no limit
    {50, 0, 4, 10, 50},    // a fixed count beyond the array still goes to the plug-in
};

TEST_F(RawRead, CountIsLimitedByTheWidthOnlyForAuto) {
  for (const RawFit& f : kRawFits) {
    SCOPED_TRACE("count " + std::to_string(f.count) + " width " + std::to_string(f.width));
    task = ReadTask::make();
    channels({}, f.available);
    task->on("getReadAttributeU32").value(f.width);
    uint8_t array[16];
    EXPECT_EQ(VorexReadRaw(task->handle(), f.count, 1.0, array, f.size, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(countSeen(), f.seen);
    EXPECT_EQ(kindSeen(), 10100u);
    EXPECT_EQ(task->widthSeen, f.width);
    EXPECT_EQ(task->capacitySeen, f.size);
    EXPECT_EQ(readCalls("getReadAttributeStringVtr"), 0u);
  }
}

TEST_F(RawRead, WidthAsThePluginLeavesItAndTheBytesInPlace) {
  task->on("getReadAttributeU32").value(uint32_t{4});
  task->on("readRawU8").out(uint32_t{2}).value(uint32_t{3});
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) { deliver<uint8_t>(b, 1, 6, {1, 2, 3, 4, 5, 6}, s); };
  uint8_t array[8];
  std::fill(std::begin(array), std::end(array), uint8_t{9});
  int32_t read = 0, width = 0;
  EXPECT_EQ(VorexReadRaw(handle, 3, 1.0, array, 7, &read, &width, nullptr), 0);
  EXPECT_EQ(std::vector<uint8_t>(array, array + 8), (std::vector<uint8_t>{1, 2, 3, 4, 5, 6, 0, 9}));
  EXPECT_EQ(read, 3);
  EXPECT_EQ(width, 2);
  EXPECT_EQ(task->calls().at(0).attributeId, 0x217A);
}

TEST_F(RawRead, CountBelowAutoIsInvalid) {
  uint8_t array[4] = {9, 9, 9, 9};
  EXPECT_EQ(VorexReadRaw(handle, -5, 1.0, array, 4, nullptr, nullptr, nullptr), -200096);
  EXPECT_EQ(std::count(array, array + 4, 0), 4);
  EXPECT_EQ(readCalls("readRawU8"), 0u);
  EXPECT_EQ(lastErrorItem(0, "value"), "-5");
}

}  // namespace
}  // namespace zqtest
