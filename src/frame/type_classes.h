// The value classes of attribute accessors: what the caller holds, and what the task's
// operation gives back.
#pragma once

#include <cstdint>

namespace zqframe {

struct ClassI32 {
  using Value = int32_t;
};
struct ClassU32 {
  using Value = uint32_t;
};
// A 64-bit size operation narrowed to 32 bits at the interface.
struct ClassU32Size {
  using Value = uint32_t;
  static constexpr bool kNarrows = true;
};
struct ClassU64 {
  using Value = uint64_t;
};
struct ClassF64 {
  using Value = double;
};
struct ClassBool {
  using Value = uint32_t;  // bool32: 0 or 1
};

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
