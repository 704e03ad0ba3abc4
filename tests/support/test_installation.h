// An installation of the library for test programs that use only its public interface: a
// shared folder whose library folder "qxef" holds the bound libraries, the registry that names
// it, and a store of the program's own, filled with the zqstorage tool.
#pragma once

#include <initializer_list>
#include <string>

#include "../globals/fresh_root.h"
#include "../paths/scratch_registry.h"

namespace zqtest {

class TestInstallation {
 public:
  // `libraries`: paths of built libraries to put into the library folder.
  TestInstallation(const std::string& name, std::initializer_list<const char*> libraries);
  TestInstallation(const TestInstallation&) = delete;
  TestInstallation& operator=(const TestInstallation&) = delete;

  // Runs the zqstorage tool (`toolPath`) on the program's store; its exit code.
  int storage(const std::string& toolPath, const std::string& arguments) const;
  // A library of the library folder by its file stem, as the driver loads it.
  std::string library(const std::string& stem) const;
  // The build's explanation files (the folder that holds English/) as the shared folder's
  // errors/, which the registry names as the 32-bit shared folder.
  void installExplanations(const std::string& errorsFolder);

 private:
  SharedFolder folder_;
  ScratchRegistry registry_;
  std::string store_;
};

}  // namespace zqtest
