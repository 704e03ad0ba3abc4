// Typed values of object properties and class attributes, and their form in the store: one
// type number and one SQLite value. Integers are INTEGER (uint64_t as its bit pattern), reals
// REAL, text TEXT; vectors and GUIDs are BLOBs: 8 little-endian bytes per number, or each text
// followed by a zero byte.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zqstorage {

class Statement;

enum class ValueType : int {
  kBool = 1,
  kU32 = 2,
  kI32 = 3,
  kU64 = 4,
  kI64 = 5,
  kF64 = 6,
  kString = 7,
  kU32Vtr = 8,
  kI32Vtr = 9,
  kU64Vtr = 10,
  kI64Vtr = 11,
  kF64Vtr = 12,
  kStringVtr = 13,
  kGuid = 14,
  kBytes = 15,
  kBoolVtr = 16,
};

const char* typeName(ValueType type);

struct Value {
  ValueType type = ValueType::kBool;
  int64_t integer = 0;            // bool, u32, i32, u64 (bit pattern), i64
  double real = 0;                // f64
  std::string bytes;              // string, guid (16 bytes), bytes
  std::vector<int64_t> integers;  // every integer or bool vector
  std::vector<double> reals;      // f64 vector
  std::vector<std::string> strings;

  static Value ofInteger(ValueType type, int64_t value);
  static Value ofReal(double value);
  static Value ofBytes(ValueType type, std::string value);
  static Value ofIntegers(ValueType type, std::vector<int64_t> values);
  static Value ofReals(std::vector<double> values);
  static Value ofStrings(std::vector<std::string> values);
};

bool isScalarInteger(ValueType type);

void bindValue(Statement& statement, int index, const Value& value);
// Reads the type from one column and the value from the next.
Value readValue(const Statement& statement, int typeColumn);

// The typed readers' rules: a scalar integer of any type whose value fits; a real also from an
// integer; anything else only from its own type. `what` names the value in the failure.
bool asBool(const Value& value, const std::string& what);
uint32_t asU32(const Value& value, const std::string& what);
int32_t asI32(const Value& value, const std::string& what);
uint64_t asU64(const Value& value, const std::string& what);
int64_t asI64(const Value& value, const std::string& what);
double asF64(const Value& value, const std::string& what);
const Value& expectType(const Value& value, ValueType type, const std::string& what);

}  // namespace zqstorage
