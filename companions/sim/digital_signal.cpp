#include "digital_signal.h"

#include <algorithm>
#include <cmath>

#include "sim_values.h"

namespace zqsim {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kTriggerWidth = 1e-8;

double earliest(double a, double b) {
  if (std::isnan(a)) return b;
  if (std::isnan(b)) return a;
  return std::min(a, b);
}

// The number of pulses of a segment that start before its end (or its successor's start).
double pulseLimit(const PulseSegment& s, double end) {
  double limit = s.pulses ? static_cast<double>(s.pulses) : kForever;
  if (std::isfinite(end)) limit = std::min(limit, std::max(0.0, std::ceil((end - s.start) / s.period)));
  return limit;
}

}  // namespace

Edge edgeOf(int32_t value) { return value == val::kFalling ? Edge::kFalling : Edge::kRising; }

PulseTrain::PulseTrain(bool idleHigh, std::vector<PulseSegment> segments)
    : idleHigh_(idleHigh), segments_(std::move(segments)) {
  for (size_t i = 0; i + 1 < segments_.size(); ++i)
    segments_[i].end = std::min(segments_[i].end, segments_[i + 1].start);
}

bool PulseTrain::level(double tau) const {
  for (const PulseSegment& s : segments_) {
    if (tau < s.start) continue;
    const double j = std::floor((tau - s.start) / s.period);
    if (j >= pulseLimit(s, s.end)) continue;
    if (tau - (s.start + j * s.period) < s.high) return !idleHigh_;
  }
  return idleHigh_;
}

uint64_t PulseTrain::leading(double from, double to, double shift) const {
  uint64_t total = 0;
  for (const PulseSegment& s : segments_) {
    const double start = s.start + shift;
    const double limit = pulseLimit(s, s.end);
    const double first = std::max(0.0, std::floor((from - start) / s.period) + 1);
    const double last = std::min(std::floor((to - start) / s.period), limit - 1);
    if (last >= first) total += static_cast<uint64_t>(last - first + 1);
  }
  return total;
}

double PulseTrain::nextLeading(double after, double until, double shift) const {
  for (const PulseSegment& s : segments_) {
    const double start = s.start + shift;
    double j = std::max(0.0, std::floor((after - start) / s.period) + 1);
    if (j >= pulseLimit(s, s.end)) continue;
    double at = start + j * s.period;
    if (at <= after) {
      j += 1;
      if (j >= pulseLimit(s, s.end)) continue;
      at = start + j * s.period;
    }
    if (at <= until) return at;
    return kNaN;
  }
  return kNaN;
}

uint64_t PulseTrain::count(double from, double to, Edge edge) const {
  if (!(to > from)) return 0;
  // The leading edge of a pulse is rising when the line idles low.
  const uint64_t lead =
      edge == Edge::kBoth || (edge == Edge::kRising) != idleHigh_ ? leading(from, to, 0) : 0;
  uint64_t trail = 0;
  if (edge == Edge::kBoth || (edge == Edge::kFalling) != idleHigh_) {
    trail = 0;
    for (const PulseSegment& s : segments_) {
      PulseTrain one(idleHigh_, {s});
      trail += one.leading(from, to, s.high);
    }
  }
  return lead + trail;
}

double PulseTrain::next(double after, double until, Edge edge) const {
  double best = kNaN;
  if (edge == Edge::kBoth || (edge == Edge::kRising) != idleHigh_) best = nextLeading(after, until, 0);
  if (edge == Edge::kBoth || (edge == Edge::kFalling) != idleHigh_) {
    for (const PulseSegment& s : segments_) {
      PulseTrain one(idleHigh_, {s});
      best = earliest(best, one.nextLeading(after, until, s.high));
    }
  }
  return best;
}

uint64_t PulseTrain::pulsesIn(double from, double to) const { return to > from ? leading(from, to, 0) : 0; }

double PulseTrain::finish() const {
  if (segments_.empty()) return 0;
  const PulseSegment& s = segments_.back();
  const double limit = pulseLimit(s, s.end);
  if (!std::isfinite(limit)) return kForever;
  return limit <= 0 ? s.start : s.start + (limit - 1) * s.period + s.high;
}

LevelHistory::LevelHistory(bool initial, std::vector<std::pair<double, bool>> changes)
    : initial_(initial), changes_(std::move(changes)) {}

