// A registry that a test fills and the code under test reads: on Windows the real registry,
// on Linux a .reg file of the test's own named by ZQCAI_REGISTRY_FILE. Texts are UTF-8; key
// paths are given without the hive, which is always HKEY_LOCAL_MACHINE.
#pragma once

#include <memory>
#include <string>

namespace zqtest {

class ScratchRegistry {
 public:
  enum class Scope {
    kPrivate,  // HKEY_LOCAL_MACHINE, as this process sees it, is this object's alone
    kMachine,  // the machine's own HKEY_LOCAL_MACHINE; keys go below root()
  };
  enum class View { k64, k32 };

  explicit ScratchRegistry(Scope scope);
  ~ScratchRegistry();
  ScratchRegistry(const ScratchRegistry&) = delete;
  ScratchRegistry& operator=(const ScratchRegistry&) = delete;

  // A key of this process's own under SOFTWARE, removed again at the end.
  const std::string& root() const;
  // A string value (REG_SZ), written as a program of `view` writes it.
  void setString(View view, const std::string& keyPath, const std::string& name, const std::string& value);

  // Takes a value out again, as a program of `view` sees it.
  void removeValue(View view, const std::string& keyPath, const std::string& name);

  // Makes the shell's system folder one that the platform lets a test choose, and returns it
  // (UTF-8, without a trailing separator); else returns the system's own.
  std::string chooseSystemFolder();
  // Makes the system folder query fail where the platform lets a test do that; false if not.
  bool breakSystemFolder();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zqtest
