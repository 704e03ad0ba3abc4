// What the read tests share: a task that answers like a plug-in, and the fixture that owns it.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "frame/last_error_probe.h"
#include "read_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {

class ReadTest : public testing::Test {
 protected:
  void SetUp() override { clearLastError(); }

  // The task reads `names.size()` channels and has `available` samples per channel.
  void channels(std::vector<std::string> names, uint64_t available = 0) {
    task->on("getReadAttributeStringVtr").strings(std::move(names));
    task->on("getReadAttributeSize").value(available);
  }
  size_t readCalls(const std::string& op) const { return task->callCount(op); }
  int64_t countSeen() const { return std::get<int64_t>(task->lastCall().arg("numSampsPerChan")->value); }
  uint64_t kindSeen() const { return std::get<uint64_t>(task->lastCall().arg("channelKind")->value); }

  std::shared_ptr<ReadTask> task = ReadTask::make();
  TaskHandle handle = task->handle();
  bool32 reservedWord = 0;
};

}  // namespace zqtest
