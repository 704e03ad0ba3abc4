#include "text/name_rule.h"

#include <optional>
#include <string>

#include "status/error_sites.h"
#include "status/report_writer.h"
#include "text/nstring.h"

namespace zqwombat {

namespace {

constexpr size_t kLongestKind4Name = 254;

enum class CharacterSet { kShort, kLong, kNone };

CharacterSet setOfKind(const int32_t* kind) {
  if (!kind) return CharacterSet::kNone;
  switch (*kind) {
    case 0:
    case 1:
    case 5: return CharacterSet::kShort;
    case 2:
    case 3:
    case 4: return CharacterSet::kLong;
    default: return CharacterSet::kNone;
  }
}

bool among(char16_t c, std::u16string_view set) { return set.find(c) != std::u16string_view::npos; }

void fail(zqerr::FixedStatus* fixed, const zqerr::Site& site) { zqerr::setFixed(fixed, site); }

// The first single colon: a "::" pair is allowed and skipped whole.
size_t findLoneColon(std::u16string_view name) {
  for (size_t i = 0; i < name.size(); ++i) {
    if (name[i] != u':') continue;
    if (i + 1 < name.size() && name[i + 1] == u':') {
      ++i;
      continue;
    }
    return i;
  }
  return std::u16string_view::npos;
}

// Steps 2 to 4 of the rule on a non-empty name.
void checkCharacters(std::u16string_view name, CharacterSet set, zqerr::FixedStatus* fixed,
                     std::optional<uint32_t>* position) {
  size_t bad = 0;
  if (set != CharacterSet::kNone) {
    bad = std::u16string_view::npos;
    for (size_t i = 0; i < name.size() && bad == std::u16string_view::npos; ++i)
      if (set == CharacterSet::kShort ? inShortNameSet(name[i]) : inLongNameSet(name[i])) bad = i;
    if (bad == std::u16string_view::npos && set == CharacterSet::kShort) bad = findLoneColon(name);
  }
  if (bad != std::u16string_view::npos) {
    *position = static_cast<uint32_t>(bad);
    return fail(fixed, zqsite::kNameRuleInvalidCharacter);
  }
  char16_t first = name.front(), last = name.back();
  if (first == u' ') return fail(fixed, zqsite::kNameRuleBeginsWithSpace);
  if (last == u' ') return fail(fixed, zqsite::kNameRuleEndsWithSpace);
  if (first == u'_') return fail(fixed, zqsite::kNameRuleBeginsWithUnderscore);
  if (first == u':' || last == u':') return fail(fixed, zqsite::kNameRuleColonAtEnd);
}

bool hasItems(int32_t code) {
  return code == kErrorInvalidNameCharacter || code == kErrorNameBeginsWithSpace ||
         code == kErrorNameEndsWithSpace || code == kErrorNameBeginsWithUnderscore;
}

void addNameItems(zqerr_Status* status, std::u16string_view name, std::optional<uint32_t> position) {
  std::string utf8;
  zqerr::FixedStatus quiet = zqerr::makeFixedStatus();
  wideToUtf8(name.data(), name.size(), &utf8, &quiet);
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  if (position) w = zqerr::addItem(w, zqerr::usage::kUsageTypePositionOfInvalidCharacter, *position);
  zqerr::addItem(w, zqerr::usage::kUsageTypeInvalidString, std::string_view(utf8));
}

}  // namespace

bool inShortNameSet(char16_t c) { return (c >= 0x08 && c <= 0x1F) || c == 0x7F || among(c, u"\"%*,./<>?[\\]|"); }

bool inLongNameSet(char16_t c) { return inShortNameSet(c) || among(c, u" :!#$&'()+;=@^`{}~"); }

void validateObjectName(std::u16string_view name, const int32_t* kind, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  std::optional<uint32_t> position;
  {
    zqerr::StatusBridge bridge(status);
    if (name.empty()) {
      fail(bridge.fixed(), zqsite::kNameRuleEmpty);
    } else {
      checkCharacters(name, setOfKind(kind), bridge.fixed(), &position);
    }
    // Runs after an earlier failure too; the replacement rule keeps the first code.
    if (kind && *kind == 4 && name.size() > kLongestKind4Name) fail(bridge.fixed(), zqsite::kNameRuleTooLong);
  }
  if (hasItems(status->code)) addNameItems(status, name, position);
}

}  // namespace zqwombat
