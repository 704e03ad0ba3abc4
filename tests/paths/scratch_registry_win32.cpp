#include <windows.h>

#include <vector>

#include "scratch_registry.h"

namespace zqtest {

namespace {

std::wstring wide(const std::string& utf8) {
  int n = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring out(static_cast<size_t>(n), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), out.data(), n);
  return out;
}

std::string narrow(const std::wstring& text) {
  int n = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
  std::string out(static_cast<size_t>(n), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), n, nullptr, nullptr);
  return out;
}

}  // namespace

struct ScratchRegistry::State {
  Scope scope;
  std::string root;
  std::wstring privateKey;  // under HKEY_CURRENT_USER: what HKEY_LOCAL_MACHINE stands for
  HKEY privateHandle = nullptr;
};

ScratchRegistry::ScratchRegistry(Scope scope) : state_(std::make_unique<State>()) {
  std::string stem = "zqcai-test-" + std::to_string(GetCurrentProcessId());
  state_->scope = scope;
  state_->root = "SOFTWARE\\" + stem;
  if (scope != Scope::kPrivate) return;
  // Redirects HKEY_LOCAL_MACHINE of this process alone, so parallel runs never meet.
  state_->privateKey = L"Software\\" + wide(stem) + L"-machine";
  RegDeleteTreeW(HKEY_CURRENT_USER, state_->privateKey.c_str());
  RegCreateKeyExW(HKEY_CURRENT_USER, state_->privateKey.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                  &state_->privateHandle, nullptr);
  RegOverridePredefKey(HKEY_LOCAL_MACHINE, state_->privateHandle);
}

ScratchRegistry::~ScratchRegistry() {
  if (state_->scope == Scope::kPrivate) {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegCloseKey(state_->privateHandle);
    RegDeleteTreeW(HKEY_CURRENT_USER, state_->privateKey.c_str());
    RegDeleteKeyW(HKEY_CURRENT_USER, state_->privateKey.c_str());
    return;
  }
  std::wstring stem = wide(state_->root.substr(9));
  for (const wchar_t* parent : {L"SOFTWARE", L"SOFTWARE\\WOW6432Node"}) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, parent, 0, KEY_ALL_ACCESS | KEY_WOW64_64KEY, &key) != ERROR_SUCCESS) continue;
    RegDeleteTreeW(key, stem.c_str());
    RegDeleteKeyW(key, stem.c_str());
    RegCloseKey(key);
  }
}

const std::string& ScratchRegistry::root() const { return state_->root; }

void ScratchRegistry::setString(View view, const std::string& keyPath, const std::string& name,
                                const std::string& value) {
  REGSAM sam = KEY_SET_VALUE | (view == View::k32 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY);
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, wide(keyPath).c_str(), 0, nullptr, 0, sam, nullptr, &key, nullptr) !=
      ERROR_SUCCESS)
    return;
  std::wstring data = wide(value);
  RegSetValueExW(key, wide(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                 static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(key);
}

void ScratchRegistry::removeValue(View view, const std::string& keyPath, const std::string& name) {
  REGSAM sam = KEY_SET_VALUE | (view == View::k32 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY);
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, wide(keyPath).c_str(), 0, sam, &key) != ERROR_SUCCESS) return;
  RegDeleteValueW(key, wide(name).c_str());
  RegCloseKey(key);
}

std::string ScratchRegistry::chooseSystemFolder() {
  std::vector<wchar_t> buffer(MAX_PATH);
  UINT n = GetSystemDirectoryW(buffer.data(), MAX_PATH);
  return narrow(std::wstring(buffer.data(), n));
}

bool ScratchRegistry::breakSystemFolder() { return false; }

}  // namespace zqtest
