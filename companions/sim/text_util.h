// Small text helpers of the plug-in: names compare without regard to ASCII case, lists split
// at commas, numbers parsed whole or not at all.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zqsim {

std::string lower(std::string_view text);
bool iequals(std::string_view a, std::string_view b);
bool startsWithNoCase(std::string_view text, std::string_view prefix);
std::string_view trim(std::string_view text);
// Items between commas, trimmed; empty items dropped.
std::vector<std::string> splitList(std::string_view text);
std::string joinList(const std::vector<std::string>& items, std::string_view separator = ", ");
std::optional<uint64_t> parseUnsigned(std::string_view text);
std::optional<int64_t> parseSigned(std::string_view text);
std::optional<double> parseReal(std::string_view text);
// "name12" gives "name" and 12; a name without digits at its end gives nothing.
std::optional<std::pair<std::string, uint32_t>> splitTrailingNumber(std::string_view text);

}  // namespace zqsim
