#include "counter_model.h"

#include <cmath>
#include <limits>

#include "run_setup.h"
#include "sim_values.h"

namespace zqsim {

namespace {

using namespace val;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// The first edge of a train lies one timebase tick after its start.
constexpr double kTick = 1.0 / DeviceModel::kTimebase;

struct PulseShape {
  double high = 0;
  double low = 0;
  double delay = 0;
};

PulseShape shapeOf(const Channel& c) {
  PulseShape shape;
  switch (c.type) {
    case kPulseFreq: {
      const double period = 1.0 / c.f64(Vorex_COPulseFreq, 1);
      shape.high = period * c.f64(Vorex_COPulseDutyCyc, 0.5);
      shape.low = period - shape.high;
      shape.delay = c.f64(Vorex_COPulseFreqInitialDelay);
      break;
    }
    case kPulseTime:
      shape.high = c.f64(Vorex_COPulseHighTime, 0.01);
      shape.low = c.f64(Vorex_COPulseLowTime, 0.01);
      shape.delay = c.f64(Vorex_COPulseTimeInitialDelay);
      break;
    default:
      shape.high = c.u32(Vorex_COPulseHighTicks, 100) * kTick;
      shape.low = c.u32(Vorex_COPulseLowTicks, 100) * kTick;
      shape.delay = c.u32(Vorex_COPulseTicksInitialDelay) * kTick;
  }
  return shape;
}

std::string outputKey(const Channel& c) {
  const auto terminal = parseTerminal(c.text(Vorex_COPulseTerm));
  return terminal && terminal->isPfi ? "pfi" + std::to_string(terminal->pfi) : std::string();
}

void drive(SimTask& task, const Run& run, double from) {
  const Channel& c = task.channels.front();
  c.device->driveSignal(counterOutputSignal(c.physical.front().index), from, run.pulses, task.id);
  const std::string key = outputKey(c);
  if (!key.empty()) c.device->driveSignal(key, from, run.pulses, task.id);
}

int32_t terminalAttribute(int32_t type, bool second) {
  switch (type) {
    case kMeasCountEdges:
      return Vorex_CICountEdgesTerm;
    case kMeasFreq:
      return Vorex_CIFreqTerm;
    case kMeasPeriod:
      return Vorex_CIPeriodTerm;
    case kMeasPulseWidth:
      return Vorex_CIPulseWidthTerm;
    case kMeasSemiPeriod:
      return Vorex_CISemiPeriodTerm;
    case kMeasTwoEdgeSep:
      return second ? Vorex_CITwoEdgeSepSecondTerm : Vorex_CITwoEdgeSepFirstTerm;
    case kMeasDutyCycle:
      return Vorex_CIDutyCycleTerm;
    case kMeasPulseFreq:
      return Vorex_CIPulseFreqTerminal;
    case kMeasPulseTime:
      return Vorex_CIPulseTimeTerminal;
    case kMeasPulseTicks:
      return Vorex_CIPulseTicksTerm;
    default:
      return second ? Vorex_CIEncoderBInputTerm : Vorex_CIEncoderAInputTerm;
  }
}

SignalPtr inputSignal(const Channel& c, bool second) {
  const auto terminal = parseTerminal(c.text(terminalAttribute(c.type, second)));
  SignalPtr signal = terminal ? c.device->terminal(*terminal) : nullptr;
  return signal ? signal : lowSignal();
}

// Counts of an encoder per cycle of its A input.
double decodingFactor(int32_t decoding) {
  return decoding == kDecodingX2 ? 2 : decoding == kDecodingX4 ? 4 : 1;
}

int64_t rawCount(const SimTask& task, const Channel& c, double tau) {
  const double from = task.run ? task.run->start : tau;
  const double to = std::min(tau, task.run ? task.run->stopTime : tau);
  if (c.type == kMeasCountEdges) {
    const auto edges = static_cast<int64_t>(
        inputSignal(c, false)->count(from, to, edgeOf(c.i32(Vorex_CICountEdgesActiveEdge, kRising))));
    return c.i32(Vorex_CICountEdgesDir, kCountUp) == kCountDown ? -edges : edges;
  }
  const SignalPtr a = inputSignal(c, false);
  switch (c.i32(Vorex_CIEncoderDecodingType, kDecodingX1)) {
    case kDecodingX2:
      return static_cast<int64_t>(a->count(from, to, Edge::kBoth));
    case kDecodingX4:
      return 2 * static_cast<int64_t>(a->count(from, to, Edge::kBoth));
    case kTwoPulseCounting:
      return static_cast<int64_t>(a->count(from, to, Edge::kRising)) -
             static_cast<int64_t>(inputSignal(c, true)->count(from, to, Edge::kRising));
    default:
      return static_cast<int64_t>(a->count(from, to, Edge::kRising));
  }
}

// A measurement's first edge kind and the edge that ends its active part.
Edge startingEdge(const Channel& c) {
  switch (c.type) {
    case kMeasFreq:
      return edgeOf(c.i32(Vorex_CIFreqStartingEdge, kRising));
    case kMeasPeriod:
      return edgeOf(c.i32(Vorex_CIPeriodStartingEdge, kRising));
    case kMeasPulseWidth:
      return edgeOf(c.i32(Vorex_CIPulseWidthStartingEdge, kRising));
    case kMeasDutyCycle:
      return edgeOf(c.i32(Vorex_CIDutyCycleStartingEdge, kRising));
    default:
      return Edge::kRising;
  }
}

Edge opposite(Edge e) { return e == Edge::kRising ? Edge::kFalling : Edge::kRising; }

double toTimeUnits(const Channel& c, int32_t unitsId, double seconds) {
  return c.i32(unitsId, kSeconds) == kTicks ? std::round(seconds * DeviceModel::kTimebase) : seconds;
}

}  // namespace

bool checkCounterChannels(const SimTask& task, zqerr_Status* status) {
  for (const Channel& c : task.channels) {
    if (c.kind == kCO) {
      const PulseShape shape = shapeOf(c);
      if (!(shape.high > 0) || !(shape.low > 0)) {
        SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
                 Items()
                     .attribute(Vorex_COPulseHighTime)
                     .f64(usage::kValueRequested, shape.high)
                     .text(usage::kChannelName, c.name));
        return false;
      }
      const std::string term = c.text(Vorex_COPulseTerm);
      if (!term.empty() && outputKey(c).empty()) {
        SIM_FAIL(status, nZQMDEV::kErrorRouteNotSupported,
                 Items().attribute(Vorex_COPulseTerm).text(usage::kTerminal, term));
        return false;
      }
    }
    if (c.kind != kCI) continue;
    for (bool second : {false, true}) {
      const bool used =
          second ? c.type == kMeasTwoEdgeSep || c.type == kMeasLinEncoder || c.type == kMeasAngEncoder : true;
      if (!used) continue;
      std::function<SignalPtr()> source;
      if (!terminalSource(task, c.text(terminalAttribute(c.type, second)), &source, status,
                          terminalAttribute(c.type, second)))
        return false;
    }
  }
  return true;
}

