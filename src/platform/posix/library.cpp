// Library loading with the Windows loader's habits on top of dlopen.
#include <dlfcn.h>
#include <limits.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "own_location.h"
#include "platform/platform.h"

namespace zqplatform {

namespace {

// The loader's own words for the last failure on this thread: they name the file or symbol,
// where the Windows text would not.
thread_local std::string tLoaderText;

// Backslashes become slashes; a file name without a dot gets ".so", as Windows adds ".dll".
std::string nativePath(const char* path) {
  std::string native(path);
  for (char& c : native)
    if (c == '\\') c = '/';
  size_t slash = native.rfind('/');
  std::string name = slash == std::string::npos ? native : native.substr(slash + 1);
  if (name.find('.') == std::string::npos) native += ".so";
  return native;
}

bool exists(const std::string& path) { return access(path.c_str(), F_OK) == 0; }

// A bare name is looked for beside the program and beside this code first, as the Windows
// loader looks in the application's folder; then dlopen searches as it does.
std::string candidate(const std::string& native) {
  if (native.find('/') != std::string::npos) return native;
  for (const std::string& dir : {posix::executableDirectory(), posix::ownDirectory()})
    if (!dir.empty() && exists(dir + native)) return dir + native;
  return native;
}

// The Windows code for why a file could not be loaded.
uint32_t loadError(const std::string& file, const std::string& text) {
  if (text.find("undefined symbol") != std::string::npos) return kErrorProcNotFound;
  if (file.find('/') != std::string::npos && exists(file) &&
      text.find("cannot open shared object file") == std::string::npos)
    return kErrorBadExeFormat;
  return kErrorModNotFound;
}

}  // namespace

LibraryHandle loadLibrary(const char* path, uint32_t) {
  if (!path || !*path) {
    setLastError(kErrorInvalidParameter);
    return nullptr;
  }
  std::string file = candidate(nativePath(path));
  LibraryHandle handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle) {
    const char* text = dlerror();
    tLoaderText = text ? text : "";
    setLastError(loadError(file, tLoaderText));
  }
  return handle;
}

LibraryHandle loadLibrary(const char16_t* path, uint32_t flags) {
  if (!path) {
    setLastError(kErrorInvalidParameter);
    return nullptr;
  }
  int n = wideToMultiByte(kCpUtf8, 0, path, -1, nullptr, 0);
  if (n <= 0) return nullptr;
  std::string narrow(static_cast<size_t>(n), '\0');
  wideToMultiByte(kCpUtf8, 0, path, -1, narrow.data(), n);
  return loadLibrary(narrow.c_str(), flags);
}

void* findSymbol(LibraryHandle library, const char* name) {
  if (!library || !name) {
    setLastError(library ? kErrorInvalidParameter : kErrorInvalidHandle);
    return nullptr;
  }
  dlerror();
  void* address = dlsym(library, name);
  if (!address) {
    const char* text = dlerror();
    tLoaderText = text ? text : "";
    setLastError(kErrorProcNotFound);
  }
  return address;
}

bool freeLibrary(LibraryHandle library) {
  if (library && dlclose(library) == 0) return true;
  setLastError(kErrorInvalidHandle);
  return false;
}

size_t systemErrorText(uint32_t code, char* buffer, size_t size) {
  std::string text;
  switch (code) {
    case kErrorFileNotFound: text = "The system cannot find the file specified."; break;
    case kErrorAccessDenied: text = "Access is denied."; break;
    case kErrorInvalidHandle: text = "The handle is invalid."; break;
    case kErrorInvalidParameter: text = "The parameter is incorrect."; break;
    case kErrorInsufficientBuffer: text = "The data area passed to a system call is too small."; break;
    case kErrorModNotFound: text = "The specified module could not be found."; break;
    case kErrorProcNotFound: text = "The specified procedure could not be found."; break;
    case kErrorBadExeFormat: text = "%1 is not a valid Win32 application."; break;
    case kErrorMoreData: text = "More data is available."; break;
    default: return 0;
  }
  if ((code == kErrorModNotFound || code == kErrorProcNotFound || code == kErrorBadExeFormat) &&
      !tLoaderText.empty())
    text += " (" + tLoaderText + ")";
  if (size == 0) return 0;
  size_t n = text.size() < size ? text.size() : size - 1;
  std::memcpy(buffer, text.data(), n);
  buffer[n] = '\0';
  return n;
}

}  // namespace zqplatform
