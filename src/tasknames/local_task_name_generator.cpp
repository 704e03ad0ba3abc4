#include "tasknames/local_task_name_generator.h"

#include <cstdio>

#include "status/exceptions.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

uint64_t LocalTaskNameGenerator::generateTaskNumber(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  return counter_.fetch_add(1);
}

std::string LocalTaskNameGenerator::generateTaskName(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return {};
  try {
    const uint64_t number = generateTaskNumber(status);
    char buffer[64];
    const int length =
        std::snprintf(buffer, sizeof buffer, "_unnamedTask<%llX>", static_cast<unsigned long long>(number));
    if (length < 0 || length >= static_cast<int>(sizeof buffer)) {
      ZQ_FAIL(status, kLocaltasknamegeneratorOsFault);
      return {};
    }
    return std::string(buffer, static_cast<size_t>(length));
  } catch (...) {
    zqerr::convertCurrentException(status);
    return {};
  }
}

}  // namespace zqvorexRedir
