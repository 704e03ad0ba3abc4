// The forms in which channel, timing, trigger, calibration and signal functions take a text
// argument from the caller: converted from the system code page, trimmed, copied as it stands,
// or split into a list of names. The one-terminal check is in cutility.h.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "boundary/array_view.h"
#include "status/status.h"

namespace zqutility {

// The caller's text from the system code page as UTF-8; null is "". The conversion runs on a
// status of its own that is merged at once, so it runs after a failed task lookup too.
std::string convertedText(const char* text, zqerr_Status* status);

// Converted, then stripped of white space at both ends when the status is good.
std::string trimmedText(const char* text, zqerr_Status* status);

// The caller's bytes as they stand, with no code-page conversion, stripped like a trimmed text.
std::string copiedText(const char* text, zqerr_Status* status);

// A list of names and the view a plug-in sees of it. Moving the list rebuilds the view, so
// that the view always points into the list it travels with.
class NameList {
 public:
  NameList() = default;
  explicit NameList(std::vector<std::string> names) : names_(std::move(names)), view_(names_) {}
  NameList(NameList&& other) : names_(std::move(other.names_)), view_(names_) {}
  NameList& operator=(NameList&&) = delete;

  const std::vector<std::string>& names() const { return names_; }
  const zqgopher::StringArrayView& view() const { return view_; }

 private:
  std::vector<std::string> names_;
  zqgopher::StringArrayView view_;
};

// `text` (already UTF-8 and trimmed) split at "," with its ranges expanded; an empty text gives
// an empty list, and a failure of the parser stays in the status with an empty list.
NameList nameList(const std::string& text, zqerr_Status* status);

}  // namespace zqutility
