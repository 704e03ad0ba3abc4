#include "test_installation.h"

#include <cstdlib>
#include <filesystem>
#include <list>

namespace zqtest {

namespace {

void setVariable(const std::string& name, const std::string& value) {
  static std::list<std::string> texts;  // putenv keeps the text itself
  texts.push_back(name + "=" + value);
  putenv(texts.back().data());
}

}  // namespace

TestInstallation::TestInstallation(const std::string& name, std::initializer_list<const char*> libraries)
    : folder_(name), registry_(ScratchRegistry::Scope::kPrivate) {
  registry_.setString(ScratchRegistry::View::k64, "SOFTWARE\\Torvane\\Common\\Installer", "ZQSHAREDDIR64",
                      folder_.text());
  for (const char* library : libraries) folder_.install(library);
  store_ = (std::filesystem::path(folder_.text()) / "store.db").string();
  std::error_code ignored;  // a run that was cut off may have left its store behind
  for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(store_ + suffix, ignored);
  setVariable("ZQCAI_STORAGE_FILE", store_);
}

int TestInstallation::storage(const std::string& toolPath, const std::string& arguments) const {
  const std::string command = toolPath + " --store " + store_ + " " + arguments;
  const int raw = std::system(command.c_str());
  // A POSIX shell gives a wait status (the code in bits 8 to 15); Windows gives the code.
  return (raw & 0xFF) == 0 ? raw >> 8 : raw;
}

void TestInstallation::installExplanations(const std::string& errorsFolder) {
  registry_.setString(ScratchRegistry::View::k32, "SOFTWARE\\Torvane\\Common\\Installer", "ZQSHAREDDIR",
                      folder_.text());
  const std::filesystem::path errors = std::filesystem::path(folder_.text()) / "errors";
  std::filesystem::create_directories(errors);
  std::filesystem::copy(errorsFolder, errors,
                        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing);
}

std::string TestInstallation::library(const std::string& stem) const {
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(folder_.text()) / "qxef"))
    if (entry.path().stem().string() == stem) return entry.path().string();
  return "";
}

}  // namespace zqtest
