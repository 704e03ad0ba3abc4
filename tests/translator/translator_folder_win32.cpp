#include <windows.h>

#include <filesystem>
#include <string>

#include "installation.h"

namespace zqtest {

namespace {
constexpr const wchar_t* kLibraryFile = L"zqxlator.dll";
}  // namespace

struct TranslatorFolder::State {
  std::filesystem::path folder;
};

TranslatorFolder::TranslatorFolder() : state_(new State) {
  wchar_t buffer[MAX_PATH];
  UINT n = GetSystemDirectoryW(buffer, MAX_PATH);
  state_->folder = std::wstring(buffer, n);
}

TranslatorFolder::~TranslatorFolder() {
  clear();
  delete state_;
}

void TranslatorFolder::install(const char* builtFile) {
  std::filesystem::copy_file(std::filesystem::path(builtFile), state_->folder / kLibraryFile,
                             std::filesystem::copy_options::overwrite_existing);
}

bool TranslatorFolder::clear() {
  std::error_code ignored;
  std::filesystem::remove(state_->folder / kLibraryFile, ignored);
  return !std::filesystem::exists(state_->folder / kLibraryFile, ignored);
}

}  // namespace zqtest
