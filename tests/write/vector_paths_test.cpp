// The vector and lines writes: the tests before the plug-in, and the caller's own array handed
// to it in the shape the task gives, without a copy.
#include <cstring>

#include "write_fixture.h"

namespace zqtest {
namespace {

using VectorPath = WriteTest;

// The vector writes; the checks before the plug-in hold for the lines write too.
const std::vector<WriteRoute> kVectors = writesOf({WriteShape::kVector});
const std::vector<WriteRoute> kChecked = writesOf({WriteShape::kVector, WriteShape::kLines});
const WriteRoute kLines = writesOf({WriteShape::kLines}).front();

TEST_F(VectorPath, TheCallersArrayGoesToThePlugInInTheTasksShape) {
  channels(2);
  for (const WriteRoute& c : kVectors) {
    SCOPED_TRACE(c.name);
    task->on(c.op).value(uint32_t{3});
    int32_t written = -7;
    EXPECT_EQ(c.call({.handle = handle, .n = 3, .written = &written}), 0);
    EXPECT_EQ(written, 3);
    EXPECT_EQ(task->seen.channels, 2u);
    EXPECT_EQ(task->seen.sampsPerChan, 3u);
    EXPECT_EQ(task->seen.data, c.array);  // no copy: the plug-in reads the caller's memory
    ASSERT_EQ(task->seen.bytes.size(), 6 * c.elementSize);
    EXPECT_EQ(std::memcmp(task->seen.bytes.data(), c.array, 6 * c.elementSize), 0);
    EXPECT_EQ(task->seen.resizeCode, -52002);  // the write form refuses to change shape
    EXPECT_EQ(task->calls().front().op, "getWriteAttributeU32");
    EXPECT_EQ(task->calls().front().attributeId, kWriteNumChans);
  }
}

TEST_F(VectorPath, ACountOfZeroNeedsAnArrayAndReachesThePlugInWithAnEmptyShape) {
  channels(2, 1);
  for (const WriteRoute& c : kChecked) {
    SCOPED_TRACE(c.name);
    task->clearCalls();
    task->on(c.op).value(uint32_t{0});
    int32_t written = -7;
    EXPECT_EQ(c.call({.handle = handle, .n = 0, .nullFirst = true, .written = &written}), -52005);
    EXPECT_EQ(callsOf(c.op), 0u);
    EXPECT_EQ(written, 0);

    task->on(c.op).value(uint32_t{9});  // what the plug-in says is stored as it says it
    EXPECT_EQ(c.call({.handle = handle, .n = 0, .written = &written}), 0);
    EXPECT_EQ(callsOf(c.op), 1u);
    EXPECT_EQ(task->seen.sampsPerChan, 0u);
    EXPECT_EQ(written, 9);
  }
}

TEST_F(VectorPath, ATaskWithoutChannelsGetsAnEmptyBufferAndNoError) {
  channels(0, 0);
  for (const WriteRoute& c : kChecked) {
    SCOPED_TRACE(c.name);
    task->clearCalls();
    EXPECT_EQ(c.call({.handle = handle}), 0);
    EXPECT_EQ(callsOf(c.op), 1u);
    EXPECT_EQ(task->seen.channels, 0u);
  }
}

TEST_F(VectorPath, AFailedChannelCountStopsTheWrite) {
  task->on("getWriteAttributeU32").status(-200478);
  for (const WriteRoute& c : kChecked) {
    SCOPED_TRACE(c.name);
    int32_t written = -7;
    EXPECT_EQ(c.call({.handle = handle, .written = &written}), -200478);
    EXPECT_EQ(callsOf(c.op), 0u);
    EXPECT_EQ(written, 0);
  }
}

TEST_F(VectorPath, LinesTakeTheShapeOfBytesPerChannel) {
  struct Shape {
    uint32_t numChans, bytesPerChan;
    int32_t n;
  };
  const Shape shapes[] = {{2, 3, 1}, {1, 2, 3}, {3, 1, 2}};
  for (const Shape& s : shapes) {
    SCOPED_TRACE(std::to_string(s.numChans) + "x" + std::to_string(s.bytesPerChan));
    channels(s.numChans, s.bytesPerChan);
    ASSERT_EQ(kLines.call({.handle = handle, .n = s.n}), 0);
    EXPECT_EQ(task->seen.channels, s.numChans);
    EXPECT_EQ(task->seen.sampsPerChan, static_cast<uint64_t>(s.n));
    EXPECT_EQ(task->seen.lines, std::vector<uint32_t>(s.numChans, s.bytesPerChan));
    EXPECT_EQ(task->seen.data, u8);
    ASSERT_GE(task->calls().size(), 2u);
    const auto& calls = task->calls();
    EXPECT_EQ(calls[calls.size() - 2].attributeId, kWriteDigitalLinesBytesPerChan);
  }
}

}  // namespace
}  // namespace zqtest
