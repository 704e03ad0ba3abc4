// The trace records of the timing, trigger, buffer, signal, calibration and watchdog functions,
// read back from the real ZqSpyLog tool: names, type codes, the enumeration attributes, the
// named signals, and the out-parameters among the returns.
#include <gtest/gtest.h>

#include <string>

#include "traced_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

constexpr const char* kOk = "; returns(1): retval@0:75[4,4]=0 ok";

class ConfigTrace : public TracedTask {};

TEST_F(ConfigTrace, TimingLabelsItsEnumerationsWithTheirAttributes) {
  VorexCfgSampClkTiming(task->handle(), "PFI0", 1000.5, 10280, 10178, 0x100000005ull);
  EXPECT_EQ(spy.line(), head("VorexCfgSampClkTiming", 6) +
                            " source@1:79[1,4]=\"PFI0\" rate@2:81[8,8]=1000.5 activeEdge@3:103[4,8]={0x1301,10280}"
                            " sampleMode@4:103[4,8]={0x1300,10178} sampsPerChan@5:95[8,8]=4294967301" + kOk);
  VorexCfgBurstHandshakingTimingExportClock(task->handle(), 1, 2, 3, nullptr, 4, 5, 6);
  EXPECT_EQ(spy.line(), head("VorexCfgBurstHandshakingTimingExportClock", 8) +
                            " sampleMode@1:103[4,8]={0x1300,1} sampsPerChan@2:95[8,8]=2 sampleClkRate@3:81[8,8]=3"
                            " sampleClkOutpTerm@4:93[8,8]=NULL sampleClkPulsePolarity@5:103[4,8]={0x22bd,4}"
                            " pauseWhen@6:103[4,8]={0x1380,5} readyEventActiveLevel@7:103[4,8]={0x22b9,6}" + kOk);
}

TEST_F(ConfigTrace, TheWaitsShowTheirOutputs) {
  bool32 late = 0;
  VorexWaitForNextSampleClock(task->handle(), 2.5, &late);
  EXPECT_EQ(spy.line(), head("VorexWaitForNextSampleClock", 3) + " timeout@1:81[8,8]=2.5 isLate@2:22[8,8]=" +
                            pointerText(&late) + "; returns(2): *isLate@0:21[4,4]=0 retval@1:75[4,4]=0 ok");
  VorexAbsoluteTime time{0x10, 0x20};
  VorexWaitForValidTimestamp(task->handle(), 12491, 5, &time);
  EXPECT_EQ(spy.line(), head("VorexWaitForValidTimestamp", 4) + " timestamp@1:109[8,8]=" + pointerText(&time) +
                            " timestampEvent@2:79[1,12]=\"StartTrigger\" timeout@3:81[8,8]=5;"
                            " returns(2): timestamp@0:108[1,16]={0x10,0x20} retval@1:75[4,4]=0 ok");
  VorexWaitForValidTimestamp(task->handle(), 77, 5, &time);
  EXPECT_NE(spy.line().find(" timestampEvent@2:79[1,0]=\"\" "), std::string::npos);
}

TEST_F(ConfigTrace, TriggersLabelTheirEdgesSlopesAndTimes) {
  VorexCfgDigEdgeStartTrig(task->handle(), "PFI0", 10171);
  EXPECT_EQ(spy.line(), head("VorexCfgDigEdgeStartTrig", 3) +
                            " triggerSource@1:79[1,4]=\"PFI0\" triggerEdge@2:103[4,8]={0x1404,10171}" + kOk);
  VorexCfgTimeStartTrig(task->handle(), VorexAbsoluteTime{1, 2}, 10318);
  EXPECT_EQ(spy.line(), head("VorexCfgTimeStartTrig", 3) +
                            " timestamp@1:108[1,16]={0x1,0x2} timescale@2:103[4,8]={0x3036,10318}" + kOk);
  VorexCfgDigEdgeAdvTrig(task->handle(), "PFI1", 10280);
  EXPECT_EQ(spy.line(), head("VorexCfgDigEdgeAdvTrig", 3) +
                            " triggerSource@1:79[1,4]=\"PFI1\" triggerEdge@2:103[4,8]={0x1360,10280}" + kOk);
}

TEST_F(ConfigTrace, EachMultiEdgeReferenceFormTracesItsOwnOrder) {
  const int32 slopes[] = {1, 2};
  const float64 levels[] = {0.5, 1.5};
  const std::string arrays = " triggerSources@1:79[1,3]=\"a,b\" triggerSlopeArray@2:102[8,8]=" + pointerText(slopes) +
                             " triggerSlopeArray@3:102[8,16]=[1, 2] triggerLevelArray@4:20[8,8]=" +
                             pointerText(levels) + " triggerLevelArray@5:20[8,16]=[0.5, 1.5]";
  VorexCfgAnlgMultiEdgeRefTrig(task->handle(), "a,b", slopes, levels, 100, 2);
  EXPECT_EQ(spy.line(), head("VorexCfgAnlgMultiEdgeRefTrig", 8) + arrays +
                            " pretriggerSamples@6:71[4,4]=100 arraySize@7:71[4,4]=2" + kOk);
  VorexCfgAnlgMultiEdgeRefTrigEx(task->handle(), "a,b", slopes, levels, 2, 100);
  EXPECT_EQ(spy.line(), head("VorexCfgAnlgMultiEdgeRefTrigEx", 8) + arrays +
                            " arraySize@6:71[4,4]=2 pretriggerSamples@7:71[4,4]=100" + kOk);
}

