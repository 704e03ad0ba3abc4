#include <windows.h>

#include "platform/platform.h"

namespace zqplatform {

TlsIndex tlsAlloc() { return TlsAlloc(); }
bool tlsFree(TlsIndex index) { return TlsFree(index) != FALSE; }
void* tlsGetValue(TlsIndex index) { return TlsGetValue(index); }
bool tlsSetValue(TlsIndex index, void* value) { return TlsSetValue(index, value) != FALSE; }
uint32_t currentThreadId() { return GetCurrentThreadId(); }
void sleepMs(uint32_t milliseconds) { Sleep(milliseconds); }
uint32_t lastError() { return GetLastError(); }
void setLastError(uint32_t code) { SetLastError(code); }

}  // namespace zqplatform
