// The system folder of Linux: where the system's shared libraries live, unless
// ZQCAI_SYSTEM_FOLDER names another.
#include <cstdlib>

#include "platform/platform.h"

namespace zqplatform {

namespace {
constexpr int32_t kEInvalidArg = static_cast<int32_t>(0x80070057u);
constexpr int32_t kEFail = static_cast<int32_t>(0x80004005u);
constexpr int32_t kFilenameTooLong = static_cast<int32_t>(0x800700CEu);  // from ERROR_FILENAME_EXCED_RANGE
constexpr const char* kDefaultSystemFolder = "/usr/lib";
}  // namespace

int32_t shellFolderPath(int32_t csidl, char16_t* path) {
  if (csidl != kCsidlSystem || !path) return kEInvalidArg;
  const char* folder = std::getenv("ZQCAI_SYSTEM_FOLDER");
  if (!folder || !*folder) folder = kDefaultSystemFolder;
  int n = multiByteToWide(kCpUtf8, 0, folder, -1, nullptr, 0);
  if (n <= 0) return kEFail;
  if (static_cast<size_t>(n) > kMaxPath) return kFilenameTooLong;
  multiByteToWide(kCpUtf8, 0, folder, -1, path, n);
  return 0;
}

}  // namespace zqplatform
