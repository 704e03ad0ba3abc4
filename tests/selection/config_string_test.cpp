// Tasks that exist only as configuration text: the text's one task and its channels, with
// the devices of the local system.
#include <gtest/gtest.h>

#include <string>

#include "report_query.h"
#include "selection_support.h"
#include "zqvorex_status_codes.h"

namespace zqtest {
namespace {

using zqvorexRedir::NameSet;

struct TextCase {
  const char* label;
  const char* text;
  int32_t code;
  const char* constant;  // error_constant of the report, when code is not 0
  const char* plugin;
  NameSet devices;
  NameSet channels;
};

void PrintTo(const TextCase& c, std::ostream* os) { *os << c.label; }

using SelectForConfigString = SelectionCases<TextCase>;
constexpr int32_t kTaskCount = nZQMESL100::kInternalErrorIllegalNumberOfTasksFoundInTaskINI;
constexpr const char* kTaskCountConstant = "nZQMESL100::kInternalErrorIllegalNumberOfTasksFoundInTaskINI";

TEST_P(SelectForConfigString, ReadsTheTextsOneTask) {
  const TextCase& c = GetParam();
  auto selector = makeSelector(nullptr);
  std::string plugin = kUntouched;
  bool debuggable = true;
  NameSet devices;
  NameSet channels;
  zqerr::Status status;
  selector->selectForConfigString(0, c.text, &plugin, &debuggable, &devices, &channels, &status);
  EXPECT_EQ(status.code, c.code) << (status.report ? status.report : "");
  EXPECT_EQ(plugin, c.plugin);
  if (c.code != 0) {
    EXPECT_EQ(reportAt(status.report, {"error_constant"}), c.constant);
    EXPECT_TRUE(debuggable);
    return;
  }
  EXPECT_EQ(devices, c.devices);
  EXPECT_EQ(channels, c.channels);
}

const char* const kOneTask = R"ini(
[task Logger]
channels = v0, GlobalInText
[channel v0]
task = Logger
device = SimA
physical_channels = SimA/ai5
[channel GlobalInText]
device = SimB
physical_channels = SimB/ai6
)ini";

INSTANTIATE_TEST_SUITE_P(
    Texts, SelectForConfigString,
    testing::Values(
        TextCase{"OneTask", kOneTask, 0, "", "zqvorexSim", {"SimA", "SimB"}, {"SimA/ai5", "SimB/ai6"}},
        // Two tasks in one text are refused at the same site: the lifecycle scenario TaskAsText.
        TextCase{"NoTask", "[channel lonely]\ndevice = SimA\n", kTaskCount, kTaskCountConstant, kUntouched, {}, {}},
        TextCase{"TaskWithoutChannels", "[task Bare]\n", nZQMSTS::kErrorPhysicalChannelNotSpecified,
                 "nZQMSTS::kErrorPhysicalChannelNotSpecified", kUntouched, {}, {}},
        // The storage library's own refusal stands.
        TextCase{"NotTaskText", "[task A]\nspeed = 3\n", zqapalerr_invalidParameter, "zqapalerr_invalidParameter",
                 kUntouched, {}, {}}),
    kCaseLabel);

}  // namespace
}  // namespace zqtest
