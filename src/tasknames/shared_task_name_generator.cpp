#include "tasknames/shared_task_name_generator.h"

#include "boundary/string_adapter.h"
#include "status/exceptions.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

SharedTaskNameGenerator::SharedTaskNameGenerator(
    std::shared_ptr<zqvorexTaskCatalogCpp::NameGenerator> nameGenerator)
    : nameGenerator_(std::move(nameGenerator)) {}

uint64_t SharedTaskNameGenerator::generateTaskNumber(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  if (!nameGenerator_) {
    ZQ_FAIL(status, kSharedtasknamegeneratorBadPointer);
    return 0;
  }
  return nameGenerator_->generateTaskNumber(status);
}

std::string SharedTaskNameGenerator::generateTaskName(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return {};
  if (!nameGenerator_) {
    ZQ_FAIL(status, kSharedtasknamegeneratorBadPointer27);
    return {};
  }
  try {
    std::string name;
    zqgopher::StringAdapter adapter(name);
    nameGenerator_->generateTaskName(adapter.boundary(), status);
    if (!zqerr::isOpen(status)) return {};
    return name;
  } catch (...) {
    zqerr::convertCurrentException(status);
    return {};
  }
}

}  // namespace zqvorexRedir
