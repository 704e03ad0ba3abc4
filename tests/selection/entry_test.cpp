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
         s.selectForTask("SavedSim", "", "127.0.0.1", &o.plugin, &o.debuggable, &o.devices,
                         &o.channels, st);
       }},
      {"selectForConfigString",
       [](TaskPluginSelector& s, Outputs& o, zqerr_Status* st) {
         s.selectForConfigString(0, "[task T]\n[channel c]\ntask = T\ndevice = SimA\n", &o.plugin,
                                 &o.debuggable, &o.devices, &o.channels, st);
       }},
  };
}

// For each operation: an earlier error reads and writes nothing; without the storage classes
// it is refused; over the store it succeeds, with the held names kept beside the found ones.
TEST(SelectionEntry, EarlierErrorMissingStorageAndHeldNames) {
  useSelectionStore();
  for (const Operation& op : operations()) {
    SCOPED_TRACE(op.label);
    auto toggles = std::make_shared<FakeToggles>(true);
    Outputs failed, refused, found;
    zqerr::Status failedStatus, refusedStatus, foundStatus;
    ZQ_TEST_FAIL(&failedStatus, zqpalerr_badSelector, "earlier", 9);
    const std::string before = failedStatus.report;
    op.run(*makeSelector(toggles), failed, &failedStatus);
    EXPECT_EQ(failedStatus.code, zqpalerr_badSelector);
    EXPECT_EQ(failedStatus.report, before);
    EXPECT_EQ(failed.plugin, kUntouched);
    EXPECT_EQ(failed.devices, NameSet{"SimB"});
    EXPECT_EQ(failed.channels, NameSet{"Held/ai0"});
    EXPECT_TRUE(toggles->asked.empty());

    TaskPluginSelector noStorage(zqvorexStorageCpp::StorageBindings{}, nullptr);
    op.run(noStorage, refused, &refusedStatus);
    EXPECT_EQ(refusedStatus.code, zqpalerr_badPointer);
    EXPECT_EQ(reportAt(refusedStatus.report, {"error_constant"}), "zqpalerr_badPointer");
    EXPECT_EQ(refused.plugin, kUntouched);

    op.run(*makeSelector(nullptr), found, &foundStatus);
    EXPECT_EQ(foundStatus.code, 0) << (foundStatus.report ? foundStatus.report : "");
    EXPECT_EQ(found.plugin, "zqvorexSim");
    EXPECT_TRUE(found.devices.count("SimB"));
    EXPECT_TRUE(found.channels.count("Held/ai0"));
  }
}

}  // namespace
}  // namespace zqtest
