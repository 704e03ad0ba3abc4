// The attribute functions written by hand: what each one differs in from the generated frame,
// the absolute times with their operations and refusals, and the functions that only refuse.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "../frame/last_error_probe.h"
#include "recording_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

// A member of the last failure's report, as its raw JSON text.
std::string lastReportMember(const char* key) { return lastError() ? member(lastError()->status, key) : "<none>"; }

class Handwritten : public testing::Test {
 protected:
  void SetUp() override { clearLastError(); }
  std::shared_ptr<RecordingTask> task = RecordingTask::create("Flow Meter");
};

TEST_F(Handwritten, TaskNameComesFromTheTaskItself) {
  EXPECT_EQ(VorexGetTaskName(task->handle(), nullptr, 0), 11);
  char name[11];
  std::memset(name, 'x', sizeof name);
  EXPECT_EQ(VorexGetTaskName(task->handle(), name, 10), -200228);
  EXPECT_EQ(name[0], 'x');
  EXPECT_EQ(VorexGetTaskName(task->handle(), name, 11), 0);
  EXPECT_STREQ(name, "Flow Meter");
  EXPECT_TRUE(task->calls().empty()) << "no operation of the plug-in is asked";
  EXPECT_EQ(VorexGetTaskName(nullptr, name, 11), -200230);
}

TEST_F(Handwritten, ChannelsToReadAreAListOfTheReadClass) {
  task->on("getReadAttributeStringVtr").strings({"Dev1/ai0", "Dev1/ai3"});
  char text[32];
  EXPECT_EQ(VorexGetReadChannelsToRead(task->handle(), text, sizeof text), 0);
  EXPECT_STREQ(text, "Dev1/ai0, Dev1/ai3");
  EXPECT_EQ(VorexSetReadChannelsToRead(task->handle(), " Dev1/ai0 , Dev1/ai2 "), 0);
  EXPECT_EQ(VorexResetReadChannelsToRead(task->handle()), 0);
  ASSERT_EQ(task->calls().size(), 3u);
  const std::vector<std::string> none;
  const char* ops[] = {"getReadAttributeStringVtr", "setReadAttributeStringVtr", "resetReadAttributeStringVtr"};
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(task->calls()[i].op, ops[i]);
    EXPECT_EQ(task->calls()[i].attributeId, 0x1823);
    EXPECT_EQ(task->calls()[i].channels, none);
  }
  EXPECT_EQ(task->calls()[1].arg("value")->value, Value(std::vector<std::string>{"Dev1/ai0", "Dev1/ai2"}));
}

TEST_F(Handwritten, ChanIsGlobalWithoutAPlaceForTheValueStillAsks) {
  task->on("getChannelAttributeBool").value(uint32_t{1});
  bool32 global = 0;
  EXPECT_EQ(VorexGetChanIsGlobal(task->handle(), "Temp", &global), 0);
  EXPECT_EQ(global, 1u);
  EXPECT_EQ(task->lastCall().attributeId, 0x2304);
  EXPECT_EQ(task->lastCall().channels, std::vector<std::string>{"Temp"});
  task->on("getChannelAttributeBool").status(-200486);
  EXPECT_EQ(VorexGetChanIsGlobal(task->handle(), "", nullptr), -200486);
  EXPECT_EQ(task->callCount("getChannelAttributeBool"), 2u);
  EXPECT_EQ(VorexGetChanIsGlobal(task->handle(), "", &global), -200486);
  EXPECT_EQ(global, 0u) << "a failed Get scrubs the value";
}

TEST_F(Handwritten, SigmodCalEnableStoresZeroOrOneAndOnlyOnSuccess) {
  task->on("getChannelAttributeBool").value(uint32_t{5});
  bool32 enabled = 7;
  EXPECT_EQ(VorexGetSigmodCalEnable(task->handle(), "ai0", &enabled), 0);
  EXPECT_EQ(enabled, 1u);
  EXPECT_EQ(task->lastCall().attributeId, 0x22EA);
  EXPECT_EQ(VorexGetSigmodCalEnable(task->handle(), "ai0", nullptr), 0);
  task->on("getChannelAttributeBool").status(-200452);
  enabled = 7;
  EXPECT_EQ(VorexGetSigmodCalEnable(task->handle(), "ai0", &enabled), -200452);
  EXPECT_EQ(enabled, 7u);
  EXPECT_EQ(VorexSetSigmodCalEnable(task->handle(), "ai0, ai1", 1), 0);
  EXPECT_EQ(task->lastCall().op, "setChannelAttributeU32");
  EXPECT_EQ(task->lastCall().arg("value")->value, Value(uint64_t{1}));
  EXPECT_EQ(task->lastCall().channels, (std::vector<std::string>{"ai0", "ai1"}));
}

