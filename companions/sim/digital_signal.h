// Digital signals on the device's timeline: pulse trains (counter outputs, sample clocks),
// level histories (digital lines, trigger pulses) and the history of what drove a terminal.
// All are immutable once shared: a change makes a new object.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace zqsim {

enum class Edge { kRising, kFalling, kBoth };
Edge edgeOf(int32_t value);  // a rising or falling value of an edge or slope attribute

inline constexpr double kForever = std::numeric_limits<double>::infinity();

class DigitalSignal {
 public:
  virtual ~DigitalSignal() = default;
  virtual bool level(double tau) const = 0;
  // Edges of the kind in (from, to].
  virtual uint64_t count(double from, double to, Edge edge) const = 0;
  // The first edge of the kind in (after, until], or NaN.
  virtual double next(double after, double until, Edge edge) const = 0;
};
using SignalPtr = std::shared_ptr<const DigitalSignal>;

// Pulses of `period`, active for `high` seconds from each leading edge. Active is high unless
// the idle state is high, when the pulses go low.
struct PulseSegment {
  double start = 0;  // the first leading edge
  double period = 1;
  double high = 0.5;
  uint64_t pulses = 0;    // 0: no limit
  double end = kForever;  // no leading edge at or after this time
};

class PulseTrain final : public DigitalSignal {
 public:
  PulseTrain(bool idleHigh, std::vector<PulseSegment> segments);
  bool level(double tau) const override;
  uint64_t count(double from, double to, Edge edge) const override;
  double next(double after, double until, Edge edge) const override;
  // Leading edges in (from, to]: the pulses a counter output has made.
  uint64_t pulsesIn(double from, double to) const;
  // The time the last pulse ends, infinite for an endless train.
  double finish() const;
  const std::vector<PulseSegment>& segments() const { return segments_; }
  bool idleHigh() const { return idleHigh_; }

 private:
  uint64_t leading(double from, double to, double shift) const;
  double nextLeading(double after, double until, double shift) const;
  bool idleHigh_;
  std::vector<PulseSegment> segments_;
};

// A level that changes at given times, starting from `initial`.
class LevelHistory final : public DigitalSignal {
 public:
  explicit LevelHistory(bool initial = false, std::vector<std::pair<double, bool>> changes = {});
  bool level(double tau) const override;
  uint64_t count(double from, double to, Edge edge) const override;
  double next(double after, double until, Edge edge) const override;
  // A copy with the level set from `tau` on, keeping at most `keep` changes.
  std::shared_ptr<const LevelHistory> with(double tau, bool level, size_t keep = 4096) const;
  bool last() const { return changes_.empty() ? initial_ : changes_.back().second; }

 private:
  bool initial_;
  std::vector<std::pair<double, bool>> changes_;  // flips only, in time order
};

// What drove a terminal when: sources over spans of time, and a fallback where none did.
struct DriveSpan {
  double from = 0;
  double to = kForever;
  SignalPtr source;
  uint64_t owner = 0;  // the task that drives it
};

class DrivenSignal final : public DigitalSignal {
 public:
  DrivenSignal(std::vector<DriveSpan> spans, SignalPtr fallback);
  bool level(double tau) const override;
  uint64_t count(double from, double to, Edge edge) const override;
  double next(double after, double until, Edge edge) const override;

 private:
  // The pieces of (from, to] and their sources, in time order.
  std::vector<std::pair<std::pair<double, double>, const DigitalSignal*>> pieces(double from,
                                                                                 double to) const;
  std::vector<DriveSpan> spans_;
  SignalPtr fallback_;
};

SignalPtr lowSignal();
// One pulse: a rising edge at `tau`, low again 10 ns later, as a trigger line carries.
SignalPtr triggerPulse(double tau);

}  // namespace zqsim
