// Saving tasks and global channels, and a task as INI text, against the recording task: what
// reaches the task's operations (names trimmed, the author as given, three option bits and a
// fourth flag), and the UTF-16 copy of the text with its size query and its refusal to cut.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "recording_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

struct SaveCase {
  const char* label;
  const char* saveAs;
  const char* author;
  uint32_t options;
  std::string wantedName;
  std::vector<uint64_t> wantedFlags;
};

class SaveTask : public testing::TestWithParam<SaveCase> {
 protected:
  std::shared_ptr<RecordingTask> task = RecordingTask::create("Bench Rig");
};

std::vector<uint64_t> flagsOf(const RecordedCall& call) {
  std::vector<uint64_t> flags;
  for (const char* name : {"option0", "option1", "option2", "option3"}) {
    const RecordedArg* arg = call.arg(name);
    flags.push_back(arg ? std::get<uint64_t>(arg->value) : 99);
  }
  return flags;
}

TEST_P(SaveTask, ReachesThePlugInTrimmedWithItsFlags) {
  const SaveCase& c = GetParam();
  ASSERT_EQ(VorexSaveTask(task->handle(), c.saveAs, c.author, c.options), 0);
  ASSERT_EQ(VorexSaveGlobalChan(task->handle(), " \tVolts0\n", c.saveAs, c.author, c.options), 0);
  ASSERT_EQ(task->calls().size(), 2u);
  const RecordedCall& save = task->calls()[0];
  const RecordedCall& channel = task->calls()[1];
  EXPECT_EQ(save.op, "saveTask");
  EXPECT_EQ(channel.op, "saveChannel");
  EXPECT_EQ(channel.text("channelName"), "Volts0");
  for (const RecordedCall* call : {&save, &channel}) {
    EXPECT_EQ(call->text("saveAs"), c.wantedName);
    EXPECT_EQ(call->text("author"), c.author ? c.author : "");
    EXPECT_EQ(flagsOf(*call), c.wantedFlags);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SaveTask,
    testing::Values(SaveCase{"BlanksAroundNameNotAuthor", " \t Rig A \r\n\v\f", "  ann  ", 1, "Rig A", {1, 0, 0, 1}},
                    SaveCase{"EachBit", "Rig", "", 2, "Rig", {0, 1, 0, 1}},
                    SaveCase{"ThirdBit", "Rig", "", 4, "Rig", {0, 0, 1, 1}},
                    SaveCase{"HigherBitsIgnored", "Rig", "", 0xFFFFFFF8u, "Rig", {0, 0, 0, 1}},
                    SaveCase{"NullTexts", nullptr, nullptr, 0, "", {0, 0, 0, 1}}),
    [](const testing::TestParamInfo<SaveCase>& info) { return std::string(info.param.label); });

TEST(SaveTaskErrors, ABadHandleAndAFailingPlugIn) {
  EXPECT_EQ(VorexSaveTask(nullptr, "Rig", "", 0), -200230);
  EXPECT_EQ(VorexSaveGlobalChan(nullptr, "Volts0", "Rig", "", 0), -200230);
  auto task = RecordingTask::create("Bench Rig");
  task->on("saveTask").status(-223804);
  EXPECT_EQ(VorexSaveTask(task->handle(), "Rig", "", 0), -223804);
}

class TaskAsText : public testing::Test {
 protected:
  void SetUp() override { task->on("saveTaskToString").text("[task Rig]\n\xC3\xA9"); }  // ends in U+00E9
  std::shared_ptr<RecordingTask> task = RecordingTask::create("Rig");
  TaskHandle handle = task->handle();
  const std::u16string expected = u"[task Rig]\n\u00E9";
};

TEST_F(TaskAsText, SizeQueryExactFitAndOneShort) {
  const int32 needed = static_cast<int32>(expected.size() + 1);
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &handle, nullptr, 100), needed);
  std::u16string buffer(20, u'x');
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &handle, buffer.data(), 0), needed);
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &handle, buffer.data(), needed - 1), -200228);
  EXPECT_EQ(buffer, std::u16string(20, u'x')) << "a short buffer is not written";
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &handle, buffer.data(), needed), 0);
  EXPECT_EQ(buffer.substr(0, expected.size() + 1), expected + u'\0');
  EXPECT_EQ(buffer[expected.size() + 1], u'x');
}

TEST_F(TaskAsText, TheNameGoesTrimmedAsTheSecondName) {
  char16_t buffer[32];
  EXPECT_EQ(VorexGetTaskAsINI(u"  Other Rig \t", &handle, buffer, 32), 0);
  const RecordedCall& call = task->lastCall();
  EXPECT_EQ(call.text("saveAs"), "");
  EXPECT_EQ(call.text("taskName"), "Other Rig");
  EXPECT_EQ(std::get<uint64_t>(call.arg("option0")->value), 0u);
}

TEST_F(TaskAsText, AnEmptyTextNeedsNothing) {
  task->on("saveTaskToString").text("");
  char16_t buffer[4] = {u'x', u'x', u'x', u'x'};
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &handle, nullptr, 0), 0);
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &handle, buffer, 4), 0);
  EXPECT_EQ(buffer[0], u'\0');
}

TEST_F(TaskAsText, HandlesAndPlugInFailures) {
  char16_t buffer[32];
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, nullptr, buffer, 32), -200604);
  TaskHandle none = nullptr;
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &none, buffer, 32), -200230);
  task->on("saveTaskToString").status(-200477);
  EXPECT_EQ(VorexGetTaskAsINI(nullptr, &handle, nullptr, 0), -200477);
}

TEST(CreateTaskFromText, ANullHandlePointer) {
  EXPECT_EQ(VorexCreateTaskFromINI(u"Rig", u"[task Rig]\n", nullptr), -200604);
}

}  // namespace
}  // namespace zqtest
