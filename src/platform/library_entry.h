// The operating system's notifications to this library, and the library's answers to them.
// The backends own the entry point (DllMain on Windows, load and unload hooks and a thread-end
// hook on Linux) and call the zqentry functions, which the code above this layer defines.
#pragma once

namespace zqentry {

// Process attach: `module` is this library's module handle. False refuses the load.
bool processAttach(void* module) noexcept;
// Process detach, at unload or process end.
void processDetach() noexcept;
// The end of a thread that used this library.
void threadDetach() noexcept;

// The module handle given at attach; null before and after.
void* libraryModule() noexcept;
// The module that owns the event window class (the process's), registered at attach.
void* windowModule() noexcept;

}  // namespace zqentry

namespace zqplatform {

// Makes sure that the calling thread's end reaches zqentry::threadDetach: needed where the
// system tells a library of no thread's end (Linux); Windows tells every thread's end.
void watchThreadExit() noexcept;

}  // namespace zqplatform
