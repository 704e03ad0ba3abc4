#include "installation.h"

#include <fstream>

namespace zqtest {

namespace {

std::string utf8(const std::filesystem::path& path) {
  std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

}  // namespace

ExplanationFolders::ExplanationFolders(const std::string& name)
    : root_(std::filesystem::temp_directory_path() / ("zqcai-errors-" + name)) {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
  std::filesystem::create_directories(root_ / "errors", ignored);
  registry_.setString(ScratchRegistry::View::k32, "SOFTWARE\\Torvane\\Common\\Installer", "ZQSHAREDDIR", utf8(root_));
}

ExplanationFolders::~ExplanationFolders() {
  std::error_code ignored;
  std::filesystem::remove_all(root_, ignored);
}

void ExplanationFolders::write(const std::string& relative, const std::string& content) const {
  std::filesystem::path file = root_ / "errors" / std::filesystem::path(relative);
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  out << content;
}

void ExplanationFolders::copyFolder(const std::string& folder, const std::string& relative) const {
  std::filesystem::path target = root_ / "errors" / std::filesystem::path(relative);
  std::filesystem::create_directories(target);
  for (const auto& file : std::filesystem::directory_iterator(folder))
    std::filesystem::copy_file(file.path(), target / file.path().filename(),
                               std::filesystem::copy_options::overwrite_existing);
}

std::string ExplanationFolders::base() const { return utf8(root_) + "\\errors"; }

std::string explanationFile(const std::string& entries) {
  return "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n<zqdocument>\n" + entries + "</zqdocument>\n";
}

std::string entry(long code, const std::string& text) {
  return "<zqerror code=\"" + std::to_string(code) + "\">\n" + text + "\n</zqerror>\n";
}

}  // namespace zqtest
