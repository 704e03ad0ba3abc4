// An installation of the driver for the error text tests, made once for the test program: a
// shared folder with the storage library in "qxef" and the build's English explanation files
// in "errors\English", named by the registry for both views, and the translator library zqxlator
// in the system folder.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

#include "fresh_root.h"
#include "installation.h"
#include "scratch_registry.h"

namespace zqtest {

class DriverInstallation : public testing::Environment {
 public:
  // `name` keeps the shared folders of programs that run side by side apart.
  explicit DriverInstallation(std::string name) : name_(std::move(name)) {}
  void SetUp() override;
  void TearDown() override;

  // "enableErrorSrcDisplay" with this value, or no such value.
  static void setDebugDisplay(const std::optional<std::string>& value);

 private:
  std::string name_;
  static inline ScratchRegistry* registry_ = nullptr;
  SharedFolder* shared_ = nullptr;
  TranslatorFolder* translators_ = nullptr;
};

}  // namespace zqtest
