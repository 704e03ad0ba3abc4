// How a pair record maps to the caller's two arrays or values, in the order of the
// parameters: split for reads, make for writes. The duty-cycle record crosses: its second
// field is the first parameter, the frequency.
#pragma once

#include <cstdint>

#include "zqvorex_plugin.h"

namespace zqframe {

struct FrequencySplit {
  using Record = zqvorexPlugin_DutyCycleAndFrequencyF64;
  using Element = double;
  static Element first(const Record& r) { return r.frequency; }
  static Element second(const Record& r) { return r.dutyCycle; }
  static Record make(Element a, Element b) { return {b, a}; }
};

struct TimesSplit {
  using Record = zqvorexPlugin_HighAndLowTimesF64;
  using Element = double;
  static Element first(const Record& r) { return r.highTime; }
  static Element second(const Record& r) { return r.lowTime; }
  static Record make(Element a, Element b) { return {a, b}; }
};

struct TicksSplit {
  using Record = zqvorexPlugin_HighAndLowTicksU32;
  using Element = uint32_t;
  static Element first(const Record& r) { return r.highTicks; }
  static Element second(const Record& r) { return r.lowTicks; }
  static Record make(Element a, Element b) { return {a, b}; }
};

struct PowerSplit {
  using Record = zqvorexPlugin_VoltageAndCurrentF64;
  using Element = double;
  static Element first(const Record& r) { return r.voltage; }
  static Element second(const Record& r) { return r.current; }
  static Record make(Element a, Element b) { return {a, b}; }
};

struct PowerBinarySplit {
  using Record = zqvorexPlugin_VoltageAndCurrentI16;
  using Element = int16_t;
  static Element first(const Record& r) { return r.voltage; }
  static Element second(const Record& r) { return r.current; }
  static Record make(Element a, Element b) { return {a, b}; }
};

}  // namespace zqframe
