#include "paths/windows_registry.h"

#include "paths/system_error_items.h"
#include "status/error_sites.h"

namespace zqsysq {

void openKey(zqplatform::RegistryKey root, const char16_t* path, uint32_t access, KeyGuard* key,
             zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  zqplatform::RegistryKey opened = 0;
  uint32_t result = zqplatform::regOpenKey(root, path, access, &opened);
  if (result == zqplatform::kErrorSuccess) {
    key->reset(opened);
    return;
  }
  if (!ZQ_FAIL(status, kWindowsregistryResourceNotFound)) return;
  zqerr::ReportWriter w = writeWin32Error(zqerr::rootWriter(status), result);
  w = openObject(w, "zqsysq_debug");
  closeObject(zqerr::writeString(w, "desc", "RegOpenKeyEx failed"));
}

void openInstallerKey(const char16_t*, uint32_t access, KeyGuard* key, zqerr_Status* status) {
  openKey(zqplatform::kHkeyLocalMachine, kInstallerKey, access, key, status);
}

}  // namespace zqsysq
