// A library-side UTF-8 string as a plug-in sees it: zqgopher_IString.
#pragma once

#include <string>

#include "zqgopher_boundary.h"

namespace zqgopher {

class StringAdapter : public zqgopher_StringAdapterFields {
 public:
  // The string must outlive the adapter; the plug-in writes straight into it.
  explicit StringAdapter(std::string& text) noexcept;
  StringAdapter(const StringAdapter&) = delete;
  StringAdapter& operator=(const StringAdapter&) = delete;

  zqgopher_IString* boundary() noexcept { return &base; }
  std::string& text() const noexcept { return *static_cast<std::string*>(string); }

  static const zqgopher_IStringTable kTable;
};

}  // namespace zqgopher
