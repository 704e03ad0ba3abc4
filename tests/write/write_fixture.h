// What the write tests share: a task that answers like a plug-in, and the failure's usage items.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>

#include "frame/last_error_probe.h"
#include "paths/report_query.h"
#include "write_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {

inline constexpr int32_t kWriteNumChans = 0x217E;
inline constexpr int32_t kWriteDigitalLinesBytesPerChan = 0x217F;
inline constexpr int32_t kWriteRawDataWidth = 0x217D;

class WriteTest : public testing::Test {
 protected:
  void SetUp() override { clearLastError(); }

  // The task's write attributes: its channel count, bytes per channel of lines, raw width.
  void channels(uint32_t numChans, uint32_t bytesPerChan = 0, uint32_t width = 0) {
    task->writeAttributes = {{kWriteNumChans, numChans},
                             {kWriteDigitalLinesBytesPerChan, bytesPerChan},
                             {kWriteRawDataWidth, width}};
  }
  size_t callsOf(const std::string& op) const { return task->callCount(op); }
  uint64_t unsignedArg(const std::string& op, const char* name) const {
    return std::get<uint64_t>(last(op).arg(name)->value);
  }
  const RecordedCall& last(const std::string& op) const {
    for (auto it = task->calls().rbegin(); it != task->calls().rend(); ++it)
      if (it->op == op) return *it;
    throw std::runtime_error("no call of " + op);
  }

  // A field of the n-th usage item of the last failure's report.
  static std::string item(int n, const char* key) {
    const auto* record = lastError();
    const std::string step = "#" + std::to_string(n);
    return reportAt(record ? record->status.report : nullptr, {"translator_info", "ordered_data", step, key});
  }

  std::shared_ptr<WriteTask> task = WriteTask::make();
  TaskHandle handle = task->handle();
  bool32 reservedWord = 0;
};

}  // namespace zqtest
