// The runtime toggles as the plug-in selection reads them. The composition root hands the
// selector an adapter over the process's toggle store.
#pragma once

#include <string_view>

namespace zqvorexRedir {

class IToggleReader {
 public:
  virtual ~IToggleReader() = default;
  // The toggle's value, or `defaultValue` when it has none or cannot be read: a reader that
  // cannot read a toggle has no failure to report.
  virtual bool readToggle(std::string_view name, bool defaultValue) = 0;
};

}  // namespace zqvorexRedir