bool startPulses(SimTask& task, Run& run, zqerr_Status*) {
  const Channel& c = task.channels.front();
  const PulseShape shape = shapeOf(c);
  PulseSegment segment;
  segment.start = run.start + shape.delay + kTick;
  segment.period = shape.high + shape.low;
  segment.high = shape.high;
  const int32_t timing = task.settingI32(Vorex_SampTimingType);
  if (timing == kOnDemand) {
    segment.pulses = 1;
  } else if (task.finite()) {
    segment.pulses = task.samplesPerChannel();
  }
  run.pulses = std::make_shared<PulseTrain>(c.i32(Vorex_COPulseIdleState, kLow) == kHigh,
                                            std::vector<PulseSegment>{segment});
  drive(task, run, run.start);
  return true;
}

bool changePulses(SimTask& task, zqerr_Status* status) {
  if (!task.running || !task.run || !task.run->pulses) return true;
  if (!checkCounterChannels(task, status)) return false;
  Run& run = *task.run;
  const Channel& c = task.channels.front();
  const double now = c.device->now();
  std::vector<PulseSegment> segments = run.pulses->segments();
  PulseSegment& last = segments.back();
  // The pulse under way finishes; the new shape starts with the next one.
  const double done = std::floor(std::max(0.0, now - last.start) / last.period) + 1;
  const uint64_t made =
      static_cast<uint64_t>(std::min(done, last.pulses ? static_cast<double>(last.pulses) : done));
  PulseSegment next;
  next.start = last.start + static_cast<double>(made) * last.period;
  const PulseShape shape = shapeOf(c);
  next.period = shape.high + shape.low;
  next.high = shape.high;
  next.pulses = last.pulses ? last.pulses - std::min(last.pulses, made) : 0;
  if (last.pulses && next.pulses == 0) return true;
  last.pulses = made;
  segments.push_back(next);
  run.pulses = std::make_shared<PulseTrain>(run.pulses->idleHigh(), std::move(segments));
  drive(task, run, now);
  return true;
}

