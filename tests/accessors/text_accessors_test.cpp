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

// A Get answered with two names as a list, or with the first alone as a text.
void checkGet(RecordingTask& task, const TextCase& c, const std::string& op, bool list) {
  if (list)
    task.on(op).strings({"Dev1/PFI0", "Dev1/PFI1"});
  else
    task.on(op).text("Dev1/PFI0");
  char data[64];
  std::memset(data, 'x', sizeof data);
  EXPECT_EQ(c.get(task.handle(), kListText, data, sizeof data), 0);
  EXPECT_EQ(std::string(data), list ? "Dev1/PFI0, Dev1/PFI1" : "Dev1/PFI0");
}

std::string sentText(const RecordingTask& task) { return sentValue(task) ? sentValue(task)->text : "<no call>"; }

TEST(TextAccessors, StringSetsPassTerminalsAloneAndPlainTextAsItStands) {
  walkCases(
      casesString(),
      [](RecordingTask& task, const TextCase& c, const std::string& op) { checkGet(task, c, op, false); },
      [](RecordingTask& task, const TextCase& c) {
        EXPECT_EQ(c.set(task.handle(), kListText, " \tDev1/PFI0\r\n"), 0);
        EXPECT_EQ(sentText(task), "Dev1/PFI0");
      });
  int terminals = 0;
  auto task = RecordingTask::create();
  for (const TextCase& c : casesString()) {
    if (!c.set) continue;
    SCOPED_TRACE(c.info.name);
    task->clearCalls();
    const int32 code = c.set(task->handle(), kListText, "PFI0,PFI1");
    if (c.info.terminal) {
      ++terminals;
      EXPECT_EQ(code, -200098);
      EXPECT_TRUE(task->calls().empty());
    } else {
      EXPECT_EQ(code, 0);
      EXPECT_EQ(sentText(*task), "PFI0,PFI1");
    }
  }
  // 70 terminal attributes; AIConvSrc and AIConvDigFltrTimebaseSrc add their Ex twins.
  EXPECT_EQ(terminals, 72);
}

TEST(TextAccessors, StringListsJoinOnGetAndSplitOnSet) {
  walkCases(
      casesStringList(),
      [](RecordingTask& task, const TextCase& c, const std::string& op) { checkGet(task, c, op, true); },
      [](RecordingTask& task, const TextCase& c) {
        EXPECT_EQ(c.set(task.handle(), kListText, " Dev1/PFI0, Dev1/PFI1 "), 0);
        ASSERT_NE(sentValue(task), nullptr);
        EXPECT_EQ(sentValue(task)->value, Value(std::vector<std::string>{"Dev1/PFI0", "Dev1/PFI1"}));
      });
}

}  // namespace
