#include "registry_file.h"

#include <climits>

#include "platform/platform.h"

namespace zqplatform::regfile {

namespace {

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view trim(std::string_view s) {
  while (!s.empty() && isBlank(s.front())) s.remove_prefix(1);
  while (!s.empty() && isBlank(s.back())) s.remove_suffix(1);
  return s;
}

bool startsFolded(std::string_view s, std::string_view prefix) {
  return s.size() >= prefix.size() && sameName(s.substr(0, prefix.size()), prefix);
}

// True when `inner` is `outer` itself or lies somewhere below it.
bool isAtOrUnder(std::string_view inner, std::string_view outer) {
  if (!startsFolded(inner, outer)) return false;
  return inner.size() == outer.size() || inner[outer.size()] == '\\';
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = lowerAscii(c);
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// Up to `maxDigits` hex digits making up all of `s`.
bool readHexNumber(std::string_view s, size_t maxDigits, uint32_t* value) {
  if (s.empty() || s.size() > maxDigits) return false;
  *value = 0;
  for (char c : s) {
    int d = hexDigit(c);
    if (d < 0) return false;
    *value = (*value << 4) | static_cast<uint32_t>(d);
  }
  return true;
}

// A regedit export is UTF-16LE with a byte-order mark; a hand-written file is UTF-8.
std::string toUtf8(std::string_view raw) {
  if (raw.size() >= 3 && raw.substr(0, 3) == "\xEF\xBB\xBF") return std::string(raw.substr(3));
  if (raw.size() < 2 || raw.substr(0, 2) != "\xFF\xFE") return std::string(raw);
  std::u16string wide;
  for (size_t i = 2; i + 1 < raw.size(); i += 2)
    wide.push_back(static_cast<char16_t>(static_cast<uint8_t>(raw[i]) | static_cast<uint8_t>(raw[i + 1]) << 8));
  if (wide.empty() || wide.size() > INT_MAX / 4) return {};
  int n = wideToMultiByte(kCpUtf8, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0);
  std::string text(static_cast<size_t>(n > 0 ? n : 0), '\0');
  if (n > 0) wideToMultiByte(kCpUtf8, 0, wide.data(), static_cast<int>(wide.size()), text.data(), n);
  return text;
}

class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}
  bool next(std::string_view* line) {
    if (done_) return false;
    size_t end = rest_.find('\n');
    *line = rest_.substr(0, end);
    if (end == std::string_view::npos) done_ = true;
    else rest_.remove_prefix(end + 1);
    return true;
  }

