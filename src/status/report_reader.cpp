#include "status/report_reader.h"

#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace zqerr::json {

namespace {

constexpr int kMaxDepth = 256;  // deeper nesting is refused rather than risking the stack
constexpr int kValueExpected = 1;

const char* skipSpace(const char* p) {
  while (isSpace(*p)) ++p;
  return p;
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

struct Parser {
  const char* errorAt = nullptr;
  int errorKind = kNoError;

  const char* fail(const char* at, int kind) {
    errorAt = at;
    errorKind = kind;
    return nullptr;
  }

  // Each returns the pointer behind the value, or null with the error recorded.
  const char* string(const char* p) {
    if (*p != '"') return fail(p, kStringExpected);
    for (++p;; ++p) {
      if (*p == '\0') return fail(p, kStringExpected);
      if (*p == '"') return p + 1;
      if (*p != '\\') continue;
      ++p;
      if (*p == 'u') {
        for (int i = 1; i <= 4; ++i)
          if (hexValue(p[i]) < 0) return fail(p, kBadEscape);
        p += 4;
      } else if (!std::strchr("\"\\/bfnrt", *p) || *p == '\0') {
        return fail(p, kBadEscape);
      }
    }
  }

  const char* number(const char* p) {
    const char* start = p;
    if (*p == '-') ++p;
    if (!isDigit(*p)) return fail(start, kValueExpected);
    while (isDigit(*p)) ++p;
    if (*p == '.') {
      ++p;
      if (!isDigit(*p)) return fail(start, kValueExpected);
      while (isDigit(*p)) ++p;
    }
    if (*p == 'e' || *p == 'E') {
      ++p;
      if (*p == '+' || *p == '-') ++p;
      if (!isDigit(*p)) return fail(start, kValueExpected);
      while (isDigit(*p)) ++p;
    }
    return p;
  }

  const char* literal(const char* p, const char* word) {
    size_t n = std::strlen(word);
    return std::strncmp(p, word, n) == 0 ? p + n : fail(p, kValueExpected);
  }

  // Members or elements up to the closing character; `close` is '}' or ']'.
  const char* container(const char* p, char close, int depth) {
    const int malformed = close == '}' ? kObjectMalformed : kArrayMalformed;
    if (depth > kMaxDepth) return fail(p, malformed);
    p = skipSpace(p + 1);
    if (*p == close) return p + 1;
    while (true) {
      if (close == '}') {
        if (!(p = string(p))) return nullptr;
        p = skipSpace(p);
        if (*p != ':') return fail(p, kColonMissing);
        p = skipSpace(p + 1);
      }
      if (!(p = value(p, depth + 1))) return nullptr;
      p = skipSpace(p);
      if (*p == close) return p + 1;
      if (*p == '\0') return fail(p, malformed);
      if (*p != ',') return fail(p, kCommaOrCloseMissing);
      p = skipSpace(p + 1);
      if (*p == close) return fail(p, kCommaBeforeClose);
    }
  }

  const char* value(const char* p, int depth) {
    switch (*p) {
      case '{': return container(p, '}', depth);
      case '[': return container(p, ']', depth);
      case '"': return string(p);
      case 't': return literal(p, "true");
      case 'f': return literal(p, "false");
      case 'n': return literal(p, "null");
      default: return number(p);
    }
  }
};

int typeOf(char c) {
  switch (c) {
    case '{': return kObject;
    case '[': return kArray;
    case '"': return kString;
    case 't':
    case 'f': return kBoolean;
    case 'n': return kNull;
    default: return kNumber;
  }
}

void appendUtf8(std::string* out, uint32_t cp) {
  if (cp < 0x80) {
    out->push_back(static_cast<char>(cp));
  } else if (cp < 0x800) {
    out->push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out->push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else if (cp < 0x10000) {
    out->push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out->push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out->push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out->push_back(static_cast<char>(0xF0 | (cp >> 18)));
    out->push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
    out->push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out->push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

uint32_t readHex4(const char* p) {
  uint32_t v = 0;
  for (int i = 0; i < 4; ++i) v = v * 16 + static_cast<uint32_t>(hexValue(p[i]));
  return v;
}

bool hasHex4(const char* p, const char* end) {
  if (end - p < 4) return false;
  for (int i = 0; i < 4; ++i)
    if (hexValue(p[i]) < 0) return false;
  return true;
}

// Compares a raw (escaped) JSON string with `key` without allocating in the common case.
bool keyEquals(const char* raw, size_t length, std::string_view key) {
  if (!std::memchr(raw, '\\', length)) return std::string_view(raw, length) == key;
  std::string decoded;
  return decodeString(raw, length, &decoded) && decoded == key;
}

}  // namespace

bool parseValue(const char* text, ParsedValue* result) {
  Parser parser;
  const char* begin = skipSpace(text);
  const char* end = parser.value(begin, 0);
  if (!end) {
    *result = ParsedValue{};
    result->errorAt = parser.errorAt;
    result->errorKind = parser.errorKind;
    return false;
  }
  *result = ParsedValue{typeOf(*begin), begin, static_cast<size_t>(end - begin), nullptr, kNoError};
  return true;
}

const char* endOfValue(const char* text) {
  if (!text || (*text != '{' && *text != '[')) return nullptr;
  Parser parser;
  const char* end = parser.value(text, 0);
  return end ? end - 1 : nullptr;
}

const char* findKey(const char* objectText, std::string_view key) {
  if (!objectText) return nullptr;
  Parser parser;
  const char* p = skipSpace(objectText);
  if (*p != '{') return nullptr;
  p = skipSpace(p + 1);
  if (*p == '}') return nullptr;
  while (true) {
    const char* keyStart = p;
    if (!(p = parser.string(p))) return nullptr;
    size_t keyLength = static_cast<size_t>(p - keyStart) - 2;
    p = skipSpace(p);
    if (*p != ':') return nullptr;
    const char* value = skipSpace(p + 1);
    if (!(p = parser.value(value, 1))) return nullptr;
    if (keyEquals(keyStart + 1, keyLength, key)) return value;
    p = skipSpace(p);
    if (*p != ',') return nullptr;
    p = skipSpace(p + 1);
  }
}

int32_t countItems(const char* arrayText) {
  if (!arrayText) return -1;
  Parser parser;
  const char* p = skipSpace(arrayText);
  if (*p != '[') return -1;
  p = skipSpace(p + 1);
  if (*p == ']') return 0;
  int32_t count = 0;
  while (true) {
    if (!(p = parser.value(p, 1))) return -1;
    ++count;
    p = skipSpace(p);
    if (*p == ']') return count;
    if (*p != ',') return -1;
    p = skipSpace(p + 1);
  }
}

const char* arrayBegin(const char* text) {
  if (!text) return nullptr;
  const char* p = skipSpace(text);
  if (*p != '[') return nullptr;
  p = skipSpace(p + 1);
  return *p == ']' || *p == '\0' ? nullptr : p;
}

const char* arrayNext(const char* behind) {
  if (!behind) return nullptr;
  const char* p = skipSpace(behind);
  return *p == ',' ? skipSpace(p + 1) : nullptr;
}

bool decodeString(const char* raw, size_t length, std::string* out) {
  out->clear();
  const char* end = raw + length;
  for (const char* p = raw; p < end; ++p) {
    if (*p != '\\') {
      out->push_back(*p);
      continue;
    }
    if (++p >= end) return false;
    switch (*p) {
      case '"': out->push_back('"'); break;
      case '\\': out->push_back('\\'); break;
      case '/': out->push_back('/'); break;
      case 'b': out->push_back('\b'); break;
      case 'f': out->push_back('\f'); break;
      case 'n': out->push_back('\n'); break;
      case 'r': out->push_back('\r'); break;
      case 't': out->push_back('\t'); break;
      case 'u': {
        if (!hasHex4(p + 1, end)) return false;
        uint32_t cp = readHex4(p + 1);
        p += 4;
        if (cp >= 0xD800 && cp <= 0xDBFF && end - p > 6 && p[1] == '\\' && p[2] == 'u' && hasHex4(p + 3, end)) {
          uint32_t low = readHex4(p + 3);
          if (low >= 0xDC00 && low <= 0xDFFF) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (low - 0xDC00);
            p += 6;
          }
        }
        appendUtf8(out, cp);
        break;
      }
      default: return false;
    }
  }
  return true;
}

int32_t readInt(const char* text) {
  if (!text) return 0;
  const char* p = skipSpace(text);
  const char* start = p;
  if (*p == '-') ++p;
  while (isDigit(*p)) ++p;
  if (*p != '.' && *p != 'e' && *p != 'E') return static_cast<int32_t>(std::strtoll(start, nullptr, 10));
  // A fraction or exponent: read as double with the decimal point of the C locale in force.
  char buffer[64];
  size_t n = 0;
  const char* point = std::localeconv()->decimal_point;
  for (const char* q = start; n + 4 < sizeof buffer; ++q) {
    bool part = isDigit(*q) || *q == '-' || *q == '+' || *q == 'e' || *q == 'E';
    if (*q == '.') {
      for (const char* d = point; *d && n + 4 < sizeof buffer; ++d) buffer[n++] = *d;
    } else if (part) {
      buffer[n++] = *q;
    } else {
      break;
    }
  }
  buffer[n] = '\0';
  double value = std::strtod(buffer, nullptr);
  if (!(value > -2147483649.0 && value < 2147483648.0)) return value < 0 ? INT32_MIN : INT32_MAX;
  return static_cast<int32_t>(value);
}

}  // namespace zqerr::json
