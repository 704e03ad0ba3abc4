// The accessor test's case tables, generated from the attribute catalogue: for every accessor
// family (the Get, Set and Reset of a catalogue row, or of its Ex twin) what the row says of
// it, and the functions, each reached with a list argument so that one loop drives them all.
#pragma once

#include <span>
#include <type_traits>

#include "zqcai_rd_mbcs.h"

namespace zqtest {

struct CaseInfo {
  const char* name;          // the accessor base: Vorex<Verb><name>
  const char* traced;        // the base of the function that traces: the Ex twin for a forwarder
  int32 id;
  const char* verbs;         // the catalogue's verbs: G S R exported, g s without an export
  const char* op;            // the middle word of the task operations
  const char* type;          // the catalogue's value type
  const char* channelParam;  // the list parameter's name, "" when the accessor takes none
  bool terminal;             // its Set refuses more than one terminal
};

template <class T>
struct ScalarCase {
  CaseInfo info;
  int32 (*get)(TaskHandle, const char*, T*);
  int32 (*set)(TaskHandle, const char*, T);
  int32 (*reset)(TaskHandle, const char*);
};

struct TextCase {
  CaseInfo info;
  int32 (*get)(TaskHandle, const char*, char*, uInt32);
  int32 (*set)(TaskHandle, const char*, const char*);
  int32 (*reset)(TaskHandle, const char*);
};

template <class T>
struct ArrayCase {
  CaseInfo info;
  int32 (*get)(TaskHandle, const char*, T*, uInt32);
  int32 (*set)(TaskHandle, const char*, const T*, uInt32);
  int32 (*reset)(TaskHandle, const char*);
};

// An accessor without a list, called like one with: the list argument goes nowhere. Its
// signature must be exactly the one the catalogue's type gives.
template <auto Fn, class... Value>
int32 withoutList(TaskHandle task, const char*, Value... value) {
  static_assert(std::is_same_v<decltype(Fn), int32 (*)(TaskHandle, Value...)>);
  return Fn(task, value...);
}

std::span<const ScalarCase<int32>> casesI32();
std::span<const ScalarCase<uInt32>> casesU32();
std::span<const ScalarCase<uInt32>> casesU32Size();
std::span<const ScalarCase<uInt64>> casesU64();
std::span<const ScalarCase<float64>> casesF64();
std::span<const ScalarCase<bool32>> casesBool();
std::span<const TextCase> casesString();
std::span<const TextCase> casesStringList();
std::span<const ArrayCase<float64>> casesF64Array();
std::span<const ArrayCase<int32>> casesI32Array();

}  // namespace zqtest
