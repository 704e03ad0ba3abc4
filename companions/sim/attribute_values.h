// Attribute values and the stores that hold them: a task's timing, read, write and buffer
// settings and each channel's settings live in stores keyed by attribute id, so that getting,
// setting, resetting and saving a task all go one way.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zqsim {

enum class AttrType { kI32, kU32, kU64, kF64, kBool, kString, kStrings, kF64s, kI32s };
const char* attrTypeName(AttrType type);

struct Value {
  AttrType type = AttrType::kI32;
  int64_t integer = 0;  // i32, u32, u64 (bit pattern), bool
  double real = 0;
  std::string text;
  std::vector<std::string> texts;
  std::vector<double> reals;
  std::vector<int32_t> integers;

  static Value i32(int32_t v);
  static Value u32(uint32_t v);
  static Value u64(uint64_t v);
  static Value f64(double v);
  static Value boolean(bool v);
  static Value string(std::string v);
  static Value strings(std::vector<std::string> v);
  static Value f64s(std::vector<double> v);
  static Value i32s(std::vector<int32_t> v);

  int32_t asI32() const { return static_cast<int32_t>(integer); }
  uint32_t asU32() const { return static_cast<uint32_t>(integer); }
  uint64_t asU64() const { return static_cast<uint64_t>(integer); }
  bool asBool() const { return integer != 0; }
  // The value as a number, for range checks and reports.
  double asNumber() const;
  std::string display() const;
  bool operator==(const Value&) const = default;
};

using Store = std::map<int32_t, Value>;

// The data block of a saved task or channel: printable ASCII, one "id=type:value" entry per
// attribute, separated by ';', with %XX escapes for anything else.
std::string encodeStore(const Store& store);
// Null when the text is no such block.
std::optional<Store> decodeStore(std::string_view text);

}  // namespace zqsim
