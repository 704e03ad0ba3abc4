#include "store_location.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "platform_paths.h"

namespace zqstorage {

namespace {

bool equalsFolded(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
           return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
         });
}

bool isMemoryNumber(std::string_view digits) {
  return !digits.empty() && digits.size() < 20 &&
         std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string_view trimmed(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

UrlKind classifyUrl(std::string_view url) {
  url = trimmed(url);
  for (std::string_view local : {"", "127.0.0.1", "localhost", "::1", "[::1]"}) {
    if (equalsFolded(url, local)) return UrlKind::kLocal;
  }
  if (url.size() > kMemoryUrlPrefix.size() && equalsFolded(url.substr(0, kMemoryUrlPrefix.size()), kMemoryUrlPrefix) &&
      isMemoryNumber(url.substr(kMemoryUrlPrefix.size()))) {
    return UrlKind::kMemory;
  }
  return UrlKind::kUnsupported;
}

std::string localStorePath() {
  std::string path = environmentText(kStoreFileVariable);
  if (!path.empty()) return path;
  std::string folder = moduleFolder();
  if (folder.empty()) return kStoreFileName;
  // The zqstorage tool of an installation lies in <prefix>/bin, the storage library in the
  // shared folder's qxef: both mean the shared folder's store.
  std::error_code ignored;
  const std::string installed = folder + "/../" + kInstalledSharedFolder;
  if (std::filesystem::is_directory(installed + "/qxef", ignored)) return installed + "/" + kStoreFileName;
  return folder + "/../" + kStoreFileName;
}

std::string memoryStorePath(std::string_view url) {
  url = trimmed(url);
  return "file:/zqvorexStorage-memory-" + std::string(url.substr(kMemoryUrlPrefix.size())) + "?vfs=memdb";
}

}  // namespace zqstorage
