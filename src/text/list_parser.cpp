#include "text/list_parser.h"

#include <exception>

#include "platform/platform.h"
#include "status/report_writer.h"
#include "text/inline_vector.h"
#include "text/list_range.h"
#include "text/nstring.h"
#include "text/trim_split.h"
#include "text/wide_buffer.h"

namespace zqwombat {

namespace {

using View = std::u16string_view;

// Entries kept in place before the list moves to the heap: more than a usual channel list.
constexpr size_t kInlineEntries = 32;
constexpr size_t kScratchBytes = 1024;

// The UTF-16 form of one input text, on the stack when short.
class WideInput {
 public:
  bool convert(std::string_view text, zqerr::FixedStatus* status) {
    if (text.empty()) return true;
    // A UTF-8 text never has more UTF-16 units than bytes, so a short one needs no measuring.
    size_t units = text.size() <= kStackWideUnits
                       ? text.size()
                       : codePageToWide(zqplatform::kCpUtf8, text.data(), text.size(), nullptr, 0, false, status);
    if (status->code < 0 || !buffer_.prepare(units, status)) return false;
    size_t n = codePageToWide(zqplatform::kCpUtf8, text.data(), text.size(), buffer_.data(), units, false, status);
    view_ = View(buffer_.data(), n);
    return status->code >= 0;
  }
  View view() const { return view_; }

 private:
  WideBuffer buffer_;
  View view_;
};

size_t skipWhite(View text, size_t i) {
  while (i < text.size() && isWhite(text[i])) ++i;
  return i;
}

// UTF-16 to UTF-8, through stack scratch when short: one conversion call for a usual entry.
bool appendUtf8(View wide, std::string* out, zqerr::FixedStatus* status) {
  constexpr uint32_t page = zqplatform::kCpUtf8;
  if (wide.size() * 3 <= kScratchBytes) {
    char scratch[kScratchBytes];
    size_t n = wideToCodePage(page, wide.data(), wide.size(), scratch, sizeof scratch, false, status);
    if (status->code < 0) return false;
    out->append(scratch, n);
    return true;
  }
  size_t n = wideToCodePage(page, wide.data(), wide.size(), nullptr, 0, false, status);
  if (status->code < 0) return false;
  size_t at = out->size();
  out->resize(at + n);
  wideToCodePage(page, wide.data(), wide.size(), out->data() + at, n, false, status);
  return status->code >= 0;
}

// One entry of a run: the prefix and the number, zero-padded to `width`, in one allocation at
// most (none for a short entry).
void writeRunEntry(const std::string& prefix, uint64_t value, uint32_t width, std::string* out) {
  char digits[20];
  size_t n = 0;
  do {
    digits[n++] = static_cast<char>('0' + value % 10);
    value /= 10;
  } while (value != 0);
  size_t padding = width > n ? width - n : 0;
  out->reserve(prefix.size() + padding + n);
  out->append(prefix);
  out->append(padding, '0');
  while (n > 0) out->push_back(digits[--n]);
}

class ListPlan {
 public:
  // Conversion, split and range planning. On failure the failing entry, if any, is blamed.
  bool build(std::string_view text, std::string_view delimiter, zqerr::FixedStatus* status) {
    if (!text_.convert(text, status) || !delimiter_.convert(delimiter, status)) return false;
    View whole = text_.view(), delim = delimiter_.view();
    for (size_t i = skipWhite(whole, 0); i < whole.size();) {
      size_t found = delim.empty() ? View::npos : whole.find(delim, i);
      size_t end = found == View::npos ? whole.size() : found;
      while (end > i && isWhite(whole[end - 1])) --end;
      if (end > i && !add(whole.substr(i, end - i), status)) return false;
      if (found == View::npos) break;
      i = skipWhite(whole, found + delim.size());
    }
    return true;
  }

  void write(std::vector<std::string>* out, zqerr::FixedStatus* status) const {
    out->reserve(static_cast<size_t>(total_));
    std::string prefix;
    for (const EntryPlan& plan : entries_) {
      if (!plan.isRange) {
        if (!appendUtf8(plan.entry, &out->emplace_back(), status)) return out->clear();
        continue;
      }
      prefix.clear();
      if (!appendUtf8(plan.prefix, &prefix, status)) return out->clear();
      for (uint64_t value = plan.first;; plan.first <= plan.last ? ++value : --value) {
        writeRunEntry(prefix, value, plan.width, &out->emplace_back());
        if (value == plan.last) break;
      }
    }
  }

  bool hasBlame() const { return hasBlame_; }
  View blamed() const { return blamed_; }

 private:
  bool add(View entry, zqerr::FixedStatus* status) {
    EntryPlan plan;
    if (!planEntry(entry, &plan, status)) {
      blamed_ = entry;
      hasBlame_ = true;
      return false;
    }
    entries_.push(plan);
    total_ += plan.count();
    return true;
  }

  WideInput text_;
  WideInput delimiter_;
  InlineVector<EntryPlan, kInlineEntries> entries_;
  uint64_t total_ = 0;
  View blamed_;
  bool hasBlame_ = false;
};

void addListItems(zqerr_Status* status, std::string_view blamed) {
  int32_t code = status->code;
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeInvalidString, blamed);
  if (code == kErrorRangeTooLong) {
    zqerr::addItem(w, zqerr::usage::kUsageTypeMaxNumObjects, static_cast<uint32_t>(kRangeLimit));
  } else if (code == kErrorNumberTooLarge) {
    zqerr::addItem(w, zqerr::usage::kUsageTypeMaxNumberInRange, static_cast<uint32_t>(kLargestListNumber));
  }
}

void blame(zqerr_Status* status, const ListPlan& plan, std::string_view text) {
  if (!plan.hasBlame()) return addListItems(status, text);
  std::string entry;
  zqerr::FixedStatus quiet = zqerr::makeFixedStatus();
  wideToUtf8(plan.blamed().data(), plan.blamed().size(), &entry, &quiet);
  addListItems(status, entry);
}

}  // namespace

void parseList(std::string_view text, std::string_view delimiter, std::vector<std::string>* out,
               zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  out->clear();
  try {
    ListPlan plan;
    {
      zqerr::StatusBridge bridge(status);
      plan.build(text, delimiter, bridge.fixed());
    }
    if (!zqerr::isOpen(status)) return blame(status, plan, text);
    zqerr::StatusBridge bridge(status);
    plan.write(out, bridge.fixed());
  } catch (const std::exception&) {
    out->clear();
    zqerr::StatusBridge bridge(status);
    zqhtl::err::StatusRef(bridge.fixed()).memoryFull();
  }
}

void parseCommaList(std::string_view text, std::vector<std::string>* out, zqerr_Status* status) {
  parseList(text, ",", out, status);
}

}  // namespace zqwombat
