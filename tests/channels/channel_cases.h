// The channel test's case table, generated from the channel table (make_cases.py): for every
// channel function what its row says of each parameter, and a caller that takes the arguments
// by position, so that one loop drives all of them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "zqcai_rd_mbcs.h"

namespace zqtest {

enum class ParamKind { kText, kF64, kI32, kU32, kBool32, kF64Array, kI32Array };

struct ChannelParam {
  const char* name;
  ParamKind kind;
  bool trimmed;
  int32_t enumAttribute;      // 0: no enumeration
  int32_t terminalAttribute;  // 0: not a terminal
  const char* named;          // the trace's named values ("TerminalConfig", "LineGrouping") or null
  const char* countOf;        // the array this count belongs to, or null
};

// One argument for each parameter, read by the callers with the getter of its kind.
class ChannelArgs {
 public:
  struct Arg {
    const char* text = nullptr;
    double f64 = 0;
    int32_t i32 = 0;
    uint32_t u32 = 0;
    const double* f64s = nullptr;
    const int32_t* i32s = nullptr;
  };
  explicit ChannelArgs(size_t count) : args_(count) {}
  Arg& operator[](size_t index) { return args_.at(index); }

  const char* text(size_t i) const { return args_.at(i).text; }
  float64 f64(size_t i) const { return args_.at(i).f64; }
  int32 i32(size_t i) const { return args_.at(i).i32; }
  uInt32 u32(size_t i) const { return args_.at(i).u32; }
  ::bool32 flag(size_t i) const { return args_.at(i).u32; }
  const float64* f64s(size_t i) const { return args_.at(i).f64s; }
  const int32* i32s(size_t i) const { return args_.at(i).i32s; }

 private:
  std::vector<Arg> args_;
};

struct ChannelCase {
  const char* function;
  const char* operation;
  bool traced;
  std::span<const ChannelParam> params;
  int32 (*call)(TaskHandle handle, const ChannelArgs& args);
};

std::span<const ChannelCase> channelCases();

}  // namespace zqtest
