// The scalar accessor shapes against the recording task: task resolution, the null-pointer
// check, scrubbing, narrowing and the fallback to the wide operation.
#include "frame/scalar_frame.h"

#include <gtest/gtest.h>

#include <memory>
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

struct GetCase {
  const char* label;
  Get get;
  void (*setup)(RecordingTask&);
  Handle handle;
  bool withData;
  int32_t expected;
  double value;                  // the out-value afterwards (5 when untouched)
  std::vector<std::string> ops;  // the operations called, in order
};

void nothing(RecordingTask&) {}

const GetCase kGetCases[] = {
    {"NullHandleScrubs", viaDouble<double, getAIMax>, nothing, Handle::kNull, true, -200230, 0, {}},
    {"NullHandleWinsOverNullData", viaDouble<double, getAIMax>, nothing, Handle::kNull, false, -200230, 5, {}},
    {"ExpiredTaskScrubs", viaDouble<double, getAIMax>, nothing, Handle::kExpired, true, zqpalerr_badPointer, 0, {}},
    {"NullDataStopsBeforeThePlugin", viaDouble<double, getAIMax>, nothing, Handle::kLive, false, -200604, 5, {}},
    {"ValueComesBack", viaDouble<double, getAIMax>, [](RecordingTask& t) { t.on("getChannelAttributeF64").value(2.5); },
     Handle::kLive, true, 0, 2.5, {"getChannelAttributeF64"}},
    {"WarningKeepsTheValue", viaDouble<double, getAIMax>,
     [](RecordingTask& t) { t.on("getChannelAttributeF64").value(4.0).status(200077); }, Handle::kLive, true, 200077,
     4.0, {"getChannelAttributeF64"}},
    {"ErrorScrubs", viaDouble<double, getAIMax>,
     [](RecordingTask& t) { t.on("getChannelAttributeF64").value(4.0).status(-201003); }, Handle::kLive, true,
     -201003, 0, {"getChannelAttributeF64"}},
    {"ExceptionScrubs", viaDouble<double, getAIMax>,
     [](RecordingTask& t) { t.on("getChannelAttributeF64").throws(std::runtime_error("plug-in threw")); },
     Handle::kLive, true, zqpalerr_softwareFault, 0, {"getChannelAttributeF64"}},
    {"SizeThatFits", viaDouble<uint32_t, getBufSize>,
     [](RecordingTask& t) { t.on("getBufferAttributeSize").value(uint64_t{0xFFFFFFFF}); }, Handle::kLive, true, 0,
     4294967295.0, {"getBufferAttributeSize"}},
    {"SizeThatOverflows", viaDouble<uint32_t, getBufSize>,
     [](RecordingTask& t) { t.on("getBufferAttributeSize").value(uint64_t{0x100000000}); }, Handle::kLive, true,
     zqpalerr_calculationOverflow, 0, {"getBufferAttributeSize"}},
    {"OverflowIsNotTestedAfterAnError", viaDouble<uint32_t, getBufSize>,
     [](RecordingTask& t) { t.on("getBufferAttributeSize").value(uint64_t{0x100000000}).status(-201003); },
     Handle::kLive, true, -201003, 0, {"getBufferAttributeSize"}},
    {"TaskOperation", viaDouble<uint32_t, getNumChans>, [](RecordingTask& t) { t.on("getTaskAttributeU32").value(3u); },
     Handle::kLive, true, 0, 3, {"getTaskAttributeU32"}},
    {"NarrowAnswer", viaDouble<int32_t, getReadOffset>, [](RecordingTask& t) { t.on("getReadAttributeI32").value(-7); },
     Handle::kLive, true, 0, -7, {"getReadAttributeI32"}},
    {"WideAfterMinus89000", viaDouble<int32_t, getReadOffset>,
     [](RecordingTask& t) {
       t.on("getReadAttributeI32").status(-89000);
       t.on("getReadAttributeOffset").value(int64_t{123456});
     },
     Handle::kLive, true, 0, 123456, {"getReadAttributeI32", "getReadAttributeOffset"}},
    {"WideNegativeOffsetFits", viaDouble<int32_t, getReadOffset>,
     [](RecordingTask& t) {
       t.on("getReadAttributeI32").status(-89000);
       t.on("getReadAttributeOffset").value(int64_t{-2147483648LL});
     },
     Handle::kLive, true, 0, -2147483648.0, {"getReadAttributeI32", "getReadAttributeOffset"}},
    {"WideOffsetOverflows", viaDouble<int32_t, getReadOffset>,
     [](RecordingTask& t) {
       t.on("getReadAttributeI32").status(-89000);
       t.on("getReadAttributeOffset").value(int64_t{1} << 40);
     },
     Handle::kLive, true, zqpalerr_calculationOverflow, 0, {"getReadAttributeI32", "getReadAttributeOffset"}},
    {"WideSizeOverflows", viaDouble<uint32_t, getReadAvail>,
     [](RecordingTask& t) {
       t.on("getReadAttributeU32").status(-89000);
       t.on("getReadAttributeSize").value(uint64_t{0x100000000});
     },
     Handle::kLive, true, zqpalerr_calculationOverflow, 0, {"getReadAttributeU32", "getReadAttributeSize"}},
    {"WideWarningSurvives", viaDouble<uint32_t, getReadAvail>,
     [](RecordingTask& t) {
       t.on("getReadAttributeU32").status(-89000);
       t.on("getReadAttributeSize").value(uint64_t{9}).status(200077);
     },
     Handle::kLive, true, 200077, 9, {"getReadAttributeU32", "getReadAttributeSize"}},
    {"NoFallbackForAnotherCode", viaDouble<int32_t, getReadOffset>,
     [](RecordingTask& t) {
       t.on("getReadAttributeI32").status(-89001);
       t.on("getReadAttributeOffset").value(int64_t{1});
     },
     Handle::kLive, true, -89001, 0, {"getReadAttributeI32"}},
};

