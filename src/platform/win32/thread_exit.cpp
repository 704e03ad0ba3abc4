#include "platform/library_entry.h"

namespace zqplatform {

// The DLL's entry point hears every thread's end.
void watchThreadExit() noexcept {}

}  // namespace zqplatform
