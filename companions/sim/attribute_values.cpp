#include "attribute_values.h"

#include <cstdio>

#include "text_util.h"

namespace zqsim {

namespace {

constexpr const char* kTypeNames[] = {"i32", "u32", "u64", "f64", "bool", "str", "strs", "f64s", "i32s"};

std::string escaped(std::string_view text) {
  std::string out;
  for (char ch : text) {
    const auto c = static_cast<unsigned char>(ch);
    if (c < 0x21 || c > 0x7E || c == '%' || c == ';' || c == ',' || c == '=' || c == ':') {
      char hex[4];
      std::snprintf(hex, sizeof hex, "%%%02X", c);
      out += hex;
    } else {
      out += ch;
    }
  }
  return out;
}

std::optional<std::string> unescaped(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      out += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const auto code = parseUnsigned("0x" + std::string(text.substr(i + 1, 2)));
    if (!code || *code > 0xFF) return std::nullopt;
    out += static_cast<char>(*code);
    i += 2;
  }
  return out;
}

std::string realText(double value) {
  char digits[40];
  std::snprintf(digits, sizeof digits, "%.17g", value);
  return digits;
}

std::string encodeValue(const Value& v) {
  std::string out;
  switch (v.type) {
    case AttrType::kI32:
    case AttrType::kBool:
      return std::to_string(v.integer);
    case AttrType::kU32:
    case AttrType::kU64:
      return std::to_string(v.asU64());
    case AttrType::kF64:
      return realText(v.real);
    case AttrType::kString:
      return escaped(v.text);
    case AttrType::kStrings:
      for (size_t i = 0; i < v.texts.size(); ++i) out += (i ? "," : "") + escaped(v.texts[i]);
      return out;
    case AttrType::kF64s:
      for (size_t i = 0; i < v.reals.size(); ++i) out += (i ? "," : "") + realText(v.reals[i]);
      return out;
    case AttrType::kI32s:
      for (size_t i = 0; i < v.integers.size(); ++i) out += (i ? "," : "") + std::to_string(v.integers[i]);
      return out;
  }
  return out;
}

std::vector<std::string_view> pieces(std::string_view text, char separator) {
  std::vector<std::string_view> out;
  if (text.empty()) return out;
  while (true) {
    const size_t at = text.find(separator);
    out.push_back(text.substr(0, at));
    if (at == std::string_view::npos) break;
    text.remove_prefix(at + 1);
  }
  return out;
}

std::optional<Value> decodeValue(AttrType type, std::string_view text) {
  Value v;
  v.type = type;
  switch (type) {
    case AttrType::kI32:
    case AttrType::kBool: {
      const auto n = parseSigned(text);
      if (!n) return std::nullopt;
      v.integer = *n;
      return v;
    }
    case AttrType::kU32:
    case AttrType::kU64: {
      const auto n = parseUnsigned(text);
      if (!n) return std::nullopt;
      v.integer = static_cast<int64_t>(*n);
      return v;
    }
    case AttrType::kF64: {
      const auto n = parseReal(text);
      if (!n) return std::nullopt;
      v.real = *n;
      return v;
    }
    case AttrType::kString: {
      auto s = unescaped(text);
      if (!s) return std::nullopt;
      v.text = std::move(*s);
      return v;
    }
    default:
      break;
  }
  for (std::string_view piece : pieces(text, ',')) {
    if (type == AttrType::kStrings) {
      auto s = unescaped(piece);
      if (!s) return std::nullopt;
      v.texts.push_back(std::move(*s));
    } else if (type == AttrType::kF64s) {
      const auto n = parseReal(piece);
      if (!n) return std::nullopt;
      v.reals.push_back(*n);
    } else {
      const auto n = parseSigned(piece);
      if (!n) return std::nullopt;
      v.integers.push_back(static_cast<int32_t>(*n));
    }
  }
  return v;
}

}  // namespace

const char* attrTypeName(AttrType type) { return kTypeNames[static_cast<int>(type)]; }

Value Value::i32(int32_t x) {
  Value v;
  v.type = AttrType::kI32;
  v.integer = x;
  return v;
}
Value Value::u32(uint32_t x) {
  Value v;
  v.type = AttrType::kU32;
  v.integer = x;
  return v;
}
Value Value::u64(uint64_t x) {
  Value v;
  v.type = AttrType::kU64;
  v.integer = static_cast<int64_t>(x);
  return v;
}
Value Value::f64(double x) {
  Value v;
  v.type = AttrType::kF64;
  v.real = x;
  return v;
}
Value Value::boolean(bool x) {
  Value v;
  v.type = AttrType::kBool;
  v.integer = x ? 1 : 0;
  return v;
}
Value Value::string(std::string x) {
  Value v;
  v.type = AttrType::kString;
  v.text = std::move(x);
  return v;
}
Value Value::strings(std::vector<std::string> x) {
  Value v;
  v.type = AttrType::kStrings;
  v.texts = std::move(x);
  return v;
}
Value Value::f64s(std::vector<double> x) {
  Value v;
  v.type = AttrType::kF64s;
  v.reals = std::move(x);
  return v;
}
Value Value::i32s(std::vector<int32_t> x) {
  Value v;
  v.type = AttrType::kI32s;
  v.integers = std::move(x);
  return v;
}

double Value::asNumber() const {
  switch (type) {
    case AttrType::kF64:
      return real;
    case AttrType::kU32:
    case AttrType::kU64:
      return static_cast<double>(asU64());
    default:
      return static_cast<double>(integer);
  }
}

std::string Value::display() const {
  switch (type) {
    case AttrType::kString:
      return text;
    case AttrType::kStrings:
      return joinList(texts);
    default:
      return encodeValue(*this);
  }
}

std::string encodeStore(const Store& store) {
  std::string out;
  for (const auto& [id, value] : store) {
    char key[16];
    std::snprintf(key, sizeof key, "0x%X", static_cast<unsigned>(id));
    if (!out.empty()) out += ';';
    out += std::string(key) + "=" + attrTypeName(value.type) + ":" + encodeValue(value);
  }
  return out;
}

std::optional<Store> decodeStore(std::string_view text) {
  Store store;
  for (std::string_view entry : pieces(trim(text), ';')) {
    const size_t equals = entry.find('=');
    const size_t colon = entry.find(':', equals == std::string_view::npos ? 0 : equals);
    if (equals == std::string_view::npos || colon == std::string_view::npos) return std::nullopt;
    const auto id = parseUnsigned(entry.substr(0, equals));
    const std::string_view typeName = entry.substr(equals + 1, colon - equals - 1);
    std::optional<AttrType> type;
    for (int t = 0; t < 9; ++t)
      if (typeName == kTypeNames[t]) type = static_cast<AttrType>(t);
    if (!id || *id > 0x7FFFFFFF || !type) return std::nullopt;
    auto value = decodeValue(*type, entry.substr(colon + 1));
    if (!value) return std::nullopt;
    store[static_cast<int32_t>(*id)] = std::move(*value);
  }
  return store;
}

}  // namespace zqsim
