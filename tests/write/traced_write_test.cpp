// The trace records of one write of each path in the real ZqSpyLog tool.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "guard_page.h"
#include "spy_client.h"
#include "write_fixture.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

class TracedWrite : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
    task->writeAttributes = {{0x217E, 1}, {0x217F, 1}, {0x217D, 2}};
  }
  std::string handleRecord() const { return "taskHandle@0:93[8,8]=" + pointerText(task->handle()); }

  SpyClient spy;
  std::shared_ptr<WriteTask> task = WriteTask::make();
};

std::string at(const void* pointer) { return pointerText(pointer); }

// The count always as a number; the array as its address, then its content over the count.
TEST_F(TracedWrite, VectorWrite) {
  task->on("writeScaledVectorF64").value(uint32_t{2});
  const double array[2] = {1.5, 2.5};
  int32_t written = 0;
  VorexWriteAnalogF64(task->handle(), 2, 1, 10.0, 1, array, &written, nullptr);
  EXPECT_EQ(spy.line(), "VorexWriteAnalogF64 params(9): " + handleRecord() +
                            " numSampsPerChan@1:75[4,4]=2 autoStart@2:21[4,4]=1 timeout@3:81[8,8]=10"
                            " dataLayout@4:79[1,27]=\"Vorex_Val_GroupByScanNumber\" writeArray@5:20[8,8]=" +
                            at(array) + " writeArray@6:20[8,16]=[1.5, 2.5] sampsPerChanWritten@7:86[8,8]=" +
                            at(&written) +
                            " reserved@8:22[8,8]=NULL; returns(3): *sampsPerChanWritten@0:75[4,4]=2"
                            " *reserved@1:93[8,8]=NULL retval@2:75[4,4]=0 ok");
}

// A null array logs as the pointer both times; a non-null reserved comes back as its value.
TEST_F(TracedWrite, NullArrayAndNegativeCount) {
  bool32 reserved = 0;
  VorexWriteDigitalU16(task->handle(), -1, 0, 1.0, 0, nullptr, nullptr, &reserved);
  EXPECT_EQ(spy.line(),
            "VorexWriteDigitalU16 params(9): " + handleRecord() +
                " numSampsPerChan@1:75[4,4]=-1 autoStart@2:21[4,4]=0 timeout@3:81[8,8]=1"
                " dataLayout@4:79[1,24]=\"Vorex_Val_GroupByChannel\" writeArray@5:6[8,8]=NULL"
                " writeArray@6:93[8,8]=NULL sampsPerChanWritten@7:86[8,8]=NULL reserved@8:22[8,8]=" +
                at(&reserved) +
                "; returns(3): *sampsPerChanWritten@0:93[8,8]=NULL *reserved@1:21[4,4]=0"
                " retval@2:75[4,4]=-200492 failed");
}

// The content record's total is 8 bytes an element: for 2 bytes that end where unreadable memory
// begins, the tool must be handed a padded copy, not 16 bytes at the array's address.
TEST_F(TracedWrite, ABytesArrayEndingAtUnreadableMemoryIsNotReadPast) {
  GuardedBytes guarded(2);
  ASSERT_TRUE(guarded.ok());
  guarded.data()[0] = 7;
  guarded.data()[1] = 9;
  task->on("writePortVectorU8").value(uint32_t{2});
  VorexWriteDigitalU8(task->handle(), 2, 0, 1.0, 0, guarded.data(), nullptr, nullptr);
  EXPECT_EQ(spy.line(), "VorexWriteDigitalU8 params(9): " + handleRecord() +
                            " numSampsPerChan@1:75[4,4]=2 autoStart@2:21[4,4]=0 timeout@3:81[8,8]=1"
                            " dataLayout@4:79[1,24]=\"Vorex_Val_GroupByChannel\" writeArray@5:10[8,8]=" +
                            at(guarded.data()) +
                            " writeArray@6:10[8,16]=[7, 9] sampsPerChanWritten@7:86[8,8]=NULL"
                            " reserved@8:22[8,8]=NULL; returns(3): *sampsPerChanWritten@0:93[8,8]=NULL"
                            " *reserved@1:93[8,8]=NULL retval@2:75[4,4]=0 ok");
}

TEST_F(TracedWrite, RawWriteLogsOnlyTheAddress) {
  const uint8_t bytes[4] = {1, 2, 3, 4};
  int32_t written = 0;
  task->on("writeRawU8").value(uint32_t{2});
  VorexWriteRaw(task->handle(), 2, 0, 1.0, bytes, &written, nullptr);
  EXPECT_EQ(spy.line(),
            "VorexWriteRaw params(7): " + handleRecord() +
                " numSamps@1:75[4,4]=2 autoStart@2:21[4,4]=0 timeout@3:81[8,8]=1 writeArray@4:10[8,8]=" +
                at(bytes) + " sampsPerChanWritten@5:86[8,8]=" + at(&written) +
                " reserved@6:22[8,8]=NULL; returns(3): *sampsPerChanWritten@0:75[4,4]=2"
                " *reserved@1:93[8,8]=NULL retval@2:75[4,4]=0 ok");
}

TEST_F(TracedWrite, PairWriteLogsEachArrayTwice) {
  const uint32_t high[2] = {10, 20}, low[2] = {30, 40};
  int32_t written = 0;
  task->on("writeVectorCounterHighAndLowTicksU32").value(uint32_t{2});
  VorexWriteCtrTicks(task->handle(), 2, 1, 1.0, 0, high, low, &written, nullptr);
  EXPECT_EQ(spy.line(), "VorexWriteCtrTicks params(11): " + handleRecord() +
                            " numSampsPerChan@1:75[4,4]=2 autoStart@2:21[4,4]=1 timeout@3:81[8,8]=1"
                            " dataLayout@4:79[1,24]=\"Vorex_Val_GroupByChannel\" highTicks@5:2[8,8]=" +
                            at(high) + " highTicks@6:2[8,16]=[10, 20] lowTicks@7:2[8,8]=" + at(low) +
                            " lowTicks@8:2[8,16]=[30, 40] numSampsPerChanWritten@9:86[8,8]=" + at(&written) +
                            " reserved@10:22[8,8]=NULL; returns(3): *numSampsPerChanWritten@0:75[4,4]=2"
                            " *reserved@1:93[8,8]=NULL retval@2:75[4,4]=0 ok");
}

// No count to return: only "*reserved" and "retval".
TEST_F(TracedWrite, ScalarWrites) {
  VorexWriteAnalogScalarF64(task->handle(), 1, 1.0, 2.5, nullptr);
  EXPECT_EQ(spy.line(),
            "VorexWriteAnalogScalarF64 params(5): " + handleRecord() +
                " autoStart@1:21[4,4]=1 timeout@2:81[8,8]=1 value@3:81[8,8]=2.5 reserved@4:22[8,8]=NULL;"
                " returns(2): *reserved@0:93[8,8]=NULL retval@1:75[4,4]=0 ok");
  bool32 reserved = 0;
  VorexWriteCtrFreqScalar(task->handle(), 0, 1.0, 100.0, 0.5, &reserved);
  EXPECT_EQ(spy.line(), "VorexWriteCtrFreqScalar params(6): " + handleRecord() +
                            " autoStart@1:21[4,4]=0 timeout@2:81[8,8]=1 frequency@3:81[8,8]=100"
                            " dutyCycle@4:81[8,8]=0.5 reserved@5:22[8,8]=" +
                            at(&reserved) +
                            "; returns(2): *reserved@0:21[4,4]=0 retval@1:75[4,4]=-200492 failed");
}

}  // namespace
}  // namespace zqtest
