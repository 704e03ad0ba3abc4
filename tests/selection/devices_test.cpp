// The plug-in of a set of devices, read from the real storage library: device objects, their
// debug properties, the capability data of their classes, and the runtime toggle.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report_query.h"
#include "selection_support.h"
#include "zqvorex_status_codes.h"

namespace zqtest {
namespace {

using zqvorexRedir::NameSet;

struct DevicesCase {
  const char* label;
  NameSet devices;
  bool debugSession;  // the toggle's value
  int32_t code;
  const char* plugin;  // kUntouched when the operation must not write it
  bool debuggable;
};

void PrintTo(const DevicesCase& c, std::ostream* os) { *os << c.label; }

using SelectForDevices = SelectionCases<DevicesCase>;
constexpr int32_t kTwoPlugins = zqapalerr_featureUnsupported;

TEST_P(SelectForDevices, NamesThePluginOfAllDevices) {
  const DevicesCase& c = GetParam();
  auto toggles = std::make_shared<FakeToggles>(c.debugSession);
  auto selector = makeSelector(toggles);
  std::string plugin = kUntouched;
  bool debuggable = true;  // a written false shows
  zqerr::Status status;
  selector->selectForDevices(c.devices, "127.0.0.1", &plugin, &debuggable, &status);
  EXPECT_EQ(status.code, c.code) << (status.report ? status.report : "");
  EXPECT_EQ(plugin, c.plugin);
  EXPECT_EQ(debuggable, c.code == 0 ? c.debuggable : true);
  if (c.code == 0) {
    EXPECT_EQ(status.report, nullptr) << status.report;  // no storage failure left behind
  }
  if (!c.devices.empty()) {
    ASSERT_FALSE(toggles->asked.empty());
    EXPECT_EQ(toggles->asked.front(), (std::pair<std::string, bool>{"DebugSession", true}));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Devices, SelectForDevices,
    testing::Values(
        DevicesCase{"TwoDevicesOfOnePlugin", {"SimA", "SimB"}, true, 0, "zqvorexSim", true},
        DevicesCase{"DeviceWithoutDebugProperties", {"SimB"}, true, 0, "zqvorexSim", false},
        DevicesCase{"DebugPluginProperty", {"DebugDev"}, true, 0, "zqvorexDebug", true},
        // The class of DebugOrphan is not defined: a class lookup would fail.
        DevicesCase{"DebugPluginSkipsTheClassLookup", {"DebugOrphan"}, true, 0, "zqvorexDebug", false},
        DevicesCase{"ToggleOffReadsNoProperty", {"DebugDev"}, false, 0, "zqvorexOther", false},
        DevicesCase{"ToggleOffLooksTheClassUp", {"DebugOrphan"}, false, -201233, kUntouched, false},
        DevicesCase{"ToggleOffDebugDeviceJoinsItsClassPlugin", {"DebugDev", "Other"}, false, 0, "zqvorexOther", false},
        DevicesCase{"DifferentPluginsFirstSortsFirst", {"AaOther", "SimA"}, true, kTwoPlugins, kUntouched, false},
        DevicesCase{"DifferentPluginsFirstSortsLast", {"SimA", "ZzOther"}, true, kTwoPlugins, kUntouched, false},
        DevicesCase{"DebugPluginBesideAnother", {"DebugDev", "SimB"}, true, kTwoPlugins, kUntouched, false},
        DevicesCase{"NoDevice", {}, true, nZQMSTS::kErrorPhysicalChannelNotSpecified, kUntouched, false}),
    kCaseLabel);

TEST(SelectForDevicesReport, PluginsThatDifferCarryTheComment) {
  useSelectionStore();
  for (const NameSet& devices : {NameSet{"AaOther", "SimA"}, NameSet{"SimA", "ZzOther"}}) {
    auto selector = makeSelector(nullptr);
    std::string plugin;
    bool debuggable = false;
    zqerr::Status status;
    selector->selectForDevices(devices, "127.0.0.1", &plugin, &debuggable, &status);
    ASSERT_EQ(status.code, zqapalerr_featureUnsupported);
    const char* r = status.report;
    EXPECT_EQ(reportAt(r, {"error_constant"}), "zqapalerr_featureUnsupported");
    EXPECT_EQ(reportAt(r, {"translator"}), "qxlator_zqvorex");
    EXPECT_EQ(reportKeys(r, {"translator_info", "ordered_data", "#0"}),
              (std::vector<std::string>{"type", "comment"}));
    EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#0", "type"}), "comment");
    EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#0", "comment"}),
              "Channel expansion across plugins not supported yet");
    EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#1"}), kAbsent);
  }
}

TEST(SelectForDevicesReport, WithoutTogglesDebugSessionsAreOn) {
  useSelectionStore();
  auto selector = makeSelector(nullptr);
  std::string plugin;
  bool debuggable = false;
  zqerr::Status status;
  selector->selectForDevices({"DebugDev"}, "127.0.0.1", &plugin, &debuggable, &status);
  EXPECT_EQ(plugin, "zqvorexDebug");
  EXPECT_TRUE(debuggable);
}

struct UnknownCase {
  const char* label;
  void (*store)();
  std::vector<std::string> suggested;  // empty: no such item
};

TEST(SelectForDevicesReport, AnUnknownDeviceNamesItAndSuggestsTheConfiguredOnes) {
  const std::vector<UnknownCase> cases = {
      {"configured devices",
       &useSelectionStore,
       {"AaOther", "DebugDev", "DebugOrphan", "Other", "SimA", "SimB", "ZzOther"}},
      {"no configured device", &useEmptyStore, {}},
  };
  for (const UnknownCase& c : cases) {
    SCOPED_TRACE(c.label);
    c.store();
    auto selector = makeSelector(nullptr);
    std::string plugin;
    bool debuggable = false;
    zqerr::Status status;
    selector->selectForDevices({"Ghost"}, "127.0.0.1", &plugin, &debuggable, &status);
    ASSERT_EQ(status.code, nZQMSTS::kErrorInvalidDeviceID);
    const char* r = status.report;
    EXPECT_EQ(reportAt(r, {"error_constant"}), "nZQMSTS::kErrorInvalidDeviceID");
    EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#0", "usage"}), "kUsageTypeDeviceSpecified");
    EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#0", "value"}), "Ghost");
    std::vector<std::string> suggested;
    for (size_t i = 0;; ++i) {
      const std::string index = "#" + std::to_string(i);
      std::string name = reportAt(r, {"translator_info", "ordered_data", "#1", "value", index});
      if (name == kAbsent) break;
      suggested.push_back(name);
    }
    EXPECT_EQ(suggested, c.suggested);
    EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#1", "usage"}),
              c.suggested.empty() ? kAbsent : "kUsageTypeSuggestedDevices");
  }
}

}  // namespace
}  // namespace zqtest
