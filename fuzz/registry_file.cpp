// Feeds arbitrary text to the .reg reader of Linux: it must never overrun, whatever the text,
// and what it gives back must be a key that an import could leave.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "registry_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view text(reinterpret_cast<const char*>(data), size);
  // The key asked for is the installer's, or one the text names in its first section.
  std::string key = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane\\Common\\Installer";
  size_t open = text.find('[');
  size_t close = open == std::string_view::npos ? open : text.find(']', open);
  if (close != std::string_view::npos) key.assign(text.substr(open + 1, close - open - 1));
  zqplatform::regfile::Key found = zqplatform::regfile::readKey(text, key);
  if (!found.exists && !found.values.empty()) __builtin_trap();  // a missing key has no values
  for (size_t i = 0; i < found.values.size(); ++i)
    for (size_t j = i + 1; j < found.values.size(); ++j)
      if (zqplatform::regfile::sameName(found.values[i].name, found.values[j].name)) __builtin_trap();  // one value per name
  return 0;
}
