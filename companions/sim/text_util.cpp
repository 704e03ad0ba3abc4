#include "text_util.h"

#include <charconv>
#include <cstdlib>

namespace zqsim {

namespace {

char lowerChar(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }

}  // namespace

std::string lower(std::string_view text) {
  std::string out(text);
  for (char& c : out) c = lowerChar(c);
  return out;
}

bool iequals(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (lowerChar(a[i]) != lowerChar(b[i])) return false;
  return true;
}

bool startsWithNoCase(std::string_view text, std::string_view prefix) {
  return text.size() >= prefix.size() && iequals(text.substr(0, prefix.size()), prefix);
}

std::string_view trim(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::vector<std::string> splitList(std::string_view text) {
  std::vector<std::string> items;
  while (true) {
    const size_t comma = text.find(',');
    const std::string_view item = trim(text.substr(0, comma));
    if (!item.empty()) items.emplace_back(item);
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  return items;
}

std::string joinList(const std::vector<std::string>& items, std::string_view separator) {
  std::string out;
  for (size_t i = 0; i < items.size(); ++i) {
    if (i) out += separator;
    out += items[i];
  }
  return out;
}

std::optional<uint64_t> parseUnsigned(std::string_view text) {
  text = trim(text);
  int base = 10;
  if (startsWithNoCase(text, "0x")) {
    base = 16;
    text.remove_prefix(2);
  }
  uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<int64_t> parseSigned(std::string_view text) {
  text = trim(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (negative || (!text.empty() && text.front() == '+')) text.remove_prefix(1);
  const std::optional<uint64_t> magnitude = parseUnsigned(text);
  if (!magnitude || *magnitude > (negative ? 0x8000000000000000ull : 0x7FFFFFFFFFFFFFFFull))
    return std::nullopt;
  return negative ? static_cast<int64_t>(0 - *magnitude) : static_cast<int64_t>(*magnitude);
}

// Independent of the C locale: a decimal point is always '.'.
std::optional<double> parseReal(std::string_view text) {
  text = trim(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::optional<std::pair<std::string, uint32_t>> splitTrailingNumber(std::string_view text) {
  size_t digits = text.size();
  while (digits > 0 && text[digits - 1] >= '0' && text[digits - 1] <= '9') --digits;
  if (digits == text.size() || text.size() - digits > 9) return std::nullopt;
  return std::make_pair(
      std::string(text.substr(0, digits)),
      static_cast<uint32_t>(std::strtoul(std::string(text.substr(digits)).c_str(), nullptr, 10)));
}

}  // namespace zqsim
