#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "test_sites.h"
#include "boundary/string_adapter.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"
#include "task/null_task.h"
#include "task_fixture.h"

namespace {

using zqvorexRedir::NullTask;

using Op = zqtest::TaskOp<NullTask>;

const std::vector<std::pair<const char*, Op>>& calls() {
  static const std::vector<std::pair<const char*, Op>> kCalls = {
      {"readScaledVectorF64",
       [](NullTask& t, zqerr_Status* s) { return t.readScaledVectorF64(1, nullptr, nullptr, 10, 1.0, nullptr, s); }},
      {"controlTask", [](NullTask& t, zqerr_Status* s) { t.controlTask(0, false, s); }},
      {"getTaskAttributeString",
       [](NullTask& t, zqerr_Status* s) {
         std::string text = "untouched";
         zqgopher::StringAdapter out(text);
         t.getTaskAttributeString(4726, out.boundary(), s);
         return text == "untouched" ? 0 : 1;
       }},
  };
  return kCalls;
}

class Answer {
 public:
  explicit Answer(int32_t code) {
    if (code != 0) ZQ_TEST_FAIL(&status_, code, "stored", 12);
  }
  zqerr_Status* get() { return &status_; }

 private:
  zqerr::Status status_;
};

TEST(NullTask, EveryOperationAnswersZeroWithTheStoredStatusAndReport) {
  for (int32_t stored : {0, nZQMSTS::kErrorInvalidTask}) {
    Answer answer(stored);
    NullTask task(nullptr, "N", answer.get());
    for (const auto& [name, run] : calls()) {
      zqerr::Status status;
      EXPECT_EQ(run(task, &status), 0.0) << name;
      EXPECT_EQ(status.code, stored) << name;
      EXPECT_EQ(zqtest::reportAt(status.report, {"file"}), stored ? "stored" : zqtest::kAbsent) << name;
      EXPECT_EQ(zqtest::reportAt(status.report, {"line"}), stored ? "12" : zqtest::kAbsent) << name;
    }
  }
}

struct MergeCase {
  int32_t stored;
  int32_t callerBefore;
  int32_t callerAfter;
};

TEST(NullTask, TheStoredStatusMergesByTheReplacementRule) {
  const MergeCase cases[] = {
      {-5, 0, -5},    {-5, 7, -5},     {7, 0, 7},   {7, 9, 9},
      {7, -3, -3},    {-5, -3, -3},    {0, 0, 0},   {0, 9, 9},
  };
  for (const MergeCase& c : cases) {
    Answer answer(c.stored);
    NullTask task(nullptr, "N", answer.get());
    zqerr::Status status;
    status.code = c.callerBefore;
    task.disableStartTrigger(&status);
    EXPECT_EQ(status.code, c.callerAfter) << c.stored << " into " << c.callerBefore;
  }
}

TEST(NullTask, OnlyAnOwnedTaskGivesItself) {
  auto task = std::make_shared<NullTask>(nullptr, "Named", nullptr);
  EXPECT_EQ(task->sharedFromThis().get(), task.get());
  NullTask unowned(nullptr, "Loose", nullptr);
  EXPECT_EQ(unowned.sharedFromThis(), nullptr);
}

}  // namespace
