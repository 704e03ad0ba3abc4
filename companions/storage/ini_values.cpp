#include "ini_values.h"

#include <algorithm>
#include <cctype>

#include "store_location.h"

namespace zqstorage::ini {

namespace {

constexpr std::string_view kHexPrefix = "hex:";

// A quoted text starting at raw[0] == '"'; sets `end` past the closing quote.
std::optional<std::string> unquote(std::string_view raw, size_t& end) {
  std::string out;
  for (size_t i = 1; i < raw.size(); ++i) {
    const char c = raw[i];
    if (c == '"') {
      end = i + 1;
      return out;
    }
    if (c != '\\') {
      out += c;
      continue;
    }
    if (++i == raw.size()) return std::nullopt;
    switch (raw[i]) {
      case '"': out += '"'; break;
      case '\\': out += '\\'; break;
      case 'n': out += '\n'; break;
      case 'r': out += '\r'; break;
      case 't': out += '\t'; break;
      default: return std::nullopt;
    }
  }
  return std::nullopt;
}

bool needsQuotes(std::string_view text, bool inList) {
  if (text.empty()) return inList;
  if (text.front() == ' ' || text.back() == ' ' || text.front() == '"') return true;
  return std::any_of(text.begin(), text.end(), [&](char c) {
    return c == '\n' || c == '\r' || c == '\t' || (inList && c == ',') || static_cast<unsigned char>(c) < 0x20;
  });
}

std::string quote(std::string_view text) {
  std::string out = "\"";
  for (char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default: out += c;
    }
  }
  return out + "\"";
}

std::string lower(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

std::optional<std::string> parseText(std::string_view raw) {
  raw = trimmed(raw);
  if (raw.empty() || raw.front() != '"') return std::string(raw);
  size_t end = 0;
  auto text = unquote(raw, end);
  if (!text || end != raw.size()) return std::nullopt;
  return text;
}

std::optional<std::vector<std::string>> parseList(std::string_view raw) {
  raw = trimmed(raw);
  std::vector<std::string> items;
  if (raw.empty()) return items;
  size_t i = 0;
  while (true) {
    while (i < raw.size() && (raw[i] == ' ' || raw[i] == '\t')) ++i;
    std::string item;
    if (i < raw.size() && raw[i] == '"') {
      size_t end = 0;
      auto text = unquote(raw.substr(i), end);
      if (!text) return std::nullopt;
      item = *text;
      i += end;
      while (i < raw.size() && (raw[i] == ' ' || raw[i] == '\t')) ++i;
      if (i < raw.size() && raw[i] != ',') return std::nullopt;
    } else {
      const size_t comma = raw.find(',', i);
      const size_t stop = comma == std::string_view::npos ? raw.size() : comma;
      item = std::string(trimmed(raw.substr(i, stop - i)));
      i = stop;
    }
    items.push_back(std::move(item));
    if (i >= raw.size()) return items;
    ++i;  // past the comma
  }
}

std::optional<bool> parseBool(std::string_view raw) {
  const std::string word = lower(trimmed(raw));
  if (word == "true" || word == "yes" || word == "1") return true;
  if (word == "false" || word == "no" || word == "0") return false;
  return std::nullopt;
}

std::optional<int64_t> parseInteger(std::string_view raw) {
  raw = trimmed(raw);
  bool negative = false;
  if (!raw.empty() && (raw.front() == '-' || raw.front() == '+')) {
    negative = raw.front() == '-';
    raw.remove_prefix(1);
  }
  int base = 10;
  if (raw.size() > 2 && raw[0] == '0' && (raw[1] == 'x' || raw[1] == 'X')) {
    base = 16;
    raw.remove_prefix(2);
  }
  if (raw.empty() || raw.size() > 16) return std::nullopt;
  uint64_t value = 0;
  for (char c : raw) {
    const int digit = hexDigit(c);
    if (digit < 0 || digit >= base) return std::nullopt;
    value = value * static_cast<uint64_t>(base) + static_cast<uint64_t>(digit);
  }
  if (value > 0x7FFFFFFFFFFFFFFFull) return std::nullopt;
  return negative ? -static_cast<int64_t>(value) : static_cast<int64_t>(value);
}

std::optional<std::string> parseBlock(std::string_view raw) {
  raw = trimmed(raw);
  if (raw.size() < kHexPrefix.size() || lower(raw.substr(0, kHexPrefix.size())) != kHexPrefix) return parseText(raw);
  raw.remove_prefix(kHexPrefix.size());
  if (raw.size() % 2 != 0) return std::nullopt;
  std::string bytes;
  for (size_t i = 0; i < raw.size(); i += 2) {
    const int high = hexDigit(raw[i]);
    const int low = hexDigit(raw[i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes += static_cast<char>(high * 16 + low);
  }
  return bytes;
}

std::string formatText(std::string_view text) { return needsQuotes(text, false) ? quote(text) : std::string(text); }

std::string formatList(const std::vector<std::string>& items) {
  std::string out;
  for (size_t i = 0; i < items.size(); ++i) {
    if (i) out += ", ";
    out += needsQuotes(items[i], true) ? quote(items[i]) : items[i];
  }
  // One empty item would read back as no item at all.
  if (items.size() == 1 && items[0].empty()) out = "\"\"";
  return out;
}

std::string formatBlock(std::string_view bytes) {
  const bool printable = std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
  const bool looksHex = bytes.size() >= kHexPrefix.size() && lower(bytes.substr(0, kHexPrefix.size())) == kHexPrefix;
  if (printable && !looksHex) return formatText(bytes);
  static const char* kDigits = "0123456789abcdef";
  std::string out(kHexPrefix);
  for (unsigned char c : bytes) {
    out += kDigits[c >> 4];
    out += kDigits[c & 15];
  }
  return out;
}

}  // namespace zqstorage::ini
