#include "frame/scalar_frame.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "fake_task.h"
#include "status/report_reader.h"

namespace {

using zqtest::FakeTask;
using namespace zqframe;

constexpr AccessorInfo kAIMax{"VorexGetAIMax", 0x17DD, "channel", 100};
constexpr AccessorInfo kBufSize{"VorexGetBufInputBufSize", 0x186C, nullptr, 200};
constexpr AccessorInfo kTaskNumChans{"VorexGetTaskNumChans", 0x2181, nullptr, 300};
constexpr AccessorInfo kReadOffset{"VorexGetReadOffset", 0x190B, nullptr, 400};

int32_t getAIMax(TaskHandle task, const char* channel, double* data) {
  return getScalar<ClassF64, &FakeTask::getChannelAttributeF64>(kAIMax, task, channel, data);
}
int32_t setAIMax(TaskHandle task, const char* channel, double data) {
  return setScalar<ClassF64, &FakeTask::setChannelAttributeF64>(kAIMax, task, channel, data);
}
int32_t resetAIMax(TaskHandle task, const char* channel) {
  return resetAttribute<&FakeTask::resetChannelAttributeF64>(kAIMax, task, channel);
}
int32_t getBufSize(TaskHandle task, uint32_t* data) {
  return getScalar<ClassU32Size, &FakeTask::getBufferAttributeSize>(kBufSize, task, nullptr, data);
}
int32_t getNumChans(TaskHandle task, uint32_t* data) {
  return getScalar<ClassU32, &FakeTask::getTaskAttributeU32>(kTaskNumChans, task, nullptr, data);
}
int32_t getReadOffset(TaskHandle task, int32_t* data) {
  return getScalarWithFallback<ClassI32, &FakeTask::getReadAttributeI32, &FakeTask::getReadAttributeOffset>(
      kReadOffset, task, data);
}
int32_t setReadOffset(TaskHandle task, int32_t data) {
  return changeWithFallback<ClassI32, &FakeTask::setReadAttributeI32, &FakeTask::setReadAttributeOffset>(kReadOffset, task,
                                                                                                data);
}

int32_t lastErrorCode() {
  auto* record = nZQCAI100::tlsManager().getThreadRecord();
  return record ? record->status.code : 0;
}

class ScalarFrame : public testing::Test {
 protected:
  std::shared_ptr<FakeTask> task = std::make_shared<FakeTask>();
  TaskHandle handle() { return task.get(); }
};

TEST_F(ScalarFrame, NullHandleScrubsAndWinsOverNullData) {
  double x = 5;
  EXPECT_EQ(getAIMax(nullptr, "", &x), -200230);
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(getAIMax(nullptr, "", nullptr), -200230);
  EXPECT_EQ(setAIMax(nullptr, "", 1.0), -200230);
  EXPECT_EQ(resetAIMax(nullptr, ""), -200230);
}

TEST_F(ScalarFrame, NullDataIsRefusedBeforeThePlugin) {
  EXPECT_EQ(getAIMax(handle(), "", nullptr), -200604);
  EXPECT_TRUE(task->calls.empty());
}

TEST_F(ScalarFrame, ExpiredTaskGivesBadPointer) {
  FakeTask unowned;  // no shared owner: its weak self-reference is empty, as in destruction
  double x = 3;
  EXPECT_EQ(getAIMax(&unowned, "", &x), -50004);
  EXPECT_EQ(x, 0.0);
  EXPECT_TRUE(unowned.calls.empty());
}

TEST_F(ScalarFrame, ValueIdAndChannelListReachTheOperation) {
  task->f64 = 2.5;
  double x = 0;
  EXPECT_EQ(getAIMax(handle(), " Dev1/ai0 ,Dev1/ai1", &x), 0);
  EXPECT_EQ(x, 2.5);
  ASSERT_EQ(task->calls.size(), 1u);
  EXPECT_EQ(task->calls[0].op, "getChannelAttributeF64");
  EXPECT_EQ(task->calls[0].id, 0x17DD);
  EXPECT_EQ(task->calls[0].names, (zqframe::NameList{"Dev1/ai0", "Dev1/ai1"}));
}

TEST_F(ScalarFrame, NullChannelIsTheEmptyList) {
  EXPECT_EQ(setAIMax(handle(), nullptr, 7.0), 0);
  ASSERT_EQ(task->calls.size(), 1u);
  EXPECT_TRUE(task->calls[0].names.empty());
  EXPECT_EQ(task->calls[0].value, 7.0);
}

TEST_F(ScalarFrame, PluginWarningSurvivesWithTheValue) {
  task->f64 = 4.0;
  task->failCode = 200077;
  double x = 0;
  EXPECT_EQ(getAIMax(handle(), "", &x), 200077);
  EXPECT_EQ(x, 4.0);
}

TEST_F(ScalarFrame, PluginErrorScrubsAndReachesTheLastError) {
  task->f64 = 4.0;
  task->failCode = -201003;
  double x = 1;
  EXPECT_EQ(getAIMax(handle(), "", &x), -201003);
  EXPECT_EQ(x, 0.0);
  EXPECT_EQ(lastErrorCode(), -201003);
  EXPECT_EQ(nZQCAI100::tlsManager().getThreadRecord()->taskName, "MyTask");
}

TEST_F(ScalarFrame, SizeNarrowingOverflows) {
  uint32_t x = 9;
  task->size = 0xFFFFFFFFull;
  EXPECT_EQ(getBufSize(handle(), &x), 0);
  EXPECT_EQ(x, 0xFFFFFFFFu);
  task->size = 0x100000000ull;
  EXPECT_EQ(getBufSize(handle(), &x), -50175);
  EXPECT_EQ(x, 0u);
}

TEST_F(ScalarFrame, TaskClassOperationTakesNoList) {
  task->u32 = 3;
  uint32_t x = 0;
  EXPECT_EQ(getNumChans(handle(), &x), 0);
  EXPECT_EQ(x, 3u);
  EXPECT_EQ(task->calls[0].op, "getTaskAttributeU32");
}

TEST_F(ScalarFrame, ExceptionInTheBodyBecomesAStatus) {
  task->throwInOp = true;
  double x = 1;
  EXPECT_EQ(getAIMax(handle(), "", &x), -50150);
  EXPECT_EQ(x, 0.0);
}

TEST_F(ScalarFrame, FallbackToTheWideOperationOnlyOnMinus89000) {
  task->failingOp = "getReadAttributeI32";
  task->failCode = -89000;
  task->offset = 123456;
  int32_t x = 0;
  EXPECT_EQ(getReadOffset(handle(), &x), 0);
  EXPECT_EQ(x, 123456);
  ASSERT_EQ(task->calls.size(), 2u);
  EXPECT_EQ(task->calls[1].op, "getReadAttributeOffset");

  task->calls.clear();
  task->offset = int64_t{1} << 40;
  EXPECT_EQ(getReadOffset(handle(), &x), -50175);
  EXPECT_EQ(x, 0);

  task->calls.clear();
  task->failCode = -89001;
  EXPECT_EQ(getReadOffset(handle(), &x), -89001);
  EXPECT_EQ(task->calls.size(), 1u);
}

TEST_F(ScalarFrame, FallbackLeavesACleanReportForTheWideAnswer) {
  task->failingOp = "setReadAttributeI32";
  task->failCode = -89000;
  EXPECT_EQ(setReadOffset(handle(), 77), 0);
  ASSERT_EQ(task->calls.size(), 2u);
  EXPECT_EQ(task->calls[1].op, "setReadAttributeOffset");
  EXPECT_EQ(task->calls[1].value, 77.0);
}

TEST_F(ScalarFrame, WarningsDoNotReachTheLastError) {
  task->failCode = -5;
  double x;
  getAIMax(handle(), "", &x);
  task->failCode = 5;
  getAIMax(handle(), "", &x);
  EXPECT_EQ(lastErrorCode(), -5);
}

}  // namespace
