#include "text/casefold.h"

#include <cstring>

#include "text/casefold_table.h"

namespace zqwombat {

namespace {

// Code points from UTF-8, folded, handed out one unit at a time.
struct Utf8Source {
  const char* p;
  const char* end;
  bool next(char32_t* cp) {
    if (p == end) return false;
    p = decodeUtf8Unchecked(p, end, cp);
    return true;
  }
};

struct WideSource {
  const char16_t* p;
  const char16_t* end;
  bool next(char32_t* cp) {
    if (p == end) return false;
    *cp = *p++;
    return true;
  }
};

template <typename Source>
class FoldedStream {
 public:
  explicit FoldedStream(Source source) : source_(source) {}
  bool next(char32_t* unit) {
    if (index_ == count_) {
      char32_t cp;
      if (!source_.next(&cp)) return false;
      count_ = foldCodePoint(cp, pending_);
      index_ = 0;
    }
    *unit = pending_[index_++];
    return true;
  }

 private:
  Source source_;
  char32_t pending_[3] = {};
  size_t count_ = 0;
  size_t index_ = 0;
};

template <typename Source>
int compareStreams(Source left, Source right) {
  FoldedStream<Source> a(left), b(right);
  for (;;) {
    char32_t x = 0, y = 0;
    bool hasX = a.next(&x), hasY = b.next(&y);
    if (!hasX || !hasY) return hasX ? 1 : (hasY ? -1 : 0);
    if (x != y) return x < y ? -1 : 1;
  }
}

}  // namespace

size_t foldCodePoint(char32_t cp, char32_t out[3]) {
  if (cp >= kFoldRanges[0].first) {
    for (const FoldRange& range : kFoldRanges) {
      if (cp < range.first || cp > range.last) continue;
      const char16_t* row = range.rows + static_cast<size_t>(cp - range.first) * range.width;
      size_t n = 0;
      while (n < range.width && row[n]) {
        out[n] = row[n];
        ++n;
      }
      return n;
    }
  }
  out[0] = cp;
  return 1;
}

const char* decodeUtf8Unchecked(const char* p, const char* end, char32_t* cp) {
  auto lead = static_cast<unsigned char>(*p++);
  if (lead < 0x80) {
    *cp = lead;
    return p;
  }
  int more;
  char32_t value;
  if ((lead & 0xE0) == 0xC0) { more = 1; value = lead & 0x1Fu; }
  else if ((lead & 0xF0) == 0xE0) { more = 2; value = lead & 0x0Fu; }
  else { more = 3; value = lead & 0x07u; }
  for (; more > 0 && p != end; --more) value = (value << 6) | (static_cast<unsigned char>(*p++) & 0x3Fu);
  *cp = value;
  return p;
}

int compareFolded(const char* begin1, const char* end1, const char* begin2, const char* end2) {
  size_t n1 = static_cast<size_t>(end1 - begin1), n2 = static_cast<size_t>(end2 - begin2);
  if (n1 == n2 && (n1 == 0 || std::memcmp(begin1, begin2, n1) == 0)) return 0;
  return compareStreams(Utf8Source{begin1, end1}, Utf8Source{begin2, end2});
}

int compareFoldedWide(const char16_t* begin1, const char16_t* end1, const char16_t* begin2, const char16_t* end2) {
  size_t n1 = static_cast<size_t>(end1 - begin1), n2 = static_cast<size_t>(end2 - begin2);
  if (n1 == n2 && (n1 == 0 || std::memcmp(begin1, begin2, n1 * sizeof(char16_t)) == 0)) return 0;
  return compareStreams(WideSource{begin1, end1}, WideSource{begin2, end2});
}

}  // namespace zqwombat
