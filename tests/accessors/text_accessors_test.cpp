// Every string and string-list accessor of the catalogue calls the operation its row names with
// its id and list, copies the text out, and passes a Set's text as the row's kind wants it: a
// terminal alone, plain text as it stands, a list as its names.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "case_helpers.h"

namespace {

using namespace zqtest;

class TextAccessors : public testing::Test {
 protected:
  void fresh() {
    task->clearCalls();
    task->clearReplies();
  }
  void checkGet(const TextCase& c, bool list) {
    fresh();
    const std::string op = operationFor("Get", c.info);
    if (list)
      task->on(op).strings({"Dev1/PFI0", "Dev1/PFI1"});
    else
      task->on(op).text("Dev1/PFI0");
    const std::string expected = list ? "Dev1/PFI0, Dev1/PFI1" : "Dev1/PFI0";
    char data[64];
    std::memset(data, 'x', sizeof data);
    EXPECT_EQ(c.get(task->handle(), kListText, data, sizeof data), 0);
    EXPECT_EQ(std::string(data), expected);
    expectOneCall(*task, op, c.info);
    expectRecord("Get", c.info);
  }
  void checkReset(const TextCase& c) {
    fresh();
    EXPECT_EQ(c.reset(task->handle(), kListText), 0);
    expectOneCall(*task, operationFor("Reset", c.info), c.info);
    expectRecord("Reset", c.info);
  }
  std::string sentText() {
    const RecordedArg* value = task->calls().empty() ? nullptr : task->lastCall().arg("value");
    return value ? value->text : "<no call>";
  }

  std::shared_ptr<RecordingTask> task = RecordingTask::create();
};

TEST_F(TextAccessors, StringSetsPassTerminalsAloneAndPlainTextAsItStands) {
  ASSERT_FALSE(casesString().empty());
  int terminals = 0;
  for (const TextCase& c : casesString()) {
    SCOPED_TRACE(c.info.name);
    if (c.get) checkGet(c, false);
    if (c.reset) checkReset(c);
    if (!c.set) continue;
    const std::string op = operationFor("Set", c.info);
    fresh();
    EXPECT_EQ(c.set(task->handle(), kListText, " \tDev1/PFI0\r\n"), 0);
    expectOneCall(*task, op, c.info);
    expectRecord("Set", c.info);
    EXPECT_EQ(sentText(), "Dev1/PFI0");
    fresh();
    const int32 code = c.set(task->handle(), kListText, "PFI0,PFI1");
    if (c.info.terminal) {
      ++terminals;
      EXPECT_EQ(code, -200098);
      EXPECT_TRUE(task->calls().empty());
    } else {
      EXPECT_EQ(code, 0);
      EXPECT_EQ(sentText(), "PFI0,PFI1");
    }
  }
  // 70 terminal attributes; AIConvSrc and AIConvDigFltrTimebaseSrc add their Ex twins.
  EXPECT_EQ(terminals, 72);
}

TEST_F(TextAccessors, StringListsJoinOnGetAndSplitOnSet) {
  ASSERT_FALSE(casesStringList().empty());
  for (const TextCase& c : casesStringList()) {
    SCOPED_TRACE(c.info.name);
    if (c.get) checkGet(c, true);
    if (c.reset) checkReset(c);
    if (!c.set) continue;
    fresh();
    EXPECT_EQ(c.set(task->handle(), kListText, " Dev1/PFI0, Dev1/PFI1 "), 0);
    expectOneCall(*task, operationFor("Set", c.info), c.info);
    expectRecord("Set", c.info);
    const RecordedArg* value = task->calls().empty() ? nullptr : task->lastCall().arg("value");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->value, Value(std::vector<std::string>{"Dev1/PFI0", "Dev1/PFI1"}));
  }
}

}  // namespace
