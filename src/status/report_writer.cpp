#include "status/report_writer.h"

#include <cstdio>
#include <cstring>

#include "status/report_reader.h"

namespace zqerr {

namespace {

size_t escapedSize(std::string_view text) {
  size_t size = 0;
  for (char ch : text) {
    auto c = static_cast<unsigned char>(ch);
    if (c == '\b' || c == '\t' || c == '\n' || c == '\f' || c == '\r' || c == '"' || c == '\\')
      size += 2;
    else if (c < 0x20 || c == 0x7F)
      size += 6;
    else
      size += 1;
  }
  return size;
}

char* writeEscaped(char* out, std::string_view text) {
  for (char ch : text) {
    auto c = static_cast<unsigned char>(ch);
    char e = 0;
    switch (c) {
      case '\b': e = 'b'; break;
      case '\t': e = 't'; break;
      case '\n': e = 'n'; break;
      case '\f': e = 'f'; break;
      case '\r': e = 'r'; break;
      case '"': e = '"'; break;
      case '\\': e = '\\'; break;
      default: break;
    }
    if (e) {
      *out++ = '\\';
      *out++ = e;
    } else if (c < 0x20 || c == 0x7F) {
      char hex[7];
      std::snprintf(hex, sizeof hex, "\\u%04x", c);
      std::memcpy(out, hex, 6);
      out += 6;
    } else {
      *out++ = ch;
    }
  }
  return out;
}

char* writeQuoted(char* out, std::string_view text) {
  *out++ = '"';
  out = writeEscaped(out, text);
  *out++ = '"';
  return out;
}

bool isOpening(char c) { return c == '[' || c == '{'; }
bool isClosing(char c) { return c == ']' || c == '}'; }

// True when the container around the insertion point holds nothing but whitespace.
bool containerEmpty(char* cursor, bool prepend) {
  if (prepend) {
    const char* p = cursor + 1;
    while (json::isSpace(*p)) ++p;
    return isClosing(*p);
  }
  const char* p = cursor;
  while (true) {
    --p;
    if (!json::isSpace(*p)) return isOpening(*p);
  }
}

// Opens `size` bytes at the cursor (plus a comma where one is needed) and returns where the
// text goes; null when the room between terminator and sentinel is too small.
char* makeRoom(char* cursor, size_t size, char** next) {
  bool prepend = isOpening(*cursor);
  char* at = prepend ? cursor + 1 : cursor;
  bool comma = *at != '\0' && !containerEmpty(cursor, prepend);
  size_t total = size + (comma ? 1 : 0);
  char* end = at + std::strlen(at);
  char* p = end;
  while (*p == '\0') ++p;  // to the sentinel
  if (total >= static_cast<size_t>(p - end)) return nullptr;
  std::memmove(at + total, at, static_cast<size_t>(end - at) + 1);
  if (comma && !prepend) *at++ = ',';
  if (comma && prepend) at[size] = ',';
  *next = at + size;
  return at;
}

// The one way every writer goes: room for `size` bytes, then `fill` writes exactly that many.
template <typename Fill>
ReportWriter insert(ReportWriter w, size_t size, Fill fill) {
  while (w.cursor) {
    char* next = nullptr;
    if (char* at = makeRoom(w.cursor, size, &next)) {
      fill(at);
      w.cursor = next;
      return w;
    }
    w.cursor = w.grow ? w.grow(w.context, w.cursor) : nullptr;
  }
  return w;
}

size_t keySize(const char* key) { return key ? escapedSize(key) + 3 : 0; }

char* writeKey(char* out, const char* key) {
  if (!key) return out;
  out = writeQuoted(out, key);
  *out++ = ':';
  return out;
}

ReportWriter writeRawValue(ReportWriter w, const char* key, std::string_view json) {
  return insert(w, keySize(key) + json.size(), [&](char* at) {
    at = writeKey(at, key);
    std::memcpy(at, json.data(), json.size());
  });
}

}  // namespace

char* growStatusReport(void* context, char* cursor) {
  auto* status = static_cast<zqerr_Status*>(context);
  if (!status->report) return nullptr;
  size_t offset = static_cast<size_t>(cursor - status->report);
  uint32_t capacity = status->capacity;
  uint32_t doubled = 2 * capacity - 2;
  if (2 * capacity - 4 > 0x7FFFFFFDu || doubled <= capacity) return nullptr;
  if (!status->storage(status, doubled) || !status->report || status->capacity <= capacity) return nullptr;
  if (!json::endOfValue(status->report)) return nullptr;
  return status->report + offset;
}

ReportWriter rootWriter(zqerr_Status* status) {
  if (!status->report && !resetReport(status)) return {};
  if (status->capacity < 4 && !status->storage(status, 4)) return {};
  if (status->report[0] != '{') return {};
  const char* close = json::endOfValue(status->report);
  if (!close) return {};
  return {const_cast<char*>(close), &growStatusReport, status};
}

ReportWriter writeString(ReportWriter w, const char* key, std::string_view text) {
  return insert(w, keySize(key) + escapedSize(text) + 2, [&](char* at) {
    writeQuoted(writeKey(at, key), text);
  });
}

ReportWriter writeInt32(ReportWriter w, const char* key, int32_t value) {
  char digits[16];
  int n = std::snprintf(digits, sizeof digits, "%i", value);
  return writeRawValue(w, key, {digits, static_cast<size_t>(n)});
}

ReportWriter writeUint32(ReportWriter w, const char* key, uint32_t value) {
  char digits[16];
  int n = std::snprintf(digits, sizeof digits, "%u", value);
  return writeRawValue(w, key, {digits, static_cast<size_t>(n)});
}

ReportWriter writeUint64(ReportWriter w, const char* key, uint64_t value) {
  char digits[24];
  int n = std::snprintf(digits, sizeof digits, "%llu", static_cast<unsigned long long>(value));
  return writeRawValue(w, key, {digits, static_cast<size_t>(n)});
}

ReportWriter writeRaw(ReportWriter w, const char* key, std::string_view json) {
  return writeRawValue(w, key, json);
}

ReportWriter writeObject(ReportWriter w, const char* key) { return writeRawValue(w, key, "{}"); }

ReportWriter writeArray(ReportWriter w, const char* key) { return writeRawValue(w, key, "[]"); }

ReportWriter openTranslatorInfo(zqerr_Status* status, const char* translatorName) {
  ReportWriter root = rootWriter(status);
  if (!root) return root;
  if (const char* translator = json::findKey(status->report, "translator")) {
    json::ParsedValue parsed;
    std::string decoded;
    if (!json::parseValue(translator, &parsed) || parsed.type != json::kString ||
        !json::decodeString(parsed.begin + 1, parsed.length - 2, &decoded) || decoded != translatorName)
      return {};
    if (const char* info = json::findKey(status->report, "translator_info")) {
      if (*info != '{') return {};
      const char* close = json::endOfValue(info);
      if (!close) return {};
      return {const_cast<char*>(close), root.grow, root.context};
    }
  } else {
    root = writeString(root, "translator", translatorName);
  }
  root = writeObject(root, "translator_info");
  if (root) --root.cursor;
  return root;
}

ReportWriter openOrderedData(zqerr_Status* status, const char* translatorName) {
  ReportWriter w = openTranslatorInfo(status, translatorName);
  if (!w) return w;
  const char* info = json::findKey(status->report, "translator_info");
  if (const char* data = info ? json::findKey(info, "ordered_data") : nullptr) {
    if (*data != '[') return {};
    w.cursor = const_cast<char*>(json::endOfValue(data));
    return w;
  }
  w = writeString(w, "is_debug", "0");
  w = writeInt32(w, "version", 1);
  w = writeArray(w, "ordered_data");
  if (w) --w.cursor;
  return w;
}

}  // namespace zqerr