class ScalarGet : public testing::TestWithParam<GetCase> {};

TEST_P(ScalarGet, AnswersAsTheCaseSays) {
  const GetCase& c = GetParam();
  auto task = RecordingTask::create();
  c.setup(*task);
  if (c.handle == Handle::kExpired) task->expire();
  zqtest::clearLastError();

  double value = 0;
  EXPECT_EQ(c.get(c.handle == Handle::kNull ? nullptr : task->handle(), c.withData, &value), c.expected);
  EXPECT_EQ(value, c.value);
  std::vector<std::string> ops;
  for (const auto& call : task->calls()) ops.push_back(call.op);
  EXPECT_EQ(ops, c.ops);
  EXPECT_EQ(zqtest::lastErrorCode(), c.expected < 0 ? c.expected : 0);
}

INSTANTIATE_TEST_SUITE_P(Cases, ScalarGet, testing::ValuesIn(kGetCases),
                         [](const testing::TestParamInfo<GetCase>& info) { return std::string(info.param.label); });

TEST(ScalarFrame, ChannelListAndIdReachTheOperation) {
  auto task = RecordingTask::create();
  double x = 0;
  EXPECT_EQ((getScalar<ClassF64, &ITask::getChannelAttributeF64>(kAIMax, task->handle(), " Dev1/ai0 ,Dev1/ai1", &x)),
            0);
  EXPECT_EQ((setScalar<ClassF64, &ITask::setChannelAttributeF64>(kAIMax, task->handle(), nullptr, 7.5)), 0);
  EXPECT_EQ(resetAttribute<&ITask::resetChannelAttributeF64>(kAIMax, task->handle(), "Dev2/ai0:1"), 0);
  ASSERT_EQ(task->calls().size(), 3u);
  EXPECT_EQ(task->calls()[0].channels, (std::vector<std::string>{"Dev1/ai0", "Dev1/ai1"}));
  EXPECT_EQ(task->calls()[0].attributeId, 0x17DD);
  EXPECT_EQ(task->calls()[1].op, "setChannelAttributeF64");
  EXPECT_EQ(task->calls()[1].channels, std::vector<std::string>{});
  EXPECT_EQ(task->calls()[1].text("value"), "7.5");
  EXPECT_EQ(task->calls()[2].op, "resetChannelAttributeF64");
  EXPECT_EQ(task->calls()[2].channels, (std::vector<std::string>{"Dev2/ai0", "Dev2/ai1"}));
}

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

TEST(ScalarFrame, WarningsDoNotReachTheLastError) {
  auto task = RecordingTask::create();
  double x;
  task->on("getChannelAttributeF64").status(-5);
  getAIMax(task->handle(), &x);
  task->on("getChannelAttributeF64").status(5);
  getAIMax(task->handle(), &x);
  EXPECT_EQ(zqtest::lastErrorCode(), -5);
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
