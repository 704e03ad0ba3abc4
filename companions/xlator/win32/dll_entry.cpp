// The translator library's own entry point. It links parts of the driver's core, and without
// an entry of its own the linker would take the driver's, which sets up the driver's process
// state a second time in a library that has none.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) { return TRUE; }
