// The end-to-end scenarios, each a C function that returns the line of its first failed check.
#include <gtest/gtest.h>

#include <string>

#include "e2e_harness.h"
#include "e2e_support.h"

namespace {

using Scenario = int (*)(char*, size_t);

struct Case {
  const char* name;
  Scenario run;
};

class EndToEnd : public testing::TestWithParam<Case> {};

TEST_P(EndToEnd, HoldsEveryCheck) {
  zqe2e::pluginSymbol("zqtestDrive_testCounter");  // the installation, made before the first call
  char why[256] = "";
  EXPECT_EQ(GetParam().run(why, sizeof why), 0) << why;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, EndToEnd,
                         testing::Values(Case{"TaskCalls", e2e_run_task_calls},
                                         Case{"Lifecycle", e2e_run_lifecycle},
                                         Case{"DirectRestart", e2e_run_direct_restart},
                                         Case{"StopDropsQueued", e2e_run_stop_drops_queued},
                                         Case{"ClearEndsCallbacks", e2e_run_clear_ends_callbacks},
                                         Case{"WaitInFlood", e2e_run_wait_in_flood},
                                         Case{"ForeignThread", e2e_run_foreign_thread},
                                         Case{"RegistrationErrors", e2e_run_registration_errors},
                                         Case{"TaskAsText", e2e_run_task_as_text}),
                         [](const testing::TestParamInfo<Case>& info) { return std::string(info.param.name); });

}  // namespace
