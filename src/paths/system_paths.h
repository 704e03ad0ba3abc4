// The folders the library works with: the installation's shared folder, from the registry, and
// the system folder, from the shell. Everything here reads; nothing writes. Each operation does
// nothing when the status already holds an error.
#pragma once

#include <string>

#include "platform/platform.h"
#include "status/status.h"

namespace zqsysq {

inline constexpr uint32_t kSharedFolderAccess = zqplatform::kKeyRead;
inline constexpr uint32_t kSharedFolder32Access = zqplatform::kKeyRead | zqplatform::kKeyWow64_32Key;

// The raw value, terminator included: `buffer` ends up as long as the value's bytes / 2.
// A value larger than the first 512-byte round is read again with the size reported.
void readRegistryValue(zqplatform::RegistryKey root, const char16_t* keyPath, const char16_t* valueName,
                       uint32_t access, std::u16string* buffer, zqerr_Status* status);
// readRegistryValue of the installer key under HKEY_LOCAL_MACHINE.
void readRegistryText(const char16_t* valueName, uint32_t access, std::u16string* buffer, zqerr_Status* status);

// ZQSHAREDDIR in the 32-bit view: the parent of the "errors" folder. UTF-8, trimmed.
void getSharedFolder(std::string* folder, zqerr_Status* status);
// ZQSHAREDDIR64: the parent of the library folder. UTF-8, trimmed.
void getSharedFolder64(std::string* folder, zqerr_Status* status);
// The system folder as the shell gives it: kMaxPath units, the text zero-terminated within
// them, not trimmed.
void getSystemFolder(std::u16string* folder, zqerr_Status* status);

// UTF-16 to UTF-8, zeros included; the caller trims.
void folderToUtf8(const std::u16string& wide, std::string* folder);
// Drops white space, zeros and backslashes from the end and white space from the front, so a
// folder never ends in a separator and callers always add one.
void trimFolderText(std::string& text);

}  // namespace zqsysq
