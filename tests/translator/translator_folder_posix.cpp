#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "installation.h"

namespace zqtest {

struct TranslatorFolder::State {
  std::filesystem::path folder;
  std::optional<std::string> oldValue;
};

TranslatorFolder::TranslatorFolder() : state_(new State) {
  static int serial = 0;
  state_->folder = std::filesystem::temp_directory_path() /
                   ("zqcai-system-" + std::to_string(getpid()) + "-" + std::to_string(++serial));
  std::filesystem::create_directories(state_->folder);
  if (const char* old = std::getenv("ZQCAI_SYSTEM_FOLDER")) state_->oldValue = old;
  setenv("ZQCAI_SYSTEM_FOLDER", state_->folder.c_str(), 1);
}

TranslatorFolder::~TranslatorFolder() {
  if (state_->oldValue) setenv("ZQCAI_SYSTEM_FOLDER", state_->oldValue->c_str(), 1);
  else unsetenv("ZQCAI_SYSTEM_FOLDER");
  std::error_code ignored;
  std::filesystem::remove_all(state_->folder, ignored);
  delete state_;
}

void TranslatorFolder::install(const char* builtFile) {
  std::filesystem::path from(builtFile);
  std::filesystem::copy_file(from, state_->folder / ("zqxlator" + from.extension().string()),
                             std::filesystem::copy_options::overwrite_existing);
}

bool TranslatorFolder::clear() {
  std::error_code ignored;
  for (const auto& file : std::filesystem::directory_iterator(state_->folder, ignored))
    std::filesystem::remove(file.path(), ignored);
  return std::filesystem::is_empty(state_->folder, ignored);
}

}  // namespace zqtest
