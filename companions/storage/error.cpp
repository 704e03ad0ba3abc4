#include "error.h"

#include "status_report.h"

namespace zqstorage {

StorageError& StorageError::with(const char* key, const std::string& value) {
  extra_ += ',';
  appendJsonString(extra_, key);
  extra_ += ':';
  appendJsonString(extra_, value);
  return *this;
}

void fail(ErrorConstant constant, Site site, std::string detail) {
  throw StorageError(constant, site, std::move(detail));
}

}  // namespace zqstorage
