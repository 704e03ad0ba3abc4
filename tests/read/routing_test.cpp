// Every read reaches its own operation with its channel kind, count and layout.
#include <array>
#include <functional>
#include <set>

#include "read_task.h"

namespace zqtest {
namespace {

constexpr int64_t kNoLayout = -1;  // reads without a layout leave layoutSeen as it was

struct Route {
  const char* function;
  const char* op;
  uint64_t kind;
  int64_t layoutForMode7;  // 1 with a mode parameter, 0 for the counter reads without one
  std::function<int32_t(TaskHandle, int32_t mode, bool32* reserved)> call;
};

// Arrays of 16 elements, 4 samples per channel asked for, on two channels.
double f64a[16], f64b[16];
uint16_t u16[16];
int16_t i16a[16], i16b[16];
uint32_t u32a[16], u32b[16];
int32_t i32[16];
uint8_t u8[16];
int32_t got, bytes;
double d1, d2;
uint32_t w1, w2;

// A row: the function's name without its prefix, then its arguments in terms of h, m and r.
#define ZQ_READ(name, op, kind, layout, ...) \
  {#name, op, kind, layout,                    \
   [](TaskHandle h, [[maybe_unused]] int32_t m, bool32* r) { return Vorex##name(__VA_ARGS__); }}

const Route kRoutes[] = {
    ZQ_READ(ReadAnalogF64, "readScaledVectorF64", 10100, 1, h, 4, 1.0, m, f64a, 16, &got, r),
    ZQ_READ(ReadBinaryU16, "readBinaryVectorU16", 10100, 1, h, 4, 1.0, m, u16, 16, &got, r),
    ZQ_READ(ReadBinaryI16, "readBinaryVectorI16", 10100, 1, h, 4, 1.0, m, i16a, 16, &got, r),
    ZQ_READ(ReadBinaryU32, "readBinaryVectorU32", 10100, 1, h, 4, 1.0, m, u32a, 16, &got, r),
    ZQ_READ(ReadBinaryI32, "readBinaryVectorI32", 10100, 1, h, 4, 1.0, m, i32, 16, &got, r),
    ZQ_READ(ReadCounterF64, "readScaledVectorF64", 10131, 0, h, 4, 1.0, f64a, 16, &got, r),
    ZQ_READ(ReadCounterF64Ex, "readScaledVectorF64", 10131, 1, h, 4, 1.0, m, f64a, 16, &got, r),
    ZQ_READ(ReadCounterU32, "readBinaryVectorU32", 10131, 0, h, 4, 1.0, u32a, 16, &got, r),
    ZQ_READ(ReadCounterU32Ex, "readBinaryVectorU32", 10131, 1, h, 4, 1.0, m, u32a, 16, &got, r),
    ZQ_READ(ReadRaw, "readRawU8", 10100, kNoLayout, h, 4, 1.0, u8, 16, &got, &bytes, r),
    ZQ_READ(ReadDigitalU8, "readPortVectorU8", 10151, 1, h, 4, 1.0, m, u8, 16, &got, r),
    ZQ_READ(ReadDigitalU16, "readPortVectorU16", 10151, 1, h, 4, 1.0, m, u16, 16, &got, r),
    ZQ_READ(ReadDigitalU32, "readPortVectorU32", 10151, 1, h, 4, 1.0, m, u32a, 16, &got, r),
    ZQ_READ(ReadDigitalLines, "readLineVectorU8", 10151, 1, h, 4, 1.0, m, u8, 16, &got, &bytes, r),
    ZQ_READ(ReadCtrFreq, "readVectorCounterDutyCycleAndFrequencyF64", 10131, 1, h, 4, 1.0, m, f64a, f64b, 16, &got, r),
    ZQ_READ(ReadCtrTime, "readVectorCounterHighAndLowTimesF64", 10131, 1, h, 4, 1.0, m, f64a, f64b, 16, &got, r),
    ZQ_READ(ReadCtrTicks, "readVectorCounterHighAndLowTicksU32", 10131, 1, h, 4, 1.0, m, u32a, u32b, 16, &got, r),
    ZQ_READ(ReadPowerF64, "readVectorPowerVoltageAndCurrentF64", 10100, 1, h, 4, 1.0, m, f64a, f64b, 16, &got, r),
    ZQ_READ(ReadPowerBinaryI16, "readVectorPowerVoltageAndCurrentI16", 10100, 1, h, 4, 1.0, m, i16a, i16b, 16, &got, r),
};

const Route kScalarRoutes[] = {
    ZQ_READ(ReadAnalogScalarF64, "readScaledScalarF64", 10100, kNoLayout, h, 1.0, &d1, r),
    ZQ_READ(ReadCounterScalarF64, "readScaledScalarF64", 10131, kNoLayout, h, 1.0, &d1, r),
    ZQ_READ(ReadCounterScalarU32, "readBinaryScalarU32", 10131, kNoLayout, h, 1.0, &w1, r),
    ZQ_READ(ReadDigitalScalarU32, "readPortScalarU32", 10151, kNoLayout, h, 1.0, &w1, r),
    ZQ_READ(ReadCtrFreqScalar, "readScalarCounterDutyCycleAndFrequencyF64", 10131, kNoLayout, h, 1.0, &d1, &d2, r),
    ZQ_READ(ReadCtrTimeScalar, "readScalarCounterHighAndLowTimesF64", 10131, kNoLayout, h, 1.0, &d1, &d2, r),
    ZQ_READ(ReadCtrTicksScalar, "readScalarCounterHighAndLowTicksU32", 10131, kNoLayout, h, 1.0, &w1, &w2, r),
    ZQ_READ(ReadPowerScalarF64, "readScalarPowerVoltageAndCurrentF64", 10100, kNoLayout, h, 1.0, &d1, &d2, r),
};

#undef ZQ_READ

using Routing = ReadTest;

TEST_F(Routing, EveryVectorReadReachesItsOperationWithKindCountAndLayout) {
  for (const Route& r : kRoutes) {
    for (int32_t mode : {7, 0}) {
      SCOPED_TRACE(std::string(r.function) + " mode " + std::to_string(mode));
      task = ReadTask::make();
      channels({"a", "b"}, 100);
      task->on("getReadAttributeU32").value(uint32_t{1});
      task->on(r.op).value(uint32_t{4});
      EXPECT_EQ(r.call(task->handle(), mode, nullptr), 0);
      ASSERT_EQ(task->callCount(r.op), 1u);
      EXPECT_EQ(task->lastCall().op, r.op);
      EXPECT_EQ(kindSeen(), r.kind);
      EXPECT_EQ(countSeen(), 4);
      EXPECT_EQ(task->lastCall().arg("timeout")->value, Value(1.0));
      const int64_t layout = r.layoutForMode7 == kNoLayout ? kNoLayout : (mode == 0 ? 0 : r.layoutForMode7);
      EXPECT_EQ(task->layoutSeen, layout);
      EXPECT_EQ(got, 4);
    }
  }
}

TEST_F(Routing, EveryScalarReadReachesItsOperationWithItsKind) {
  for (const Route& r : kScalarRoutes) {
    SCOPED_TRACE(r.function);
    task = ReadTask::make();
    EXPECT_EQ(r.call(task->handle(), 0, nullptr), 0);
    ASSERT_EQ(task->calls().size(), 1u);
    EXPECT_EQ(task->lastCall().op, r.op);
    EXPECT_EQ(kindSeen(), r.kind);
    EXPECT_EQ(task->lastCall().arg("timeout")->value, Value(1.0));
  }
}

// The reserved word fails the read before anything reaches the plug-in. The count read is
// stored (as 0) only by the direct and power reads, which store it on any status. A null
// handle fails every read without a task.
TEST_F(Routing, ReservedNotNullOrANullHandleFailsEveryReadWithoutCallingThePlugin) {
  const std::set<std::string> storeOnFailure = {"ReadAnalogF64",    "ReadBinaryU16",  "ReadBinaryI16",
                                                "ReadBinaryU32",    "ReadBinaryI32",  "ReadCounterF64",
                                                "ReadCounterF64Ex", "ReadCounterU32", "ReadCounterU32Ex",
                                                "ReadPowerF64",     "ReadPowerBinaryI16"};
  for (const Route* table : {kRoutes, kScalarRoutes}) {
    const size_t count = table == kRoutes ? std::size(kRoutes) : std::size(kScalarRoutes);
    for (size_t i = 0; i < count; ++i) {
      const Route& r = table[i];
      SCOPED_TRACE(r.function);
      task = ReadTask::make();
      channels({"a"}, 100);
      clearLastError();
      got = 77;
      EXPECT_EQ(r.call(task->handle(), 0, &reservedWord), -200492);
      EXPECT_EQ(lastErrorCode(), -200492);
      EXPECT_TRUE(task->calls().empty());
      EXPECT_EQ(got, storeOnFailure.count(r.function) ? 0 : 77);
      EXPECT_EQ(r.call(nullptr, 0, nullptr), -200230);
      EXPECT_EQ(lastErrorCode(), -200230);
    }
  }
}

}  // namespace
}  // namespace zqtest
