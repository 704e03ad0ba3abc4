// Library loading with the Windows loader's habits on top of dlopen.
#include <dlfcn.h>
#include <limits.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "platform/platform.h"

namespace zqplatform {

namespace {

thread_local std::string tLoaderText;

std::string directoryOf(const std::string& path) {
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string executableDirectory() {
  char buffer[PATH_MAX];
  ssize_t n = readlink("/proc/self/exe", buffer, sizeof buffer - 1);
  return n > 0 ? directoryOf(std::string(buffer, static_cast<size_t>(n))) : std::string();
}

std::string ownDirectory() {
  Dl_info info{};
  if (!dladdr(reinterpret_cast<void*>(&executableDirectory), &info) || !info.dli_fname) return {};
  return directoryOf(info.dli_fname);
}

// Backslashes become slashes; a file name without a dot gets ".so".
std::string nativePath(const char* path) {
  std::string native(path);
  for (char& c : native)
    if (c == '\\') c = '/';
  size_t slash = native.rfind('/');
  std::string name = slash == std::string::npos ? native : native.substr(slash + 1);
  if (name.find('.') == std::string::npos) native += ".so";
  return native;
}

LibraryHandle open(const std::string& path) { return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL); }

}  // namespace

LibraryHandle loadLibrary(const char* path, uint32_t) {
  if (!path || !*path) {
    setLastError(kErrorInvalidParameter);
    return nullptr;
  }
  std::string native = nativePath(path);
  LibraryHandle handle = nullptr;
  if (native.find('/') == std::string::npos) {
    for (const std::string& dir : {executableDirectory(), ownDirectory()})
      if (!handle && !dir.empty() && access((dir + native).c_str(), F_OK) == 0) handle = open(dir + native);
  }
  if (!handle) handle = open(native);
  if (!handle) {
    const char* text = dlerror();
    tLoaderText = text ? text : "";
    setLastError(kErrorModNotFound);
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
  dlerror();
  void* address = library && name ? dlsym(library, name) : nullptr;
  if (!address) {
    const char* text = dlerror();
    tLoaderText = text ? text : "";
    setLastError(kErrorProcNotFound);
  }
  return address;
}

bool freeLibrary(LibraryHandle library) { return library && dlclose(library) == 0; }

size_t systemErrorText(uint32_t code, char* buffer, size_t size) {
  std::string text;
  switch (code) {
    case kErrorInvalidParameter: text = "The parameter is incorrect."; break;
    case kErrorInsufficientBuffer: text = "The data area passed to a system call is too small."; break;
    case kErrorModNotFound: text = "The specified module could not be found."; break;
    case kErrorProcNotFound: text = "The specified procedure could not be found."; break;
    default: return 0;
  }
  // The loader's own words say which file or symbol, where Windows would not.
  if ((code == kErrorModNotFound || code == kErrorProcNotFound) && !tLoaderText.empty())
    text += " (" + tLoaderText + ")";
  if (size == 0) return 0;
  size_t n = text.size() < size ? text.size() : size - 1;
  std::memcpy(buffer, text.data(), n);
  buffer[n] = '\0';
  return n;
}

}  // namespace zqplatform
