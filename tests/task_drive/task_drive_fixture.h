// The fixture of the tests over zqtestDrive: a store whose devices name it, an empty log, and
// a real plug-in manager that counts what it is asked.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "drive_support.h"

namespace zqtest {

class TaskDrive : public testing::Test {
 protected:
  void SetUp() override {
    useDriveStore();
    clearDriveLog();
  }
  std::shared_ptr<CountingManager> manager_ = std::make_shared<CountingManager>();
};

inline bool logHas(const std::string& line) {
  const auto lines = driveLogLines();
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

}  // namespace zqtest
