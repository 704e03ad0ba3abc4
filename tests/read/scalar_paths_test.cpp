// The scalar reads: one value, or one pair, through out-parameters.
#include <functional>

#include "read_task.h"

namespace zqtest {
namespace {

using PlainScalar = ReadTest;
using CheckedScalar = ReadTest;
using PairScalar = ReadTest;

TEST_F(PlainScalar, ValueComesFromThePluginAndANullOneIsNotTested) {
  EXPECT_EQ(VorexReadCounterScalarF64(handle, 1.0, nullptr, nullptr), 0);
  EXPECT_EQ(task->callCount("readScaledScalarF64"), 1u);
  task->on("readBinaryScalarU32").out(uint32_t{42});
  uint32_t count = 0;
  EXPECT_EQ(VorexReadCounterScalarU32(handle, 1.0, &count, nullptr), 0);
  EXPECT_EQ(count, 42u);
}

TEST_F(CheckedScalar, NullValueIsParameterThreeAndAValueStartsAtZero) {
  EXPECT_EQ(VorexReadDigitalScalarU32(handle, 1.0, nullptr, nullptr), -200230);
  EXPECT_EQ(lastErrorItem(0, "usage"), "kUsageTypeParamNum");
  EXPECT_EQ(lastErrorItem(0, "value"), "3");
  EXPECT_EQ(task->callCount("readPortScalarU32"), 0u);

  task->on("readPortScalarU32").status(-200279);
  uint32_t value = 77;
  EXPECT_EQ(VorexReadDigitalScalarU32(handle, 1.0, &value, nullptr), -200279);
  EXPECT_EQ(value, 0u);
  bool32 reserved = 1;
  value = 77;
  EXPECT_EQ(VorexReadDigitalScalarU32(handle, 1.0, &value, &reserved), -200492);
  EXPECT_EQ(value, 0u);
}

// The four pair scalars with one call shape: (handle, first, second) as doubles; the ticks
// are carried in doubles by the wrapper.
struct PairScalarRead {
  const char* function;
  const char* op;
  bool storesWhenInvalid;
  std::function<void(Reply&, double first, double second)> answer;  // the record, in record order
  std::function<int32_t(TaskHandle, double* first, double* second, bool nullFirst, bool nullSecond)> call;
};

const PairScalarRead kPairScalars[] = {
    {"ReadCtrFreqScalar", "readScalarCounterDutyCycleAndFrequencyF64", false,
     // record: dutyCycle first, frequency second; parameters: frequency first
     [](Reply& r, double f, double d) { r.out(zqvorexPlugin_DutyCycleAndFrequencyF64{d, f}); },
     [](TaskHandle h, double* a, double* b, bool na, bool nb) {
       return VorexReadCtrFreqScalar(h, 1.0, na ? nullptr : a, nb ? nullptr : b, nullptr);
     }},
    {"ReadCtrTimeScalar", "readScalarCounterHighAndLowTimesF64", false,
     [](Reply& r, double hi, double lo) { r.out(zqvorexPlugin_HighAndLowTimesF64{hi, lo}); },
     [](TaskHandle h, double* a, double* b, bool na, bool nb) {
       return VorexReadCtrTimeScalar(h, 1.0, na ? nullptr : a, nb ? nullptr : b, nullptr);
     }},
    {"ReadCtrTicksScalar", "readScalarCounterHighAndLowTicksU32", false,
     [](Reply& r, double hi, double lo) {
       r.out(zqvorexPlugin_HighAndLowTicksU32{static_cast<uint32_t>(hi), static_cast<uint32_t>(lo)});
     },
     [](TaskHandle h, double* a, double* b, bool na, bool nb) {
       uInt32 hi = static_cast<uInt32>(*a), lo = static_cast<uInt32>(*b);
       const int32_t code = VorexReadCtrTicksScalar(h, 1.0, na ? nullptr : &hi, nb ? nullptr : &lo, nullptr);
       *a = hi;
       *b = lo;
       return code;
     }},
    {"ReadPowerScalarF64", "readScalarPowerVoltageAndCurrentF64", true,
     [](Reply& r, double v, double c) { r.out(zqvorexPlugin_VoltageAndCurrentF64{v, c}); },
     [](TaskHandle h, double* a, double* b, bool na, bool nb) {
       return VorexReadPowerScalarF64(h, 1.0, na ? nullptr : a, nb ? nullptr : b, nullptr);
     }},
};

// The outputs take the record's fields in parameter order when the plug-in says the value is
// valid (and, for the power read only, when it is not); a failed read leaves them.
TEST_F(PairScalar, FieldsGoToTheOutputsInParameterOrderWhenValid) {
  const struct {
    uint32_t valid;
    int32_t code;
  } answers[] = {{1, 0}, {0, 0}, {1, -200279}};
  for (const PairScalarRead& r : kPairScalars) {
    for (const auto& a : answers) {
      SCOPED_TRACE(std::string(r.function) + " valid " + std::to_string(a.valid) + " code " + std::to_string(a.code));
      task = ReadTask::make();
      Reply& reply = task->on(r.op).value(a.valid);
      if (a.code) reply.status(a.code);
      r.answer(reply, 5, 7);
      double first = 1, second = 1;
      EXPECT_EQ(r.call(task->handle(), &first, &second, false, false), a.code);
      const bool stored = a.code == 0 && (a.valid || r.storesWhenInvalid);
      EXPECT_EQ(first, stored ? 5 : 1);
      EXPECT_EQ(second, stored ? 7 : 1);
    }
  }
}

TEST_F(PairScalar, NullOutputsAreParametersThreeAndFour) {
  const struct {
    bool nullFirst, nullSecond;
    const char* param;
  } cases[] = {{true, false, "3"}, {false, true, "4"}, {true, true, "3"}};
  for (const PairScalarRead& r : kPairScalars) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(r.function) + " expects " + c.param);
      task = ReadTask::make();
      clearLastError();
      double first = 1, second = 1;
      EXPECT_EQ(r.call(task->handle(), &first, &second, c.nullFirst, c.nullSecond), -200230);
      EXPECT_EQ(lastErrorItem(0, "value"), c.param);
      EXPECT_EQ(lastErrorItem(1, "value"), kAbsent);
      EXPECT_TRUE(task->calls().empty());
    }
  }
}

}  // namespace
}  // namespace zqtest
