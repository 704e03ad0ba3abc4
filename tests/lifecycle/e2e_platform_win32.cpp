#include <windows.h>

#include "e2e_platform.h"

namespace zqe2e {

void* librarySymbol(const std::string& path, const char* name) {
  HMODULE library = LoadLibraryA(path.c_str());
  return library ? reinterpret_cast<void*>(GetProcAddress(library, name)) : nullptr;
}

// The registering thread's message loop, where synchronous callbacks run. A plug-in thread may
// post faster than callbacks run, so the queue need never empty: one call handles a batch and
// returns, and the waiter looks at its goal and its hang guard between batches.
void pumpMessages() {
  constexpr int kBatch = 256;
  MSG message;
  for (int handled = 0; handled < kBatch && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE); ++handled) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

bool hasDeliveryThread() { return false; }
uint32_t threadId() { return GetCurrentThreadId(); }

}  // namespace zqe2e
