#include "platform_paths.h"

#include <windows.h>

#include <string>
#include <vector>

namespace zqstorage {

namespace {

std::string toUtf8(const wchar_t* text, int length) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return "";
  std::string out(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, length, out.data(), size, nullptr, nullptr);
  return out;
}

}  // namespace

std::string environmentText(const char* name) {
  // The process environment, which the C runtime's putenv also updates.
  const std::wstring wideName(name, name + std::char_traits<char>::length(name));
  const DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
  if (size == 0) return "";
  std::vector<wchar_t> value(size);
  const DWORD length = GetEnvironmentVariableW(wideName.c_str(), value.data(), size);
  return length == 0 || length >= size ? "" : toUtf8(value.data(), static_cast<int>(length));
}

std::string moduleFolder() {
  HMODULE module = nullptr;
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                          reinterpret_cast<LPCWSTR>(&moduleFolder), &module)) {
    return "";
  }
  std::vector<wchar_t> path(32768);
  const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length >= path.size()) return "";
  std::string utf8 = toUtf8(path.data(), static_cast<int>(length));
  const size_t slash = utf8.find_last_of("\\/");
  return slash == std::string::npos ? "." : utf8.substr(0, slash);
}

}  // namespace zqstorage
