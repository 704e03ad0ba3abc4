#include "text/sstutf8.h"

#include <climits>
#include <cstring>
#include <exception>

#include "platform/platform.h"
#include "zqvorex_status_codes.h"
#include "text/wide_buffer.h"

namespace zqsstutf8 {

namespace {

constexpr uint32_t kFlagsToWide = zqplatform::kMbPrecomposed | zqplatform::kMbErrInvalidChars;
constexpr size_t kStackBytes = 1024;

bool isAscii(const char* text, size_t length) {
  for (size_t i = 0; i < length; ++i)
    if (static_cast<unsigned char>(text[i]) >= 0x80) return false;
  return true;
}

// GB18030 refuses the flags that other pages take.
bool systemPageIsGb18030(uint32_t encoding) {
  return encoding == 0 && zqplatform::systemCodePage() == zqplatform::kCpGb18030;
}

// One strictly valid UTF-8 sequence at s (n bytes left): its length and code point, or 0.
size_t decodeStrict(const unsigned char* s, size_t n, uint32_t* cp) {
  unsigned char lead = s[0];
  size_t length;
  uint32_t value;
  if (lead < 0x80) {
    *cp = lead;
    return 1;
  }
  if (lead < 0xC0 || lead >= 0xF8) return 0;
  if (lead < 0xE0) { length = 2; value = lead & 0x1Fu; }
  else if (lead < 0xF0) { length = 3; value = lead & 0x0Fu; }
  else { length = 4; value = lead & 0x07u; }
  if (length > n) return 0;
  for (size_t i = 1; i < length; ++i) {
    if ((s[i] & 0xC0) != 0x80) return 0;
    value = (value << 6) | (s[i] & 0x3Fu);
  }
  static constexpr uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (value < kSmallest[length] || (value >= 0xD800 && value <= 0xDFFF) || value > 0x10FFFF) return 0;
  *cp = value;
  return length;
}

// Validates the whole text and counts its UTF-16 units; false on the first bad sequence.
bool measureUtf8(const char* text, size_t length, size_t* units) {
  auto s = reinterpret_cast<const unsigned char*>(text);
  *units = 0;
  for (size_t i = 0; i < length;) {
    uint32_t cp;
    size_t step = decodeStrict(s + i, length - i, &cp);
    if (step == 0) return false;
    *units += cp >= 0x10000 ? 2 : 1;
    i += step;
  }
  return true;
}

// Decodes an already validated text into UTF-16.
void decodeToWide(const char* text, size_t length, char16_t* out) {
  auto s = reinterpret_cast<const unsigned char*>(text);
  for (size_t i = 0; i < length;) {
    uint32_t cp;
    i += decodeStrict(s + i, length - i, &cp);
    if (cp >= 0x10000) {
      cp -= 0x10000;
      *out++ = static_cast<char16_t>(0xD800 + (cp >> 10));
      *out++ = static_cast<char16_t>(0xDC00 + (cp & 0x3FF));
    } else {
      *out++ = static_cast<char16_t>(cp);
    }
  }
}

// Byte room for a converted text: on the stack when small.
class ByteBuffer {
 public:
  bool prepare(size_t bytes) {
    if (bytes <= kStackBytes) {
      data_ = stack_;
      return true;
    }
    if (!heap_.reserve(bytes, &status_)) return false;
    data_ = heap_.data();
    return true;
  }
  char* data() { return data_; }

