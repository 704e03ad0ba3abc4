// The scalar accessor shapes against the recording task: task resolution, the null-pointer
// check, scrubbing, narrowing and the fallback to the wide operation.
#include "frame/scalar_frame.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "last_error_probe.h"
#include "status/report_writer.h"
#include "recording_task.h"
#include "zqvorex_status_codes.h"

namespace {

using namespace zqframe;
using zqtest::RecordingTask;
using zqvorexRedir::ITask;

constexpr AccessorInfo kAIMax{"VorexGetAIMax", 0x17DD, "channel", 100};
constexpr AccessorInfo kBufSize{"VorexGetBufInputBufSize", 0x186C, nullptr, 200};
constexpr AccessorInfo kTaskNumChans{"VorexGetTaskNumChans", 0x2181, nullptr, 300};
constexpr AccessorInfo kReadOffset{"VorexGetReadOffset", 0x190B, nullptr, 400};
constexpr AccessorInfo kReadAvail{"VorexGetReadAvailSampPerChan", 0x1223, nullptr, 401};

int32_t getAIMax(TaskHandle t, double* d) {
  return getScalar<ClassF64, &ITask::getChannelAttributeF64>(kAIMax, t, "Dev1/ai0", d);
}
int32_t getBufSize(TaskHandle t, uint32_t* d) {
  return getScalar<ClassU32Size, &ITask::getBufferAttributeSize>(kBufSize, t, nullptr, d);
}
int32_t getNumChans(TaskHandle t, uint32_t* d) {
  return getScalar<ClassU32, &ITask::getTaskAttributeU32>(kTaskNumChans, t, nullptr, d);
}
int32_t getReadOffset(TaskHandle t, int32_t* d) {
  return getScalarWithFallback<ClassI32, &ITask::getReadAttributeI32, &ITask::getReadAttributeOffset>(kReadOffset, t,
                                                                                                      d);
}
int32_t getReadAvail(TaskHandle t, uint32_t* d) {
  return getScalarWithFallback<ClassU32, &ITask::getReadAttributeU32, &ITask::getReadAttributeSize>(kReadAvail, t, d);
}

// Each Get through one signature: the out-value starts as 5 and comes back as a double.
using Get = int32_t (*)(TaskHandle, bool withData, double* out);
template <class T, int32_t (*Accessor)(TaskHandle, T*)>
int32_t viaDouble(TaskHandle task, bool withData, double* out) {
  T value = T(5);
  const int32_t code = Accessor(task, withData ? &value : nullptr);
  *out = static_cast<double>(value);
  return code;
}

enum class Handle { kLive, kNull, kExpired };

// One Get shape: the accessor, its operation and, for the shapes with a fallback, the wide one.
struct Getter {
  Get get;
  const char* narrow;
  const char* wide = nullptr;
};

const Getter kF64{viaDouble<double, getAIMax>, "getChannelAttributeF64"};
const Getter kSize{viaDouble<uint32_t, getBufSize>, "getBufferAttributeSize"};
const Getter kU32{viaDouble<uint32_t, getNumChans>, "getTaskAttributeU32"};
const Getter kOffset{viaDouble<int32_t, getReadOffset>, "getReadAttributeI32", "getReadAttributeOffset"};
const Getter kAvail{viaDouble<uint32_t, getReadAvail>, "getReadAttributeU32", "getReadAttributeSize"};

constexpr int32_t kThrows = INT32_MIN;  // the answering operation throws instead
constexpr double k2Pow32 = 4294967296.0;

struct GetCase {
  const char* label;
  Getter getter;
  Handle handle;
  bool withData;
  double answer;       // the result of the operation that answers (the wide one after a fallback)
  int32_t code;        // and its status
  int32_t narrowCode;  // nonzero: the narrow operation fails with it first
  int32_t expected;
  double value;  // the out-value afterwards (5 when untouched)
  size_t calls;  // the operations called: none, the narrow one, or both
};

const GetCase kGetCases[] = {
    {"NullHandleScrubs", kF64, Handle::kNull, true, 0, 0, 0, -200230, 0, 0},
    {"NullHandleWinsOverNullData", kF64, Handle::kNull, false, 0, 0, 0, -200230, 5, 0},
    {"ExpiredTaskScrubs", kF64, Handle::kExpired, true, 0, 0, 0, zqpalerr_badPointer, 0, 0},
    {"NullDataStopsBeforeThePlugin", kF64, Handle::kLive, false, 0, 0, 0, -200604, 5, 0},
    {"ValueComesBack", kF64, Handle::kLive, true, 2.5, 0, 0, 0, 2.5, 1},
    {"WarningKeepsTheValue", kF64, Handle::kLive, true, 4, 200077, 0, 200077, 4, 1},
    {"ErrorScrubs", kF64, Handle::kLive, true, 4, -201003, 0, -201003, 0, 1},
    {"ExceptionScrubs", kF64, Handle::kLive, true, 0, kThrows, 0, zqpalerr_softwareFault, 0, 1},
    {"SizeThatFits", kSize, Handle::kLive, true, k2Pow32 - 1, 0, 0, 0, k2Pow32 - 1, 1},
    {"SizeThatOverflows", kSize, Handle::kLive, true, k2Pow32, 0, 0, zqpalerr_calculationOverflow, 0, 1},
    {"OverflowIsNotTestedAfterAnError", kSize, Handle::kLive, true, k2Pow32, -201003, 0, -201003, 0, 1},
    {"TaskOperation", kU32, Handle::kLive, true, 3, 0, 0, 0, 3, 1},
    {"NarrowAnswer", kOffset, Handle::kLive, true, -7, 0, 0, 0, -7, 1},
    {"WideAfterMinus89000", kOffset, Handle::kLive, true, 123456, 0, -89000, 0, 123456, 2},
    {"WideNegativeOffsetFits", kOffset, Handle::kLive, true, -2147483648.0, 0, -89000, 0, -2147483648.0, 2},
    {"WideOffsetOverflows", kOffset, Handle::kLive, true, 0x1p40, 0, -89000, zqpalerr_calculationOverflow, 0, 2},
    {"WideSizeOverflows", kAvail, Handle::kLive, true, k2Pow32, 0, -89000, zqpalerr_calculationOverflow, 0, 2},
    {"WideWarningSurvives", kAvail, Handle::kLive, true, 9, 200077, -89000, 200077, 9, 2},
    {"NoFallbackForAnotherCode", kOffset, Handle::kLive, true, 1, 0, -89001, -89001, 0, 1},
};

class ScalarGet : public testing::TestWithParam<GetCase> {};

TEST_P(ScalarGet, AnswersAsTheCaseSays) {
  const GetCase& c = GetParam();
  auto task = RecordingTask::create();
  if (c.narrowCode) task->on(c.getter.narrow).status(c.narrowCode);
  zqtest::Reply& answer = task->on(c.narrowCode ? c.getter.wide : c.getter.narrow).value(c.answer);
  if (c.code == kThrows) answer.throws(std::runtime_error("plug-in threw"));
  else if (c.code) answer.status(c.code);
  if (c.handle == Handle::kExpired) task->expire();
  zqtest::clearLastError();

  double value = 0;
  EXPECT_EQ(c.getter.get(c.handle == Handle::kNull ? nullptr : task->handle(), c.withData, &value), c.expected);
  EXPECT_EQ(value, c.value);
  std::vector<std::string> ops;
  for (const auto& call : task->calls()) ops.push_back(call.op);
  const std::vector<std::string> both{c.getter.narrow, c.getter.wide ? c.getter.wide : ""};
  EXPECT_EQ(ops, std::vector<std::string>(both.begin(), both.begin() + c.calls));
  EXPECT_EQ(zqtest::lastErrorCode(), c.expected < 0 ? c.expected : 0);
}

INSTANTIATE_TEST_SUITE_P(Cases, ScalarGet, testing::ValuesIn(kGetCases),
                         [](const testing::TestParamInfo<GetCase>& info) { return std::string(info.param.label); });

TEST(ScalarFrame, SetAndResetRefuseABadHandleBeforeThePlugin) {
  auto task = RecordingTask::create();
  EXPECT_EQ((setScalar<ClassF64, &ITask::setChannelAttributeF64>(kAIMax, nullptr, "", 1.0)), -200230);
  EXPECT_EQ(resetAttribute<&ITask::resetChannelAttributeF64>(kAIMax, nullptr, ""), -200230);
  task->expire();
  EXPECT_EQ((setScalar<ClassF64, &ITask::setChannelAttributeF64>(kAIMax, task->handle(), "", 1.0)), zqpalerr_badPointer);
  EXPECT_TRUE(task->calls().empty());
}

TEST(ScalarFrame, PluginErrorReachesTheLastErrorWithTheTaskName) {
  auto task = RecordingTask::create("Acquisition 1");
  task->on("getChannelAttributeF64").status(-201003);
  double x = 1;
  zqtest::clearLastError();
  EXPECT_EQ(getAIMax(task->handle(), &x), -201003);
  EXPECT_EQ(zqtest::lastErrorCode(), -201003);
  EXPECT_EQ(zqtest::lastError()->taskName, "Acquisition 1");
}

// The narrow operation's -89000 and its report are cleared: the wide operation's own failure
// is what the caller and the last error see, without the narrow one's items.
TEST(ScalarFrame, FallbackStartsTheWideOperationOnACleanReport) {
  auto task = RecordingTask::create();
  task->on("getReadAttributeI32").status(-89000, [](zqerr_Status* s) {
    zqerr::addItem(zqerr::openOrderedData(s, zqerr::kTranslatorZqvorex), zqerr::usage::kUsageTypeParamNum, 3);
  });
  task->on("getReadAttributeOffset").status(-201003);
  int32_t x = 1;
  zqtest::clearLastError();
  EXPECT_EQ(getReadOffset(task->handle(), &x), -201003);
  EXPECT_EQ(x, 0);
  EXPECT_EQ(zqtest::lastErrorCode(), -201003);
  EXPECT_EQ(zqtest::lastErrorItems(), "<none>");
}

TEST(ScalarFrame, SetAndResetFallBackWithTheSameValue) {
  struct Row {
    const char* narrow;
    const char* wide;
    int32_t (*change)(TaskHandle);
    const char* passed;
  };
  const Row rows[] = {
      {"setReadAttributeI32", "setReadAttributeOffset",
       [](TaskHandle t) {
         return changeWithFallback<ClassI32, &ITask::setReadAttributeI32, &ITask::setReadAttributeOffset>(kReadOffset,
                                                                                                         t, -77);
       },
       "-77"},
      {"resetReadAttributeI32", "resetReadAttributeOffset",
       [](TaskHandle t) {
         return changeWithFallback<ClassI32, &ITask::resetReadAttributeI32, &ITask::resetReadAttributeOffset>(
             kReadOffset, t);
       },
       "<absent>"},
      {"setReadAttributeU32", "setReadAttributeSize",
       [](TaskHandle t) {
         return changeWithFallback<ClassU32, &ITask::setReadAttributeU32, &ITask::setReadAttributeSize>(kReadAvail, t,
                                                                                                       4000000000u);
       },
       "4000000000"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.narrow);
    auto task = RecordingTask::create();
    task->on(row.narrow).status(-89000);
    EXPECT_EQ(row.change(task->handle()), 0);
    ASSERT_EQ(task->calls().size(), 2u);
    EXPECT_EQ(task->calls()[1].op, row.wide);
    EXPECT_EQ(task->calls()[1].text("value"), row.passed);
    EXPECT_EQ(task->calls()[0].text("value"), row.passed);
  }
}

}  // namespace
