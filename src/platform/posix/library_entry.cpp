// The load and unload hooks of the shared library. Only the shared library links this file.
#include <dlfcn.h>

#include "platform/library_entry.h"

namespace {

void* ownBase() {
  Dl_info info{};
  return dladdr(reinterpret_cast<void*>(&ownBase), &info) ? info.dli_fbase : nullptr;
}

__attribute__((constructor)) void onLoad() { zqentry::processAttach(ownBase()); }

__attribute__((destructor)) void onUnload() { zqentry::processDetach(); }

}  // namespace
