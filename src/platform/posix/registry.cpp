// The registry of Linux: a .reg file that names the same keys and values as the Windows
// registry of an installation. Every open reads the file afresh, so the file can be edited
// while programs run, and an open key holds a copy of its values.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "own_location.h"
#include "platform/platform.h"
#include "registry_file.h"

namespace zqplatform {

namespace {

constexpr const char* kDefaultRegistryFile = "/etc/zqcai/registry.reg";
constexpr const char* kInstalledRegistryFile = "etc/zqcai/registry.reg";
constexpr std::streamoff kMaxFileSize = 16 << 20;

struct OpenKey {
  std::string path;
  regfile::Key content;
};

std::mutex gKeysLock;
std::set<const OpenKey*> gKeys;  // so that a stale or foreign handle is refused, not followed

const char* hiveName(RegistryKey key) {
  switch (key) {
    case kHkeyClassesRoot: return "HKEY_CLASSES_ROOT";
    case kHkeyCurrentUser: return "HKEY_CURRENT_USER";
    case kHkeyLocalMachine: return "HKEY_LOCAL_MACHINE";
    case kHkeyUsers: return "HKEY_USERS";
    case kHkeyCurrentConfig: return "HKEY_CURRENT_CONFIG";
    default: return nullptr;
  }
}

// The full path of a key given by handle; false for a handle that is neither predefined nor open.
bool pathOf(RegistryKey key, std::string* path) {
  if (const char* hive = hiveName(key)) {
    *path = hive;
    return true;
  }
  std::lock_guard lock(gKeysLock);
  auto* open = reinterpret_cast<const OpenKey*>(key);
  if (!gKeys.count(open)) return false;
  *path = open->path;
  return true;
}

bool toUtf8(const char16_t* text, std::string* out) {
  out->clear();
  if (!text || !*text) return true;
  int n = wideToMultiByte(kCpUtf8, 0, text, -1, nullptr, 0);
  if (n <= 0) return false;
  out->resize(static_cast<size_t>(n));
  wideToMultiByte(kCpUtf8, 0, text, -1, out->data(), n);
  out->pop_back();
  return true;
}

// The 32-bit view keeps the software of 32-bit programs under SOFTWARE\WOW6432Node.
std::string inView(std::string path, uint32_t access) {
  static constexpr std::string_view kSoftware = "HKEY_LOCAL_MACHINE\\SOFTWARE";
  if (!(access & kKeyWow64_32Key) || path.size() < kSoftware.size() ||
      !regfile::sameName(std::string_view(path).substr(0, kSoftware.size()), kSoftware))
    return path;
  std::string_view rest = std::string_view(path).substr(kSoftware.size());
  if (!rest.empty() && rest.front() != '\\') return path;
  std::string_view next = rest.empty() ? rest : rest.substr(1, rest.find('\\', 1) - 1);
  if (regfile::sameName(next, "WOW6432Node")) return path;
  return std::string(kSoftware) + "\\WOW6432Node" + std::string(rest);
}

// ZQCAI_REGISTRY_FILE, else the installation's own file beside this library (an installation
// into a prefix keeps it in <prefix>/etc/zqcai), else the machine's.
std::string registryFileName() {
  const char* named = std::getenv("ZQCAI_REGISTRY_FILE");
  if (named && *named) return named;
  const std::string own = posix::ownDirectory();
  if (!own.empty()) {
    const std::string installed = own + "../" + kInstalledRegistryFile;
    if (access(installed.c_str(), F_OK) == 0) return installed;
  }
  return kDefaultRegistryFile;
}

uint32_t readFile(std::string* text) {
  std::ifstream file(registryFileName(), std::ios::binary);
  if (!file) return errno == EACCES ? kErrorAccessDenied : kErrorFileNotFound;
  file.seekg(0, std::ios::end);
  std::streamoff size = file.tellg();
  if (size < 0 || size > kMaxFileSize) return kErrorFileNotFound;
  file.seekg(0);
  text->assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  return kErrorSuccess;
}

}  // namespace

uint32_t regOpenKey(RegistryKey parent, const char16_t* subKey, uint32_t access, RegistryKey* key) {
  if (!key) return kErrorInvalidParameter;
  *key = 0;
  std::string path, sub, text;
  if (!pathOf(parent, &path)) return kErrorInvalidHandle;
  if (!toUtf8(subKey, &sub)) return kErrorInvalidParameter;
  if (!sub.empty()) path += "\\" + sub;
  path = inView(std::move(path), access);
  if (uint32_t error = readFile(&text)) return error;
  auto open = std::make_unique<OpenKey>(OpenKey{path, regfile::readKey(text, path)});
  if (!open->content.exists) return kErrorFileNotFound;
  std::lock_guard lock(gKeysLock);
  gKeys.insert(open.get());
  *key = reinterpret_cast<RegistryKey>(open.release());
  return kErrorSuccess;
}

uint32_t regQueryValue(RegistryKey key, const char16_t* valueName, uint32_t* type, void* data, uint32_t* size) {
  if (data && !size) return kErrorInvalidParameter;
  if (hiveName(key)) {
    // A value straight under a hive: read through a key of our own.
    RegistryKey own = 0;
    if (uint32_t error = regOpenKey(key, nullptr, 0, &own)) return error;
    uint32_t error = regQueryValue(own, valueName, type, data, size);
    regCloseKey(own);
    return error;
  }
  std::string name;
  if (!toUtf8(valueName, &name)) return kErrorFileNotFound;
  std::lock_guard lock(gKeysLock);
  auto* open = reinterpret_cast<const OpenKey*>(key);
  if (!gKeys.count(open)) return kErrorInvalidHandle;
  for (const regfile::Value& value : open->content.values) {
    if (!regfile::sameName(value.name, name)) continue;
    auto needed = static_cast<uint32_t>(value.data.size());
    if (type) *type = value.type;
    uint32_t given = size ? *size : 0;
    if (size) *size = needed;
    if (!data) return kErrorSuccess;
    if (given < needed) return kErrorMoreData;
    std::copy(value.data.begin(), value.data.end(), static_cast<uint8_t*>(data));
    return kErrorSuccess;
  }
  return kErrorFileNotFound;
}

// The wide value, with its strings taken to the system code page as the narrow query gives them.
uint32_t regQueryValueNarrow(RegistryKey key, const char* valueName, uint32_t* type, void* data, uint32_t* size) {
  if (data && !size) return kErrorInvalidParameter;
  std::u16string name;
  if (valueName && *valueName) {
    int n = multiByteToWide(kCpAcp, 0, valueName, -1, nullptr, 0);
    if (n <= 0) return kErrorFileNotFound;
    name.resize(static_cast<size_t>(n));
    multiByteToWide(kCpAcp, 0, valueName, -1, name.data(), n);
  }
  uint32_t valueType = 0, wideSize = 0;
  if (uint32_t error = regQueryValue(key, name.c_str(), &valueType, nullptr, &wideSize)) return error;
  std::string bytes(wideSize, '\0');
  if (uint32_t error = regQueryValue(key, name.c_str(), &valueType, bytes.data(), &wideSize)) return error;
  if (valueType == kRegSz || valueType == kRegExpandSz || valueType == kRegMultiSz) {
    std::u16string units(wideSize / 2, u'\0');
    std::memcpy(units.data(), bytes.data(), units.size() * 2);
    int n = units.empty() ? 0 : wideToMultiByte(kCpAcp, 0, units.data(), static_cast<int>(units.size()), nullptr, 0);
    bytes.assign(static_cast<size_t>(n > 0 ? n : 0), '\0');
    if (n > 0) wideToMultiByte(kCpAcp, 0, units.data(), static_cast<int>(units.size()), bytes.data(), n);
  }
  auto needed = static_cast<uint32_t>(bytes.size());
  if (type) *type = valueType;
  uint32_t given = size ? *size : 0;
  if (size) *size = needed;
  if (!data) return kErrorSuccess;
  if (given < needed) return kErrorMoreData;
  std::memcpy(data, bytes.data(), bytes.size());
  return kErrorSuccess;
}

uint32_t regCloseKey(RegistryKey key) {
  if (hiveName(key)) return kErrorSuccess;
  std::unique_ptr<const OpenKey> open(reinterpret_cast<const OpenKey*>(key));
  std::lock_guard lock(gKeysLock);
  if (!gKeys.erase(open.get())) {
    (void)open.release();
    return kErrorInvalidHandle;
  }
  return kErrorSuccess;
}

}  // namespace zqplatform
