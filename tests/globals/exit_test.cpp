#include <gtest/gtest.h>
#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "fresh_root.h"
#include "globals/one_time.h"
#include "globals/shared_globals.h"
#include "recording_task.h"

namespace {

using nZQCAI100::currentSharedGlobals;
using zqtest::Installation;
using zqtest::SharedFolder;

constexpr const char* kStorageFile = ZQ_TEST_STORAGE_LIBRARY;
constexpr const char* kDestroyed = "task destroyed";

// A pooled task whose destruction writes kDestroyed to stderr, as a plug-in call at the end of
// a task would be seen.
std::shared_ptr<nZQCAI100::ITaskPool> poolWithWatchedTask(std::weak_ptr<zqvorexRedir::ITask>* watch) {
  zqerr::Status status;
  auto pool = nZQCAI100::getTaskPool(&status);
  EXPECT_EQ(status.code, 0) << status.report;
  if (!pool) return pool;
  std::shared_ptr<zqvorexRedir::ITask> task(new zqtest::RecordingTask("left behind"), [](zqtest::RecordingTask* t) {
    std::fputs(kDestroyed, stderr);
    std::fflush(stderr);
    delete t;
  });
  *watch = task;
  pool->addTask(task, &status);
  EXPECT_EQ(status.code, 0);
  return pool;
}

TEST(SharedGlobalsExit, FinishAbandonsTheRecordWithItsTasks) {
  SharedFolder folder("finish");
  folder.install(kStorageFile);
  zqtest::inFreshProcess([&] {
    Installation installation;
    installation.setSharedFolder64(folder.text());
    std::weak_ptr<zqvorexRedir::ITask> watch;
    poolWithWatchedTask(&watch);
    ASSERT_NE(currentSharedGlobals(), nullptr);
    nZQCAI100::oneTimeRecord().finish();
    EXPECT_EQ(currentSharedGlobals(), nullptr);
    EXPECT_EQ(nZQCAI100::oneTimeRecord().state.load(), 0u);
    EXPECT_FALSE(watch.expired()) << "the abandoned pool still holds its task";
  });
}

struct ExitCase {
  const char* label;
  bool clearBeforeExit;
};

class ProcessExit : public testing::TestWithParam<ExitCase> {};

// A normal process exit runs the exit actions: a task the application never cleared is not
// destroyed, so no plug-in code runs during exit. A cleared task is, as the control.
TEST_P(ProcessExit, DestroysOnlyTheTasksThatWereCleared) {
  const ExitCase& c = GetParam();
  SharedFolder folder(std::string("exit-") + c.label);
  folder.install(kStorageFile);
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  auto matcher = c.clearBeforeExit ? testing::Matcher<const std::string&>(testing::HasSubstr(kDestroyed))
                                   : testing::Matcher<const std::string&>(testing::Not(testing::HasSubstr(kDestroyed)));
  EXPECT_EXIT(
      {
        {
          Installation installation;  // ended here: exit() ends no local object
          installation.setSharedFolder64(folder.text());
          std::weak_ptr<zqvorexRedir::ITask> watch;
          auto pool = poolWithWatchedTask(&watch);
          if (c.clearBeforeExit && pool) {
            zqerr::Status status;
            pool->removeTask(watch.lock(), &status);
          }
        }
        std::exit(0);
      },
      testing::ExitedWithCode(0), matcher);
}

INSTANTIATE_TEST_SUITE_P(Cases, ProcessExit,
                         testing::Values(ExitCase{"not_cleared", false}, ExitCase{"cleared", true}),
                         [](const auto& info) { return std::string(info.param.label); });

}  // namespace
