// Folder listings, text files and errno texts of Windows.
#include <windows.h>
#include <share.h>

#include <cstring>
#include <new>
#include <string>

#include "platform/platform.h"

namespace zqplatform {

class FolderListing {
 public:
  FolderListing(HANDLE find, const WIN32_FIND_DATAW& first) : find_(find), data_(first) {}
  ~FolderListing() { FindClose(find_); }
  FolderListing(const FolderListing&) = delete;
  FolderListing& operator=(const FolderListing&) = delete;

  // The entry the listing stands on, then the next one.
  ListingStep step(FolderEntry* entry) {
    if (!pending_) {
      if (!FindNextFileW(find_, &data_)) return GetLastError() == ERROR_NO_MORE_FILES ? ListingStep::kEnd : ListingStep::kLost;
    }
    pending_ = false;
    return describe(entry) ? ListingStep::kEntry : ListingStep::kLost;
  }

 private:
  bool describe(FolderEntry* entry) const {
    const wchar_t* name = data_.cFileName;
    int n = WideCharToMultiByte(CP_UTF8, 0, name, -1, nullptr, 0, nullptr, nullptr);
    if (n <= 0) return false;
    try {
      entry->name.assign(static_cast<size_t>(n - 1), '\0');
    } catch (...) {
      return false;
    }
    WideCharToMultiByte(CP_UTF8, 0, name, -1, entry->name.data(), n, nullptr, nullptr);
    entry->regularFile = !(data_.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE));
    return true;
  }

  HANDLE find_;
  WIN32_FIND_DATAW data_;
  bool pending_ = true;
};

namespace {

std::wstring toWide(const char* text) {
  int n = MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
  if (n <= 0) return {};
  std::wstring wide(static_cast<size_t>(n - 1), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text, -1, wide.data(), n);
  return wide;
}

}  // namespace

FolderListing* openFolderListing(const char* folder) {
  if (!folder || !*folder) return nullptr;
  std::wstring pattern = toWide(folder);
  if (pattern.empty()) return nullptr;
  pattern += L"\\*";
  WIN32_FIND_DATAW first;
  HANDLE find = FindFirstFileW(pattern.c_str(), &first);
  if (find == INVALID_HANDLE_VALUE) return nullptr;
  auto* listing = new (std::nothrow) FolderListing(find, first);
  if (!listing) FindClose(find);
  return listing;
}

ListingStep nextFolderEntry(FolderListing* listing, FolderEntry* entry) { return listing->step(entry); }

void closeFolderListing(FolderListing* listing) { delete listing; }

std::FILE* openTextFileForReading(const char* path) {
  if (!path || !*path) return nullptr;
  std::wstring wide = toWide(path);
  return wide.empty() ? nullptr : _wfsopen(wide.c_str(), L"rt", _SH_DENYNO);
}

size_t crtErrorText(int crtErrno, char* buffer, size_t size) {
  if (!buffer || size == 0) return 0;
  if (strerror_s(buffer, size, crtErrno) != 0) buffer[0] = '\0';
  return std::strlen(buffer);
}

}  // namespace zqplatform
