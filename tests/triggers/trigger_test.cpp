// The trigger functions against the recording task: operations and arguments in order, the
// four text forms, the digital edge's one-terminal refusal, the multi-edge views and the two
// orders of the reference form, and the advance trigger's attribute writes.
#include <gtest/gtest.h>

#include <cstddef>

#include "platform/platform.h"
#include "timing_operation_cases.h"

namespace zqtest {
namespace {

const OperationCase kCases[] = {
    {"DisableStart", [](TaskHandle t) { return VorexDisableStartTrig(t); }, "disableStartTrigger", {}},
    {"DisableRef", [](TaskHandle t) { return VorexDisableRefTrig(t); }, "disableReferenceTrigger", {}},
    {"DigEdgeStart", [](TaskHandle t) { return VorexCfgDigEdgeStartTrig(t, " PFI0 ", 10171); },
     "configureDigitalEdgeStartTrigger", {{"triggerSource", "PFI0"}, {"triggerEdge", "10171"}}},
    {"DigEdgeRef", [](TaskHandle t) { return VorexCfgDigEdgeRefTrig(t, "PFI1", -5, 0xFFFFFFF0u); },
     "configureDigitalEdgeReferenceTrigger",
     {{"triggerSource", "PFI1"}, {"triggerEdge", "-5"}, {"pretriggerSamples", "4294967280"}}},
    {"AnlgEdgeStart", [](TaskHandle t) { return VorexCfgAnlgEdgeStartTrig(t, "\tAPFI0 ", 10280, 1.25); },
     "configureAnalogEdgeStartTrigger", {{"triggerSource", "APFI0"}, {"triggerSlope", "10280"}, {"triggerLevel", "1.25"}}},
    {"AnlgEdgeRef", [](TaskHandle t) { return VorexCfgAnlgEdgeRefTrig(t, "ai0", 10171, -0.5, 100); },
     "configureAnalogEdgeReferenceTrigger",
     {{"triggerSource", "ai0"}, {"triggerSlope", "10171"}, {"triggerLevel", "-0.5"}, {"pretriggerSamples", "100"}}},
    {"AnlgWindowStart", [](TaskHandle t) { return VorexCfgAnlgWindowStartTrig(t, " ai1 ", 10163, 2.5, -2.5); },
     "configureAnalogWindowStartTrigger",
     {{"triggerSource", "ai1"}, {"triggerWhen", "10163"}, {"windowTop", "2.5"}, {"windowBottom", "-2.5"}}},
    {"AnlgWindowRef", [](TaskHandle t) { return VorexCfgAnlgWindowRefTrig(t, "ai2 ", 10164, 1e300, 0, 7); },
     "configureAnalogWindowReferenceTrigger",
     {{"triggerSource", "ai2"}, {"triggerWhen", "10164"}, {"windowTop", "1e+300"}, {"windowBottom", "0"},
      {"pretriggerSamples", "7"}}},
    {"TimeStart", [](TaskHandle t) { return VorexCfgTimeStartTrig(t, {0x0102030405060708ull, -2}, 10318); },
     "configureTimeStartTrigger",
     {{"timestamp", "0807060504030201feffffffffffffff"}, {"timescale", "10318"}}},
    {"DigPatternStart",
     [](TaskHandle t) { return VorexCfgDigPatternStartTrig(t, " line0:2 ", " 1X0 ", 10254); },
     "configureDigitalPatternStartTrigger",
     {{"triggerSource", "line0, line1, line2"}, {"triggerPattern", "1X0"}, {"triggerWhen", "10254"}}},
    {"DigPatternRef", [](TaskHandle t) { return VorexCfgDigPatternRefTrig(t, "a,b", "01", 10255, 3); },
     "configureDigitalPatternReferenceTrigger",
     {{"triggerSource", "a, b"}, {"triggerPattern", "01"}, {"triggerWhen", "10255"}, {"pretriggerSamples", "3"}}},
};

class Trigger : public ReachesOperation {};
TEST_P(Trigger, ReachesItsOperationWithTheArgumentsInOrder) { check(); }
INSTANTIATE_TEST_SUITE_P(Functions, Trigger, testing::ValuesIn(kCases), operationCaseName);

// --- the digital edge source names one terminal ---------------------------------------------

TEST(DigitalEdgeSource, TwoTerminalsAreRefusedWithTheAttributeAndTheCount) {
  struct Case {
    std::function<int32(TaskHandle, const char*)> call;
    int32_t attribute;
  };
  for (const Case& c : {Case{[](TaskHandle t, const char* s) { return VorexCfgDigEdgeStartTrig(t, s, 10280); }, 5127},
                        Case{[](TaskHandle t, const char* s) { return VorexCfgDigEdgeRefTrig(t, s, 10280, 10); },
                             5172}}) {
    auto task = RecordingTask::create();
    clearLastError();
    EXPECT_EQ(c.call(task->handle(), "PFI0,PFI1"), -200098);
    EXPECT_EQ(lastErrorItems(), itemList({usageItem("kUsageTypeAttributeIdentifier", c.attribute, "int32_t"),
                                          usageItem("kUsageTypeRequestedNumberTerminals", 2, "uint32_t")}));
    // A range counts its expansion.
    clearLastError();
    EXPECT_EQ(c.call(task->handle(), " PFI0:2 "), -200098);
    EXPECT_NE(lastErrorItems().find(R"("usage":"kUsageTypeRequestedNumberTerminals","value":3)"), std::string::npos);
  }
}

TEST(DigitalEdgeSource, AnEmptySourceIsAcceptedAndArrivesEmpty) {
  auto task = RecordingTask::create();
  for (const char* source : {static_cast<const char*>(nullptr), "", "  "}) {
    EXPECT_EQ(VorexCfgDigEdgeStartTrig(task->handle(), source, 10280), 0);
    EXPECT_EQ(task->lastCall().text("triggerSource"), "");
  }
}

// --- copied and converted text ----------------------------------------------------------------

TEST(TriggerText, CopiedSourcesKeepTheirBytesAndConvertedOnesBecomeUtf8) {
  if (zqplatform::systemCodePage() != 932) GTEST_SKIP() << "runs under code page 932";
  // Two katakana in code page 932, and in UTF-8.
  const char* system = " \x83\x41\x83\x43 ";
  const std::string bytes = "\x83\x41\x83\x43";
  const std::string utf8 = "\xE3\x82\xA2\xE3\x82\xA4";
  auto task = RecordingTask::create();
  struct Case {
    const char* what;
    std::function<int32(TaskHandle)> call;
    const char* param;
    std::string expected;
  };
  const Case cases[] = {
      {"analog edge start", [&](TaskHandle t) { return VorexCfgAnlgEdgeStartTrig(t, system, 1, 0); }, "triggerSource",
       bytes},
      {"analog edge reference", [&](TaskHandle t) { return VorexCfgAnlgEdgeRefTrig(t, system, 1, 0, 0); },
       "triggerSource", bytes},
      {"analog window start", [&](TaskHandle t) { return VorexCfgAnlgWindowStartTrig(t, system, 1, 0, 0); },
       "triggerSource", utf8},
      {"analog window reference", [&](TaskHandle t) { return VorexCfgAnlgWindowRefTrig(t, system, 1, 0, 0, 0); },
       "triggerSource", bytes},
      {"digital pattern", [&](TaskHandle t) { return VorexCfgDigPatternStartTrig(t, system, system, 1); },
       "triggerPattern", bytes},
      {"digital edge", [&](TaskHandle t) { return VorexCfgDigEdgeStartTrig(t, system, 1); }, "triggerSource", utf8},
      {"multi-edge", [&](TaskHandle t) { return VorexCfgAnlgMultiEdgeStartTrig(t, system, nullptr, nullptr, 0); },
       "triggerSources", utf8},
      {"advance", [&](TaskHandle t) { return VorexCfgDigEdgeAdvTrig(t, system, 1); }, "value", bytes},
  };
  for (const Case& c : cases) {
    task->clearCalls();
    ASSERT_EQ(c.call(task->handle()), 0) << c.what;
    const RecordedCall& call = c.param == std::string("value") ? task->calls().at(1) : task->lastCall();
    EXPECT_EQ(call.text(c.param), c.expected) << c.what;
  }
}

// --- multi-edge -----------------------------------------------------------------------------

TEST(MultiEdge, TheTwoReferenceFormsMakeTheSameCall) {
  const int32 slopes[] = {10280, 10171};
  const float64 levels[] = {0.5, -1.5};
  auto task = RecordingTask::create();
  ASSERT_EQ(VorexCfgAnlgMultiEdgeRefTrig(task->handle(), "ai0, ai1", slopes, levels, 500, 2), 0);
  ASSERT_EQ(VorexCfgAnlgMultiEdgeRefTrigEx(task->handle(), "ai0, ai1", slopes, levels, 2, 500), 0);
  ASSERT_EQ(task->calls().size(), 2u);
  const RecordedCall& first = task->calls()[0];
  const RecordedCall& second = task->calls()[1];
  EXPECT_EQ(first.op, "configureAnalogMultiEdgeReferenceTrigger");
  EXPECT_EQ(second.op, first.op);
  EXPECT_EQ(received(second), received(first));
  EXPECT_EQ(received(first), (Args{{"triggerSources", "ai0, ai1"},
                                   {"triggerSlopeArray", "<2 elements>"},
                                   {"triggerLevelArray", "<2 elements>"},
                                   {"pretriggerSamples", "500"}}));
  for (const RecordedCall* call : {&first, &second}) {
    EXPECT_EQ(call->arg("triggerSlopeArray")->data, slopes);
    EXPECT_EQ(call->arg("triggerLevelArray")->data, levels);
  }
}

TEST(MultiEdge, NamesAndSizeGoAsTheyAreAndANullArrayWithElementsIsRefused) {
  const int32 slopes[] = {1, 2};
  const float64 levels[] = {3, 4};
  auto task = RecordingTask::create();
  ASSERT_EQ(VorexCfgAnlgMultiEdgeStartTrig(task->handle(), "a,b,c", slopes, levels, 2), 0);
  EXPECT_EQ(received(task->lastCall()), (Args{{"triggerSources", "a, b, c"},
                                              {"triggerSlopeArray", "<2 elements>"},
                                              {"triggerLevelArray", "<2 elements>"}}));
  EXPECT_EQ(VorexCfgAnlgMultiEdgeStartTrig(task->handle(), "a,b", nullptr, levels, 2), -52005);
  EXPECT_EQ(VorexCfgAnlgMultiEdgeRefTrigEx(task->handle(), "a,b", slopes, nullptr, 2, 0), -52005);
  EXPECT_EQ(VorexCfgAnlgMultiEdgeStartTrig(task->handle(), "", nullptr, nullptr, 0), 0);
}

// --- advance trigger ------------------------------------------------------------------------

struct Write {
  std::string op;
  int32_t attribute;
  std::string value;
  bool operator==(const Write&) const = default;
};

std::vector<Write> writes(const RecordingTask& task) {
  std::vector<Write> out;
  for (const RecordedCall& call : task.calls()) {
    EXPECT_EQ(call.channels, std::vector<std::string>{}) << "advance trigger attributes take no channels";
    out.push_back({call.op, call.attributeId.value_or(0), call.text("value")});
  }
  return out;
}

TEST(AdvanceTrigger, ADigitalEdgeIsThreeTimingAttributesAndStopsAtTheFirstFailure) {
  const std::vector<Write> all{{"setTimingAttributeI32", 0x1365, "10150"},
                               {"setTimingAttributeString", 0x1362, "PFI3"},
                               {"setTimingAttributeI32", 0x1360, "10171"}};
  auto task = RecordingTask::create();
  ASSERT_EQ(VorexCfgDigEdgeAdvTrig(task->handle(), " PFI3 ", 10171), 0);
  EXPECT_EQ(writes(*task), all);

  for (size_t failing = 0; failing < all.size(); ++failing) {
    auto failed = RecordingTask::create();
    size_t seen = 0;
    failed->onAny().run([&](const RecordedCall&, zqerr_Status* status) {
      if (seen++ == failing) status->code = -200452;
    });
    EXPECT_EQ(VorexCfgDigEdgeAdvTrig(failed->handle(), "PFI3", 10171), -200452);
    EXPECT_EQ(writes(*failed), std::vector<Write>(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(failing) + 1));
  }
}

TEST(AdvanceTrigger, DisablingSetsTheTypeToNone) {
  auto task = RecordingTask::create();
  ASSERT_EQ(VorexDisableAdvTrig(task->handle()), 0);
  EXPECT_EQ(writes(*task), (std::vector<Write>{{"setTimingAttributeI32", 0x1365, "10230"}}));
}

}  // namespace
}  // namespace zqtest
