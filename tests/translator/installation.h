// What the translation tests install: explanation files under a shared folder of the test's
// own, named by the registry as ZQSHAREDDIR, and a translator library in the system folder.
#pragma once

#include <filesystem>
#include <string>

#include "scratch_registry.h"

namespace zqtest {

// A shared folder with an "errors" folder that a test fills; the registry's ZQSHAREDDIR, in the
// 32-bit view as the library reads it, names it. Removed at the end.
class ExplanationFolders {
 public:
  explicit ExplanationFolders(const std::string& name);
  ~ExplanationFolders();
  ExplanationFolders(const ExplanationFolders&) = delete;
  ExplanationFolders& operator=(const ExplanationFolders&) = delete;

  // Writes `content` as it stands into errors/<relative>, making the folders on the way.
  void write(const std::string& relative, const std::string& content) const;
  // Copies every file of `folder` into errors/<relative>.
  void copyFolder(const std::string& folder, const std::string& relative) const;
  // The base of the search, as the library builds it: "<shared folder>\errors".
  std::string base() const;

 private:
  ScratchRegistry registry_{ScratchRegistry::Scope::kPrivate};
  std::filesystem::path root_;
};

// An explanation file around entries: the two header lines, the entries, the end.
std::string explanationFile(const std::string& entries);
std::string entry(long code, const std::string& text);

// The folder the translator library is loaded from. On Linux one of the test's own, named by
// ZQCAI_SYSTEM_FOLDER; on Windows the system's own, so a test there installs into it and
// takes out again what it put there.
class TranslatorFolder {
 public:
  TranslatorFolder();
  ~TranslatorFolder();
  TranslatorFolder(const TranslatorFolder&) = delete;
  TranslatorFolder& operator=(const TranslatorFolder&) = delete;

  // Copies a built library into the folder as the translator library, "zqxlator" with the
  // built file's extension.
  void install(const char* builtFile);
  // Takes the translator library out; false when one stays there.
  bool clear();

 private:
  struct State;
  State* state_;
};

}  // namespace zqtest
