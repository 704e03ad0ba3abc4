// Buffers and signal export: what reaches the task from the C functions, and, through a real
// task bound to a table of plug-in slots, the terminal attribute every exportable signal is
// written to and the two refusals told in terms of the signal.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../frame/last_error_probe.h"
#include "recording_task.h"
#include "slot_plugin.h"
#include "task_fixture.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

TEST(Buffers, TheSizeIsTheBufferAttributeOfNoChannels) {
  auto task = RecordingTask::create();
  ASSERT_EQ(VorexCfgInputBuffer(task->handle(), 0), 0);
  ASSERT_EQ(VorexCfgOutputBuffer(task->handle(), 0xFFFFFFFFu), 0);
  ASSERT_EQ(task->calls().size(), 2u);
  const std::vector<std::pair<int32_t, std::string>> expected{{6252, "0"}, {6253, "4294967295"}};
  for (size_t i = 0; i < expected.size(); ++i) {
    const RecordedCall& call = task->calls()[i];
    EXPECT_EQ(call.op, "setBufferAttributeSize");
    EXPECT_EQ(call.channels, std::vector<std::string>{});
    EXPECT_EQ(call.attributeId, expected[i].first);
    EXPECT_EQ(call.text("value"), expected[i].second);
  }
  EXPECT_EQ(VorexCfgInputBuffer(nullptr, 10), -200230);
}

// --- the real task and its signal table --------------------------------------------------------

class SignalTable : public testing::Test {
 protected:
  void SetUp() override {
    callLog().clear();
    clearLastError();
    bindTask(*task, makeSlotPlugin(), slotContextHandle(), slotTaskHandle());
  }
  void TearDown() override { clearSlotFailures(); }
  TaskHandle handle() { return static_cast<zqvorexRedir::ITask*>(task.get()); }

  std::shared_ptr<zqvorexRedir::Task> task = makeTask(std::make_shared<CountingPluginManager>());
};

TEST_F(SignalTable, EverySignalIsWrittenToItsTerminalAttribute) {
  const std::vector<std::pair<int32_t, int32_t>> table{
      {12484, 5767}, {12486, 5719}, {12487, 5731}, {12488, 5701}, {12489, 5653}, {12490, 1424}, {12491, 1412},
      {12492, 5713}, {12493, 6381}, {12494, 5911}, {12498, 5941}, {12499, 6400}, {12500, 5683}, {12501, 5641},
      {12502, 1398}, {12503, 6394}, {12511, 8599}, {12512, 8618}, {12520, 6399}, {12521, 1367}, {12536, 8814},
      {12564, 5689}, {12565, 8945}, {12566, 6398}, {14833, 10922}};
  for (const auto& [signal, attribute] : table) {
    callLog().clear();
    EXPECT_EQ(VorexExportSignal(handle(), signal, "PFI0, PFI1"), 0) << signal;
    EXPECT_EQ(callLog(), std::vector<std::string>{"setTimingAttributeStringVtr:task::" + std::to_string(attribute) +
                                                  ":PFI0,PFI1"})
        << signal;
  }
}

TEST_F(SignalTable, TheTerminalsAreAListTrimmedBeforeTheSplit) {
  for (const auto& [terminal, list] : std::vector<std::pair<const char*, std::string>>{
           {nullptr, ""}, {" \t ", ""}, {" PFI0 , PFI1 ", "PFI0,PFI1"}, {"Dev1/PFI0:1", "Dev1/PFI0,Dev1/PFI1"}}) {
    callLog().clear();
    ASSERT_EQ(VorexExportSignal(handle(), 12487, terminal), 0);
    EXPECT_EQ(callLog(), std::vector<std::string>{"setTimingAttributeStringVtr:task::5731:" + list});
  }
}

TEST_F(SignalTable, ASignalOutsideTheTableIsInvalidAndReachesNoPlugin) {
  for (int32_t signal : {0, 12485, 12495, 14834}) {
    clearLastError();
    EXPECT_EQ(VorexExportSignal(handle(), signal, "PFI0"), -200374);
    EXPECT_EQ(lastErrorItems(), itemList({usageItem("kUsageTypeSignalEventType", signal, "int32_t")}));
  }
  EXPECT_TRUE(callLog().empty());
}

TEST_F(SignalTable, AnAttributeTheTaskCannotTakeIsAnUnsupportedSignal) {
  failSlotCalls("setTimingAttributeStringVtr", -200452);
  EXPECT_EQ(VorexExportSignal(handle(), 12491, "PFI0"), -200375);
  EXPECT_EQ(lastErrorItems(), itemList({usageItem("kUsageTypeAttributeIdentifier", 1412, "int32_t", "ExportedStartTrigOutputTerm")}));
  failSlotCalls("setTimingAttributeStringVtr", -200010);
  EXPECT_EQ(VorexExportSignal(handle(), 12491, "PFI0"), -200010) << "any other refusal stays as it is";
}

}  // namespace
}  // namespace zqtest
