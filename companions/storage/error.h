// Failures inside the storage library: a code with the name its site writes, the site, and a
// sentence for the report. Inner code throws StorageError; the exported functions turn it
// into the caller's status (see guard.h), so nothing is thrown across the C boundary.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "zqvorex_status_codes.h"

namespace zqstorage {

struct ErrorConstant {
  int32_t code;
  const char* name;  // the report's "error_constant"
};

// The code of each from the shared status table, with the name its sites write.
#define ZQS_CONSTANT(name) ErrorConstant{name, #name}
inline constexpr ErrorConstant kBadPointer = ZQS_CONSTANT(zqpalerr_badPointer);
inline constexpr ErrorConstant kSoftwareFault = ZQS_CONSTANT(zqpalerr_softwareFault);
inline constexpr ErrorConstant kMemoryFull = ZQS_CONSTANT(zqapalerr_memoryFull);
inline constexpr ErrorConstant kFeatureUnsupported = ZQS_CONSTANT(zqapalerr_featureUnsupported);
inline constexpr ErrorConstant kInvalidParameter = ZQS_CONSTANT(zqapalerr_invalidParameter);
inline constexpr ErrorConstant kResourceNotFound = ZQS_CONSTANT(zqapalerr_resourceNotFound);
inline constexpr ErrorConstant kOsFault = ZQS_CONSTANT(zqapalerr_osFault);
inline constexpr ErrorConstant kDuplicateTask = ZQS_CONSTANT(nZQMSTS::kErrorDuplicateTask);
inline constexpr ErrorConstant kInvalidDeviceID = ZQS_CONSTANT(nZQMSTS::kErrorInvalidDeviceID);
inline constexpr ErrorConstant kTaskNotFound = ZQS_CONSTANT(nZQMSTS::kErrorTaskNotInDataNeighborhood);
inline constexpr ErrorConstant kChannelNotFound = ZQS_CONSTANT(nZQMSTS100::kErrorVirtualChanDoesNotExist);
inline constexpr ErrorConstant kObjectNotFound = ZQS_CONSTANT(zqvorexStorage_errorObjectNotFound);
inline constexpr ErrorConstant kPropertyNotFound = ZQS_CONSTANT(zqvorexStorage_errorPropertyNotFound);
#undef ZQS_CONSTANT

// Where an error was raised: the source file's base name and the line.
struct Site {
  const char* file;
  uint32_t line;
};

constexpr const char* baseName(const char* path) {
  const char* name = path;
  for (const char* p = path; *p; ++p) {
    if (*p == '/' || *p == '\\') name = p + 1;
  }
  return name;
}

#define ZQS_HERE (::zqstorage::Site{::zqstorage::baseName(__FILE__), static_cast<uint32_t>(__LINE__)})

class StorageError : public std::runtime_error {
 public:
  StorageError(ErrorConstant constant, Site site, std::string detail)
      : std::runtime_error(detail), constant_(constant), site_(site) {}
  ErrorConstant constant() const { return constant_; }
  Site site() const { return site_; }
  // Extra members of the report's debug object, as ready JSON text (",\"key\":value..."), or "".
  const std::string& extra() const { return extra_; }
  StorageError& with(const char* key, const std::string& value);

 private:
  ErrorConstant constant_;
  Site site_;
  std::string extra_;
};

[[noreturn]] void fail(ErrorConstant constant, Site site, std::string detail);

}  // namespace zqstorage
