#include "values.h"

#include <cstring>
#include <limits>

#include "error.h"
#include "sqlite_db.h"

namespace zqstorage {

namespace {

bool isIntegerVector(ValueType type) {
  return type == ValueType::kU32Vtr || type == ValueType::kI32Vtr || type == ValueType::kU64Vtr ||
         type == ValueType::kI64Vtr || type == ValueType::kBoolVtr;
}

std::string packNumbers(const void* data, size_t count) {
  // Stored little-endian; both targets are little-endian, so the bytes go as they are.
  return std::string(static_cast<const char*>(data), count * 8);
}

template <class T>
std::vector<T> unpackNumbers(const std::string& blob) {
  std::vector<T> values(blob.size() / 8);
  if (!values.empty()) std::memcpy(values.data(), blob.data(), values.size() * 8);
  return values;
}

std::string packStrings(const std::vector<std::string>& strings) {
  std::string blob;
  for (const auto& text : strings) {
    blob += text;
    blob += '\0';
  }
  return blob;
}

std::vector<std::string> unpackStrings(const std::string& blob) {
  std::vector<std::string> strings;
  size_t start = 0;
  for (size_t i = 0; i < blob.size(); ++i) {
    if (blob[i] == '\0') {
      strings.push_back(blob.substr(start, i - start));
      start = i + 1;
    }
  }
  return strings;
}

[[noreturn]] void wrongType(const Value& value, const char* wanted, const std::string& what) {
  fail(kInvalidParameter, ZQS_HERE,
       what + " holds a value of type " + typeName(value.type) + ", which cannot be read as " + wanted);
}

// Whether a scalar integer lies in [low, high]; a u64 is read as unsigned. long double holds
// every 64-bit integer exactly on both targets.
bool integerIn(const Value& value, long double low, long double high) {
  const long double v = value.type == ValueType::kU64 ? static_cast<long double>(static_cast<uint64_t>(value.integer))
                                                      : static_cast<long double>(value.integer);
  return v >= low && v <= high;
}

template <class T>
T integerAs(const Value& value, const char* wanted, const std::string& what) {
  if (!isScalarInteger(value.type)) wrongType(value, wanted, what);
  if (!integerIn(value, static_cast<long double>(std::numeric_limits<T>::min()),
                 static_cast<long double>(std::numeric_limits<T>::max()))) {
    fail(kInvalidParameter, ZQS_HERE, what + " holds a number out of the range of " + wanted);
  }
  return value.type == ValueType::kU64 ? static_cast<T>(static_cast<uint64_t>(value.integer))
                                       : static_cast<T>(value.integer);
}

}  // namespace

const char* typeName(ValueType type) {
  switch (type) {
    case ValueType::kBool: return "bool";
    case ValueType::kU32: return "u32";
    case ValueType::kI32: return "i32";
    case ValueType::kU64: return "u64";
    case ValueType::kI64: return "i64";
    case ValueType::kF64: return "f64";
    case ValueType::kString: return "string";
    case ValueType::kU32Vtr: return "u32 vector";
    case ValueType::kI32Vtr: return "i32 vector";
    case ValueType::kU64Vtr: return "u64 vector";
    case ValueType::kI64Vtr: return "i64 vector";
    case ValueType::kF64Vtr: return "f64 vector";
    case ValueType::kStringVtr: return "string vector";
    case ValueType::kGuid: return "GUID";
    case ValueType::kBytes: return "bytes";
    case ValueType::kBoolVtr: return "bool vector";
  }
  return "unknown";
}

Value Value::ofInteger(ValueType type, int64_t value) {
  Value v;
  v.type = type;
  v.integer = value;
  return v;
}

Value Value::ofReal(double value) {
  Value v;
  v.type = ValueType::kF64;
  v.real = value;
  return v;
}

Value Value::ofBytes(ValueType type, std::string value) {
  Value v;
  v.type = type;
  v.bytes = std::move(value);
  return v;
}

Value Value::ofIntegers(ValueType type, std::vector<int64_t> values) {
  Value v;
  v.type = type;
  v.integers = std::move(values);
  return v;
}

Value Value::ofReals(std::vector<double> values) {
  Value v;
  v.type = ValueType::kF64Vtr;
  v.reals = std::move(values);
  return v;
}

Value Value::ofStrings(std::vector<std::string> values) {
  Value v;
  v.type = ValueType::kStringVtr;
  v.strings = std::move(values);
  return v;
}

bool isScalarInteger(ValueType type) {
  return type == ValueType::kBool || type == ValueType::kU32 || type == ValueType::kI32 ||
         type == ValueType::kU64 || type == ValueType::kI64;
}

void bindValue(Statement& statement, int index, const Value& value) {
  statement.bind(index, static_cast<int64_t>(value.type));
  const int at = index + 1;
  if (isScalarInteger(value.type)) {
    statement.bind(at, value.integer);
  } else if (value.type == ValueType::kF64) {
    statement.bind(at, value.real);
  } else if (value.type == ValueType::kString) {
    statement.bindText(at, value.bytes);
  } else if (value.type == ValueType::kGuid || value.type == ValueType::kBytes) {
    statement.bindBlob(at, value.bytes.data(), value.bytes.size());
  } else if (isIntegerVector(value.type)) {
    const std::string blob = packNumbers(value.integers.data(), value.integers.size());
    statement.bindBlob(at, blob.data(), blob.size());
  } else if (value.type == ValueType::kF64Vtr) {
    const std::string blob = packNumbers(value.reals.data(), value.reals.size());
    statement.bindBlob(at, blob.data(), blob.size());
  } else {
    const std::string blob = packStrings(value.strings);
    statement.bindBlob(at, blob.data(), blob.size());
  }
}

Value readValue(const Statement& statement, int typeColumn) {
  const auto type = static_cast<ValueType>(statement.int64(typeColumn));
  const int at = typeColumn + 1;
  if (isScalarInteger(type)) return Value::ofInteger(type, statement.int64(at));
  if (type == ValueType::kF64) return Value::ofReal(statement.real(at));
  if (type == ValueType::kString) return Value::ofBytes(type, statement.text(at));
  if (type == ValueType::kGuid || type == ValueType::kBytes) return Value::ofBytes(type, statement.blob(at));
  if (isIntegerVector(type)) return Value::ofIntegers(type, unpackNumbers<int64_t>(statement.blob(at)));
  if (type == ValueType::kF64Vtr) return Value::ofReals(unpackNumbers<double>(statement.blob(at)));
  if (type == ValueType::kStringVtr) return Value::ofStrings(unpackStrings(statement.blob(at)));
  fail(kResourceNotFound, ZQS_HERE, "the store holds a value of unknown type " + std::to_string(static_cast<int>(type)));
}

bool asBool(const Value& value, const std::string& what) {
  if (!isScalarInteger(value.type)) wrongType(value, "bool", what);
  return value.integer != 0;
}

uint32_t asU32(const Value& value, const std::string& what) { return integerAs<uint32_t>(value, "u32", what); }
int32_t asI32(const Value& value, const std::string& what) { return integerAs<int32_t>(value, "i32", what); }
uint64_t asU64(const Value& value, const std::string& what) { return integerAs<uint64_t>(value, "u64", what); }
int64_t asI64(const Value& value, const std::string& what) { return integerAs<int64_t>(value, "i64", what); }

double asF64(const Value& value, const std::string& what) {
  if (value.type == ValueType::kF64) return value.real;
  if (value.type == ValueType::kU64) return static_cast<double>(static_cast<uint64_t>(value.integer));
  if (isScalarInteger(value.type)) return static_cast<double>(value.integer);
  wrongType(value, "f64", what);
}

const Value& expectType(const Value& value, ValueType type, const std::string& what) {
  if (value.type != type) wrongType(value, typeName(type), what);
  return value;
}

}  // namespace zqstorage
