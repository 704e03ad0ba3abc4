#include "toggles/system_error_status.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

struct Row {
  uint32_t systemError;
  int32_t status;
};

// The whole table, and codes it does not hold.
const Row kRows[] = {
    {0, 0},           {997, 52011},     {8, -52000},     {1450, -52000},  {50, -52002},
    {1, -52002},      {31, -52003},     {1117, -52003},  {87, -52005},    {2, -52006},
    {121, -52007},    {1359, -52008},   {5, -52009},     {21, -52010},    {1617, -52020},
    {38, -52012},     {122, -52019},    {639, -52021},   {183, -52013},   {0xE0000204, -52006},
    {258, -52007},    {170, -52031},    {234, -52003},   {1113, -52003},  {6, -52003},
    {0xE0000205, -52003}, {0xFFFFFFFF, -52003},
};

TEST(SystemErrorStatus, EachCodeGivesItsStatusAtTheTogglesSite) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.systemError);
    EXPECT_EQ(runtime_toggles::statusOfSystemError(row.systemError), row.status);
    zqerr::FixedStatus status = zqerr::makeFixedStatus();
    runtime_toggles::setSystemErrorStatus(row.systemError, &status);
    EXPECT_EQ(status.code, row.status);
    if (row.status == 0) continue;
    EXPECT_STREQ(status.file, "runtimetoggles");
    EXPECT_EQ(status.line, 36u);
    EXPECT_STREQ(status.component, "zqcai_rd_");
  }
}

struct MergeCase {
  const char* label;
  int32_t before;
  uint32_t systemError;
  int32_t after;
};

TEST(SystemErrorStatus, FollowsTheRuleOfReplacement) {
  const MergeCase cases[] = {
      {"the warning replaces success", 0, 997, 52011},
      {"an error replaces the warning", 52011, 2, -52006},
      {"a warning does not replace a warning", 200, 997, 200},
      {"a warning does not replace an error", -1, 997, -1},
      {"an error does not replace an error", -7, 2, -7},
      {"success changes nothing", 52011, 0, 52011},
  };
  for (const MergeCase& c : cases) {
    zqerr::FixedStatus status = zqerr::makeFixedStatus();
    zqerr::setFixed(&status, c.before, "before", "earlier", 9);
    runtime_toggles::setSystemErrorStatus(c.systemError, &status);
    EXPECT_EQ(status.code, c.after) << c.label;
    if (c.after == c.before && c.before != 0) {
      EXPECT_STREQ(status.file, "earlier") << c.label;
    }
  }
}

}  // namespace
