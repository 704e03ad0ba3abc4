#include "fresh_root.h"

namespace zqtest {

SharedFolder::SharedFolder(const std::string& name)
    : root_(std::filesystem::temp_directory_path() / ("zqcai-root-" + name)) {
  std::error_code ignored;
  std::filesystem::create_directories(root_ / "qxef", ignored);
}

SharedFolder::~SharedFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

std::string SharedFolder::text() const {
  std::u8string utf8 = root_.u8string();
  return std::string(utf8.begin(), utf8.end());
}

void SharedFolder::install(const char* builtFile) const {
  std::filesystem::path from(builtFile);
  std::filesystem::copy_file(from, root_ / "qxef" / from.filename(),
                             std::filesystem::copy_options::overwrite_existing);
}

void SharedFolder::clear() const {
  std::error_code ignored;
  std::filesystem::remove_all(root_ / "qxef", ignored);
  std::filesystem::create_directories(root_ / "qxef", ignored);
}

}  // namespace zqtest
