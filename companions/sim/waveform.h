// The signal an analog input sees when nothing drives it: a waveform of its signal setting,
// evaluated at any time of the device's timeline, with deterministic seeded noise.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "signal_setting.h"

namespace zqsim {

// The times of a run of samples: sample k lies at start + (first + k) / rate.
struct SampleTimes {
  double start = 0;
  double rate = 1;
  uint64_t first = 0;
  double at(uint64_t k) const { return start + static_cast<double>(first + k) / rate; }
};

using Recording = std::vector<double>;

// Reads a recording file; null with the reason when it cannot.
std::shared_ptr<const Recording> loadRecording(const SignalSetting& signal, std::string* error);

// Uniform noise in [-1, 1), the same for the same seed, channel and time.
double noiseAt(uint64_t seed, uint32_t channel, double tau);

class Waveform {
 public:
  Waveform() = default;
  Waveform(SignalSetting signal, uint32_t channel, uint64_t seed, std::shared_ptr<const Recording> recording);

  // Volts at time `tau`. A recording plays from the start of the acquisition that reads it,
  // `origin`; the periodic waveforms run on the device's own time.
  double at(double tau, double origin) const;
  // The same for `count` samples, written every `stride` elements.
  void fill(const SampleTimes& times, uint64_t count, double origin, double* out, size_t stride) const;
  const SignalSetting& setting() const { return setting_; }
  // The noise alone, which an input adds also to what an output drives onto it.
  double noise(double tau) const {
    return setting_.noise > 0 ? setting_.noise * noiseAt(seed_, channel_, tau) : 0.0;
  }
  // The frequency a frequency-measuring input finds: 0 for a signal that does not repeat.
  double frequency() const;

 private:
  double shape(double tau, double origin) const;
  SignalSetting setting_;
  uint32_t channel_ = 0;
  uint64_t seed_ = 0;
  std::shared_ptr<const Recording> recording_;
};

}  // namespace zqsim
