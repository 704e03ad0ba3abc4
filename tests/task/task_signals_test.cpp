// The task's own check of the watchdog state views; the writes themselves and the signal export
// are proven through the C functions in tests/watchdog and tests/signals.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "task_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

TEST(WatchdogStates, MismatchedOrMissingViewsWriteNothing) {
  auto task = zqtest::makeBoundTask();
  const std::vector<std::string> lists{"Dev1/port0/line0,Dev1/port0/line1", "Dev1/port1"};
  const std::vector<int32_t> tooFew{10192};
  zqgopher::StringArrayView listView(lists);
  zqgopher::ArrayViewAdapter<int32_t> shortView(tooFew);
  zqerr::Status mismatch;
  task->configureWatchdogCOExpirStates(listView.boundary(), shortView.boundary(), &mismatch);
  EXPECT_EQ(mismatch.code, nZQMSTS::kErrorMismatchedInputArraySizes);
  zqerr::Status null;
  task->configureWatchdogDOExpirStates(listView.boundary(), nullptr, &null);
  EXPECT_EQ(null.code, nZQMSTS::kErrorNULLPtr);
  EXPECT_TRUE(zqtest::callLog().empty());
}

}  // namespace
