#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "report_query.h"
#include "slot_plugin.h"
#include "task_fixture.h"

namespace {

using zqgopher::StringArrayView;
using zqtest::callLog;

struct SignalCase {
  int32_t signalId;
  int32_t pluginCode;
  int32_t code;
  std::string call;  // what reached the plug-in, "" for nothing
  const char* usage;
  const char* value;
};

TEST(ExportSignal, TheSignalBecomesATerminalAttributeWriteAndRefusalsAreToldAsSignalErrors) {
  const SignalCase cases[] = {
      {12487, 0, 0, "setTimingAttributeStringVtr:task:ai0:5731:PFI0", nullptr, nullptr},
      {14833, 0, 0, "setTimingAttributeStringVtr:task:ai0:10922:PFI0", nullptr, nullptr},
      {12485, 0, -200374, "", "kUsageTypeSignalEventType", "12485"},
      {12491, -200452, -200375, "setTimingAttributeStringVtr:task:ai0:1412:PFI0", "kUsageTypeAttributeIdentifier",
       "1412"},
      {12491, -200010, -200010, "setTimingAttributeStringVtr:task:ai0:1412:PFI0", nullptr, nullptr},
  };
  const std::vector<std::string> channels{"ai0"};
  const std::vector<std::string> terminals{"PFI0"};
  for (const SignalCase& c : cases) {
    callLog().clear();
    auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
    zqtest::bindTask(*task, zqtest::makeSlotPlugin(), zqtest::slotContextHandle(), zqtest::slotTaskHandle());
    zqtest::failNextSlotCall(c.pluginCode);
    zqerr::Status status;
    task->exportSignal(c.signalId, StringArrayView(channels), StringArrayView(terminals), &status);
    zqtest::failNextSlotCall(0);
    EXPECT_EQ(status.code, c.code) << c.signalId;
    EXPECT_EQ(callLog(), c.call.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.call}) << c.signalId;
    if (c.usage) {
      EXPECT_EQ(zqtest::reportAt(status.report, {"translator_info", "ordered_data", "#0", "usage"}), c.usage);
      EXPECT_EQ(zqtest::reportAt(status.report, {"translator_info", "ordered_data", "#0", "value"}), c.value);
    }
  }
}

TEST(WatchdogStates, EachEntryWritesItsChannelsAndMismatchedViewsWriteNothing) {
  callLog().clear();
  auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
  zqtest::bindTask(*task, zqtest::makeSlotPlugin(), zqtest::slotContextHandle(), zqtest::slotTaskHandle());
  const std::vector<std::string> lists{"Dev1/port0/line0,Dev1/port0/line1", "Dev1/port1"};
  const std::vector<int32_t> states{10192, 10214};
  const std::vector<int32_t> tooFew{10192};
  StringArrayView listView(lists);
  zqgopher::ArrayViewAdapter<int32_t> stateView(states);
  zqgopher::ArrayViewAdapter<int32_t> shortView(tooFew);
  zqerr::Status status;
  task->configureWatchdogDOExpirStates(listView.boundary(), stateView.boundary(), &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(callLog(), (std::vector<std::string>{
                           "setDeviceAttributeI32:task:Dev1/port0/line0,Dev1/port0/line1:8615:10192",
                           "setDeviceAttributeI32:task:Dev1/port1:8615:10214"}));
  callLog().clear();
  zqerr::Status mismatch;
  task->configureWatchdogCOExpirStates(listView.boundary(), shortView.boundary(), &mismatch);
  EXPECT_EQ(mismatch.code, -200672);
  zqerr::Status null;
  task->configureWatchdogDOExpirStates(listView.boundary(), nullptr, &null);
  EXPECT_EQ(null.code, -200604);
  EXPECT_TRUE(callLog().empty());
}

}  // namespace
