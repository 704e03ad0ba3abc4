#include "platform_paths.h"

#include <dlfcn.h>

#include <cstdlib>

namespace zqstorage {

std::string environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string moduleFolder() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&moduleFolder), &info) == 0 || info.dli_fname == nullptr) return "";
  std::string path = info.dli_fname;
  const size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? "." : path.substr(0, slash);
}

}  // namespace zqstorage