bool LevelHistory::level(double tau) const {
  auto after = std::upper_bound(changes_.begin(), changes_.end(), tau,
                                [](double t, const std::pair<double, bool>& c) { return t < c.first; });
  return after == changes_.begin() ? initial_ : std::prev(after)->second;
}

uint64_t LevelHistory::count(double from, double to, Edge edge) const {
  uint64_t n = 0;
  for (const auto& [tau, level] : changes_) {
    if (tau <= from) continue;
    if (tau > to) break;
    if (edge == Edge::kBoth || level == (edge == Edge::kRising)) ++n;
  }
  return n;
}

double LevelHistory::next(double after, double until, Edge edge) const {
  for (const auto& [tau, level] : changes_) {
    if (tau <= after) continue;
    if (tau > until) break;
    if (edge == Edge::kBoth || level == (edge == Edge::kRising)) return tau;
  }
  return kNaN;
}

std::shared_ptr<const LevelHistory> LevelHistory::with(double tau, bool level, size_t keep) const {
  std::vector<std::pair<double, bool>> changes;
  bool initial = initial_;
  for (const auto& change : changes_) {
    if (change.first < tau) changes.push_back(change);
  }
  const bool before = changes.empty() ? initial : changes.back().second;
  if (before != level) changes.emplace_back(tau, level);
  if (changes.size() > keep) {
    const size_t drop = changes.size() - keep;
    initial = changes[drop - 1].second;
    changes.erase(changes.begin(), changes.begin() + static_cast<std::ptrdiff_t>(drop));
  }
  return std::make_shared<LevelHistory>(initial, std::move(changes));
}

DrivenSignal::DrivenSignal(std::vector<DriveSpan> spans, SignalPtr fallback)
    : spans_(std::move(spans)), fallback_(fallback ? std::move(fallback) : lowSignal()) {
  std::sort(spans_.begin(), spans_.end(),
            [](const DriveSpan& a, const DriveSpan& b) { return a.from < b.from; });
}

bool DrivenSignal::level(double tau) const {
  for (auto it = spans_.rbegin(); it != spans_.rend(); ++it)
    if (it->from <= tau && tau < it->to) return it->source->level(tau);
  return fallback_->level(tau);
}

std::vector<std::pair<std::pair<double, double>, const DigitalSignal*>> DrivenSignal::pieces(
    double from, double to) const {
  // A span drives from just before its start, so that an edge at the very moment a task starts
  // driving (its start trigger) belongs to it, to just before its end, when it no longer drives.
  const auto startOf = [](const DriveSpan& span) { return std::nextafter(span.from, -kForever); };
  const auto endOf = [](const DriveSpan& span) { return std::nextafter(span.to, -kForever); };
  std::vector<std::pair<std::pair<double, double>, const DigitalSignal*>> out;
  double at = from;
  while (at < to) {
    // The span that drives just after `at`: the latest one that began by then.
    const DigitalSignal* source = fallback_.get();
    double until = to;
    for (const DriveSpan& span : spans_) {
      if (startOf(span) <= at && at < endOf(span)) {
        source = span.source.get();
        until = std::min(to, endOf(span));
      } else if (startOf(span) > at) {
        until = std::min(until, startOf(span));
      }
    }
    out.push_back({{at, until}, source});
    at = until;
  }
  return out;
}

uint64_t DrivenSignal::count(double from, double to, Edge edge) const {
  uint64_t n = 0;
  for (const auto& [range, source] : pieces(from, to)) n += source->count(range.first, range.second, edge);
  return n;
}

double DrivenSignal::next(double after, double until, Edge edge) const {
  for (const auto& [range, source] : pieces(after, until)) {
    const double at = source->next(range.first, range.second, edge);
    if (!std::isnan(at)) return at;
  }
  return kNaN;
}

SignalPtr lowSignal() {
  // Never destroyed: threads of tasks abandoned at exit may still read it.
  static const auto* low = new SignalPtr(std::make_shared<LevelHistory>(false));
  return *low;
}

SignalPtr triggerPulse(double tau) {
  return std::make_shared<LevelHistory>(
      false, std::vector<std::pair<double, bool>>{{tau, true}, {tau + kTriggerWidth, false}});
}

}  // namespace zqsim
