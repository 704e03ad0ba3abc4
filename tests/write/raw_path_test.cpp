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

}  // namespace
}  // namespace zqtest
