// The value forms of INI task text: plain or quoted text, comma lists, booleans, integers and
// data blocks (text, or "hex:" and two hex digits per byte). See docs/task-ini-format.md.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zqstorage::ini {

// Each returns nullopt for text that is not of its form.
std::optional<std::string> parseText(std::string_view raw);
std::optional<std::vector<std::string>> parseList(std::string_view raw);
std::optional<bool> parseBool(std::string_view raw);
std::optional<int64_t> parseInteger(std::string_view raw);
std::optional<std::string> parseBlock(std::string_view raw);

// The shortest form that reads back as the same value.
std::string formatText(std::string_view text);
std::string formatList(const std::vector<std::string>& items);
std::string formatBlock(std::string_view bytes);

}  // namespace zqstorage::ini
