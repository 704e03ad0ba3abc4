#include "timeline.h"

#include <cmath>
#include <limits>

#include "device.h"
#include "sim_values.h"

namespace zqsim {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// Ticks are counted with this much slack, so that a tick that falls exactly on a time counts.
constexpr double kSlack = 1e-9;

uint64_t ticksBy(double base, double rate, double tau) {
  const double n = std::floor((tau - base) * rate + kSlack);
  return n < 0 ? 0 : static_cast<uint64_t>(n) + 1;
}

bool matchesPattern(const TriggerSetup& trigger, double tau) {
  for (size_t i = 0; i < trigger.lines.size() && i < trigger.pattern.size(); ++i) {
    const char want = trigger.pattern[i];
    if (want == 'x' || want == 'X') continue;
    const SignalPtr line = trigger.lines[i]();
    if (line->level(tau) != (want == '1')) return false;
  }
  return true;
}

}  // namespace

Timeline::Timeline(std::shared_ptr<Device> device, TimelineConfig config)
    : device_(std::move(device)),
      config_(std::move(config)),
      origin_(config_.start.type == val::kNone || config_.start.type == 0 ? config_.arm + config_.start.delay
                                                                          : kNaN),
      referenced_(config_.reference.type == val::kNone || config_.reference.type == 0) {}

bool Timeline::conditionAt(const TriggerSetup& t, Scan& s, double tau) const {
  if (t.type == val::kDigPattern) {
    const bool match = matchesPattern(t, tau);
    const bool wanted = t.when == val::kPatternDoesNotMatch ? !match : match;
    const bool fired = s.havePrevious && wanted && !s.previousMatch;
    s.previousMatch = wanted;
    s.havePrevious = true;
    return fired;
  }
  const double v = t.analog(tau);
  bool fired = false;
  if (t.type == val::kAnlgWin) {
    const bool inside = v >= t.bottom && v <= t.top;
    const bool wasInside = s.previous >= t.bottom && s.previous <= t.top;
    fired = s.havePrevious && (t.when == val::kLeavingWin ? wasInside && !inside : !wasInside && inside);
  } else if (t.edge == Edge::kFalling) {
    if (v > t.level + t.hysteresis) s.armed = true;
    fired = s.havePrevious && s.armed && s.previous > t.level && v <= t.level;
  } else {
    if (v < t.level - t.hysteresis) s.armed = true;
    fired = s.havePrevious && s.armed && s.previous < t.level && v >= t.level;
  }
  s.previous = v;
  s.havePrevious = true;
  return fired;
}

int64_t Timeline::scan(const TriggerSetup& t, Scan& s, double base, double now, uint64_t minimum) const {
  const uint64_t end = ticksBy(base, config_.rate, now);
  for (; s.next < end; ++s.next) {
    const double tau = base + static_cast<double>(s.next) / config_.rate;
    if (conditionAt(t, s, tau) && s.next >= minimum) return static_cast<int64_t>(s.next++);
  }
  return -1;
}

void Timeline::advanceStart(double now) {
  const TriggerSetup& t = config_.start;
  double found = kNaN;
  if (t.type == val::kDigEdge) {
    found = t.digital()->next(config_.arm, now, t.edge);
  } else if (t.type == val::kTime) {
    if (now >= t.time) found = std::max(config_.arm, t.time);
  } else {
    Scan state;
    {
      std::lock_guard<std::mutex> guard(mutex_);
      state = startScan_;
    }
    const int64_t tick = scan(t, state, config_.arm, now, 1);
    if (tick >= 0) found = config_.arm + static_cast<double>(tick) / config_.rate;
    std::lock_guard<std::mutex> guard(mutex_);
    startScan_ = state;
  }
  if (std::isnan(found)) return;
  std::lock_guard<std::mutex> guard(mutex_);
  origin_ = found + t.delay;
}

void Timeline::advanceReference(double now) {
  const TriggerSetup& t = config_.reference;
  const uint64_t pretrigger = config_.pretrigger;
  double origin = 0;
  Scan state;
  {
    std::lock_guard<std::mutex> guard(mutex_);
    origin = origin_;
    state = referenceScan_;
  }
  int64_t tick = -1;
  if (t.type == val::kDigEdge) {
    // Edges count only once the pretrigger samples are in the buffer.
    const double filled = origin + static_cast<double>(pretrigger > 0 ? pretrigger - 1 : 0) / config_.rate;
    const double edge = t.digital()->next(filled, now, t.edge);
    if (!std::isnan(edge)) tick = static_cast<int64_t>(std::ceil((edge - origin) * config_.rate - kSlack));
  } else {
    tick = scan(t, state, origin, now, pretrigger);
  }
  std::lock_guard<std::mutex> guard(mutex_);
  referenceScan_ = state;
  if (tick < 0) return;
  referenced_ = true;
  firstTick_ = static_cast<uint64_t>(tick) - pretrigger;
}

