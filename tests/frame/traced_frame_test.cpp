// The records the accessor frames leave in the real ZqSpyLog tool.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fake_task.h"
#include "frame/scalar_frame.h"
#include "spy_client.h"

namespace {

using zqtest::FakeTask;
using namespace zqframe;

constexpr AccessorInfo kAIMax{"VorexGetAIMax", 0x17DD, "channel", 100};
constexpr AccessorInfo kSetAIMax{"VorexSetAIMax", 0x17DD, "channel", 101};
constexpr AccessorInfo kReadOffset{"VorexGetReadOffset", 0x190B, nullptr, 400};

class TracedFrame : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
  }
  void TearDown() override { spy.setMode(1); }
  std::string handleText() { return zqtest::pointerText(task.get()); }

  zqtest::SpyClient spy;
  std::shared_ptr<FakeTask> task = std::make_shared<FakeTask>();
};

TEST_F(TracedFrame, ScalarGetWithItsValue) {
  task->f64 = 2.5;
  double x = 0;
  getScalar<ClassF64, &FakeTask::getChannelAttributeF64>(kAIMax, task.get(), "ai0", &x);
  EXPECT_EQ(spy.line(), "VorexGetAIMax params(3): taskHandle@0:93[8,8]=" + handleText() +
                            " channel@1:79[1,3]=\"ai0\" data@2:91[8,8]=" + zqtest::pointerText(&x) +
                            "; returns(2): *data@0:19[8,8]=2.5 retval@1:75[4,4]=0 ok");
}

TEST_F(TracedFrame, NullChannelIsAPointerAndEmptyTextHasLengthZero) {
  double x = 0;
  getScalar<ClassF64, &FakeTask::getChannelAttributeF64>(kAIMax, task.get(), nullptr, &x);
  EXPECT_NE(spy.line().find(" channel@1:93[8,8]=NULL "), std::string::npos) << spy.line();
  getScalar<ClassF64, &FakeTask::getChannelAttributeF64>(kAIMax, task.get(), "", &x);
  EXPECT_NE(spy.line().find(" channel@1:79[1,0]=\"\" "), std::string::npos) << spy.line();
}

TEST_F(TracedFrame, FailedGetWithNullDataHasOnlyTheReturnValue) {
  getScalar<ClassF64, &FakeTask::getChannelAttributeF64>(kAIMax, task.get(), "", nullptr);
  EXPECT_NE(spy.line().find("; returns(1): retval@0:75[4,4]=-200604 failed"), std::string::npos) << spy.line();
}

TEST_F(TracedFrame, EnumerationValuesArePairs) {
  task->failingOp = "getReadAttributeI32";
  task->failCode = -89000;
  task->offset = 10348;
  int32_t x = 0;
  getScalarWithFallback<ClassI32, &FakeTask::getReadAttributeI32, &FakeTask::getReadAttributeOffset>(
      kReadOffset, task.get(), &x);
  EXPECT_NE(spy.line().find("*data@0:103[4,8]={0x190b,10348}"), std::string::npos) << spy.line();
}

TEST_F(TracedFrame, SetRecordsTheValueAndOnlyTheReturnValue) {
  setScalar<ClassF64, &FakeTask::setChannelAttributeF64>(kSetAIMax, task.get(), "ai0", 1.5);
  EXPECT_NE(spy.line().find("data@2:19[8,8]=1.5; returns(1): retval@0:75[4,4]=0 ok"), std::string::npos)
      << spy.line();
}

TEST_F(TracedFrame, ModeWordOffBetweenTwoCallsTakesNoCookie) {
  double x = 0;
  getScalar<ClassF64, &FakeTask::getChannelAttributeF64>(kAIMax, task.get(), "", &x);
  uint64_t requests = spy.counters().cookieRequests;
  spy.setMode(0);
  getScalar<ClassF64, &FakeTask::getChannelAttributeF64>(kAIMax, task.get(), "", &x);
  EXPECT_EQ(spy.counters().cookieRequests, requests);
}

}  // namespace
