// Saving and loading through the storage companion: a task as INI text and back, a task in the
// store and loaded by its name, a global channel added to another task.
#include <gtest/gtest.h>

#include "boundary/string_adapter.h"
#include "sim_support.h"
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

const std::vector<std::string> kNamed{"Pressure"};

// Two channels, one named and narrowed, finite timing and an analog start trigger.
std::shared_ptr<zqvorexRedir::Task> configured(const std::string& name) {
  auto task = makeTask(name);
  zqerr::Status status;
  task->createAIVoltageChannel("SimDev1/ai3", "Pressure", -1, -5, 5, Vorex_Val_Volts, "", nullptr, &status);
  task->createAIVoltageChannel("SimDev1/ai5", "", -1, -10, 10, Vorex_Val_Volts, "", nullptr, &status);
  task->configureSampleClockTiming("", 2500, Vorex_Val_Rising, Vorex_Val_FiniteSamps, 777, &status);
  task->configureAnalogEdgeStartTrigger("Pressure", Vorex_Val_Falling, 0.5, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return task;
}

std::string iniOf(zqvorexRedir::ITask& task, const std::string& name) {
  std::string text;
  zqgopher::StringAdapter out(text);
  zqerr::Status status;
  task.saveTaskToString("", name, false, out.boundary(), &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return text;
}

void expectSameConfiguration(zqvorexRedir::ITask& task) {
  zqerr::Status status;
  EXPECT_EQ(task.getTimingAttributeF64(zqgopher::StringArrayView(), Vorex_SampClkRate, &status), 2500.0);
  EXPECT_EQ(task.getTimingAttributeU64(zqgopher::StringArrayView(), Vorex_SampQuantSampPerChan, &status),
            777u);
  EXPECT_EQ(task.getTimingAttributeI32(zqgopher::StringArrayView(), Vorex_AnlgEdgeStartTrigSlope, &status),
            Vorex_Val_Falling);
  EXPECT_EQ(task.getChannelAttributeF64(zqgopher::StringArrayView(kNamed), Vorex_AIMax, &status), 5.0);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
}

TEST(Persistence, IniTextMakesTheSameTaskAgain) {
  auto original = configured("ini original");
  const std::string text = iniOf(*original, "Saved As Text");
  EXPECT_NE(text.find("[task Saved As Text]"), std::string::npos) << text;
  EXPECT_NE(text.find("[channel Pressure]"), std::string::npos) << text;

  auto copy = makeTask("ini copy");
  zqerr::Status status;
  copy->setUpFromString(0, text, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  expectSameConfiguration(*copy);
  EXPECT_EQ(iniOf(*copy, "Saved As Text"), text);
  const Samples read = readVoltages(*copy, -1, 30.0, 2 * 777);
  EXPECT_EQ(read.count, 777u) << read.outcome.report;
}

TEST(Persistence, ASavedTaskLoadsByItsName) {
  auto original = configured("store original");
  zqerr::Status status;
  original->saveTask("SimSaved", "tester", true, true, true, true, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  original.reset();

  auto loaded = makeTask("SimSaved");
  loaded->setUpLoad(&status);
  ASSERT_EQ(status.code, 0) << status.report;
  expectSameConfiguration(*loaded);
  EXPECT_EQ(iniOf(*loaded, "x"), iniOf(*configured("again"), "x"));
}

TEST(Persistence, SavingOverATaskWithoutLeaveIsRefused) {
  auto task = configured("no overwrite");
  zqerr::Status status;
  task->saveTask("SimOnce", "", true, true, true, true, &status);
  ASSERT_EQ(status.code, 0) << status.report;
  task->saveTask("SimOnce", "", false, true, true, true, &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorDuplicateTask);
}

TEST(Persistence, AGlobalChannelJoinsAnotherTaskWithItsSettings) {
  auto source = configured("global source");
  zqerr::Status status;
  source->saveChannel("Pressure", "SimGlobalPressure", "", true, true, true, true, &status);
  ASSERT_EQ(status.code, 0) << status.report;

  auto user = makeTask("global user");
  user->addChannelsToTask("SimGlobalPressure", &status);
  ASSERT_EQ(status.code, 0) << status.report;
  const std::vector<std::string> name{"SimGlobalPressure"};
  EXPECT_EQ(user->getChannelAttributeF64(zqgopher::StringArrayView(name), Vorex_AIMax, &status), 5.0);
  EXPECT_EQ(user->getChannelAttributeBool(zqgopher::StringArrayView(name), Vorex_ChanIsGlobal, &status), 1u);
  EXPECT_NE(iniOf(*user, "uses global").find("global_channels = SimGlobalPressure"), std::string::npos);
}

TEST(Persistence, IniTextWithDamagedSettingsIsRefused) {
  const std::string text =
      "[task Broken]\nchannels = a\n[channel a]\ntask = Broken\ndevice = SimDev1\n"
      "physical_channels = SimDev1/ai0\nattributes = not-a-setting\n";
  auto task = makeTask("broken");
  zqerr::Status status;
  task->setUpFromString(0, text, &status);
  EXPECT_EQ(status.code, nZQMDEV::kErrorInvalidSavedTask);
}

}  // namespace
}  // namespace zqtest::sim
