// Which store a url names, and where the local store's file lies.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zqstorage {

// The variable that names the local store's file.
inline constexpr const char* kStoreFileVariable = "ZQCAI_STORAGE_FILE";
inline constexpr const char* kStoreFileName = "zqvorexStorage.db";
// The shared folder of an installation into a prefix, relative to the prefix.
inline constexpr const char* kInstalledSharedFolder = "share/zqcai";
inline constexpr std::string_view kMemoryUrlPrefix = "memory:";
inline constexpr const char* kLocalUrl = "127.0.0.1";

enum class UrlKind { kLocal, kMemory, kUnsupported };

// "127.0.0.1", "localhost", "::1", "[::1]" and "" (any case, blanks around) are the local
// store; "memory:<n>" a store of this process's memory.
UrlKind classifyUrl(std::string_view url);

// $ZQCAI_STORAGE_FILE when set; else zqvorexStorage.db in the folder above the one that holds
// this module, which in an installation is the shared folder above qxef/.
std::string localStorePath();

// The SQLite name of the memory store of a "memory:<n>" url.
std::string memoryStorePath(std::string_view url);

// Trims blanks, tabs and line breaks at both ends.
std::string_view trimmed(std::string_view text);

}  // namespace zqstorage
