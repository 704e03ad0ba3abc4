#include <windows.h>

#include "e2e_platform.h"

namespace zqe2e {

void* librarySymbol(const std::string& path, const char* name) {
  HMODULE library = LoadLibraryA(path.c_str());
  return library ? reinterpret_cast<void*>(GetProcAddress(library, name)) : nullptr;
}

// The registering thread's message loop, where synchronous callbacks run.
void pumpMessages() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

bool hasDeliveryThread() { return false; }
uint32_t threadId() { return GetCurrentThreadId(); }

}  // namespace zqe2e
