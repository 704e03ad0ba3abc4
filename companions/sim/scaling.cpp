#include "scaling.h"

#include <algorithm>
#include <cmath>

#include "device_model.h"
#include "sim_values.h"

namespace zqsim {

namespace {

using namespace val;

constexpr double kPoundsPerNewton = 1 / 4.4482216152605;
constexpr double kGravity = 9.80665;

// Degrees Celsius to the channel's temperature units.
void temperatureUnits(int32_t units, double* gain, double* offset) {
  switch (units) {
    case kDegF:
      *offset = *offset * 1.8 + 32;
      *gain *= 1.8;
      break;
    case kKelvins:
      *offset += 273.15;
      break;
    case kDegR:
      *offset = (*offset + 273.15) * 1.8;
      *gain *= 1.8;
      break;
    default:
      break;
  }
}

double forceFactor(int32_t units) {
  if (units == kPounds) return kPoundsPerNewton;
  if (units == kKilogramForce) return 1 / kGravity;
  return 1;
}

// The electrical value of a bridge in the units its scale was given in: 1 mV/V per volt.
double bridgeElectrical(int32_t electricalUnits) { return electricalUnits == kVoltsPerVolt ? 1e-3 : 1.0; }

double interpolate(const std::vector<double>& xs, const std::vector<double>& ys, double x) {
  if (xs.size() < 2) return ys.empty() ? x : ys.front();
  size_t i = 1;
  while (i + 1 < xs.size() && x > xs[i]) ++i;
  const double span = xs[i] - xs[i - 1];
  return span == 0 ? ys[i] : ys[i - 1] + (x - xs[i - 1]) * (ys[i] - ys[i - 1]) / span;
}

bool bridgeScale(const Channel& c, AnalogScale* s, std::string* error) {
  s->gain = bridgeElectrical(c.i32(Vorex_AIBridgeElectricalUnits, kMilliVoltsPerVolt));
  s->bridgeScale = c.i32(Vorex_AIBridgeScaleType, 0);
  if (s->bridgeScale == 1) {
    s->electrical = {c.f64(Vorex_AIBridgeTwoPointLinFirstElectricalVal),
                     c.f64(Vorex_AIBridgeTwoPointLinSecondElectricalVal)};
    s->physical = {c.f64(Vorex_AIBridgeTwoPointLinFirstPhysicalVal),
                   c.f64(Vorex_AIBridgeTwoPointLinSecondPhysicalVal)};
    if (s->electrical[0] == s->electrical[1]) {
      *error = "the two electrical values of a two-point scale must differ";
      return false;
    }
  } else if (s->bridgeScale == 2) {
    s->electrical = c.reals(Vorex_AIBridgeTableElectricalVals);
    s->physical = c.reals(Vorex_AIBridgeTablePhysicalVals);
    if (s->electrical.size() != s->physical.size() || s->electrical.size() < 2 ||
        !std::is_sorted(s->electrical.begin(), s->electrical.end())) {
      *error = "a table scale needs two or more ascending electrical values, as many as physical values";
      return false;
    }
  } else if (s->bridgeScale == 3) {
    s->physical = c.reals(Vorex_AIBridgePolyForwardCoeff);
    if (s->physical.empty()) {
      *error = "a polynomial scale needs its forward coefficients";
      return false;
    }
  }
  return true;
}

bool linearModel(const Channel& c, AnalogScale* s, std::string* error) {
  switch (c.type) {
    case kMeasVoltage:
    case kMeasVoltageWithExcit:
      return true;
    case kMeasCurrent:
      s->gain = 1 / c.f64(Vorex_AICurrentShuntResistance, DeviceModel::kShuntOhms);
      return true;
    case kMeasTempTC:
    case kMeasTempRTD:
    case kMeasTempThrmstr:
    case kMeasTempBuiltIn:
      s->gain = 10;
      s->offset = 25;
      temperatureUnits(s->units, &s->gain, &s->offset);
      return true;
    case kMeasResistance:
      s->gain = 10;
      s->offset = 100;
      return true;
    case kMeasStrainGage:
      s->gain = 1e-4;
      return true;
    case kMeasBridge:
      s->gain = s->units == kVoltsPerVolt ? 1e-3 : 1;
      return true;
    case kMeasAccel: {
      const double sensitivity = c.f64(Vorex_AIAccelSensitivity, 100);
      s->gain = (c.i32(Vorex_AIAccelSensitivityUnits) == kVoltsPerG ? 1.0 : 1000.0) / sensitivity;
      if (s->units == kMetersPerSecondSquared) s->gain *= kGravity;
      return true;
    }
    case kMeasVelocityIEPE: {
      // A sensitivity per inch per second gives inches per second; per millimetre, millimetres.
      s->gain = 1000.0 / c.f64(Vorex_AIVelocityIEPESensorSensitivity, 100);
      const bool perInch = c.i32(Vorex_AIVelocityIEPESensorSensitivityUnits) == kMilliVoltsPerInchPerSecond;
      const bool wantInches = s->units == kInchesPerSecond;
      if (perInch && !wantInches) s->gain *= 0.0254;
      if (!perInch) s->gain *= wantInches ? 1 / 25.4 : 1e-3;
      return true;
    }
    case kMeasForceIEPE: {
      s->gain = 1000.0 / c.f64(Vorex_AIForceIEPESensorSensitivity, 100);
      const bool perPound = c.i32(Vorex_AIForceIEPESensorSensitivityUnits) == kMilliVoltsPerPound;
      s->gain *= perPound ? 1 / kPoundsPerNewton * forceFactor(s->units) : forceFactor(s->units);
      return true;
    }
    case kMeasMicrophone:
      s->gain = 1000.0 / c.f64(Vorex_AIMicrophoneSensitivity, 50);
      return true;
    case kMeasForceBridge:
    case kMeasPressureBridge:
    case kMeasTorqueBridge:
      return bridgeScale(c, s, error);
    default:
      break;
  }
  *error = "the device has no model for this measurement";
  return false;
}

int32_t unitsOf(const Channel& c) {
  for (int32_t id : {Vorex_AIVoltageUnits, Vorex_AICurrentUnits, Vorex_AITempUnits, Vorex_AIResistanceUnits,
                     Vorex_AIStrainUnits, Vorex_AIBridgeUnits, Vorex_AIForceUnits, Vorex_AIPressureUnits,
                     Vorex_AITorqueUnits, Vorex_AIAccelUnits, Vorex_AIVelocityUnits,
                     Vorex_AISoundPressureUnits, Vorex_AIFreqUnits}) {
    if (c.has(id)) return c.i32(id);
  }
  return 0;
}

}  // namespace

double voltageRangeFor(double minimum, double maximum) {
  const double needed = std::max(std::fabs(minimum), std::fabs(maximum));
  for (double range : DeviceModel::kInputRanges)
    if (needed <= range * (1 + 1e-12)) return range;
  return 0;
}

double AnalogScale::toUnits(double volts) const {
  if (type == val::kMeasFreqVoltage) return frequency;
  const double linear = offset + gain * volts;
  switch (bridgeScale) {
    case 1:
    case 2:
      return interpolate(electrical, physical, linear);
    case 3: {
      double sum = 0;
      for (auto it = physical.rbegin(); it != physical.rend(); ++it) sum = sum * linear + *it;
      return sum;
    }
    default:
      return linear;
  }
}

int16_t AnalogScale::code(double value) const {
  const double steps = std::nearbyint((value - low) / lsb());
  const double clipped = std::clamp(std::isnan(steps) ? 0.0 : steps, 0.0, 65535.0);
  return static_cast<int16_t>(static_cast<int32_t>(clipped) - 32768);
}

bool compileScale(const Channel& channel, double signalFrequency, AnalogScale* scale, std::string* error) {
  AnalogScale s;
  s.type = channel.type;
  s.units = unitsOf(channel);
  s.frequency = signalFrequency;
  const double minimum = channel.f64(Vorex_AIMin, -10);
  const double maximum = channel.f64(Vorex_AIMax, 10);
  if (!(minimum < maximum)) {
    *error = "the minimum must lie below the maximum";
    return false;
  }
  if (!linearModel(channel, &s, error)) return false;
  if (s.type == val::kMeasVoltage || s.type == val::kMeasVoltageWithExcit) {
    const double range = voltageRangeFor(minimum, maximum);
    if (range == 0) {
      *error = "no input range of the device holds the minimum and maximum";
      return false;
    }
    s.low = -range;
    s.high = range;
  } else {
    s.low = minimum;
    s.high = maximum;
  }
  *scale = std::move(s);
  return true;
}

}  // namespace zqsim
