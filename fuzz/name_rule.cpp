// Arbitrary names of every kind through the name rule. A name that passes has none of its kind's
// forbidden characters, no single colon where the kind forbids it, and proper ends; a refused
// name's position, when reported, points at a character the rule forbids.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "status/report_reader.h"
#include "text/casefold.h"
#include "text/name_rule.h"

namespace {

void check(bool condition) {
  if (!condition) __builtin_trap();
}

bool shortKind(int32_t kind) { return kind == 0 || kind == 1 || kind == 5; }
bool longKind(int32_t kind) { return kind >= 2 && kind <= 4; }

bool forbidden(int32_t kind, char16_t c) {
  return shortKind(kind) ? zqwombat::inShortNameSet(c) : zqwombat::inLongNameSet(c);
}

void checkValid(const std::u16string& name, int32_t kind) {
  check(!name.empty() && (shortKind(kind) || longKind(kind)));
  for (size_t i = 0; i < name.size(); ++i) {
    check(!forbidden(kind, name[i]));
    if (name[i] == u':') {  // only as a "::" pair
      check(i + 1 < name.size() && name[i + 1] == u':');
      ++i;
    }
  }
  check(name.front() != u' ' && name.front() != u'_' && name.front() != u':');
  check(name.back() != u' ' && name.back() != u':');
  check(kind != 4 || name.size() < 255);
}

void checkRefused(const zqerr::Status& status, const std::u16string& name, int32_t kind) {
  bool itemised = status.code <= -200552 && status.code >= -200555;
  check(itemised || status.code == -200467 || status.code == -201337);
  check((status.code == -200467) == name.empty());
  const char* info = zqerr::json::findKey(status.report, "translator_info");
  check(itemised == (info != nullptr));
  if (!info) return;
  const char* items = zqerr::json::findKey(info, "ordered_data");
  int32_t count = zqerr::json::countItems(items);
  check(count == 1 || count == 2);
  if (count == 2) {  // the position comes first: {"type":...,"usage":...,"value":N
    const char* value = items + std::string_view(items).find("\"value\":") + 8;
    size_t position = static_cast<size_t>(zqerr::json::readInt(value));
    check(status.code == -200552 && position < name.size());
    check(!shortKind(kind) && !longKind(kind) ? position == 0 : forbidden(kind, name[position]) || name[position] == u':');
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  int32_t kind = static_cast<int32_t>(data[0] % 8) - 1;  // -1 to 6: every kind and two outsiders
  std::u16string name;
  for (size_t i = 1; i + 1 < size; i += 2) name.push_back(static_cast<char16_t>(data[i] | (data[i + 1] << 8)));

  zqerr::Status status;
  zqwombat::validateObjectName(name, &kind, &status);
  if (status.code == 0) {
    checkValid(name, kind);
  } else {
    checkRefused(status, name, kind);
  }

  const char16_t* b = name.data();
  const char16_t* e = b + name.size();
  check(zqwombat::compareFoldedWide(b, e, b, e) == 0);
  if (!name.empty()) {
    int forward = zqwombat::compareFoldedWide(b, e, b + 1, e);
    check(forward == -zqwombat::compareFoldedWide(b + 1, e, b, e));
  }
  return 0;
}
