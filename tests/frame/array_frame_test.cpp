// The array accessor shapes against the recording task, for arrays of double and of int32_t.
#include "frame/array_frame.h"

#include <gtest/gtest.h>

#include <vector>

#include "last_error_probe.h"
#include "recording_task.h"
#include "zqvorex_status_codes.h"

namespace {

using namespace zqframe;
using zqtest::itemList;
using zqtest::RecordingTask;
using zqtest::usageItem;
using zqvorexRedir::ITask;

constexpr AccessorInfo kPolyCoeff{"VorexGetAIChanCalPolyForwardCoeff", 0x229F, "channel", 30};
constexpr AccessorInfo kSetPolyCoeff{"VorexSetAIChanCalPolyForwardCoeff", 0x229F, "channel", 31};
constexpr AccessorInfo kEnumArray{"VorexGetEnumArray", 0x2342, "channel", 32};
constexpr AccessorInfo kSetEnumArray{"VorexSetEnumArray", 0x2342, "channel", 33};

struct F64Arrays {
  using Element = double;
  static constexpr const char* kGetOp = "getChannelAttributeF64Vtr";
  static constexpr const char* kSetOp = "setChannelAttributeF64Vtr";
  static std::vector<double> sample() { return {1.5, -2.25, 1e300}; }
  static void program(zqtest::Reply& reply, const std::vector<double>& items) { reply.numbers(items); }
  static int32_t get(TaskHandle t, const char* c, double* d, uint32_t n) {
    return getArray<double, &ITask::getChannelAttributeF64Vtr>(kPolyCoeff, t, c, d, n);
  }
  static int32_t set(TaskHandle t, const char* c, const double* d, uint32_t n) {
    return setArray<double, &ITask::setChannelAttributeF64Vtr>(kSetPolyCoeff, t, c, d, n);
  }
};

struct I32Arrays {
  using Element = int32_t;
  static constexpr const char* kGetOp = "getChannelAttributeI32Vtr";
  static constexpr const char* kSetOp = "setChannelAttributeI32Vtr";
  static std::vector<int32_t> sample() { return {10348, -1, 0x7FFFFFFF}; }
  static void program(zqtest::Reply& reply, const std::vector<int32_t>& items) { reply.integers(items); }
  static int32_t get(TaskHandle t, const char* c, int32_t* d, uint32_t n) {
    return getArray<int32_t, &ITask::getChannelAttributeI32Vtr>(kEnumArray, t, c, d, n);
  }
  static int32_t set(TaskHandle t, const char* c, const int32_t* d, uint32_t n) {
    return setArray<int32_t, &ITask::setChannelAttributeI32Vtr>(kSetEnumArray, t, c, d, n);
  }
};

enum class Handle { kLive, kNull, kExpired };
constexpr int32_t kCount = 1;  // the expected return is the element count

struct GetCase {
  const char* label;
  bool empty;  // the plug-in gives no elements, else the sample of three
  Handle handle;
  bool withData;
  uint32_t arraySize;
  int32_t pluginCode;
  int32_t expected;  // kCount or the code
  bool copied;
  bool shortArrayItems;
};

const GetCase kGetCases[] = {
    {"SizeQueryWithNullArray", false, Handle::kLive, false, 0, 0, kCount, false, false},
    {"SizeQueryWithNullArrayAndASize", false, Handle::kLive, false, 8, 0, kCount, false, false},
    {"SizeQueryWithSizeZero", false, Handle::kLive, true, 0, 0, kCount, false, false},
    {"SizeQueryOfNoElements", true, Handle::kLive, false, 0, 0, kCount, false, false},
    {"ExactSize", false, Handle::kLive, true, 3, 0, 0, true, false},
    {"NoElementsIntoAnArray", true, Handle::kLive, true, 5, 0, 0, false, false},
    {"OneElementShort", false, Handle::kLive, true, 2, 0, nZQMSTS100::kErrorArrayTooSmallForValue, false, true},
    {"PluginWarningKeepsTheElements", false, Handle::kLive, true, 3, 200077, 200077, true, false},
    {"PluginErrorCopiesNothing", false, Handle::kLive, true, 3, -201003, -201003, false, false},
    {"NullHandle", false, Handle::kNull, true, 3, 0, -200230, false, false},
    {"NullHandleIsNoSizeQuery", false, Handle::kNull, false, 0, 0, -200230, false, false},
    {"ExpiredTask", false, Handle::kExpired, true, 3, 0, zqpalerr_badPointer, false, false},
};

struct SetCase {
  const char* label;
  Handle handle;
  bool withData;
  uint32_t count;
  int32_t expected;
  bool called;
};

const SetCase kSetCases[] = {
    {"ThreeElements", Handle::kLive, true, 3, 0, true},
    {"CountZeroIgnoresThePointer", Handle::kLive, true, 0, 0, true},
    {"NullArrayWithoutCount", Handle::kLive, false, 0, 0, true},
    {"NullArrayWithCount", Handle::kLive, false, 2, zqapalerr_invalidParameter, false},
    {"NullHandleWinsOverNullArray", Handle::kNull, false, 2, -200230, false},
    {"ExpiredTask", Handle::kExpired, true, 3, zqpalerr_badPointer, false},
};

template <class Shape>
class ArrayFrame : public testing::Test {};
using Shapes = testing::Types<F64Arrays, I32Arrays>;
TYPED_TEST_SUITE(ArrayFrame, Shapes);

TYPED_TEST(ArrayFrame, GetAnswersAsEachCaseSays) {
  using Element = typename TypeParam::Element;
  const std::vector<Element> sample = TypeParam::sample();
  for (const GetCase& c : kGetCases) {
    SCOPED_TRACE(c.label);
    auto task = RecordingTask::create();
    const std::vector<Element> value = c.empty ? std::vector<Element>{} : sample;
    TypeParam::program(task->on(TypeParam::kGetOp), value);
    if (c.pluginCode != 0) task->on(TypeParam::kGetOp).status(c.pluginCode);
    if (c.handle == Handle::kExpired) task->expire();
    zqtest::clearLastError();

    const std::vector<Element> untouched(5, Element{7});
    std::vector<Element> array = untouched;
    const int32_t result = TypeParam::get(c.handle == Handle::kNull ? nullptr : task->handle(), "Dev1/ai0",
                                          c.withData ? array.data() : nullptr, c.arraySize);

    const int32_t expected = c.expected == kCount ? static_cast<int32_t>(value.size()) : c.expected;
    EXPECT_EQ(result, expected);
    std::vector<Element> wanted = untouched;
    if (c.copied) std::copy(value.begin(), value.end(), wanted.begin());
    EXPECT_EQ(array, wanted);
    EXPECT_EQ(task->callCount(TypeParam::kGetOp), c.handle == Handle::kLive ? 1u : 0u);
    EXPECT_EQ(zqtest::lastErrorCode(), expected < 0 ? expected : 0);
    if (c.shortArrayItems) {
      EXPECT_EQ(zqtest::lastErrorItems(), itemList({usageItem("kUsageTypeBufferLength", c.arraySize, "uint32_t"),
                                                    usageItem("kUsageTypeReqBufSizeInSamps", 3, "uint32_t")}));
    }
  }
}

TYPED_TEST(ArrayFrame, SetAnswersAsEachCaseSays) {
  using Element = typename TypeParam::Element;
  const std::vector<Element> sample = TypeParam::sample();
  for (const SetCase& c : kSetCases) {
    SCOPED_TRACE(c.label);
    auto task = RecordingTask::create();
    if (c.handle == Handle::kExpired) task->expire();

    const int32_t result = TypeParam::set(c.handle == Handle::kNull ? nullptr : task->handle(), "Dev1/ai0:1",
                                          c.withData ? sample.data() : nullptr, c.count);

    EXPECT_EQ(result, c.expected);
    ASSERT_EQ(task->callCount(TypeParam::kSetOp), c.called ? 1u : 0u);
    if (!c.called) continue;
    const zqtest::RecordedCall& call = task->lastCall();
    EXPECT_EQ(call.channels, (std::vector<std::string>{"Dev1/ai0", "Dev1/ai1"}));
    const std::vector<Element> passed(sample.begin(), sample.begin() + c.count);
    if (c.count == 0) {
      EXPECT_EQ(call.arg("value")->text, "");
    } else {
      EXPECT_EQ(std::get<std::vector<Element>>(call.arg("value")->value), passed);
    }
  }
}

TEST(ArrayFrameOperation, ExceptionInTheOperationBecomesAStatus) {
  auto task = RecordingTask::create();
  task->onAny().throws(std::bad_alloc());
  double array[3] = {7, 7, 7};
  EXPECT_EQ(F64Arrays::get(task->handle(), "", array, 3), zqapalerr_memoryFull);
  EXPECT_EQ(F64Arrays::set(task->handle(), "", array, 3), zqapalerr_memoryFull);
  EXPECT_EQ(array[0], 7.0);
}

}  // namespace
