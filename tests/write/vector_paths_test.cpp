// The vector and lines writes: the tests before the plug-in, and the caller's own array handed
// to it in the shape the task gives, without a copy.
#include <cstring>
#include <functional>

#include "write_fixture.h"

namespace zqtest {
namespace {

using VectorPath = WriteTest;

double f64[6] = {1.5, 2.5, 3.5, 4.5, 5.5, 6.5};
uint16_t u16[6] = {1, 2, 0xFFFF, 4, 5, 6};
int16_t i16[6] = {1, 2, -1, 4, 5, 6};
uint32_t u32[6] = {1, 2, 0xFFFFFFFF, 4, 5, 6};
int32_t i32[6] = {1, 2, -1, 4, 5, 6};
uint8_t u8[6] = {1, 2, 3, 4, 5, 6};

// n, the caller's array or null, and sampsPerChanWritten.
using Call = std::function<int32_t(TaskHandle, int32_t n, bool nullArray, int32_t* written)>;

struct VectorCase {
  const char* name;
  Call call;
  const char* op;
  const void* array;
  size_t elementSize;
};

template <class T>
const T* pick(const T* array, bool nullArray) {
  return nullArray ? nullptr : array;
}

const VectorCase kCases[] = {
    {"WriteAnalogF64",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteAnalogF64(h, n, 0, 1.0, 0, pick(f64, z), w, nullptr);
     },
     "writeScaledVectorF64", f64, 8},
    {"WriteBinaryU16",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteBinaryU16(h, n, 0, 1.0, 0, pick(u16, z), w, nullptr);
     },
     "writeBinaryVectorI16", u16, 2},
    {"WriteBinaryI16",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteBinaryI16(h, n, 0, 1.0, 0, pick(i16, z), w, nullptr);
     },
     "writeBinaryVectorI16", i16, 2},
    {"WriteBinaryU32",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteBinaryU32(h, n, 0, 1.0, 0, pick(u32, z), w, nullptr);
     },
     "writeBinaryVectorI32", u32, 4},
    {"WriteBinaryI32",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteBinaryI32(h, n, 0, 1.0, 0, pick(i32, z), w, nullptr);
     },
     "writeBinaryVectorI32", i32, 4},
    {"WriteDigitalU8",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteDigitalU8(h, n, 0, 1.0, 0, pick(u8, z), w, nullptr);
     },
     "writePortVectorU8", u8, 1},
    {"WriteDigitalU16",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteDigitalU16(h, n, 0, 1.0, 0, pick(u16, z), w, nullptr);
     },
     "writePortVectorU16", u16, 2},
    {"WriteDigitalU32",
     [](TaskHandle h, int32_t n, bool z, int32_t* w) {
       return VorexWriteDigitalU32(h, n, 0, 1.0, 0, pick(u32, z), w, nullptr);
     },
     "writePortVectorU32", u32, 4},
};

const VectorCase kLines{"WriteDigitalLines",
                        [](TaskHandle h, int32_t n, bool z, int32_t* w) {
                          return VorexWriteDigitalLines(h, n, 0, 1.0, 0, pick(u8, z), w, nullptr);
                        },
                        "writeLineVectorU8", u8, 1};

// The checks of steps 1 to 3 hold for the lines write as for the others.
std::vector<VectorCase> allCases() {
  std::vector<VectorCase> all(std::begin(kCases), std::end(kCases));
  all.push_back(kLines);
  return all;
}

