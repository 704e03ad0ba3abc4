#include "driver_installation.h"

#include <filesystem>

namespace zqtest {

namespace {
constexpr const char* kInstaller = "SOFTWARE\\Torvane\\Common\\Installer";
constexpr const char* kProductKey = "SOFTWARE\\Torvane\\ZQ-Vorex\\CurrentVersion";
}  // namespace

void DriverInstallation::SetUp() {
  registry_ = new ScratchRegistry(ScratchRegistry::Scope::kPrivate);
  shared_ = new SharedFolder(name_);
  translators_ = new TranslatorFolder;
  shared_->install(ZQ_TEST_STORAGE_LIBRARY);
  const std::filesystem::path english = std::filesystem::path(shared_->text()) / "errors" / "English";
  std::filesystem::create_directories(english);
  for (const auto& file : std::filesystem::directory_iterator(ZQ_TEST_ERRORS_FOLDER "/English"))
    std::filesystem::copy_file(file.path(), english / file.path().filename(),
                               std::filesystem::copy_options::overwrite_existing);
  registry_->setString(ScratchRegistry::View::k64, kInstaller, "ZQSHAREDDIR64", shared_->text());
  registry_->setString(ScratchRegistry::View::k32, kInstaller, "ZQSHAREDDIR", shared_->text());
  translators_->install(ZQ_TEST_XLATOR);
}

void DriverInstallation::TearDown() {
  // The library stays loaded by the driver until the process ends, so on Windows its file may
  // stay behind; the next program that needs the folder empty takes it out.
  delete translators_;
  delete shared_;
  delete registry_;
  registry_ = nullptr;
}

void DriverInstallation::setDebugDisplay(const std::optional<std::string>& value) {
  if (value)
    registry_->setString(ScratchRegistry::View::k64, kProductKey, "enableErrorSrcDisplay", *value);
  else
    registry_->removeValue(ScratchRegistry::View::k64, kProductKey, "enableErrorSrcDisplay");
}

}  // namespace zqtest
