// The value classes of attribute accessors: what the caller holds, and what the task's
// operation gives back.
#pragma once

#include <cstdint>

namespace zqframe {

// Trace codes of `data`: as a Get parameter (a pointer), as the Get's "*data" return, and as a
// Set parameter. The enumeration class traces its values as the pair of id and value.
struct ClassI32 {
  using Value = int32_t;
  static constexpr int32_t kGetParam = 86, kValue = 103;
  static constexpr bool kEnumPair = true;
};
struct ClassU32 {
  using Value = uint32_t;
  static constexpr int32_t kGetParam = 82, kValue = 1;
};
// A 64-bit size operation narrowed to 32 bits at the interface.
struct ClassU32Size {
  using Value = uint32_t;
  static constexpr int32_t kGetParam = 82, kValue = 1;
  static constexpr bool kNarrows = true;
};
struct ClassU64 {
  using Value = uint64_t;
  static constexpr int32_t kGetParam = 96, kValue = 95;
};
struct ClassF64 {
  using Value = double;
  static constexpr int32_t kGetParam = 91, kValue = 19;
};
struct ClassBool {
  using Value = uint32_t;  // bool32: 0 or 1
  static constexpr int32_t kGetParam = 22, kValue = 21;
};

template <class Class>
constexpr bool enumPair() {
  if constexpr (requires { Class::kEnumPair; })
    return Class::kEnumPair;
  else
    return false;
}

template <class Class>
constexpr bool narrows() {
  if constexpr (requires { Class::kNarrows; })
    return Class::kNarrows;
  else
    return false;
}

// The constants of one accessor.
struct AccessorInfo {
  const char* traceName;  // the exported function's name
  int32_t attributeId;
  const char* channelParam;  // "channel", "deviceNames", "lines", or null without a list
  uint32_t line;             // site line of its errors in the generated module
};

}  // namespace zqframe
