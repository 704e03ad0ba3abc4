// Code-page conversion with Windows semantics on Linux: UTF-8 natively, the other pages
// through iconv. Lengths, flags, replacement and last-error codes follow the Windows calls.
#include <iconv.h>

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "platform/platform.h"

namespace zqplatform {

namespace {

const char* iconvName(uint32_t codePage) {
  switch (codePage) {
    case 1252: return "CP1252";
    case 932: return "CP932";
    case 949: return "CP949";
    case 936: return "CP936";
    case 54936: return "GB18030";
    default: return nullptr;
  }
}

uint32_t codePageOfCodeset(std::string codeset) {
  std::string name;
  for (char c : codeset)
    if (c != '-' && c != '_') name += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  struct Entry { const char* name; uint32_t page; };
  static const Entry kTable[] = {
      {"UTF8", 65001},   {"CP1252", 1252},    {"WINDOWS1252", 1252}, {"ISO88591", 1252},
      {"LATIN1", 1252},  {"ISO885915", 1252}, {"SJIS", 932},         {"SHIFTJIS", 932},
      {"CP932", 932},    {"WINDOWS31J", 932}, {"EUCKR", 949},        {"CP949", 949},
      {"UHC", 949},      {"GBK", 936},        {"CP936", 936},        {"GB2312", 936},
      {"GB18030", 54936}};
  for (const Entry& e : kTable)
    if (name == e.name) return e.page;
  return kCpUtf8;
}

uint32_t readSystemCodePage() {
  if (const char* forced = std::getenv("ZQCAI_CODE_PAGE"); forced && *forced) {
    char* end = nullptr;
    unsigned long page = std::strtoul(forced, &end, 10);
    if (end && *end == '\0' && page > 0 && page < 65536) return static_cast<uint32_t>(page);
  }
  for (const char* var : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* value = std::getenv(var);
    if (!value || !*value) continue;
    std::string locale(value);
    size_t dot = locale.find('.');
    if (dot == std::string::npos) return kCpUtf8;
    std::string codeset = locale.substr(dot + 1);
    codeset = codeset.substr(0, codeset.find('@'));
    return codePageOfCodeset(codeset);
  }
  return kCpUtf8;
}

int fail(uint32_t error) {
  setLastError(error);
  return 0;
}

// Output sink that counts when no buffer is given and refuses to overrun one that is.
template <typename Unit>
struct Sink {
  Unit* dst;
  int capacity;
  int count = 0;
  bool overflow = false;
  void put(Unit u) {
    if (dst) {
      if (count >= capacity) {
        overflow = true;
        return;
      }
      dst[count] = u;
    }
    ++count;
  }
};

// Length in bytes of one well-formed UTF-8 sequence at s (n bytes left), and its code point;
// 0 when malformed, with *bad set to the length of the maximal ill-formed prefix (at least 1).
int decodeUtf8(const unsigned char* s, int n, uint32_t* cp, int* bad) {
  unsigned char b = s[0];
  *bad = 1;
  if (b < 0x80) {
    *cp = b;
    return 1;
  }
  int len;
  uint32_t value;
  unsigned char lo = 0x80, hi = 0xBF;
  if (b >= 0xC2 && b <= 0xDF) { len = 2; value = b & 0x1F; }
  else if (b >= 0xE0 && b <= 0xEF) {
    len = 3; value = b & 0x0F;
    if (b == 0xE0) lo = 0xA0;
    if (b == 0xED) hi = 0x9F;
  } else if (b >= 0xF0 && b <= 0xF4) {
    len = 4; value = b & 0x07;
    if (b == 0xF0) lo = 0x90;
    if (b == 0xF4) hi = 0x8F;
  } else {
    return 0;
  }
  for (int i = 1; i < len; ++i) {
    if (i >= n) return 0;
    unsigned char c = s[i];
    if (c < (i == 1 ? lo : 0x80) || c > (i == 1 ? hi : 0xBF)) return 0;
    value = (value << 6) | (c & 0x3F);
    *bad = i + 1;
  }
  *cp = value;
  return len;
}

int utf8ToUtf16(uint32_t flags, const char* src, int srcLen, char16_t* dst, int dstCount) {
  if (flags & ~kMbErrInvalidChars) return fail(kErrorInvalidFlags);
  Sink<char16_t> out{dst, dstCount};
  auto s = reinterpret_cast<const unsigned char*>(src);
  for (int i = 0; i < srcLen;) {
    uint32_t cp;
    int bad;
    int len = decodeUtf8(s + i, srcLen - i, &cp, &bad);
    if (len == 0) {
      if (flags & kMbErrInvalidChars) return fail(kErrorNoUnicodeTranslation);
      out.put(0xFFFD);
      i += bad;
      continue;
    }
    if (cp >= 0x10000) {
      cp -= 0x10000;
      out.put(static_cast<char16_t>(0xD800 + (cp >> 10)));
      out.put(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
    } else {
      out.put(static_cast<char16_t>(cp));
    }
    i += len;
  }
  if (out.overflow) return fail(kErrorInsufficientBuffer);
  return out.count;
}

int utf16ToUtf8(uint32_t flags, const char16_t* src, int srcLen, char* dst, int dstSize) {
  if (flags & ~0x80u) return fail(kErrorInvalidFlags);  // only WC_ERR_INVALID_CHARS is allowed
  Sink<char> out{dst, dstSize};
  for (int i = 0; i < srcLen; ++i) {
    uint32_t cp = src[i];
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < srcLen && src[i + 1] >= 0xDC00 && src[i + 1] <= 0xDFFF) {
      cp = 0x10000 + ((cp - 0xD800) << 10) + (src[i + 1] - 0xDC00);
      ++i;
    } else if (cp >= 0xD800 && cp <= 0xDFFF) {
      if (flags & 0x80u) return fail(kErrorNoUnicodeTranslation);
      cp = 0xFFFD;
    }
    if (cp < 0x80) {
      out.put(static_cast<char>(cp));
    } else if (cp < 0x800) {
      out.put(static_cast<char>(0xC0 | (cp >> 6)));
      out.put(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
      out.put(static_cast<char>(0xE0 | (cp >> 12)));
      out.put(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
      out.put(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
      out.put(static_cast<char>(0xF0 | (cp >> 18)));
      out.put(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
      out.put(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
      out.put(static_cast<char>(0x80 | (cp & 0x3F)));
    }
  }
  if (out.overflow) return fail(kErrorInsufficientBuffer);
  return out.count;
}

class Iconv {
 public:
  Iconv(const char* to, const char* from) : cd_(iconv_open(to, from)) {}
  ~Iconv() {
    if (ok()) iconv_close(cd_);
  }
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;
  bool ok() const { return cd_ != reinterpret_cast<iconv_t>(-1); }
  // Converts as much as possible; returns false with errno on a stop before the end.
  bool run(const char** in, size_t* inLeft, char** out, size_t* outLeft) {
    return iconv(cd_, const_cast<char**>(in), inLeft, out, outLeft) != static_cast<size_t>(-1);
  }

 private:
  iconv_t cd_;
};

// Bytes that code page 1252 leaves undefined pass through as the same code point, as on Windows.
bool isCp1252Hole(unsigned char b) { return b == 0x81 || b == 0x8D || b == 0x8F || b == 0x90 || b == 0x9D; }

int codePageToUtf16(uint32_t codePage, uint32_t flags, const char* src, int srcLen, char16_t* dst,
                    int dstCount) {
  if (codePage == kCpGb18030 && (flags & ~kMbErrInvalidChars)) return fail(kErrorInvalidFlags);
  const char* name = iconvName(codePage);
  if (!name) return fail(kErrorInvalidParameter);
  Iconv cd("UTF-16LE", name);
  if (!cd.ok()) return fail(kErrorInvalidParameter);
  Sink<char16_t> out{dst, dstCount};
  const char* in = src;
  size_t inLeft = static_cast<size_t>(srcLen);
  char16_t chunk[256];
  while (inLeft > 0) {
    char* o = reinterpret_cast<char*>(chunk);
    size_t oLeft = sizeof chunk;
    bool done = cd.run(&in, &inLeft, &o, &oLeft);
    int err = errno;
    for (char16_t* p = chunk; p < reinterpret_cast<char16_t*>(o); ++p) out.put(*p);
    if (done || (inLeft > 0 && err == E2BIG)) continue;
    auto b = static_cast<unsigned char>(*in);
    if (codePage == 1252 && isCp1252Hole(b)) {
      out.put(b);
    } else {
      if (flags & kMbErrInvalidChars) return fail(kErrorNoUnicodeTranslation);
      out.put(codePage == 932 ? 0x30FB : 0xFFFD);
    }
    ++in;
    --inLeft;
  }
  if (out.overflow) return fail(kErrorInsufficientBuffer);
  return out.count;
}

int utf16ToCodePage(uint32_t codePage, uint32_t flags, const char16_t* src, int srcLen, char* dst,
                    int dstSize) {
  if (codePage == kCpGb18030 && flags != 0) return fail(kErrorInvalidFlags);
  const char* name = iconvName(codePage);
  if (!name) return fail(kErrorInvalidParameter);
  Iconv cd(name, "UTF-16LE");
  if (!cd.ok()) return fail(kErrorInvalidParameter);
  Sink<char> out{dst, dstSize};
  const char* in = reinterpret_cast<const char*>(src);
  size_t inLeft = static_cast<size_t>(srcLen) * 2;
  char chunk[512];
  while (inLeft > 0) {
    char* o = chunk;
    size_t oLeft = sizeof chunk;
    bool done = cd.run(&in, &inLeft, &o, &oLeft);
    int err = errno;
    for (char* p = chunk; p < o; ++p) out.put(*p);
    if (done || (inLeft > 0 && err == E2BIG)) continue;
    // An unmappable character or a lone surrogate becomes the default character.
    const auto* unit = reinterpret_cast<const char16_t*>(in);
    size_t skip = 2;
    if (*unit >= 0xD800 && *unit <= 0xDBFF && inLeft >= 4 && unit[1] >= 0xDC00 && unit[1] <= 0xDFFF) skip = 4;
    out.put('?');
    in += skip;
    inLeft -= skip;
  }
  if (out.overflow) return fail(kErrorInsufficientBuffer);
  return out.count;
}

}  // namespace

uint32_t systemCodePage() {
  static const uint32_t page = readSystemCodePage();
  return page;
}

int multiByteToWide(uint32_t codePage, uint32_t flags, const char* src, int srcLen, char16_t* dst,
                    int dstCount) {
  if (!src || srcLen == 0 || srcLen < -1 || dstCount < 0 || (dstCount > 0 && !dst))
    return fail(kErrorInvalidParameter);
  if (srcLen == -1) srcLen = static_cast<int>(std::strlen(src)) + 1;
  if (codePage == kCpAcp) codePage = systemCodePage();
  if (codePage == kCpUtf8) return utf8ToUtf16(flags, src, srcLen, dstCount ? dst : nullptr, dstCount);
  return codePageToUtf16(codePage, flags, src, srcLen, dstCount ? dst : nullptr, dstCount);
}

int wideToMultiByte(uint32_t codePage, uint32_t flags, const char16_t* src, int srcLen, char* dst,
                    int dstSize) {
  if (!src || srcLen == 0 || srcLen < -1 || dstSize < 0 || (dstSize > 0 && !dst))
    return fail(kErrorInvalidParameter);
  if (srcLen == -1) {
    srcLen = 0;
    while (src[srcLen]) ++srcLen;
    ++srcLen;
  }
  if (codePage == kCpAcp) codePage = systemCodePage();
  if (codePage == kCpUtf8) return utf16ToUtf8(flags, src, srcLen, dstSize ? dst : nullptr, dstSize);
  return utf16ToCodePage(codePage, flags, src, srcLen, dstSize ? dst : nullptr, dstSize);
}

}  // namespace zqplatform
