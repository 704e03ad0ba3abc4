// The entry point of the DLL. Only the DLL links this file.
#include <windows.h>

#include "platform/library_entry.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
  switch (reason) {
    case DLL_PROCESS_ATTACH: return zqentry::processAttach(module) ? TRUE : FALSE;
    case DLL_PROCESS_DETACH: zqentry::processDetach(); break;
    case DLL_THREAD_DETACH: zqentry::threadDetach(); break;
    default: break;
  }
  return TRUE;
}
