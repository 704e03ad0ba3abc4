// What every selection does before it reads: nothing after an earlier error, and a refusal
// when the storage classes are missing.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "report_query.h"
#include "selection_support.h"
#include "test_sites.h"
#include "zqvorex_status_codes.h"

namespace zqtest {
namespace {

using zqvorexRedir::NameSet;
using zqvorexRedir::TaskPluginSelector;

struct Outputs {
  std::string plugin = kUntouched;
  bool debuggable = true;
  NameSet devices{"SimB"};  // a device of the same plug-in, which the selection goes over too
  NameSet channels{"Held/ai0"};
};

struct Operation {
  const char* label;
  std::function<void(TaskPluginSelector&, Outputs&, zqerr_Status*)> run;
};

std::vector<Operation> operations() {
  return {
      {"selectForDevices",
       [](TaskPluginSelector& s, Outputs& o, zqerr_Status* st) {
         s.selectForDevices({"SimA"}, "127.0.0.1", &o.plugin, &o.debuggable, st);
       }},
      {"selectForNames",
       [](TaskPluginSelector& s, Outputs& o, zqerr_Status* st) {
         s.selectForNames("SavedSim", "127.0.0.1", &o.plugin, &o.debuggable, &o.devices, &o.channels, st);
       }},
      {"selectForTask",
       [](TaskPluginSelector& s, Outputs& o, zqerr_Status* st) {
         s.selectForTask("SavedSim", "GlobalB", "127.0.0.1", &o.plugin, &o.debuggable, &o.devices,
                         &o.channels, st);
       }},
      {"selectForConfigString",
       [](TaskPluginSelector& s, Outputs& o, zqerr_Status* st) {
         s.selectForConfigString(0, "[task T]\n[channel c]\ntask = T\ndevice = SimA\n", &o.plugin,
                                 &o.debuggable, &o.devices, &o.channels, st);
       }},
  };
}

TEST(SelectionEntry, AnEarlierErrorReadsNothingAndWritesNothing) {
  useSelectionStore();
  for (const Operation& op : operations()) {
    SCOPED_TRACE(op.label);
    auto toggles = std::make_shared<FakeToggles>(true);
    auto selector = makeSelector(toggles);
    Outputs out;
    zqerr::Status status;
    ZQ_TEST_FAIL(&status, zqpalerr_badSelector, "earlier", 9);
    const std::string before = status.report;
    op.run(*selector, out, &status);
    EXPECT_EQ(status.code, zqpalerr_badSelector);
    EXPECT_EQ(status.report, before);
    EXPECT_EQ(out.plugin, kUntouched);
    EXPECT_EQ(out.devices, NameSet{"SimB"});
    EXPECT_EQ(out.channels, NameSet{"Held/ai0"});
    EXPECT_TRUE(toggles->asked.empty());
  }
}

TEST(SelectionEntry, WithoutStorageEverySelectionIsRefused) {
  useSelectionStore();
  for (const Operation& op : operations()) {
    SCOPED_TRACE(op.label);
    TaskPluginSelector selector(zqvorexStorageCpp::StorageBindings{}, nullptr);
    Outputs out;
    zqerr::Status status;
    op.run(selector, out, &status);
    EXPECT_EQ(status.code, zqpalerr_badPointer);
    EXPECT_EQ(reportAt(status.report, {"error_constant"}), "zqpalerr_badPointer");
    EXPECT_EQ(out.plugin, kUntouched);
  }
}

// The same operations succeed over the store, with the held names kept beside the found ones.
TEST(SelectionEntry, FoundNamesJoinTheHeldOnes) {
  useSelectionStore();
  for (const Operation& op : operations()) {
    SCOPED_TRACE(op.label);
    auto selector = makeSelector(nullptr);
    Outputs out;
    zqerr::Status status;
    op.run(*selector, out, &status);
    EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
    EXPECT_EQ(out.plugin, "zqvorexSim");
    EXPECT_TRUE(out.devices.count("SimB"));
    EXPECT_TRUE(out.channels.count("Held/ai0"));
  }
}

}  // namespace
}  // namespace zqtest
