// Saved tasks and global channels to devices, physical channels and a plug-in: the names of
// a task or channel list, and a saved task together with channel names.
#include <gtest/gtest.h>

#include <string>

#include "report_query.h"
#include "selection_support.h"
#include "zqvorex_status_codes.h"

namespace zqtest {
namespace {

using zqvorexRedir::NameSet;
constexpr int32_t kTwoPlugins = zqapalerr_featureUnsupported;
constexpr int32_t kNoChannel = nZQMSTS::kErrorPhysicalChannelNotSpecified;
constexpr int32_t kUnknownChannel = nZQMSTS100::kErrorVirtualChanDoesNotExist;

struct NamesCase {
  const char* label;
  const char* names;
  int32_t code;
  bool savedTask;  // the result
  const char* plugin;
  NameSet devices;
  NameSet channels;
};

void PrintTo(const NamesCase& c, std::ostream* os) { *os << c.label; }

using SelectForNames = SelectionCases<NamesCase>;

TEST_P(SelectForNames, CollectsTheDevicesAndChannelsOfTheNames) {
  const NamesCase& c = GetParam();
  auto selector = makeSelector(nullptr);
  std::string plugin = kUntouched;
  bool debuggable = false;
  NameSet devices;
  NameSet channels;
  zqerr::Status status;
  const bool savedTask =
      selector->selectForNames(c.names, "127.0.0.1", &plugin, &debuggable, &devices, &channels, &status);
  EXPECT_EQ(status.code, c.code) << (status.report ? status.report : "");
  EXPECT_EQ(savedTask, c.savedTask);
  EXPECT_EQ(plugin, c.plugin);
  if (c.code != 0) return;
  EXPECT_EQ(devices, c.devices);
  EXPECT_EQ(channels, c.channels);
}

INSTANTIATE_TEST_SUITE_P(
    Names, SelectForNames,
    testing::Values(
        NamesCase{"SavedTask", "SavedSim", 0, true, "zqvorexSim", {"SimA"}, {"SimA/ai0", "SimA/ai1"}},
        NamesCase{"SavedTaskWithAGlobalChannel", "Mixed", 0, true, "zqvorexSim", {"SimA", "SimB"},
                  {"SimA/ai2", "SimB/ai3"}},
        NamesCase{"SavedTaskOfAnotherPlugin", "SavedOther", 0, true, "zqvorexOther", {"Other"}, {"Other/ai0"}},
        NamesCase{"GlobalChannel", "GlobalB", 0, false, "zqvorexSim", {"SimB"}, {"SimB/ai3"}},
        NamesCase{"GlobalChannelsOfTwoPlugins", "GlobalB, GlobalOther", kTwoPlugins, false, kUntouched, {}, {}},
        NamesCase{"Empty", "", nZQMSTS::kErrorGrafoEmptyTaskOrChans, false, kUntouched, {}, {}},
        NamesCase{"ChannelOnAnUnknownDevice", "GlobalGhost", nZQMSTS::kErrorInvalidDeviceID, false, kUntouched, {}, {}},
        NamesCase{"OnlyBlanks", "  ", kNoChannel, false, kUntouched, {}, {}}),
    kCaseLabel);

struct TaskCase {
  const char* label;
  const char* savedTask;
  const char* channelNames;
  int32_t code;
  const char* plugin;
  NameSet devices;
  NameSet channels;
};

void PrintTo(const TaskCase& c, std::ostream* os) { *os << c.label; }

using SelectForTask = SelectionCases<TaskCase>;

TEST_P(SelectForTask, CollectsTheDevicesOfTheTaskAndOfTheChannels) {
  const TaskCase& c = GetParam();
  auto selector = makeSelector(nullptr);
  std::string plugin = kUntouched;
  bool debuggable = false;
  NameSet devices;
  NameSet channels;
  zqerr::Status status;
  selector->selectForTask(c.savedTask, c.channelNames, "127.0.0.1", &plugin, &debuggable, &devices, &channels,
                          &status);
  EXPECT_EQ(status.code, c.code) << (status.report ? status.report : "");
  EXPECT_EQ(plugin, c.plugin);
  if (c.code != 0) return;
  EXPECT_EQ(devices, c.devices);
  EXPECT_EQ(channels, c.channels);
}

INSTANTIATE_TEST_SUITE_P(
    Tasks, SelectForTask,
    testing::Values(
        TaskCase{"SavedTaskAndChannels", "SavedSim", "GlobalB", 0, "zqvorexSim", {"SimA", "SimB"},
                 {"SimA/ai0", "SimA/ai1", "SimB/ai3"}},
        TaskCase{"SavedTaskAlone", "SavedSim", "", 0, "zqvorexSim", {"SimA"}, {"SimA/ai0", "SimA/ai1"}},
        TaskCase{"ChannelsAlone", "", "GlobalB", 0, "zqvorexSim", {"SimB"}, {"SimB/ai3"}},
        TaskCase{"TaskAndChannelsOfTwoPlugins", "SavedSim", "GlobalOther", kTwoPlugins, kUntouched, {}, {}},
        TaskCase{"UnknownChannelBesideTheTask", "SavedSim", "Missing", kUnknownChannel, kUntouched, {}, {}},
        TaskCase{"NothingNamed", "", "", kNoChannel, kUntouched, {}, {}}),
    kCaseLabel);

// An unknown saved task is named in the report; an unknown channel has a constant of its own;
// what was found before the failure stays.
TEST(SelectionReport, UnknownNamesAndWhatWasFoundBefore) {
  useSelectionStore();
  auto selector = makeSelector(nullptr);
  std::string plugin;
  bool debuggable = false;
  NameSet devices, channels, moreDevices;
  zqerr::Status status, namesStatus;
  selector->selectForTask("NoTask", "GlobalB", "127.0.0.1", &plugin, &debuggable, &devices, &channels, &status);
  ASSERT_EQ(status.code, nZQMSTS::kErrorTaskNotInDataNeighborhood);
  const char* r = status.report;
  EXPECT_EQ(reportAt(r, {"error_constant"}), "nZQMSTS::kErrorTaskNotInDataNeighborhood");
  EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#0", "usage"}), "kUsageTypeInvalidTaskName");
  EXPECT_EQ(reportAt(r, {"translator_info", "ordered_data", "#0", "value"}), "NoTask");
  EXPECT_EQ(devices, NameSet{"SimB"});
  selector->selectForNames("GlobalB, Missing", "127.0.0.1", &plugin, &debuggable, &moreDevices, &channels,
                           &namesStatus);
  EXPECT_EQ(reportAt(namesStatus.report, {"error_constant"}), "nZQMSTS100::kErrorVirtualChanDoesNotExist");
  EXPECT_EQ(moreDevices, NameSet{"SimB"});
}

}  // namespace
}  // namespace zqtest
