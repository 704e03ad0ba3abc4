// Without the tool: this program runs from a folder where no ZqSpyLog can be found.
#include <gtest/gtest.h>

#include "traced_calls.h"

namespace {

using namespace zqtest;

void* const kTask = reinterpret_cast<void*>(uintptr_t{0x42});

zqerr::FixedStatus failedStatus() {
  zqerr::FixedStatus status = zqerr::makeFixedStatus();
  zqerr::setFixed(&status, -50000, "test", "absent_tool_test", 1);
  return status;
}

TEST(ToolAbsent, FirstCallRunsStartUpAndTracingStaysOff) {
  zqtrace::initialiseState(zqerr::makeFixedStatus());
  ASSERT_TRUE(zqtrace::tracingOn());
  ASSERT_FALSE(zqtrace::resolved());
  for (int call = 0; call < 3; ++call) {
    double x = 0;
    Cookie cookie = 1;
    EXPECT_EQ(tracedGetF64(kTask, &x, &cookie), 0);
    EXPECT_EQ(x, 2.5);
    EXPECT_EQ(cookie, 0u);
    EXPECT_TRUE(zqtrace::resolved());
    EXPECT_FALSE(zqtrace::tracingOn());  // the switch is on the constant 0 for good
  }
}

TEST(ToolAbsent, StartUpWithAFailedStatusDoesNothing) {
  zqtrace::initialiseState(zqerr::makeFixedStatus());
  zqerr::FixedStatus failed = failedStatus();
  zqtrace::startUp(&failed);
  EXPECT_FALSE(zqtrace::resolved());
  EXPECT_TRUE(zqtrace::tracingOn());
}

TEST(OffAtLoad, FailedLoadStatusLeavesTracingOffWithoutStartUp) {
  zqtrace::initialiseState(failedStatus());
  EXPECT_FALSE(zqtrace::tracingOn());
  Cookie cookie = 1;
  double x = 0;
  EXPECT_EQ(tracedGetF64(kTask, &x, &cookie), 0);
  EXPECT_EQ(cookie, 0u);
  EXPECT_FALSE(zqtrace::resolved());
}

}  // namespace