 private:
  char stack_[kStackBytes];
  zqhtl::String heap_;
  zqerr::FixedStatus status_ = zqerr::makeFixedStatus();
  char* data_ = stack_;
};

}  // namespace

bool StdStringSink::write(const char* bytes, size_t count) {
  try {
    out_->append(bytes, count);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool StringSink::write(const char* bytes, size_t count) { return out_->append(bytes, count, &status_); }

uint32_t codePageOfEncoding(uint32_t encoding) {
  switch (encoding) {
    case 0: return zqplatform::kCpAcp;
    case 1:
    case 2:
    case 3: return 1252;
    case 4: return 932;
    case 5: return 949;
    case 6: return 936;
    default: return 65535;
  }
}

bool utf16ToUtf8(const char16_t* units, size_t count, ByteSink& out) {
  char chunk[256];
  size_t used = 0;
  for (size_t i = 0; i < count; ++i) {
    uint32_t cp = units[i];
    if (cp >= 0xD800 && cp <= 0xDBFF && i + 1 < count) cp = cp * 1024 + units[++i] - 56613888u;
    if (used > sizeof chunk - 4) {
      if (!out.write(chunk, used)) return false;
      used = 0;
    }
    if (cp < 0x80) {
      chunk[used++] = static_cast<char>(cp);
    } else if (cp < 0x800) {
      chunk[used++] = static_cast<char>(0xC0 | (cp >> 6));
      chunk[used++] = static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      chunk[used++] = static_cast<char>(0xE0 | (cp >> 12));
      chunk[used++] = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      chunk[used++] = static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      chunk[used++] = static_cast<char>(0xF0 | (cp >> 18));
      chunk[used++] = static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
      chunk[used++] = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      chunk[used++] = static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  return used == 0 || out.write(chunk, used);
}

int32_t mbsToUtf8(const char* text, uint32_t encoding, ByteSink& out) {
  if (!text || !*text) return 0;
  size_t length = std::strlen(text);
  if (isAscii(text, length)) return out.write(text, length) ? 0 : zqapalerr_memoryFull;
  if (length > INT_MAX) return kErrorConversion;
  uint32_t page = codePageOfEncoding(encoding);
  uint32_t flags = systemPageIsGb18030(encoding) ? zqplatform::kMbErrInvalidChars : kFlagsToWide;
  int units = zqplatform::multiByteToWide(page, flags, text, static_cast<int>(length), nullptr, 0);
  if (units == 0) return kErrorConversion;
  zqwombat::WideBuffer wide;
  zqerr::FixedStatus status = zqerr::makeFixedStatus();
  if (!wide.prepare(static_cast<size_t>(units), &status)) return zqapalerr_memoryFull;
  units = zqplatform::multiByteToWide(page, flags, text, static_cast<int>(length), wide.data(), units);
  if (units == 0) return kErrorConversion;
  return utf16ToUtf8(wide.data(), static_cast<size_t>(units), out) ? 0 : zqapalerr_memoryFull;
}

int32_t utf8ToMbs(const char* text, uint32_t encoding, ByteSink& out) {
  if (!text || !*text) return 0;
  size_t length = std::strlen(text);
  if (isAscii(text, length)) return out.write(text, length) ? 0 : zqapalerr_memoryFull;
  size_t units = 0;
  if (!measureUtf8(text, length, &units) || units > INT_MAX) return kErrorConversion;
  zqwombat::WideBuffer wide;
  zqerr::FixedStatus status = zqerr::makeFixedStatus();
  if (!wide.prepare(units, &status)) return zqapalerr_memoryFull;
  decodeToWide(text, length, wide.data());
  uint32_t page = codePageOfEncoding(encoding);
  uint32_t flags = systemPageIsGb18030(encoding) ? 0 : zqplatform::kWcNoBestFitChars;
  int bytes = zqplatform::wideToMultiByte(page, flags, wide.data(), static_cast<int>(units), nullptr, 0);
  if (bytes == 0) return kErrorConversion;
  ByteBuffer converted;
  if (!converted.prepare(static_cast<size_t>(bytes))) return zqapalerr_memoryFull;
  bytes = zqplatform::wideToMultiByte(page, flags, wide.data(), static_cast<int>(units), converted.data(), bytes);
  if (bytes == 0) return kErrorConversion;
  return out.write(converted.data(), static_cast<size_t>(bytes)) ? 0 : zqapalerr_memoryFull;
}

}  // namespace zqsstutf8
