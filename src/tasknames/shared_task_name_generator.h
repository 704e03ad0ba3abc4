// Task names from the task catalog library, whose numbering all processes of the machine
// share.
#pragma once

#include <memory>

#include "storage/name_generator.h"
#include "tasknames/task_name_generator.h"

namespace zqvorexRedir {

class SharedTaskNameGenerator final : public ITaskNameGenerator {
 public:
  explicit SharedTaskNameGenerator(std::shared_ptr<zqvorexTaskCatalogCpp::NameGenerator> nameGenerator);
  SharedTaskNameGenerator(const SharedTaskNameGenerator&) = delete;
  SharedTaskNameGenerator& operator=(const SharedTaskNameGenerator&) = delete;

  uint64_t generateTaskNumber(zqerr_Status* status) override;
  std::string generateTaskName(zqerr_Status* status) override;

 private:
  std::shared_ptr<zqvorexTaskCatalogCpp::NameGenerator> nameGenerator_;
};

}  // namespace zqvorexRedir
