// The generic entry test's case tables, generated from the attribute catalogue and the list of
// refusals by make_generic_cases.py: every id of every entry with the named accessor it must
// reach, the refused ids, and every id the catalogue knows. Each call goes three ways: to the
// named accessor, through the variadic entry, and through its FromParmInfo twin with slots that
// parm_slots.h lays out.
#pragma once

#include <cstdint>
#include <span>

#include "zqcai_rd_mbcs.h"

namespace zqtest {

enum class ValueType { kI32, kU32, kU32Size, kU64, kF64, kBool, kString, kStringList, kF64Array, kI32Array, kTime };
enum class GenericVerb { kGet, kSet, kReset };

inline constexpr uInt32 kTextSize = 64;
inline constexpr uInt32 kArraySize = 8;

// What a Set sends: one value of each type, each different from zero and from the others.
struct Inputs {
  int32 i32 = -7;
  uInt32 u32 = 4000000001u;
  uInt64 u64 = 0x200000003ull;
  float64 f64 = -1.25;
  const char* text = " PFI0 ";
  const char* list = "Dev1/ai0, Dev1/ai1";
  const float64* f64s = kF64s;
  const int32* i32s = kI32s;
  uInt32 count = 3;
  VorexAbsoluteTime time{0x123456789ull, 3000000000};

  static constexpr float64 kF64s[3] = {1.5, -2.5, 4};
  static constexpr int32 kI32s[3] = {10, -20, 30};
};

// What a Get hands back, zeroed before each call so that two calls compare byte for byte.
struct Outputs {
  int32 i32;
  uInt32 u32;
  uInt64 u64;
  float64 f64;
  VorexAbsoluteTime time;
  char text[kTextSize];
  float64 f64s[kArraySize];
  int32 i32s[kArraySize];
};

using NamedCall = int32 (*)(TaskHandle task, const char* list, const Inputs& in, Outputs& out);
using GenericCall = int32 (*)(TaskHandle task, const char* list, int32 id, const Inputs& in, Outputs& out);

struct GenericCase {
  const char* entry;  // the entry's export name, or its twin's when it has only that
  GenericVerb verb;
  int32 id;
  const char* name;   // the catalogue's name
  ValueType type;
  bool takesList;     // the entry has a list argument
  NamedCall named;
  GenericCall variadic;
  GenericCall twin;
};

struct RefusedCase {
  const char* entry;
  GenericVerb verb;
  int32 id;
  const char* name;
  GenericCall call;
};

// One entry called with nothing in its variable part, for ids it does not take.
struct BareEntry {
  const char* entry;
  GenericVerb verb;
  bool takesList;
  GenericCall call;
};

std::span<const GenericCase> genericCases();
std::span<const RefusedCase> refusedCases();
std::span<const BareEntry> bareEntries();
// Every id of the catalogue, with accessors or without.
std::span<const int32> catalogueIds();

}  // namespace zqtest