void Timeline::advance() {
  // One thread advances at a time; a thread that finds another at it, or that comes back to
  // this timeline through a signal that depends on it, takes what is known.
  bool expected = false;
  if (!advancing_.compare_exchange_strong(expected, true)) return;
  struct Clear {
    std::atomic<bool>& flag;
    ~Clear() { flag = false; }
  } clear{advancing_};
  const double now = device_->now();
  if (!started()) advanceStart(now);
  if (started() && !ready()) advanceReference(now);
}

bool Timeline::started() const {
  std::lock_guard<std::mutex> guard(mutex_);
  return !std::isnan(origin_);
}

bool Timeline::ready() const {
  std::lock_guard<std::mutex> guard(mutex_);
  return !std::isnan(origin_) && referenced_;
}

double Timeline::origin() const {
  std::lock_guard<std::mutex> guard(mutex_);
  return origin_;
}

uint64_t Timeline::firstTick() const {
  std::lock_guard<std::mutex> guard(mutex_);
  return firstTick_;
}

double Timeline::timeOf(uint64_t sample) const {
  std::lock_guard<std::mutex> guard(mutex_);
  return origin_ + static_cast<double>(firstTick_ + sample) / config_.rate;
}

uint64_t Timeline::availableAt(double tau) const {
  std::lock_guard<std::mutex> guard(mutex_);
  if (std::isnan(origin_) || !referenced_) return 0;
  const uint64_t ticks = ticksBy(origin_, config_.rate, tau);
  uint64_t n = ticks > firstTick_ ? ticks - firstTick_ : 0;
  if (config_.finite) n = std::min(n, config_.samples);
  return n;
}

double Timeline::timeWhenAvailable(uint64_t count) const {
  if (count == 0) return config_.arm;
  if (config_.finite && count > config_.samples) return kForever;
  if (!ready()) return kNaN;
  return timeOf(count - 1);
}

double Timeline::finishTime() const {
  if (!config_.finite) return kNaN;
  return timeWhenAvailable(config_.samples);
}

namespace {

class TimelineSignal final : public DigitalSignal {
 public:
  TimelineSignal(std::shared_ptr<Timeline> timeline, TimelineSignalKind kind)
      : timeline_(std::move(timeline)), kind_(kind) {}
  bool level(double tau) const override { return current()->level(tau); }
  uint64_t count(double from, double to, Edge edge) const override {
    return current()->count(from, to, edge);
  }
  double next(double after, double until, Edge edge) const override {
    return current()->next(after, until, edge);
  }

 private:
  // What the signal is, as far as the timeline knows it now.
  SignalPtr current() const {
    timeline_->advance();
    if (!timeline_->ready()) return lowSignal();
    const TimelineConfig& c = timeline_->config();
    switch (kind_) {
      case TimelineSignalKind::kStartTrigger:
        return triggerPulse(timeline_->timeOf(0));
      case TimelineSignalKind::kReferenceTrigger:
        return c.reference.type == 0 || c.reference.type == val::kNone
                   ? lowSignal()
                   : triggerPulse(timeline_->timeOf(c.pretrigger));
      case TimelineSignalKind::kSampleClock:
        break;
    }
    if (!(c.rate > 0)) return lowSignal();
    PulseSegment clock;
    clock.start = timeline_->timeOf(0);
    clock.period = 1.0 / c.rate;
    clock.high = clock.period / 2;
    clock.pulses = c.finite ? c.samples : 0;
    return std::make_shared<PulseTrain>(false, std::vector<PulseSegment>{clock});
  }
  std::shared_ptr<Timeline> timeline_;
  TimelineSignalKind kind_;
};

}  // namespace

SignalPtr timelineSignal(std::shared_ptr<Timeline> timeline, TimelineSignalKind kind) {
  return std::make_shared<TimelineSignal>(std::move(timeline), kind);
}

}  // namespace zqsim
