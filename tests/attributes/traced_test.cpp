// The trace records of the generic entries and the hand-written attribute functions in the real
// ZqSpyLog tool: a generic call leaves only its accessor's record, an unknown id none; the
// refusing and obsolete functions, the absolute times and the save calls with their own names.
#include <gtest/gtest.h>

#include <string>

#include "traced_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

class TracedAttributes : public TracedTask {
 protected:
  uint64_t lines() const { return spy.counters().lines; }
};

TEST_F(TracedAttributes, AGenericCallShowsOnlyItsAccessor) {
  task->on("getChannelAttributeF64").value(10.0);
  float64 max = 0;
  uint64_t before = lines();
  VorexGetChanAttribute(task->handle(), "ai0", Vorex_AIMax, &max);
  EXPECT_EQ(lines(), before + 1);
  EXPECT_EQ(spy.line(), head("VorexGetAIMax", 3) + " channel@1:79[1,3]=\"ai0\" data@2:91[8,8]=" +
                            pointerText(&max) + "; returns(2): *data@0:19[8,8]=10 retval@1:75[4,4]=0 ok");
  before = lines();
  VorexGetChanAttribute(task->handle(), "ai0", 0x7FFFFFFF, &max);
  VorexSetBufferAttribute(task->handle(), Vorex_BufInputOnbrdBufSize, 5u);
  EXPECT_EQ(lines(), before) << "refusals and unknown ids leave no record";
}

TEST_F(TracedAttributes, ChanIsGlobalShowsANullOutPointer) {
  task->on("getChannelAttributeBool").value(uint32_t{1});
  bool32 global = 0;
  VorexGetChanIsGlobal(task->handle(), "", &global);
  EXPECT_EQ(spy.line(), head("VorexGetChanIsGlobal", 3) + " channel@1:79[1,0]=\"\" data@2:22[8,8]=" +
                            pointerText(&global) + "; returns(2): *data@0:21[4,4]=1 retval@1:75[4,4]=0 ok");
  VorexGetChanIsGlobal(task->handle(), "", nullptr);
  EXPECT_EQ(spy.line(), head("VorexGetChanIsGlobal", 3) +
                            " channel@1:79[1,0]=\"\" data@2:22[8,8]=NULL; returns(2): *data@0:93[8,8]=NULL"
                            " retval@1:75[4,4]=0 ok");
}

TEST_F(TracedAttributes, SigmodCalEnableIsNotTraced) {
  const uint64_t before = lines();
  bool32 enabled = 0;
  VorexGetSigmodCalEnable(task->handle(), "", &enabled);
  VorexSetSigmodCalEnable(task->handle(), "", 1);
  EXPECT_EQ(lines(), before);
}

TEST_F(TracedAttributes, TheRefusingFunctions) {
  int32 mode = 3;
  VorexGetSampClkTimingResponseMode(task->handle(), &mode);
  EXPECT_EQ(spy.line(), head("VorexGetSampClkTimingResponseMode", 2) + " data@1:86[8,8]=" +
                            pointerText(&mode) + "; returns(2): *data@0:75[4,4]=3 retval@1:75[4,4]=-200197 failed");
  VorexSetSampClkTimingResponseMode(task->handle(), 1);
  EXPECT_EQ(spy.line(), head("VorexSetSampClkTimingResponseMode", 2) +
                            " data@1:75[4,4]=1; returns(1): retval@0:75[4,4]=-200197 failed");
  VorexResetWriteNextWriteIsLast(task->handle());
  EXPECT_EQ(spy.line(), "nZQCAI100::VorexResetWriteNextWriteIsLast params(0):; returns(1): retval@0:75[4,4]=-209823 failed");
  VorexIsReadOrWriteLate(-200088);
  EXPECT_EQ(spy.line(), "VorexIsReadOrWriteLate params(1): errorCode@0:75[4,4]=-200088; returns(1): retval@0:75[4,4]=0 ok");
}

TEST_F(TracedAttributes, AnAbsoluteTimeIsSixteenBytesNamedTimestamp) {
  VorexSetStartTrigTrigWhen(task->handle(), VorexAbsoluteTime{1, 2});
  const std::string set = spy.line();
  EXPECT_EQ(set.substr(0, set.find("timestamp@1:")), head("VorexSetStartTrigTrigWhen", 2) + " ");
  EXPECT_NE(set.find(" timestamp@1:108[1,16]="), std::string::npos) << set;
  VorexAbsoluteTime time{};
  VorexGetStartTrigTrigWhen(task->handle(), &time);
  const std::string get = spy.line();
  EXPECT_EQ(get.substr(0, get.find("; returns")), head("VorexGetStartTrigTrigWhen", 1));
  EXPECT_NE(get.find("returns(2): timestamp@0:108[1,16]="), std::string::npos) << get;
  VorexGetStartTrigTrigWhen(task->handle(), nullptr);
  EXPECT_EQ(spy.line(), head("VorexGetStartTrigTrigWhen", 1) +
                            "; returns(1): retval@0:75[4,4]=-200604 failed");
}

TEST_F(TracedAttributes, SavingNamesItsArguments) {
  VorexSaveGlobalChan(task->handle(), "Temp", nullptr, "ann", 5);
  const std::string line = spy.line();
  EXPECT_EQ(line.substr(0, line.find("; returns")),
            head("VorexSaveGlobalChan", 5) +
                " channelName@1:79[1,4]=\"Temp\" saveAs@2:93[8,8]=NULL author@3:79[1,3]=\"ann\" options@4:71[4,4]=5");
}

}  // namespace
}  // namespace zqtest
