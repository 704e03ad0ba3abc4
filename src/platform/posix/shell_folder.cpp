// The system folder of Linux, where Windows has System32: the folder of this library itself,
// where an installation puts the libraries it binds from the system folder, unless
// ZQCAI_SYSTEM_FOLDER names another.
#include <cstdlib>
#include <string>

#include "own_location.h"
#include "platform/platform.h"

namespace zqplatform {

namespace {
constexpr int32_t kEInvalidArg = static_cast<int32_t>(0x80070057u);
constexpr int32_t kEFail = static_cast<int32_t>(0x80004005u);
constexpr int32_t kFilenameTooLong = static_cast<int32_t>(0x800700CEu);  // from ERROR_FILENAME_EXCED_RANGE
}  // namespace

int32_t shellFolderPath(int32_t csidl, char16_t* path) {
  if (csidl != kCsidlSystem || !path) return kEInvalidArg;
  const char* named = std::getenv("ZQCAI_SYSTEM_FOLDER");
  std::string own;
  if (!named || !*named) {
    own = posix::ownDirectory();
    if (own.size() > 1) own.pop_back();  // no trailing separator, as the shell gives it
  }
  const char* folder = named && *named ? named : own.c_str();
  int n = multiByteToWide(kCpUtf8, 0, folder, -1, nullptr, 0);
  if (n <= 0) return kEFail;
  if (static_cast<size_t>(n) > kMaxPath) return kFilenameTooLong;
  multiByteToWide(kCpUtf8, 0, folder, -1, path, n);
  return 0;
}

}  // namespace zqplatform
