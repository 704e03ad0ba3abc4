#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>

#include "scratch_registry.h"

namespace zqtest {

namespace {

std::optional<std::string> getEnv(const char* name) {
  const char* value = std::getenv(name);
  return value ? std::optional<std::string>(value) : std::nullopt;
}

void restoreEnv(const char* name, const std::optional<std::string>& value) {
  if (value) setenv(name, value->c_str(), 1);
  else unsetenv(name);
}

std::string quoted(const std::string& text) {
  std::string out = "\"";
  for (char c : text) {
    if (c == '\\' || c == '"') out += '\\';
    out += c;
  }
  return out + "\"";
}

}  // namespace

struct ScratchRegistry::State {
  std::filesystem::path file;
  std::string root;
  std::map<std::string, std::map<std::string, std::string>> keys;  // section -> name -> value
  std::optional<std::string> oldRegistryFile = getEnv("ZQCAI_REGISTRY_FILE");
  std::optional<std::string> oldSystemFolder = getEnv("ZQCAI_SYSTEM_FOLDER");

  void write() const {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out << "Windows Registry Editor Version 5.00\r\n";
    for (const auto& [section, values] : keys) {
      out << "\r\n[" << section << "]\r\n";
      for (const auto& [name, value] : values) out << quoted(name) << "=" << quoted(value) << "\r\n";
    }
  }
};

ScratchRegistry::ScratchRegistry(Scope) : state_(std::make_unique<State>()) {
  static int serial = 0;
  std::string stem = "zqcai-test-" + std::to_string(getpid());
  state_->root = "SOFTWARE\\" + stem;
  state_->file = std::filesystem::temp_directory_path() / (stem + "-" + std::to_string(++serial) + ".reg");
  state_->write();
  setenv("ZQCAI_REGISTRY_FILE", state_->file.c_str(), 1);
}

ScratchRegistry::~ScratchRegistry() {
  restoreEnv("ZQCAI_REGISTRY_FILE", state_->oldRegistryFile);
  restoreEnv("ZQCAI_SYSTEM_FOLDER", state_->oldSystemFolder);
  std::error_code ignored;
  std::filesystem::remove(state_->file, ignored);
}

const std::string& ScratchRegistry::root() const { return state_->root; }

void ScratchRegistry::setString(View view, const std::string& keyPath, const std::string& name,
                                const std::string& value) {
  // A 64-bit Windows keeps the software keys of 32-bit programs here; an export shows them so.
  std::string path = keyPath;
  if (view == View::k32 && path.rfind("SOFTWARE\\", 0) == 0) path.insert(9, "WOW6432Node\\");
  state_->keys["HKEY_LOCAL_MACHINE\\" + path][name] = value;
  state_->write();
}

void ScratchRegistry::removeValue(View view, const std::string& keyPath, const std::string& name) {
  std::string path = keyPath;
  if (view == View::k32 && path.rfind("SOFTWARE\\", 0) == 0) path.insert(9, "WOW6432Node\\");
  state_->keys["HKEY_LOCAL_MACHINE\\" + path].erase(name);
  state_->write();
}

std::string ScratchRegistry::chooseSystemFolder() {
  std::string folder = "/opt/zq test/syst\xC3\xA8me";
  setenv("ZQCAI_SYSTEM_FOLDER", folder.c_str(), 1);
  return folder;
}

bool ScratchRegistry::breakSystemFolder() {
  setenv("ZQCAI_SYSTEM_FOLDER", ("/" + std::string(300, 'x')).c_str(), 1);
  return true;
}

}  // namespace zqtest