TEST_F(Handwritten, TheResponseModeIsRefusedWithoutLookingAtTheTask) {
  int32 mode = 42;
  for (TaskHandle handle : {task->handle(), static_cast<TaskHandle>(nullptr)}) {
    clearLastError();
    EXPECT_EQ(VorexGetSampClkTimingResponseMode(handle, &mode), -200197);
    EXPECT_EQ(mode, 42);
    EXPECT_EQ(lastErrorCode(), -200197);
    EXPECT_EQ(lastReportMember("error_constant"), "\"(-200197)\"");
    EXPECT_EQ(lastReportMember("file"), "\"chandwrittenattributes\"");
    EXPECT_EQ(VorexSetSampClkTimingResponseMode(handle, 1), -200197);
    EXPECT_EQ(VorexResetSampClkTimingResponseMode(handle), -200197);
  }
  EXPECT_EQ(VorexGetSampClkTimingResponseMode(task->handle(), nullptr), -200197);
  EXPECT_TRUE(task->calls().empty());
}

// --- absolute times ---------------------------------------------------------------------------

struct TimeFamily {
  const char* name;
  int32 id;
  int32 (*get)(TaskHandle, VorexAbsoluteTime*);
  int32 (*set)(TaskHandle, VorexAbsoluteTime);  // null: a timestamp, only read
  int32 (*reset)(TaskHandle);
};

const TimeFamily kTimes[] = {
    {"ArmStartTrigTrigWhen", 0x3131, VorexGetArmStartTrigTrigWhen, VorexSetArmStartTrigTrigWhen,
     VorexResetArmStartTrigTrigWhen},
    {"SyncPulseTimeWhen", 0x3137, VorexGetSyncPulseTimeWhen, VorexSetSyncPulseTimeWhen, VorexResetSyncPulseTimeWhen},
    {"StartTrigTrigWhen", 0x304D, VorexGetStartTrigTrigWhen, VorexSetStartTrigTrigWhen, VorexResetStartTrigTrigWhen},
    {"FirstSampClkWhen", 0x3182, VorexGetFirstSampClkWhen, VorexSetFirstSampClkWhen, VorexResetFirstSampClkWhen},
    {"StartTrigTimestampVal", 0x314B, VorexGetStartTrigTimestampVal, nullptr, nullptr},
    {"RefTrigTimestampVal", 0x312F, VorexGetRefTrigTimestampVal, nullptr, nullptr},
    {"FirstSampTimestampVal", 0x313A, VorexGetFirstSampTimestampVal, nullptr, nullptr},
    {"ArmStartTrigTimestampVal", 0x3134, VorexGetArmStartTrigTimestampVal, nullptr, nullptr},
};

class AbsoluteTime : public Handwritten, public testing::WithParamInterface<TimeFamily> {
 protected:
  void expectCall(const char* op) {
    ASSERT_EQ(task->calls().size(), 1u);
    EXPECT_EQ(task->lastCall().op, op);
    EXPECT_EQ(task->lastCall().attributeId, GetParam().id);
    EXPECT_EQ(task->lastCall().channels, std::vector<std::string>{});
    task->clearCalls();
  }
};

