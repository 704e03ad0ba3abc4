// The reader of registry files in the Windows .reg export format, the registry of Linux.
// Pure text in, one key's state out: no file access, no global state.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zqplatform::regfile {

struct Value {
  std::string name;  // UTF-8; "" is the key's default value ("@")
  uint32_t type = 0;
  std::vector<uint8_t> data;  // as RegQueryValueExW gives it: strings in UTF-16LE with their zero
};

struct Key {
  bool exists = false;
  std::vector<Value> values;
};

// The state of `keyPath` after every section of `text` has been applied in order, as an
// import would leave it. `keyPath` is a full path under a hive's long name, such as
// "HKEY_LOCAL_MACHINE\SOFTWARE\Maker"; key and value names compare without regard to ASCII
// case. `text` is UTF-8 (a byte-order mark is skipped) or UTF-16LE with its byte-order mark,
// and starts with "Windows Registry Editor Version 5.00" or "REGEDIT4"; a text that does not
// describes no key. Lines that cannot be read are skipped, as an import skips them.
Key readKey(std::string_view text, std::string_view keyPath);

// Compares registry names as the registry does for ASCII letters.
bool sameName(std::string_view a, std::string_view b);

}  // namespace zqplatform::regfile