TEST_F(VectorPath, TheCallersArrayGoesToThePlugInInTheTasksShape) {
  channels(2);
  for (const VectorCase& c : kCases) {
    SCOPED_TRACE(c.name);
    task->on(c.op).value(uint32_t{3});
    int32_t written = -7;
    EXPECT_EQ(c.call(handle, 3, false, &written), 0);
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

TEST_F(VectorPath, UnsignedAndSignedBinaryWritesSendTheSameBits) {
  channels(1);
  struct Twin {
    Call unsignedCall, signedCall;
  };
  const Twin twins[] = {{kCases[1].call, kCases[2].call}, {kCases[3].call, kCases[4].call}};
  for (const Twin& t : twins) {
    ASSERT_EQ(t.unsignedCall(handle, 6, false, nullptr), 0);
    const std::vector<uint8_t> fromUnsigned = task->seen.bytes;
    const std::string opUnsigned = task->calls().back().op;
    ASSERT_EQ(t.signedCall(handle, 6, false, nullptr), 0);
    EXPECT_EQ(task->seen.bytes, fromUnsigned);
    EXPECT_EQ(task->calls().back().op, opUnsigned);
  }
}

TEST_F(VectorPath, FailedChecksStopBeforeTheTaskWithTheirItems) {
  channels(2, 1);
  struct Check {
    const char* what;
    int32_t n;
    bool nullArray;
    int32_t code;
    const char* usage;
    const char* value;
    const char* valueType;
  };
  const Check checks[] = {
      {"null array with a count", 4, true, -200230, "kUsageTypeParamNum", "6", "int32_t"},
      {"negative count", -1, false, -200622, "kUsageTypeNumSampsToWrite", "-1", "int32_t"},
      {"very negative count", -5000, false, -200622, "kUsageTypeNumSampsToWrite", "-5000", "int32_t"},
      {"null array comes first", -1, true, -200230, "kUsageTypeParamNum", "6", "int32_t"},
  };
  for (const VectorCase& c : allCases()) {
    for (const Check& k : checks) {
      SCOPED_TRACE(std::string(c.name) + ": " + k.what);
      task->clearCalls();
      clearLastError();
      int32_t written = -7;
      EXPECT_EQ(c.call(handle, k.n, k.nullArray, &written), k.code);
      EXPECT_TRUE(task->calls().empty());
      EXPECT_EQ(written, 0);
      EXPECT_EQ(item(0, "usage"), k.usage);
      EXPECT_EQ(item(0, "value"), k.value);
      EXPECT_EQ(item(0, "value_type"), k.valueType);
    }
  }
}

TEST_F(VectorPath, ACountOfZeroNeedsAnArrayAndReachesThePlugInWithAnEmptyShape) {
  channels(2, 1);
  for (const VectorCase& c : allCases()) {
    SCOPED_TRACE(c.name);
    task->clearCalls();
    task->on(c.op).value(uint32_t{0});
    int32_t written = -7;
    EXPECT_EQ(c.call(handle, 0, true, &written), -52005);
    EXPECT_EQ(callsOf(c.op), 0u);
    EXPECT_EQ(written, 0);

    task->on(c.op).value(uint32_t{9});  // what the plug-in says is stored as it says it
    EXPECT_EQ(c.call(handle, 0, false, &written), 0);
    EXPECT_EQ(callsOf(c.op), 1u);
    EXPECT_EQ(task->seen.sampsPerChan, 0u);
    EXPECT_EQ(written, 9);
  }
}

TEST_F(VectorPath, WithoutAnOutParameterTheWriteStillHappens) {
  channels(1, 1);
  for (const VectorCase& c : allCases()) {
    SCOPED_TRACE(c.name);
    task->clearCalls();
    EXPECT_EQ(c.call(handle, 2, false, nullptr), 0);
    EXPECT_EQ(callsOf(c.op), 1u);
  }
}

TEST_F(VectorPath, ATaskWithoutChannelsGetsAnEmptyBufferAndNoError) {
  channels(0, 0);
  for (const VectorCase& c : allCases()) {
    SCOPED_TRACE(c.name);
    task->clearCalls();
    EXPECT_EQ(c.call(handle, 2, false, nullptr), 0);
    EXPECT_EQ(callsOf(c.op), 1u);
    EXPECT_EQ(task->seen.channels, 0u);
  }
}

TEST_F(VectorPath, AFailedChannelCountStopsTheWrite) {
  task->on("getWriteAttributeU32").status(-200478);
  for (const VectorCase& c : allCases()) {
    SCOPED_TRACE(c.name);
    int32_t written = -7;
    EXPECT_EQ(c.call(handle, 2, false, &written), -200478);
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
    ASSERT_EQ(kLines.call(handle, s.n, false, nullptr), 0);
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
