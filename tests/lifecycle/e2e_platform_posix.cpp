#include <dlfcn.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "e2e_platform.h"

namespace zqe2e {

void* librarySymbol(const std::string& path, const char* name) {
  void* library = dlopen(path.c_str(), RTLD_NOW);
  return library ? dlsym(library, name) : nullptr;
}

// Synchronous callbacks run on the library's delivery thread: there is nothing to pump.
void pumpMessages() {}
bool hasDeliveryThread() { return true; }
uint32_t threadId() { return static_cast<uint32_t>(syscall(SYS_gettid)); }

}  // namespace zqe2e