double counterValue(const SimTask& task, const Channel& c, double tau) {
  const int64_t count = rawCount(task, c, tau);
  if (c.type == kMeasCountEdges)
    return static_cast<double>(static_cast<uint32_t>(c.u32(Vorex_CICountEdgesInitialCnt) + count));
  const double cycles =
      static_cast<double>(count) / decodingFactor(c.i32(Vorex_CIEncoderDecodingType, kDecodingX1));
  if (c.type == kMeasLinEncoder) {
    if (c.i32(Vorex_CILinEncoderUnits, kMeters) == kTicks) return static_cast<double>(count);
    return c.f64(Vorex_CILinEncoderInitialPos) + cycles * c.f64(Vorex_CILinEncoderDistPerPulse, 0.001);
  }
  const double perRev = std::max(1.0, static_cast<double>(c.u32(Vorex_CIAngEncoderPulsesPerRev, 24)));
  const int32_t units = c.i32(Vorex_CIAngEncoderUnits, kDegrees);
  if (units == kTicks) return static_cast<double>(count);
  const double turn = units == kRadians ? 2 * 3.14159265358979323846 : 360.0;
  return c.f64(Vorex_CIAngEncoderInitialAngle) + cycles * turn / perRev;
}

uint32_t counterTicks(const SimTask& task, const Channel& c, double tau) {
  if (c.type == kMeasCountEdges) return static_cast<uint32_t>(counterValue(task, c, tau));
  return static_cast<uint32_t>(rawCount(task, c, tau));
}

bool nextMeasurement(const Channel& c, double cursor, double now, Measurement* m, double* expected) {
  *expected = kNaN;
  const SignalPtr signal = inputSignal(c, false);
  const double horizon = now + 3600;
  const auto edgeAfter = [&](double after, Edge edge, double until) {
    return signal->next(after, until, edge);
  };
  const auto finish = [&](double end) {
    if (end <= now) return true;
    *expected = end;
    return false;
  };
  if (c.type == kMeasTwoEdgeSep) {
    const double first = edgeAfter(cursor, edgeOf(c.i32(Vorex_CITwoEdgeSepFirstEdge, kRising)), horizon);
    if (std::isnan(first) || first > now) {
      finish(std::isnan(first) ? kForever : first);
      return false;
    }
    const double second =
        inputSignal(c, true)->next(first, horizon, edgeOf(c.i32(Vorex_CITwoEdgeSepSecondEdge, kFalling)));
    if (std::isnan(second) || !finish(second)) return false;
    m->end = second;
    m->value = toTimeUnits(c, Vorex_CITwoEdgeSepUnits, second - first);
    return true;
  }
  if (c.type == kMeasSemiPeriod) {
    const double a = edgeAfter(cursor, Edge::kBoth, horizon);
    const double b = std::isnan(a) ? kNaN : edgeAfter(a, Edge::kBoth, horizon);
    if (std::isnan(b) || !finish(b)) return false;
    m->end = b;
    m->value = toTimeUnits(c, Vorex_CISemiPeriodUnits, b - a);
    return true;
  }
  const Edge start = startingEdge(c);
  const double a = edgeAfter(cursor, start, horizon);
  const double mid = std::isnan(a) ? kNaN : edgeAfter(a, opposite(start), horizon);
  if (c.type == kMeasPulseWidth) {
    if (std::isnan(mid) || !finish(mid)) return false;
    m->end = mid;
    m->value = toTimeUnits(c, Vorex_CIPulseWidthUnits, mid - a);
    return true;
  }
  const double b = std::isnan(mid) ? kNaN : edgeAfter(mid, start, horizon);
  if (std::isnan(b) || !finish(b)) return false;
  const double period = b - a;
  m->end = b;
  m->high = mid - a;
  m->low = b - mid;
  switch (c.type) {
    case kMeasFreq:
      m->value = c.i32(Vorex_CIFreqUnits, kHz) == kTicks ? std::round(period * DeviceModel::kTimebase)
                                                         : 1.0 / period;
      break;
    case kMeasPeriod:
      m->value = toTimeUnits(c, Vorex_CIPeriodUnits, period);
      break;
    case kMeasDutyCycle:
      m->value = m->high / period;
      break;
    default:
      m->value = 1.0 / period;
      break;
  }
  return true;
}

}  // namespace zqsim
