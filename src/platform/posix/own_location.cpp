#include "own_location.h"

#include <dlfcn.h>
#include <limits.h>
#include <unistd.h>

namespace zqplatform::posix {

namespace {

std::string directoryOf(const std::string& path) {
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

}  // namespace

std::string executableDirectory() {
  char buffer[PATH_MAX];
  ssize_t n = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
  return n > 0 ? directoryOf(std::string(buffer, static_cast<size_t>(n))) : std::string();
}

std::string ownDirectory() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&ownDirectory), &info) || !info.dli_fname) return {};
  return directoryOf(info.dli_fname);
}

}  // namespace zqplatform::posix
