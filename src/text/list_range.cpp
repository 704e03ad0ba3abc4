#include "text/list_range.h"

#include <cmath>

#include "status/error_sites.h"
#include "text/casefold.h"
#include "text/trim_split.h"

namespace zqwombat {

namespace {

using View = std::u16string_view;
constexpr size_t kNone = View::npos;

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

bool allDigits(View text) {
  for (char16_t c : text)
    if (!isDigit(c)) return false;
  return true;
}

size_t lastNonDigit(View text) {
  for (size_t i = text.size(); i > 0; --i)
    if (!isDigit(text[i - 1])) return i - 1;
  return kNone;
}

View trimmed(View text) {
  while (!text.empty() && isWhite(text.front())) text.remove_prefix(1);
  while (!text.empty() && isWhite(text.back())) text.remove_suffix(1);
  return text;
}

// The first colon that is not half of a "::" pair.
size_t findRangeColon(View entry) {
  for (size_t i = 0; i < entry.size(); ++i) {
    if (entry[i] != u':') continue;
    if (i + 1 < entry.size() && entry[i + 1] == u':') {
      ++i;
      continue;
    }
    return i;
  }
  return kNone;
}

bool fail(zqerr::FixedStatus* status, const zqerr::Site& site) {
  zqerr::setFixed(status, site);
  return false;
}

bool tooLong(uint64_t a, uint64_t b) {
  return std::fabs(static_cast<double>(b) - static_cast<double>(a)) >= static_cast<double>(kRangeLimit);
}

// Left is digits alone: the run is bare numbers.
bool planNumbers(View left, View right, EntryPlan* plan, zqerr::FixedStatus* status) {
  if (!readListNumber(left, &plan->first, &plan->width)) return fail(status, zqsite::kRangeLeftTooLarge);
  right = trimmed(right);
  uint32_t ignored = 0;
  if (right.empty()) return fail(status, zqsite::kRangeRightEmpty);
  if (!allDigits(right)) return fail(status, zqsite::kRangeRightNotDigits);
  if (!readListNumber(right, &plan->last, &ignored)) return fail(status, zqsite::kRangeRightTooLarge);
  if (tooLong(plan->first, plan->last)) return fail(status, zqsite::kRangeTooLong);
  return true;
}

// Left has a prefix: Right may repeat it, compared without regard to case.
bool planPrefixed(View left, size_t prefixEnd, View right, EntryPlan* plan, zqerr::FixedStatus* status) {
  plan->prefix = left.substr(0, prefixEnd);
  if (!readListNumber(left.substr(prefixEnd), &plan->first, &plan->width))
    return fail(status, zqsite::kPaddedLeftTooLarge);
  right = trimmed(right);
  uint32_t ignored = 0;
  if (right.empty()) return fail(status, zqsite::kPaddedRightEmpty);
  if (allDigits(right)) {
    if (!readListNumber(right, &plan->last, &ignored)) return fail(status, zqsite::kPaddedRightTooLarge);
  } else {
    if (!isDigit(right.back())) return fail(status, zqsite::kPaddedRightNotDigit);
    size_t rightPrefixEnd = lastNonDigit(right) + 1;
    View rightPrefix = right.substr(0, rightPrefixEnd);
    if (compareFoldedWide(rightPrefix.data(), rightPrefix.data() + rightPrefix.size(), plan->prefix.data(),
                          plan->prefix.data() + plan->prefix.size()) != 0)
      return fail(status, zqsite::kPaddedWidthMismatch);
    if (!readListNumber(right.substr(rightPrefixEnd), &plan->last, &ignored))
      return fail(status, zqsite::kPaddedNumberTooLarge);
  }
  if (tooLong(plan->first, plan->last)) return fail(status, zqsite::kPaddedTooLong);
  return true;
}

}  // namespace

bool readListNumber(View digits, uint64_t* value, uint32_t* width) {
  *width = digits.size() >= 2 && digits[0] == u'0' ? static_cast<uint32_t>(digits.size()) : 0;
  while (!digits.empty() && digits.front() == u'0') digits.remove_prefix(1);
  if (digits.size() > 10) return false;
  if (digits.size() == 10 && digits[0] >= u'4') {
    if (digits[0] > u'4' || digits.substr(1).find_first_not_of(u'0') != kNone) return false;
  }
  uint64_t n = 0;
  for (char16_t c : digits) n = n * 10 + static_cast<uint64_t>(c - u'0');
  *value = n;
  return true;
}

bool planEntry(View entry, EntryPlan* plan, zqerr::FixedStatus* status) {
  *plan = EntryPlan{};
  plan->entry = entry;
  size_t colon = findRangeColon(entry);
  if (colon == kNone) return true;
  View left = trimmed(entry.substr(0, colon));
  View right = entry.substr(colon + 1);
  if (left.empty() || !isDigit(left.back())) return fail(status, zqsite::kRangeLeftNotDigit);
  plan->isRange = true;
  size_t prefixEnd = lastNonDigit(left);
  if (prefixEnd == kNone) return planNumbers(left, right, plan, status);
  return planPrefixed(left, prefixEnd + 1, right, plan, status);
}

}  // namespace zqwombat
