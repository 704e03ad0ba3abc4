#include <windows.h>

#include <cstring>

#include "platform/platform.h"

namespace zqplatform {

LibraryHandle loadLibrary(const char16_t* path, uint32_t flags) {
  return LoadLibraryExW(reinterpret_cast<const wchar_t*>(path), nullptr, flags);
}

LibraryHandle loadLibrary(const char* path, uint32_t flags) { return LoadLibraryExA(path, nullptr, flags); }

void* findSymbol(LibraryHandle library, const char* name) {
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

bool freeLibrary(LibraryHandle library) { return FreeLibrary(static_cast<HMODULE>(library)) != FALSE; }

size_t systemErrorText(uint32_t code, char* buffer, size_t size) {
  char* text = nullptr;
  DWORD n = FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                           nullptr, code, 0x400, reinterpret_cast<LPSTR>(&text), 0, nullptr);
  if (n == 0 || !text) return 0;
  while (n > 0 && (text[n - 1] == '\n' || text[n - 1] == '\r')) --n;
  size_t copied = n < size ? n : (size ? size - 1 : 0);
  if (size) {
    std::memcpy(buffer, text, copied);
    buffer[copied] = '\0';
  }
  LocalFree(text);
  return copied;
}

}  // namespace zqplatform
