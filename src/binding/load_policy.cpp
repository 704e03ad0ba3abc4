#include <cstring>
#include <string_view>

#include "binding/load_library.h"
#include "binding/nested_error.h"
#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqdynlib::detail {

namespace {

// The usage item with the library's path, then the inner failure.
void explain(const char* path, const zqerr_Status& local, zqerr_Status* status) {
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  zqerr::addItem(w, zqerr::usage::kUsageTypeLibraryName, path ? path : "");
  appendNestedError(status, local);
}

}  // namespace

bool keepStrict(const char* path, bool loaded, const zqerr_Status& local, zqerr_Status* status) {
  if (local.code >= 0) return true;
  bool changed = loaded ? ZQ_FAIL(status, kPluginUtilitiesFunctionNotInLibrary)
                        : ZQ_FAIL(status, kPluginUtilitiesLibraryNotPresent);
  if (changed) explain(path, local, status);
  return false;
}

bool keepLenient(const char* path, bool loaded, const zqerr_Status& local, zqerr_Status* status,
                 const LenientSites& sites) {
  // In a library that loaded, only a symbol can be missing, and that is allowed.
  if ((local.code == zqapalerr_invalidParameter && loaded) || local.code >= 0) return true;
  if (zqerr::setWithLocation(status, nZQMSTS::kErrorLibraryNotPresent, sites.libraryNotPresent))
    explain(path, local, status);
  return false;
}

void reportNoMemory(zqerr_Status* status, const LenientSites& sites) {
  zqerr::setWithLocation(status, zqapalerr_memoryFull, sites.memoryFull);
}

}  // namespace zqdynlib::detail

namespace zqdynlib {

bool pluginPrefix(const char* path, std::string* prefix, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return false;
  std::string_view name = path ? path : "";
  size_t separator = name.find_last_of("/\\");
  if (separator != std::string_view::npos) name.remove_prefix(separator + 1);
  if (name.empty()) {
    ZQ_FAIL(status, kPluginutilitiesInvalidParameter);
    return false;
  }
  prefix->assign(name.substr(0, name.find('.')));
  prefix->push_back('_');
  return true;
}

}  // namespace zqdynlib
