// The trace records of one read of each path in the real ZqSpyLog tool.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "read_task.h"
#include "spy_client.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

class TracedRead : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
    task->on("getReadAttributeStringVtr").strings({"a"});
  }
  std::string handleRecord() const { return "taskHandle@0:93[8,8]=" + pointerText(task->handle()); }

  SpyClient spy;
  std::shared_ptr<ReadTask> task = ReadTask::make();
};

std::string at(const void* pointer) { return pointerText(pointer); }

// Direct: named count and mode, the whole array in the returns, whatever was read into it.
TEST_F(TracedRead, DirectReadWithNamedValues) {
  task->on("readScaledVectorF64").value(uint32_t{1});
  double array[2] = {1.5, 2.5};
  int32_t got = 0;
  VorexReadAnalogF64(task->handle(), -1, 10.0, 1, array, 2, &got, nullptr);
  EXPECT_EQ(spy.line(), "VorexReadAnalogF64 params(8): " + handleRecord() +
                            " numSampsPerChan@1:79[1,14]=\"Vorex_Val_Auto\" timeout@2:81[8,8]=10"
                            " fillMode@3:79[1,27]=\"Vorex_Val_GroupByScanNumber\" readArray@4:20[8,8]=" +
                            at(array) + " arraySizeInSamps@5:71[4,4]=2 sampsPerChanRead@6:86[8,8]=" + at(&got) +
                            " reserved@7:22[8,8]=NULL; returns(3): readArray@0:20[8,16]=[1.5, 2.5]"
                            " *sampsPerChanRead@1:75[4,4]=1 retval@2:75[4,4]=0 ok");
}

// Null pointers log as pointers, a mode without a name as its number, and a read's timeout is
// a number even when it is infinite.
TEST_F(TracedRead, DirectReadWithNullPointersAndAPlainMode) {
  bool32 reserved = 0;
  VorexReadCounterU32Ex(task->handle(), 3, -1.0, 7, nullptr, 2, nullptr, &reserved);
  EXPECT_EQ(spy.line(), "VorexReadCounterU32Ex params(8): " + handleRecord() +
                            " numSampsPerChan@1:75[4,4]=3 timeout@2:81[8,8]=-1 fillMode@3:75[4,4]=7"
                            " readArray@4:2[8,8]=NULL arraySizeInSamps@5:71[4,4]=2 sampsPerChanRead@6:86[8,8]=NULL"
                            " reserved@7:22[8,8]=" +
                            at(&reserved) +
                            "; returns(3): readArray@0:93[8,8]=NULL *sampsPerChanRead@1:93[8,8]=NULL"
                            " retval@2:75[4,4]=-200492 failed");
}

TEST_F(TracedRead, PairReadLogsBothArraysUnderTheirNames) {
  task->fill = [](zqgopher_IArrayBuffer* b, zqerr_Status* s) {
    deliver<zqvorexPlugin_DutyCycleAndFrequencyF64>(b, 1, 1, {{0.5, 100}}, s);
  };
  task->on("readVectorCounterDutyCycleAndFrequencyF64").value(uint32_t{1});
  double f[2], d[2];
  int32_t got = 0;
  VorexReadCtrFreq(task->handle(), 2, 1.0, 1, f, d, 2, &got, nullptr);
  EXPECT_EQ(spy.line(), "VorexReadCtrFreq params(9): " + handleRecord() +
                            " numSampsPerChan@1:75[4,4]=2 timeout@2:81[8,8]=1"
                            " dataLayout@3:79[1,27]=\"Vorex_Val_GroupByScanNumber\" readArrayFrequency@4:20[8,8]=" +
                            at(f) + " readArrayDutyCycle@5:20[8,8]=" + at(d) +
                            " arraySizeInSamps@6:71[4,4]=2 sampsPerChanRead@7:86[8,8]=" + at(&got) +
                            " reserved@8:22[8,8]=NULL; returns(4): readArrayFrequency@0:20[8,16]=[100, 0]"
                            " readArrayDutyCycle@1:20[8,16]=[0.5, 0] *sampsPerChanRead@2:75[4,4]=1"
                            " retval@3:75[4,4]=0 ok");
}

TEST_F(TracedRead, ScalarReadsLogTheirOutputs) {
  task->on("readScaledScalarF64").out(2.5).value(uint32_t{1});
  double v = 0;
  VorexReadAnalogScalarF64(task->handle(), 1.0, &v, nullptr);
  EXPECT_EQ(spy.line(), "VorexReadAnalogScalarF64 params(4): " + handleRecord() +
                            " timeout@1:81[8,8]=1 value@2:92[8,8]=" + at(&v) +
                            " reserved@3:22[8,8]=NULL; returns(2): *value@0:81[8,8]=2.5 retval@1:75[4,4]=0 ok");
  uint32_t high = 0;
  VorexReadCtrTicksScalar(task->handle(), 1.0, &high, nullptr, nullptr);
  EXPECT_EQ(spy.line(), "VorexReadCtrTicksScalar params(5): " + handleRecord() +
                            " timeout@1:81[8,8]=1 highTicks@2:82[8,8]=" + at(&high) +
                            " lowTicks@3:82[8,8]=NULL reserved@4:22[8,8]=NULL; returns(3): *highTicks@0:1[4,4]=0"
                            " *lowTicks@1:93[8,8]=NULL retval@2:75[4,4]=-200230 failed");
}

}  // namespace
}  // namespace zqtest
