// Folder listings, text files and errno texts of Linux, with the meaning of the Windows calls
// they stand for: either separator in paths, and errno values numbered as the Windows C runtime
// numbers them.
#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <string>

#include "platform/platform.h"

namespace zqplatform {

class FolderListing {
 public:
  explicit FolderListing(DIR* dir) : dir_(dir) {}
  ~FolderListing() { closedir(dir_); }
  FolderListing(const FolderListing&) = delete;
  FolderListing& operator=(const FolderListing&) = delete;
  DIR* dir() const { return dir_; }

 private:
  DIR* dir_;
};

namespace {

std::string nativePath(const char* path) {
  std::string native(path ? path : "");
  for (char& c : native)
    if (c == '\\') c = '/';
  return native;
}

// Windows numbers these errno values apart from Linux; the others up to 34 agree.
int nativeErrno(int crtErrno) {
  switch (crtErrno) {
    case 36: return EDEADLK;
    case 38: return ENAMETOOLONG;
    case 39: return ENOLCK;
    case 40: return ENOSYS;
    case 41: return ENOTEMPTY;
    case 42: return EILSEQ;
    default: return crtErrno;
  }
}

// strerror_r comes in two forms; both give the text here.
[[maybe_unused]] const char* errorTextOf(int result, const char* buffer) { return result == 0 ? buffer : ""; }
[[maybe_unused]] const char* errorTextOf(const char* result, const char*) { return result ? result : ""; }

}  // namespace

FolderListing* openFolderListing(const char* folder) {
  std::string path = nativePath(folder);
  if (path.empty()) return nullptr;
  DIR* dir = opendir(path.c_str());
  if (!dir) return nullptr;
  auto* listing = new (std::nothrow) FolderListing(dir);
  if (!listing) closedir(dir);
  return listing;
}

ListingStep nextFolderEntry(FolderListing* listing, FolderEntry* entry) {
  errno = 0;
  const dirent* found = readdir(listing->dir());
  if (!found) return errno == 0 ? ListingStep::kEnd : ListingStep::kLost;
  try {
    entry->name = found->d_name;
  } catch (...) {
    return ListingStep::kLost;
  }
  // A link counts as what it leads to, as the Windows listing shows a file's own kind.
  struct stat info {};
  entry->regularFile = fstatat(dirfd(listing->dir()), found->d_name, &info, 0) == 0 && S_ISREG(info.st_mode);
  return ListingStep::kEntry;
}

void closeFolderListing(FolderListing* listing) { delete listing; }

std::FILE* openTextFileForReading(const char* path) {
  std::string native = nativePath(path);
  return native.empty() ? nullptr : std::fopen(native.c_str(), "r");
}

size_t crtErrorText(int crtErrno, char* buffer, size_t size) {
  if (!buffer || size == 0) return 0;
  char own[256] = {};
  const char* text = errorTextOf(strerror_r(nativeErrno(crtErrno), own, sizeof own), own);
  size_t length = std::min(std::strlen(text), size - 1);
  std::memcpy(buffer, text, length);
  buffer[length] = '\0';
  return length;
}

}  // namespace zqplatform
