#include <windows.h>

#include "platform/platform.h"

namespace zqplatform {

namespace {
HKEY native(RegistryKey key) { return reinterpret_cast<HKEY>(key); }
}  // namespace

uint32_t regOpenKey(RegistryKey parent, const char16_t* subKey, uint32_t access, RegistryKey* key) {
  HKEY opened = nullptr;
  LSTATUS result = RegOpenKeyExW(native(parent), reinterpret_cast<const wchar_t*>(subKey), 0, access, &opened);
  *key = result == ERROR_SUCCESS ? reinterpret_cast<RegistryKey>(opened) : 0;
  return static_cast<uint32_t>(result);
}

uint32_t regQueryValue(RegistryKey key, const char16_t* valueName, uint32_t* type, void* data, uint32_t* size) {
  DWORD nativeType = 0;
  DWORD nativeSize = size ? *size : 0;
  LSTATUS result = RegQueryValueExW(native(key), reinterpret_cast<const wchar_t*>(valueName), nullptr,
                                    type ? &nativeType : nullptr, static_cast<BYTE*>(data),
                                    size ? &nativeSize : nullptr);
  if (type) *type = nativeType;
  if (size) *size = nativeSize;
  return static_cast<uint32_t>(result);
}

uint32_t regQueryValueNarrow(RegistryKey key, const char* valueName, uint32_t* type, void* data, uint32_t* size) {
  DWORD nativeType = 0;
  DWORD nativeSize = size ? *size : 0;
  LSTATUS result = RegQueryValueExA(native(key), valueName, nullptr, type ? &nativeType : nullptr,
                                    static_cast<BYTE*>(data), size ? &nativeSize : nullptr);
  if (type) *type = nativeType;
  if (size) *size = nativeSize;
  return static_cast<uint32_t>(result);
}

uint32_t regCloseKey(RegistryKey key) { return static_cast<uint32_t>(RegCloseKey(native(key))); }

}  // namespace zqplatform
