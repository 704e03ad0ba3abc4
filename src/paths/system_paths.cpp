#include "paths/system_paths.h"

#include <climits>
#include <new>

#include "paths/system_error_items.h"
#include "paths/windows_registry.h"
#include "status/error_sites.h"

namespace zqsysq {

namespace {

constexpr uint32_t kFirstReadSize = 512;

bool resize(std::u16string* buffer, size_t units, zqerr_Status* status) {
  try {
    buffer->resize(units);
    return true;
  } catch (const std::bad_alloc&) {
    ZQ_FAIL(status, kStdpathMemoryFull);
    return false;
  }
}

void reportQueryFailure(uint32_t result, zqerr_Status* status) {
  if (!ZQ_FAIL(status, kStdpathResourceNotFound)) return;
  zqerr::ReportWriter w = writeWin32Error(zqerr::rootWriter(status), result);
  w = openObject(w, "zqsysq_debug");
  closeObject(zqerr::writeString(w, "desc", "RegQueryValue failed"));
}

void reportShellFailure(int32_t result, zqerr_Status* status) {
  if (!ZQ_FAIL(status, kStdpathResourceNotFound114)) return;
  zqerr::ReportWriter w = openObject(zqerr::rootWriter(status), "internal_error");
  w = zqerr::writeString(w, "api", "hresult");
  w = closeObject(zqerr::writeInt32(w, "code", result));
  w = openObject(w, "zqsysq_debug");
  closeObject(zqerr::writeString(w, "desc", "SHGetFolderPathW failed"));
}

void readSharedFolder(const char16_t* valueName, uint32_t access, std::string* folder, zqerr_Status* status) {
  std::u16string wide;
  readRegistryText(valueName, access, &wide, status);
  if (!zqerr::isOpen(status)) return;
  folder->clear();
  folder->reserve(256);
  folderToUtf8(wide, folder);
  trimFolderText(*folder);
}

bool isCSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

}  // namespace

void readRegistryValue(zqplatform::RegistryKey root, const char16_t* keyPath, const char16_t* valueName,
                       uint32_t access, std::u16string* buffer, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  KeyGuard key;
  openKey(root, keyPath, access, &key, status);
  if (!zqerr::isOpen(status)) return;
  uint32_t size = kFirstReadSize;
  uint32_t result = zqplatform::kErrorMoreData;
  while (result == zqplatform::kErrorMoreData) {
    // An odd size is rounded up so that the buffer always holds what the query is told.
    if (!resize(buffer, (size + 1) / 2, status)) return;
    size = static_cast<uint32_t>(buffer->size() * 2);
    result = zqplatform::regQueryValue(key.get(), valueName, nullptr, buffer->data(), &size);
  }
  if (result != zqplatform::kErrorSuccess) return reportQueryFailure(result, status);
  resize(buffer, size / 2, status);
}

void readRegistryText(const char16_t* valueName, uint32_t access, std::u16string* buffer, zqerr_Status* status) {
  readRegistryValue(zqplatform::kHkeyLocalMachine, kInstallerKey, valueName, access, buffer, status);
}

void getSharedFolder(std::string* folder, zqerr_Status* status) {
  readSharedFolder(u"ZQSHAREDDIR", kSharedFolder32Access, folder, status);
}

void getSharedFolder64(std::string* folder, zqerr_Status* status) {
  readSharedFolder(u"ZQSHAREDDIR64", kSharedFolderAccess, folder, status);
}

void getSystemFolder(std::u16string* folder, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (!resize(folder, zqplatform::kMaxPath, status)) return;
  int32_t result = zqplatform::shellFolderPath(zqplatform::kCsidlSystem, folder->data());
  if (result != 0) reportShellFailure(result, status);
}

void folderToUtf8(const std::u16string& wide, std::string* folder) {
  if (wide.empty() || wide.size() > INT_MAX / 4) return;
  auto length = static_cast<int>(wide.size());
  int n = zqplatform::wideToMultiByte(zqplatform::kCpUtf8, 0, wide.data(), length, nullptr, 0);
  if (n <= 0) return;
  size_t start = folder->size();
  folder->resize(start + static_cast<size_t>(n));
  zqplatform::wideToMultiByte(zqplatform::kCpUtf8, 0, wide.data(), length, folder->data() + start, n);
}

void trimFolderText(std::string& text) {
  size_t end = text.size();
  while (end > 0 && (isCSpace(text[end - 1]) || text[end - 1] == '\0' || text[end - 1] == '\\')) --end;
  size_t begin = 0;
  while (begin < end && isCSpace(text[begin])) ++begin;
  text.erase(end);
  text.erase(0, begin);
}

}  // namespace zqsysq