 private:
  std::string_view rest_;
  bool done_ = false;
};

// A quoted text whose opening quote is at the front of `s`; `s` moves past the closing one.
// Only \\ and \" are escapes; any other backslash stands for itself.
bool readQuoted(std::string_view* s, std::string* out) {
  out->clear();
  for (size_t i = 1; i < s->size(); ++i) {
    char c = (*s)[i];
    if (c == '"') {
      s->remove_prefix(i + 1);
      return true;
    }
    if (c == '\\' && i + 1 < s->size() && ((*s)[i + 1] == '\\' || (*s)[i + 1] == '"')) c = (*s)[++i];
    out->push_back(c);
  }
  return false;
}

// Comma-separated bytes; a line that ends in a backslash continues on the next one.
bool readHexBytes(std::string_view text, Lines& lines, std::vector<uint8_t>* out) {
  bool good = true;
  while (true) {
    text = trim(text);
    bool more = !text.empty() && text.back() == '\\';
    if (more) text.remove_suffix(1);
    while (!text.empty()) {
      size_t comma = text.find(',');
      std::string_view token = trim(text.substr(0, comma));
      text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
      uint32_t byte = 0;
      if (token.empty()) continue;
      if (readHexNumber(token, 2, &byte)) out->push_back(static_cast<uint8_t>(byte));
      else good = false;
    }
    if (!more || !lines.next(&text)) return good;
  }
}

void appendUtf16(const std::string& text, std::vector<uint8_t>* out) {
  std::u16string wide;
  if (!text.empty() && text.size() < INT_MAX / 2) {
    int n = multiByteToWide(kCpUtf8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    wide.resize(static_cast<size_t>(n > 0 ? n : 0));
    if (n > 0) multiByteToWide(kCpUtf8, 0, text.data(), static_cast<int>(text.size()), wide.data(), n);
  }
  wide.push_back(u'\0');
  for (char16_t unit : wide) {
    out->push_back(static_cast<uint8_t>(unit & 0xFF));
    out->push_back(static_cast<uint8_t>(unit >> 8));
  }
}

enum class Action { kNone, kSet, kDelete };

// The data after "=": a string, dword:, hex:, hex(type): or "-" for deletion.
Action readData(std::string_view data, Lines& lines, Value* value) {
  std::string text;
  uint32_t number = 0;
  if (data == "-") return Action::kDelete;
  if (!data.empty() && data.front() == '"') {
    if (!readQuoted(&data, &text) || !trim(data).empty()) return Action::kNone;
    value->type = kRegSz;
    appendUtf16(text, &value->data);
    return Action::kSet;
  }
  if (startsFolded(data, "dword:")) {
    if (!readHexNumber(trim(data.substr(6)), 8, &number)) return Action::kNone;
    value->type = kRegDword;
    for (int shift = 0; shift < 32; shift += 8) value->data.push_back(static_cast<uint8_t>(number >> shift));
    return Action::kSet;
  }
  if (startsFolded(data, "hex:")) {
    value->type = kRegBinary;
    data.remove_prefix(4);
  } else if (startsFolded(data, "hex(")) {
    size_t close = data.find("):");
    if (close == std::string_view::npos || !readHexNumber(data.substr(4, close - 4), 8, &number)) return Action::kNone;
    value->type = number;
    data.remove_prefix(close + 2);
  } else {
    return Action::kNone;
  }
  return readHexBytes(data, lines, &value->data) ? Action::kSet : Action::kNone;
}

// `"name"=data` or `@=data`.
Action readValueLine(std::string_view line, Lines& lines, Value* value) {
  if (line.front() == '@') {
    value->name.clear();
    line.remove_prefix(1);
  } else if (line.front() != '"' || !readQuoted(&line, &value->name)) {
    return Action::kNone;
  }
  line = trim(line);
  if (line.empty() || line.front() != '=') return Action::kNone;
  return readData(trim(line.substr(1)), lines, value);
}

void apply(Action action, Value&& value, Key* key) {
  auto it = key->values.begin();
  while (it != key->values.end() && !sameName(it->name, value.name)) ++it;
  if (action == Action::kDelete) {
    if (it != key->values.end()) key->values.erase(it);
  } else if (it != key->values.end()) {
    *it = std::move(value);
  } else {
    key->values.push_back(std::move(value));
  }
}

}  // namespace

bool sameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (lowerAscii(a[i]) != lowerAscii(b[i])) return false;
  return true;
}

Key readKey(std::string_view raw, std::string_view keyPath) {
  Key key;
  std::string text = toUtf8(raw);
  Lines lines(text);
  std::string_view line;
  do {
    if (!lines.next(&line)) return key;
    line = trim(line);
  } while (line.empty());
  if (line != "Windows Registry Editor Version 5.00" && line != "REGEDIT4") return key;

  bool inKey = false;
  while (lines.next(&line)) {
    line = trim(line);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      size_t close = line.rfind(']');
      std::string_view path = close == std::string_view::npos ? std::string_view() : line.substr(1, close - 1);
      inKey = false;
      if (path.empty()) continue;
      if (path.front() == '-') {
        if (isAtOrUnder(keyPath, path.substr(1))) key = Key{};
        continue;
      }
      // A section makes its key and every key above it.
      if (isAtOrUnder(path, keyPath)) key.exists = true;
      inKey = sameName(path, keyPath);
      continue;
    }
    Value value;
    Action action = readValueLine(line, lines, &value);
    if (inKey && action != Action::kNone) apply(action, std::move(value), &key);
  }
  return key;
}

}  // namespace zqplatform::regfile
