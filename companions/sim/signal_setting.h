// What an analog input of a simulated device sees, as the text kept in the store: a waveform
// word and its settings, such as
//   sine amplitude=2 frequency=50 offset=0.5 phase=90 noise=0.001
//   square amplitude=1 frequency=10 duty=25
//   constant value=1.25
//   noise amplitude=0.1
//   file path="/data/run 3.csv" format=csv rate=1000 column=2 scale=1 offset=0
// The zqstorage tool writes it and the plug-in reads it with this one parser.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zqsim {

enum class WaveKind { kSine, kSquare, kTriangle, kSawtooth, kConstant, kNoise, kFile };
// A recording: text with one sample per line (columns separated by commas, semicolons or
// blanks), or raw little-endian samples.
enum class FileFormat { kCsv, kF64, kF32, kI16 };

struct SignalSetting {
  WaveKind kind = WaveKind::kSine;
  double amplitude = 1.0;   // volts, peak
  double frequency = 10.0;  // hertz
  double offset = 0.0;      // volts, added to the waveform; the value of a constant
  double phase = 0.0;       // degrees
  double duty = 50.0;       // percent of a square wave's period spent high
  double noise = 0.001;     // volts, peak of the added noise
  std::string path;
  FileFormat format = FileFormat::kCsv;
  double rate = 1000.0;  // samples per second of a recording
  uint32_t column = 0;
  double scale = 1.0;  // volts per recorded unit
  bool operator==(const SignalSetting&) const = default;
};

// The default of analog input `channel`: a sine whose frequency and amplitude grow with the
// channel number (10 Hz and 1 V on ai0, then 10 Hz and 0.5 V more per channel), 1 mV noise.
SignalSetting defaultSignal(uint32_t channel);

std::optional<SignalSetting> parseSignalSetting(std::string_view text, std::string* error);
std::string formatSignalSetting(const SignalSetting& signal);
const char* waveKindName(WaveKind kind);
std::optional<WaveKind> waveKindFromName(std::string_view name);

}  // namespace zqsim
