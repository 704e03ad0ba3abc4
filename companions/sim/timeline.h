// The timeline of one run of a task: when it was started, when its start trigger fired, where
// its reference trigger fell, and from those the time of every sample and how many exist at any
// moment. Triggers are found lazily, by whoever asks first, on the signals as they were: an
// analog edge at the sample where the level is crossed, a digital edge at the edge itself.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "digital_signal.h"

namespace zqsim {

class Device;

struct TriggerSetup {
  int32_t type = 0;           // val::kNone and the trigger types
  Edge edge = Edge::kRising;  // digital edge, or analog slope
  double level = 0;
  double hysteresis = 0;
  double top = 0;
  double bottom = 0;
  int32_t when = 0;                               // window or pattern condition
  std::function<SignalPtr()> digital;             // the edge's source as it is when asked
  std::function<double(double)> analog;           // the source channel's value at a time
  std::vector<std::function<SignalPtr()>> lines;  // a pattern's lines, first line first
  std::string pattern;                            // '1', '0' or 'X' for each line
  double time = 0;                                // a time trigger's moment on the device's timeline
  double delay = 0;                               // seconds from a start trigger to the first sample
};

struct TimelineConfig {
  double arm = 0;   // when the task started
  double rate = 0;  // samples per second of its clock
  bool finite = false;
  uint64_t samples = 0;  // per channel, when finite
  TriggerSetup start;
  TriggerSetup reference;
  uint32_t pretrigger = 0;
};

class Timeline {
 public:
  Timeline(std::shared_ptr<Device> device, TimelineConfig config);
  const TimelineConfig& config() const { return config_; }

  // Finds the triggers as far as the signals up to the device's present allow.
  void advance();
  bool started() const;
  // The delivered stream begins: the start trigger and, with a reference trigger, that too.
  bool ready() const;
  double origin() const;       // the time of clock tick 0 after the start trigger
  uint64_t firstTick() const;  // the tick of delivered sample 0: the reference tick less the pretrigger
  // The time of delivered sample `sample`; only when ready.
  double timeOf(uint64_t sample) const;
  // Samples delivered by time `tau`.
  uint64_t availableAt(double tau) const;
  // When `count` samples exist: NaN while the triggers are not found, infinite when a finite
  // run never has that many.
  double timeWhenAvailable(uint64_t count) const;
  // A finite run's last sample, NaN when unknown or endless.
  double finishTime() const;

 private:
  struct Scan {
    uint64_t next = 0;  // the tick to look at next
    bool havePrevious = false;
    double previous = 0;
    bool previousMatch = false;
    bool armed = false;
  };
  void advanceStart(double now);
  void advanceReference(double now);
  // Scans ticks tick0, tick0+1, ... up to the time `now` on a grid that starts at `base`; the
  // first tick at or after `minimum` where the trigger condition holds, or -1.
  int64_t scan(const TriggerSetup& trigger, Scan& state, double base, double now, uint64_t minimum) const;
  bool conditionAt(const TriggerSetup& trigger, Scan& state, double tau) const;

  const std::shared_ptr<Device> device_;
  const TimelineConfig config_;
  std::atomic<bool> advancing_{false};
  mutable std::mutex mutex_;
  double origin_;
  bool referenced_;
  uint64_t firstTick_ = 0;
  Scan startScan_;
  Scan referenceScan_;
};

// A task's internal signal on its timeline: its sample clock, its start or reference trigger.
enum class TimelineSignalKind { kSampleClock, kStartTrigger, kReferenceTrigger };
SignalPtr timelineSignal(std::shared_ptr<Timeline> timeline, TimelineSignalKind kind);

}  // namespace zqsim
