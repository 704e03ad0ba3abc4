#include "test_sites.h"
#include "pool/creation_rollback.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "recording_task.h"
#include "zqvorex_status_codes.h"

namespace {

using nZQCAI100::TaskPool;
using nZQCAI100::TaskRef;
using nZQCAI100::TaskRollback;

struct RollbackCase {
  const char* label;
  bool armed;
  int32_t codeAtEnd;
  bool staysInPool;
};

TEST(TaskRollback, TakesAnArmedTaskOutOnlyWhenTheCallFailed) {
  const RollbackCase cases[] = {
      {"armed, failed", true, -200077, false},
      {"armed, succeeded", true, 0, true},
      {"armed, warning", true, 200077, true},
      {"not armed, failed", false, -200077, true},
  };
  for (const RollbackCase& c : cases) {
    SCOPED_TRACE(c.label);
    zqerr::Status built;
    auto pool = std::make_shared<TaskPool>(&built);
    TaskRef task = zqtest::RecordingTask::create("created");
    zqerr::Status status;
    {
      TaskRollback rollback(pool, &status);
      pool->addTask(task, &status);
      if (c.armed) rollback.arm(task);
      if (c.codeAtEnd) ZQ_TEST_FAIL(&status, c.codeAtEnd, "later", 7);
    }
    EXPECT_EQ(pool->findTask(task.get()) != nullptr, c.staysInPool);
    EXPECT_EQ(status.code, c.codeAtEnd);
  }
}

TEST(TaskRollback, FailedRemovalLeavesTheCallersStatus) {
  zqerr::Status built;
  auto pool = std::make_shared<TaskPool>(&built);
  TaskRef task = zqtest::RecordingTask::create("never pooled");
  zqerr::Status status;
  {
    TaskRollback rollback(pool, &status);
    rollback.arm(task);
    ZQ_TEST_FAIL(&status, -200077, "later", 7);
  }
  EXPECT_EQ(status.code, -200077);
  EXPECT_NE(std::string(status.report).find("\"later\""), std::string::npos) << status.report;
}

TEST(TaskRollback, WithoutAPoolIsABadPointer) {
  zqerr::Status status;
  {
    TaskRollback rollback(nullptr, &status);
    rollback.arm(zqtest::RecordingTask::create("x"));
  }
  EXPECT_EQ(status.code, zqpalerr_badPointer);
}

}  // namespace
