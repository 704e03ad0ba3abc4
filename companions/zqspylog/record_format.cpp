#include "record_format.h"

#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <cstring>

namespace zqspylog {

namespace {

constexpr uint64_t kShownElements = 8;
constexpr uint64_t kShownBytes = 16;

template <class T>
T load(const void* address, uint64_t offset = 0) {
  T value;
  std::memcpy(&value, static_cast<const unsigned char*>(address) + offset, sizeof value);
  return value;
}

std::string hex(uint64_t value) {
  char text[24];
  std::snprintf(text, sizeof text, "0x%" PRIx64, value);
  return text;
}

std::string number(double value) {
  char text[32];
  auto result = std::to_chars(text, text + sizeof text, value);
  return std::string(text, result.ptr);
}

std::string pointer(const void* address) {
  uint64_t value = load<uint64_t>(address);
  return value ? hex(value) : "NULL";
}

std::string quoted(const void* address, uint64_t length) {
  std::string out = "\"";
  const auto* bytes = static_cast<const unsigned char*>(address);
  for (uint64_t i = 0; i < length; ++i) {
    unsigned char c = bytes[i];
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x20 || c == 0x7F) {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\x%02X", c);
      out += escaped;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "\"";
}

// Bytes of one element of an array code; 0 for any other code.
uint32_t elementWidth(int32_t code) {
  switch (code) {
    case 2: case 4: case 102: return 4;
    case 6: case 8: return 2;
    case 10: return 1;
    case 20: return 8;
    default: return 0;
  }
}

std::string element(int32_t code, const void* address, uint64_t offset) {
  switch (code) {
    case 2: return std::to_string(load<uint32_t>(address, offset));
    case 4: case 102: return std::to_string(load<int32_t>(address, offset));
    case 6: return std::to_string(load<uint16_t>(address, offset));
    case 8: return std::to_string(load<int16_t>(address, offset));
    case 10: return std::to_string(load<uint8_t>(address, offset));
    default: return number(load<double>(address, offset));
  }
}

std::string array(int32_t code, const void* address, uint64_t count) {
  uint32_t width = elementWidth(code);
  std::string out = "[";
  for (uint64_t i = 0; i < count && i < kShownElements; ++i) out += (i ? ", " : "") + element(code, address, i * width);
  if (count > kShownElements) out += ", ... " + std::to_string(count) + " in all";
  return out + "]";
}

std::string bytes(const void* address, uint64_t total) {
  std::string out = "<";
  for (uint64_t i = 0; i < total && i < kShownBytes; ++i) {
    char text[4];
    std::snprintf(text, sizeof text, "%02x", load<uint8_t>(address, i));
    out += text;
  }
  return out + (total > kShownBytes ? "...>" : ">");
}

std::string value(int32_t code, const void* address, uint32_t elementSize, uint64_t total, Role role) {
  if (!address) return "?";
  if (isArrayCode(code)) {
    if (role == Role::kParam) return pointer(address);
    uint64_t count = role == Role::kArrayContent ? (elementSize ? total / elementSize : 0) : total / elementWidth(code);
    return array(code, address, count);
  }
  switch (code) {
    case 1: case 21: case 58: case 71: return std::to_string(load<uint32_t>(address));
    case 75: return std::to_string(load<int32_t>(address));
    case 19: case 81: return number(load<double>(address));
    case 95: return std::to_string(load<uint64_t>(address));
    case 79: return quoted(address, total);
    case 103: return "{" + hex(load<uint32_t>(address)) + "," + std::to_string(load<int32_t>(address, 4)) + "}";
    case 108: return "{" + hex(load<uint64_t>(address)) + "," + hex(load<uint64_t>(address, 8)) + "}";
    case 22: case 51: case 82: case 86: case 89: case 91: case 92: case 93: case 96: case 109:
      return pointer(address);
    default: return bytes(address, total);
  }
}

}  // namespace

bool isArrayCode(int32_t code) { return elementWidth(code) != 0; }

std::string formatRecord(const char* name, uint32_t index, int32_t code, const void* address, uint32_t elementSize,
                         uint64_t totalSize, Role role) {
  char head[64];
  std::snprintf(head, sizeof head, "@%" PRIu32 ":%" PRId32 "[%" PRIu32 ",%" PRIu64 "]=", index, code, elementSize,
                totalSize);
  return std::string(name ? name : "?") + head + value(code, address, elementSize, totalSize, role);
}

}  // namespace zqspylog
