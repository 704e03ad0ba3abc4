// Every write reaches its own plug-in operation with its channel kind, autoStart as a byte and
// the layout; a non-null reserved or a null handle stops it before the plug-in.
#include <functional>

#include "write_fixture.h"

namespace zqtest {
namespace {

using Routing = WriteTest;

double f64[4] = {1, 2, 3, 4};
double f64b[4] = {5, 6, 7, 8};
uint16_t u16[4] = {1, 2, 3, 4};
int16_t i16[4] = {1, 2, 3, 4};
uint32_t u32[4] = {1, 2, 3, 4};
uint32_t u32b[4] = {5, 6, 7, 8};
int32_t i32[4] = {1, 2, 3, 4};
uint8_t u8[8] = {1, 2, 3, 4, 5, 6, 7, 8};

using Call = std::function<int32_t(TaskHandle, int32_t autoStart, int32_t layout, bool32* reserved)>;

struct Route {
  const char* name;
  Call call;
  const char* op;
  uint64_t kind;
  bool hasLayout;
};

const Route kRoutes[] = {
    {"WriteAnalogF64",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteAnalogF64(h, 2, a, 1.0, l, f64, nullptr, r);
     },
     "writeScaledVectorF64", 10102, true},
    {"WriteBinaryU16",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteBinaryU16(h, 2, a, 1.0, l, u16, nullptr, r);
     },
     "writeBinaryVectorI16", 10102, true},
    {"WriteBinaryI16",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteBinaryI16(h, 2, a, 1.0, l, i16, nullptr, r);
     },
     "writeBinaryVectorI16", 10102, true},
    {"WriteBinaryU32",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteBinaryU32(h, 2, a, 1.0, l, u32, nullptr, r);
     },
     "writeBinaryVectorI32", 10102, true},
    {"WriteBinaryI32",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteBinaryI32(h, 2, a, 1.0, l, i32, nullptr, r);
     },
     "writeBinaryVectorI32", 10102, true},
    {"WriteDigitalU8",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteDigitalU8(h, 2, a, 1.0, l, u8, nullptr, r);
     },
     "writePortVectorU8", 10153, true},
    {"WriteDigitalU16",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteDigitalU16(h, 2, a, 1.0, l, u16, nullptr, r);
     },
     "writePortVectorU16", 10153, true},
    {"WriteDigitalU32",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteDigitalU32(h, 2, a, 1.0, l, u32, nullptr, r);
     },
     "writePortVectorU32", 10153, true},
    {"WriteDigitalLines",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteDigitalLines(h, 2, a, 1.0, l, u8, nullptr, r);
     },
     "writeLineVectorU8", 10153, true},
    {"WriteRaw",
     [](TaskHandle h, int32_t a, int32_t, bool32* r) { return VorexWriteRaw(h, 2, a, 1.0, u8, nullptr, r); },
     "writeRawU8", 10102, false},
    {"WriteCtrFreq",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteCtrFreq(h, 2, a, 1.0, l, f64, f64b, nullptr, r);
     },
     "writeVectorCounterDutyCycleAndFrequencyF64", 10132, true},
    {"WriteCtrTime",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteCtrTime(h, 2, a, 1.0, l, f64, f64b, nullptr, r);
     },
     "writeVectorCounterHighAndLowTimesF64", 10132, true},
    {"WriteCtrTicks",
     [](TaskHandle h, int32_t a, int32_t l, bool32* r) {
       return VorexWriteCtrTicks(h, 2, a, 1.0, l, u32, u32b, nullptr, r);
     },
     "writeVectorCounterHighAndLowTicksU32", 10132, true},
    {"WriteAnalogScalarF64",
     [](TaskHandle h, int32_t a, int32_t, bool32* r) { return VorexWriteAnalogScalarF64(h, a, 1.0, 2.5, r); },
     "writeScaledScalarF64", 10102, false},
    {"WriteDigitalScalarU32",
     [](TaskHandle h, int32_t a, int32_t, bool32* r) { return VorexWriteDigitalScalarU32(h, a, 1.0, 7, r); },
     "writePortScalarU32", 10153, false},
    {"WriteCtrFreqScalar",
     [](TaskHandle h, int32_t a, int32_t, bool32* r) {
       return VorexWriteCtrFreqScalar(h, a, 1.0, 100, 0.5, r);
     },
     "writeScalarCounterDutyCycleAndFrequencyF64", 10132, false},
    {"WriteCtrTimeScalar",
     [](TaskHandle h, int32_t a, int32_t, bool32* r) {
       return VorexWriteCtrTimeScalar(h, a, 1.0, 0.1, 0.2, r);
     },
     "writeScalarCounterHighAndLowTimesF64", 10132, false},
    {"WriteCtrTicksScalar",
     [](TaskHandle h, int32_t a, int32_t, bool32* r) { return VorexWriteCtrTicksScalar(h, a, 1.0, 3, 4, r); },
     "writeScalarCounterHighAndLowTicksU32", 10132, false},
};

TEST_F(Routing, EveryWriteReachesItsOperationWithKindAutoStartAndLayout) {
  channels(2, 1, 2);
  struct Variant {
    int32_t autoStart;
    int32_t layout;
    uint64_t autoStartSeen;
    int64_t layoutSeen;
  };
  const Variant variants[] = {{2, 5, 1, 1}, {0, 0, 0, 0}, {-1, 1, 1, 1}};
  for (const Route& r : kRoutes) {
    for (const Variant& v : variants) {
      SCOPED_TRACE(std::string(r.name) + " autoStart " + std::to_string(v.autoStart));
      task->clearCalls();
      task->seen = {};
      EXPECT_EQ(r.call(handle, v.autoStart, v.layout, nullptr), 0);
      ASSERT_EQ(callsOf(r.op), 1u);
      EXPECT_EQ(unsignedArg(r.op, "channelKind"), r.kind);
      EXPECT_EQ(unsignedArg(r.op, "autoStart"), v.autoStartSeen);
      EXPECT_EQ(std::get<double>(last(r.op).arg("timeout")->value), 1.0);
      if (r.hasLayout) {
        EXPECT_EQ(task->seen.layout, v.layoutSeen);
      }
    }
  }
}

TEST_F(Routing, ANonNullReservedStopsEveryWriteBeforeTheTask) {
  channels(2, 1, 2);
  for (const Route& r : kRoutes) {
    SCOPED_TRACE(r.name);
    task->clearCalls();
    clearLastError();
    EXPECT_EQ(r.call(handle, 1, 0, &reservedWord), -200492);
    EXPECT_TRUE(task->calls().empty()) << task->calls().front().op;
    ASSERT_NE(lastError(), nullptr);
    EXPECT_EQ(lastError()->status.code, -200492);
  }
}

TEST_F(Routing, ANullHandleFailsEveryWrite) {
  for (const Route& r : kRoutes) {
    SCOPED_TRACE(r.name);
    EXPECT_EQ(r.call(nullptr, 1, 0, nullptr), -200230);
  }
}

TEST_F(Routing, APlugInFailureComesBackUnchangedWithItsCount) {
  channels(2, 1, 2);
  for (const Route& r : kRoutes) {
    SCOPED_TRACE(r.name);
    task->clearReplies();
    task->writeAttributes[kWriteNumChans] = 2;
    task->on(r.op).status(-89120).value(uint32_t{1});
    EXPECT_EQ(r.call(handle, 1, 0, nullptr), -89120);
  }
}

}  // namespace
}  // namespace zqtest
