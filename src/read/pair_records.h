// How a pair record splits into the caller's two outputs, in the order of the parameters.
// The duty-cycle record crosses: its second field is the first parameter, the frequency.
#pragma once

#include <cstdint>

#include "zqvorex_plugin.h"

namespace zqread {

struct FrequencySplit {
  using Record = zqvorexPlugin_DutyCycleAndFrequencyF64;
  using Element = double;
  static Element first(const Record& r) { return r.frequency; }
  static Element second(const Record& r) { return r.dutyCycle; }
};

struct TimesSplit {
  using Record = zqvorexPlugin_HighAndLowTimesF64;
  using Element = double;
  static Element first(const Record& r) { return r.highTime; }
  static Element second(const Record& r) { return r.lowTime; }
};

struct TicksSplit {
  using Record = zqvorexPlugin_HighAndLowTicksU32;
  using Element = uint32_t;
  static Element first(const Record& r) { return r.highTicks; }
  static Element second(const Record& r) { return r.lowTicks; }
};

struct PowerSplit {
  using Record = zqvorexPlugin_VoltageAndCurrentF64;
  using Element = double;
  static Element first(const Record& r) { return r.voltage; }
  static Element second(const Record& r) { return r.current; }
};

struct PowerBinarySplit {
  using Record = zqvorexPlugin_VoltageAndCurrentI16;
  using Element = int16_t;
  static Element first(const Record& r) { return r.voltage; }
  static Element second(const Record& r) { return r.current; }
};

}  // namespace zqread
