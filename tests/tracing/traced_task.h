// A recording task whose calls leave their records in the real ZqSpyLog tool beside the test
// program, switched on afresh for each test.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "recording_task.h"
#include "spy_client.h"

namespace zqtest {

class TracedTask : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
  }
  // The start of a record of a call on the task: "<function> params(<n>): taskHandle@0:...".
  std::string head(const char* function, int params) const {
    return std::string(function) + " params(" + std::to_string(params) +
           "): taskHandle@0:93[8,8]=" + pointerText(task->handle());
  }

  SpyClient spy;
  std::shared_ptr<RecordingTask> task = RecordingTask::create();
};

}  // namespace zqtest
