// A C function and the one task operation it must reach, with every argument in order as the
// recording task writes it: the shape the timing, trigger and calibration tables share.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "../frame/last_error_probe.h"
#include "recording_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {

using Args = std::vector<std::pair<std::string, std::string>>;

inline Args received(const RecordedCall& call) {
  Args args;
  for (const RecordedArg& arg : call.args) args.emplace_back(arg.name, arg.text);
  return args;
}

struct OperationCase {
  const char* function;
  std::function<int32(TaskHandle)> call;
  const char* operation;
  Args args;  // (name, text) of what the operation received, in order
};

inline std::string operationCaseName(const testing::TestParamInfo<OperationCase>& info) {
  return info.param.function;
}

// One call reaches its operation alone with the case's arguments; a null task is refused first.
class ReachesOperation : public testing::TestWithParam<OperationCase> {
 protected:
  void check() {
    const OperationCase& c = GetParam();
    auto task = RecordingTask::create();
    ASSERT_EQ(c.call(task->handle()), 0);
    ASSERT_EQ(task->calls().size(), 1u);
    EXPECT_EQ(task->lastCall().op, c.operation);
    EXPECT_EQ(received(task->lastCall()), c.args);
    clearLastError();
    EXPECT_EQ(c.call(nullptr), -200230);
    EXPECT_EQ(lastErrorCode(), -200230);
  }
};

}  // namespace zqtest
