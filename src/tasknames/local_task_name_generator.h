// Task names counted inside this process: what a system without the task catalog uses, with
// names unique within the process only.
#pragma once

#include <atomic>

#include "tasknames/task_name_generator.h"

namespace zqvorexRedir {

class LocalTaskNameGenerator final : public ITaskNameGenerator {
 public:
  LocalTaskNameGenerator() = default;
  LocalTaskNameGenerator(const LocalTaskNameGenerator&) = delete;
  LocalTaskNameGenerator& operator=(const LocalTaskNameGenerator&) = delete;

  // The counter's value before it advances by one; the first is 0.
  uint64_t generateTaskNumber(zqerr_Status* status) override;
  // "_unnamedTask<N>", N the number in upper-case hexadecimal.
  std::string generateTaskName(zqerr_Status* status) override;

 private:
  std::atomic<uint64_t> counter_{0};
};

}  // namespace zqvorexRedir
