// Names for tasks that the application created without one.
#pragma once

#include <cstdint>
#include <string>

#include "status/status.h"

namespace zqvorexRedir {

class ITaskNameGenerator {
 public:
  virtual ~ITaskNameGenerator() = default;
  // 0 when `status` holds an error on entry.
  virtual uint64_t generateTaskNumber(zqerr_Status* status) = 0;
  // Empty when `status` holds an error on entry or on return.
  virtual std::string generateTaskName(zqerr_Status* status) = 0;
};

}  // namespace zqvorexRedir
