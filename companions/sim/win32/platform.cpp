#include "platform.h"

#include <windows.h>

#include <vector>

namespace zqsim::platform {

namespace {

std::string toUtf8(const wchar_t* text, int length) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, text, length, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return "";
  std::string out(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, length, out.data(), size, nullptr, nullptr);
  return out;
}

std::wstring toWide(const std::string& text) {
  const int size = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
  if (size <= 0) return L"";
  std::wstring out(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, out.data(), size);
  out.resize(static_cast<size_t>(size - 1));
  return out;
}

}  // namespace

std::string moduleFolder() {
  HMODULE module = nullptr;
  if (!GetModuleHandleExW(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          reinterpret_cast<LPCWSTR>(&moduleFolder), &module)) {
    return ".";
  }
  std::vector<wchar_t> path(32768);
  const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length >= path.size()) return ".";
  const std::string utf8 = toUtf8(path.data(), static_cast<int>(length));
  const size_t slash = utf8.find_last_of("\\/");
  return slash == std::string::npos ? "." : utf8.substr(0, slash);
}

void* loadLibrary(const std::string& folder, const char* stem) {
  const std::wstring path = toWide(folder + "\\" + stem + ".dll");
  return reinterpret_cast<void*>(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
}

void* findSymbol(void* library, const char* name) {
  if (!library) return nullptr;
  return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

std::string environmentText(const char* name) {
  const std::wstring wideName = toWide(name);
  const DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
  if (size == 0) return "";
  std::vector<wchar_t> value(size);
  const DWORD length = GetEnvironmentVariableW(wideName.c_str(), value.data(), size);
  return length == 0 || length >= size ? "" : toUtf8(value.data(), static_cast<int>(length));
}

}  // namespace zqsim::platform