TEST_P(AbsoluteTime, GoesThroughTheTimingOperationsWithItsId) {
  const TimeFamily& f = GetParam();
  task->on("getTimingAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{0xC000000000000000ull, 3786825600});
  VorexAbsoluteTime time{};
  EXPECT_EQ(f.get(task->handle(), &time), 0);
  EXPECT_EQ(time.fraction, 0xC000000000000000ull);
  EXPECT_EQ(time.seconds, 3786825600);
  expectCall("getTimingAttributeAbsoluteTime");
  if (!f.set) return;
  EXPECT_EQ(f.set(task->handle(), VorexAbsoluteTime{1, -1}), 0);
  // The record travels by the plug-in's pointer: its bytes are the caller's two words.
  EXPECT_EQ(task->lastCall().text("value"), "0100000000000000ffffffffffffffff");
  expectCall("setTimingAttributeAbsoluteTime");
  EXPECT_EQ(f.reset(task->handle()), 0);
  expectCall("resetTimingAttributeAbsoluteTime");
}

TEST_P(AbsoluteTime, AGetWithoutARecordOrThatFailsLeavesItAlone) {
  const TimeFamily& f = GetParam();
  EXPECT_EQ(f.get(task->handle(), nullptr), -200604);
  EXPECT_EQ(lastReportMember("error_constant"), "\"(-200604)\"");
  EXPECT_EQ(f.get(nullptr, nullptr), -200230);
  EXPECT_TRUE(task->calls().empty());
  task->on("getTimingAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{9, 9}).status(-200452);
  VorexAbsoluteTime time{4, 4};
  EXPECT_EQ(f.get(task->handle(), &time), -200452);
  EXPECT_EQ(time.fraction, 4u);
  EXPECT_EQ(time.seconds, 4);
  EXPECT_EQ(f.get(nullptr, &time), -200230);
  EXPECT_EQ(time.seconds, 4);
}

INSTANTIATE_TEST_SUITE_P(Families, AbsoluteTime, testing::ValuesIn(kTimes),
                         [](const testing::TestParamInfo<TimeFamily>& info) { return std::string(info.param.name); });

// --- obsolete functions -----------------------------------------------------------------------

struct Obsolete {
  const char* name;
  int32 (*call)(TaskHandle);
};

const Obsolete kObsolete[] = {
    {"nZQCAI100::VorexGetTimingSyncPulseForce",
     [](TaskHandle t) { bool32 v = 0; return VorexGetTimingSyncPulseForce(t, &v); }},
    {"nZQCAI100::VorexSetTimingSyncPulseForce", [](TaskHandle t) { return VorexSetTimingSyncPulseForce(t, 1); }},
    {"nZQCAI100::VorexResetTimingSyncPulseForce", [](TaskHandle t) { return VorexResetTimingSyncPulseForce(t); }},
    {"nZQCAI100::VorexGetWriteNextWriteIsLast",
     [](TaskHandle t) { return VorexGetWriteNextWriteIsLast(t, nullptr); }},
    {"nZQCAI100::VorexSetWriteNextWriteIsLast", [](TaskHandle t) { return VorexSetWriteNextWriteIsLast(t, 0); }},
    {"nZQCAI100::VorexResetWriteNextWriteIsLast", [](TaskHandle t) { return VorexResetWriteNextWriteIsLast(t); }},
};

class ObsoleteFunction : public Handwritten, public testing::WithParamInterface<Obsolete> {};

// Whatever the handle: the handle is never looked at.
TEST_P(ObsoleteFunction, FailsWithAReportThatNamesIt) {
  for (TaskHandle handle : {static_cast<TaskHandle>(nullptr), task->handle()}) {
    clearLastError();
    EXPECT_EQ(GetParam().call(handle), -209823);
    EXPECT_EQ(lastErrorCode(), -209823);
    EXPECT_EQ(lastReportMember("error_constant"), "\"nZQMSTS100::kErrorFunctionObsolete\"");
    EXPECT_EQ(lastReportMember("file"), "\"cobsolete\"");
    EXPECT_EQ(lastErrorItems(),
              "[{\"type\":\"usage\",\"usage\":\"kUsageTypeProcedureName\",\"value\":\"" + std::string(GetParam().name) +
                  "\",\"value_type\":\"string\"}]");
  }
  EXPECT_TRUE(task->calls().empty());
}

INSTANTIATE_TEST_SUITE_P(Functions, ObsoleteFunction, testing::ValuesIn(kObsolete),
                         [](const testing::TestParamInfo<Obsolete>& info) {
                           return std::string(info.param.name).substr(std::strlen("nZQCAI100::"));
                         });

}  // namespace
}  // namespace zqtest
