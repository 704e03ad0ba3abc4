#include "binding/dynload.h"

#include <climits>
#include <cstring>
#include <string>

#include "paths/system_error_items.h"
#include "status/error_sites.h"

namespace {

std::u16string toWide(const char* text) {
  size_t length = std::strlen(text);
  if (length == 0 || length > INT_MAX / 2) return {};
  auto n8 = static_cast<int>(length);
  int n = zqplatform::multiByteToWide(zqplatform::kCpUtf8, 0, text, n8, nullptr, 0);
  std::u16string wide(static_cast<size_t>(n > 0 ? n : 0), u'\0');
  if (n > 0) zqplatform::multiByteToWide(zqplatform::kCpUtf8, 0, text, n8, wide.data(), n);
  return wide;
}

}  // namespace

zqplatform::LibraryHandle zqdynlib_load(const char* path, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  if (!path) path = "";
  std::u16string wide = toWide(path);
  zqplatform::LibraryHandle library = zqplatform::loadLibrary(wide.c_str(), 0);
  if (library) return library;
  uint32_t error = zqplatform::lastError();
  if (!ZQ_FAIL(status, kDynloadInvalidParameter)) return nullptr;
  zqerr::ReportWriter w = zqsysq::openObject(zqerr::rootWriter(status), "zqdynlib_debug");
  w = zqerr::writeString(w, "debug", "failed to zqdynlib_load library");
  w = zqsysq::closeObject(zqerr::writeString(w, "path", path));
  zqsysq::writeWin32Error(w, error);
  return nullptr;
}

void* zqdynlib_getSymbol(zqplatform::LibraryHandle library, const char* name, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  if (!name) name = "";
  void* address = zqplatform::findSymbol(library, name);
  if (address) return address;
  uint32_t error = zqplatform::lastError();
  if (!ZQ_FAIL(status, kDynloadInvalidParameter84)) return nullptr;
  zqerr::ReportWriter w = zqsysq::openObject(zqerr::rootWriter(status), "zqdynlib_debug");
  w = zqerr::writeString(w, "debug", "failed to get symbol");
  w = zqsysq::closeObject(zqerr::writeString(w, "zqdynlib_symbol", name));
  zqsysq::writeWin32Error(w, error);
  return nullptr;
}
