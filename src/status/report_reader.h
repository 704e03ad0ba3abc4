// The reading side of reports: validation, key lookup, values, and string decoding.
// All texts are NUL-terminated; nothing here allocates except decodeString's output.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zqerr::json {

enum ValueType : int { kNull = 1, kBoolean = 2, kNumber = 3, kString = 4, kArray = 5, kObject = 6 };
enum ErrorKind : int {
  kNoError = 0,
  kStringExpected = 2,
  kObjectMalformed = 3,
  kArrayMalformed = 4,
  kColonMissing = 5,
  kCommaOrCloseMissing = 6,
  kBadEscape = 7,
  kCommaBeforeClose = 8,
};

struct ParsedValue {
  int type = 0;               // ValueType on success
  const char* begin = nullptr;  // the value's first character (a string's opening quote)
  size_t length = 0;          // the value's whole text
  const char* errorAt = nullptr;
  int errorKind = kNoError;
};

// For a text starting with '{' or '[': validates it and points at its closing character.
const char* endOfValue(const char* text);
// The value of the first top-level member whose decoded key equals `key`; null if absent or
// the text is malformed.
const char* findKey(const char* objectText, std::string_view key);
// One value after optional whitespace; false with errorAt and errorKind on failure.
bool parseValue(const char* text, ParsedValue* result);
// Elements of an array text; -1 if it is not a valid array.
int32_t countItems(const char* arrayText);
// Stepping through an array without validating it whole: the first element, or null for a
// text that is no array or an empty one; the element behind a comma that follows `behind`
// (the position behind an element), or null when no comma follows.
const char* arrayBegin(const char* text);
const char* arrayNext(const char* behind);
// The raw text between a string's quotes, unescaped to UTF-8; false on a bad escape.
bool decodeString(const char* raw, size_t length, std::string* out);
// A number as int32; fractions and exponents are read as double and truncated.
int32_t readInt(const char* text);

inline bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

}  // namespace zqerr::json
