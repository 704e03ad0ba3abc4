// Opening registry keys with a status: the key guard closes what was opened on every path.
#pragma once

#include "platform/platform.h"
#include "status/status.h"

namespace zqsysq {

// The installation's key under HKEY_LOCAL_MACHINE.
inline constexpr const char16_t* kInstallerKey = u"SOFTWARE\\Torvane\\Common\\Installer";

class KeyGuard {
 public:
  KeyGuard() = default;
  ~KeyGuard() { reset(0); }
  KeyGuard(const KeyGuard&) = delete;
  KeyGuard& operator=(const KeyGuard&) = delete;

  zqplatform::RegistryKey get() const { return key_; }
  void reset(zqplatform::RegistryKey key) {
    if (key_) zqplatform::regCloseKey(key_);
    key_ = key;
  }

 private:
  zqplatform::RegistryKey key_ = 0;
};

// RegOpenKeyExW of `path` under `root`; a failure gives zqapalerr_resourceNotFound with the
// system's code and "RegOpenKeyEx failed".
void openKey(zqplatform::RegistryKey root, const char16_t* path, uint32_t access, KeyGuard* key,
             zqerr_Status* status);

// The installer key, opened to read `valueName` with `access`.
void openInstallerKey(const char16_t* valueName, uint32_t access, KeyGuard* key, zqerr_Status* status);

}  // namespace zqsysq
