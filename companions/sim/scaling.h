// From the volts an analog input sees to the channel's value: the sensor model of each
// measurement type (a scaled model: a temperature of 25 degrees plus 10 degrees per volt, a
// current through the 249-ohm shunt, an accelerometer of the channel's sensitivity, a bridge of
// 1 mV/V per volt through its two-point, table or polynomial scale), then the 16-bit converter:
// the value is quantized to the channel's range and clipped to it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "channel.h"

namespace zqsim {

struct AnalogScale {
  int32_t type = 0;
  int32_t units = 0;
  double low = -10;  // the converter's range, in the channel's units
  double high = 10;
  double gain = 1;  // physical = offset + gain * volts, for the linear models
  double offset = 0;
  double frequency = 0;  // a frequency input's reading
  // The bridge scales, on the electrical value.
  int32_t bridgeScale = 0;  // 0 none, 1 two-point, 2 table, 3 polynomial
  std::vector<double> electrical;
  std::vector<double> physical;
  double unitFactor = 1;  // applied after a bridge scale

  double toUnits(double volts) const;
  double lsb() const { return (high - low) / 65535.0; }
  int16_t code(double value) const;
  double fromCode(int16_t code) const { return low + (static_cast<double>(code) + 32768.0) * lsb(); }
  double quantize(double value) const { return fromCode(code(value)); }
};

// The scale of an analog input channel, or false with what is wrong in `error`.
bool compileScale(const Channel& channel, double signalFrequency, AnalogScale* scale, std::string* error);

// The device range (0.2, 1, 5 or 10 V) that holds [minimum, maximum]; 0 when none does.
double voltageRangeFor(double minimum, double maximum);

}  // namespace zqsim