TEST_F(ConfigTrace, SignalsShowByNameAndOthersByNumber) {
  VorexExportSignal(task->handle(), 12487, "PFI0");
  EXPECT_EQ(spy.line(), head("VorexExportSignal", 3) +
                            " signalID@1:79[1,21]=\"Vorex_Val_SampleClock\" outputTerminal@2:79[1,4]=\"PFI0\"" + kOk);
  VorexExportSignal(task->handle(), 4711, nullptr);
  EXPECT_EQ(spy.line(), head("VorexExportSignal", 3) + " signalID@1:75[4,4]=4711 outputTerminal@2:93[8,8]=NULL" +
                            kOk);
  VorexCfgOutputBuffer(task->handle(), 4096);
  EXPECT_EQ(spy.line(), head("VorexCfgOutputBuffer", 2) + " numSampsPerChan@1:71[4,4]=4096" + kOk);
}

TEST_F(ConfigTrace, CalibrationAndItsDates) {
  VorexPerformStrainShuntCalEx(task->handle(), "ai0", 100.5, 12532, 12513, -1, 1);
  EXPECT_EQ(spy.line(), head("VorexPerformStrainShuntCalEx", 7) +
                            " channel@1:79[1,3]=\"ai0\" shuntResistorValue@2:81[8,8]=100.5"
                            " shuntResistorLocation@3:75[4,4]=12532 shuntResistorSelect@4:75[4,4]=12513"
                            " shuntResistorSource@5:75[4,4]=-1 skipUnsupportedChannels@6:75[4,4]=1" + kOk);
  task->on("getChannelAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{0, 2082844800ll + 1610739000ll});
  uInt32 year = 0, month = 0, day = 0;
  VorexGetAIChanCalCalDate(task->handle(), nullptr, &year, &month, &day, nullptr, nullptr);
  const std::string line = spy.line();
  EXPECT_EQ(line.substr(0, line.find(';')),
            head("VorexGetAIChanCalCalDate", 7) + " channelName@1:93[8,8]=NULL year@2:82[8,8]=" + pointerText(&year) +
                " month@3:82[8,8]=" + pointerText(&month) + " day@4:82[8,8]=" + pointerText(&day) +
                " hour@5:82[8,8]=NULL minute@6:82[8,8]=NULL");
  EXPECT_EQ(line.substr(line.find(';')),
            "; returns(6): *year@0:71[4,4]=" + std::to_string(year) + " *month@1:71[4,4]=" + std::to_string(month) +
                " *day@2:71[4,4]=" + std::to_string(day) +
                " *hour@3:93[8,8]=NULL *minute@4:93[8,8]=NULL retval@5:75[4,4]=0 ok");
  VorexSetAIChanCalExpDate(task->handle(), "ai0", 2021, 7, 15, 14, 30);
  EXPECT_EQ(spy.line(), head("VorexSetAIChanCalExpDate", 7) +
                            " channelName@1:79[1,3]=\"ai0\" year@2:71[4,4]=2021 month@3:71[4,4]=7 day@4:71[4,4]=15"
                            " hour@5:71[4,4]=14 minute@6:71[4,4]=30" + kOk);
}

TEST_F(ConfigTrace, WatchdogArraysAndTheVariablePairs) {
  const float64 states[] = {0.5};
  const int32 types[] = {10322};
  VorexCfgWatchdogAOExpirStates(task->handle(), "ao0", states, types, 1);
  EXPECT_EQ(spy.line(), head("VorexCfgWatchdogAOExpirStates", 7) + " channelNames@1:79[1,3]=\"ao0\"" +
                            " expirStateArray@2:20[8,8]=" + pointerText(states) +
                            " expirStateArray@3:20[8,8]=[0.5] outputTypeArray@4:4[8,8]=" + pointerText(types) +
                            " outputTypeArray@5:4[8,8]=[10322] arraySize@6:58[4,4]=1" + kOk);
  VorexCreateWatchdogTimerTask("Dev1", "wd", nullptr, 0.5, "line0", 3, "line1", 4, static_cast<const char*>(nullptr));
  EXPECT_EQ(spy.line(), "VorexCreateWatchdogTimerTask params(9): deviceName@0:79[1,4]=\"Dev1\" taskName@1:79[1,2]=\"wd\""
                        " taskHandle@2:93[8,8]=NULL timeout@3:81[8,8]=0.5 lines@4:79[1,5]=\"line0\""
                        " expState@5:75[4,4]=3 lines@6:79[1,5]=\"line1\" expState@7:75[4,4]=4 lines@8:93[8,8]=NULL;"
                        " returns(2): *taskHandle@0:93[8,8]=NULL retval@1:75[4,4]=-200604 failed");
}

}  // namespace
}  // namespace zqtest
