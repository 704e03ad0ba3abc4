// What the tests of the shared services need: a process of their own for each scenario, since
// a built record stays for the life of the process, and an installation to find libraries in.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "scratch_registry.h"

namespace zqtest {

// Runs `scenario` in a new process; the test fails if any check inside it failed.
template <class Scenario>
void inFreshProcess(Scenario scenario) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        scenario();
        std::fflush(nullptr);
        std::_Exit(testing::Test::HasFailure() ? 1 : 0);
      },
      testing::ExitedWithCode(0), "");
}

// A shared folder with its library folder "qxef", named after the test: made by the test's
// body (and made again, alike, by the child process that re-runs the body), removed when the
// parent's body ends.
class SharedFolder {
 public:
  explicit SharedFolder(const std::string& name);
  ~SharedFolder();
  SharedFolder(const SharedFolder&) = delete;
  SharedFolder& operator=(const SharedFolder&) = delete;

  // The folder as the registry value holds it, UTF-8.
  std::string text() const;
  // Copies a built library into the library folder.
  void install(const char* builtFile) const;
  // Empties the library folder.
  void clear() const;

 private:
  std::filesystem::path root_;
};

// The installation's registry: ZQSHAREDDIR64 names `folder`, or is absent.
class Installation {
 public:
  Installation() : registry_(ScratchRegistry::Scope::kPrivate) {}
  explicit Installation(const std::string& folder) : Installation() {
    registry_.setString(ScratchRegistry::View::k64, "SOFTWARE\\Torvane\\Common\\Installer", "ZQSHAREDDIR64", folder);
  }

 private:
  ScratchRegistry registry_;
};

}  // namespace zqtest
