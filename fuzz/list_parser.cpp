// Arbitrary lists through the list parser. What comes out must be what a split promises:
// non-empty entries with no outer white space and no delimiter in them; a text without a colon
// never fails and gives one entry per non-empty piece; a failure leaves the output empty and
// blames an entry in the report.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "status/report_reader.h"
#include "text/list_parser.h"
#include "text/trim_split.h"

namespace {

void check(bool condition) {
  if (!condition) __builtin_trap();
}

bool isWhiteByte(char c) { return zqwombat::isWhite(static_cast<unsigned char>(c)); }

// Pieces of a byte-level split: the delimiters are ASCII, so bytes and UTF-16 agree on them.
size_t countPieces(std::string_view text, std::string_view delimiter) {
  size_t count = 0;
  for (;;) {
    size_t found = text.find(delimiter);
    std::string_view piece = text.substr(0, found);
    while (!piece.empty() && isWhiteByte(piece.front())) piece.remove_prefix(1);
    while (!piece.empty() && isWhiteByte(piece.back())) piece.remove_suffix(1);
    count += !piece.empty();
    if (found == std::string_view::npos) return count;
    text.remove_prefix(found + delimiter.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // A padded range repeats its text up to 15000 times: keep inputs short.
  if (size == 0 || size > 256) return 0;
  static constexpr std::string_view kDelimiters[] = {",", ";", "<>", ", "};
  std::string_view delimiter = kDelimiters[data[0] % 4];
  std::string_view text(reinterpret_cast<const char*>(data + 1), size - 1);

  zqerr::Status status;
  std::vector<std::string> out;
  zqwombat::parseList(text, delimiter, &out, &status);

  if (status.code != 0) {
    check(status.code == -200498 || status.code == -200592 || status.code == -200605);
    check(out.empty());
    check(text.find(':') != std::string_view::npos);
    const char* info = zqerr::json::findKey(status.report, "translator_info");
    check(info && zqerr::json::countItems(zqerr::json::findKey(info, "ordered_data")) == (status.code == -200498 ? 1 : 2));
    return 0;
  }
  for (const std::string& entry : out) {
    check(!entry.empty());
    check(!isWhiteByte(entry.front()) && !isWhiteByte(entry.back()));
    check(entry.find(delimiter) == std::string::npos);
  }
  if (text.find(':') == std::string_view::npos) check(out.size() == countPieces(text, delimiter));
  return 0;
}
