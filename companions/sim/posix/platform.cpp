#include "platform.h"

#include <dlfcn.h>

#include <cstdlib>

namespace zqsim::platform {

std::string moduleFolder() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&moduleFolder), &info) == 0 || info.dli_fname == nullptr) return ".";
  const std::string path = info.dli_fname;
  const size_t slash = path.find_last_of('/');
  return slash == std::string::npos ? "." : path.substr(0, slash);
}

void* loadLibrary(const std::string& folder, const char* stem) {
  const std::string path = folder + "/" + stem + ".so";
  return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void* findSymbol(void* library, const char* name) { return library ? dlsym(library, name) : nullptr; }

std::string environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

}  // namespace zqsim::platform
