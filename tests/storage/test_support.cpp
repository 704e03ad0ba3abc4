#include "test_support.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <list>

#include "status/report_reader.h"

namespace zqtest {

namespace {

std::string gProgramPath;

}  // namespace

void setEnvironment(const std::string& name, const std::string& value) {
  // putenv keeps the text itself, so it must live on.
  static std::list<std::string> texts;
  texts.push_back(name + "=" + value);
  putenv(texts.back().data());
}

std::string useFreshStore(const std::string& name) {
  std::filesystem::create_directories("storage_tmp");
  const std::string path = "storage_tmp/" + name + ".db";
  for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path + suffix);
  setEnvironment("ZQCAI_STORAGE_FILE", path);
  return path;
}

const zqvorexStorageCpp::StorageBindings& storageBindings() {
  static const zqvorexStorageCpp::StorageBindings bindings = [] {
    zqerr::Status status;
    auto bound = zqvorexStorageCpp::bindStorage(zqvorexStorageCpp::kStorageLibrary, &status);
    if (status.code != 0) {
      std::fprintf(stderr, "the storage library did not bind: %s\n", status.report ? status.report : "");
    }
    return bound;
  }();
  return bindings;
}

void setProgramPath(const char* argv0) { gProgramPath = argv0 ? argv0 : ""; }
const std::string& programPath() { return gProgramPath; }

std::string siblingProgram(const std::string& name) {
  const size_t slash = gProgramPath.find_last_of("/\\");
  if (slash == std::string::npos) return name;
  return gProgramPath.substr(0, slash + 1) + name;
}

int runCommand(const std::string& commandLine) {
  const int raw = std::system(commandLine.c_str());
  // A POSIX shell gives a wait status (the code in bits 8 to 15); Windows gives the code.
  return (raw & 0xFF) == 0 ? raw >> 8 : raw;
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeFile(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

bool reportWellFormed(const zqerr_Status& status) {
  if (status.report == nullptr || status.capacity < 3) return false;
  const char* end = zqerr::json::endOfValue(status.report);
  if (end == nullptr || end[1] != '\0') return false;
  for (const char* p = end + 1; p < status.report + status.capacity - 1; ++p) {
    if (*p != '\0') return false;
  }
  return status.report[status.capacity - 1] == 'J';
}

}  // namespace zqtest
