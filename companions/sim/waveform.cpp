#include "waveform.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <sstream>

#include "text_util.h"

namespace zqsim {

namespace {

constexpr double kTwoPi = 6.283185307179586476925286766559;

uint64_t mix(uint64_t x) {
  x += 0x9E3779B97F4A7C15ull;
  x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9ull;
  x = (x ^ (x >> 27)) * 0x94D049BB133111EBull;
  return x ^ (x >> 31);
}

// A phase so far out that it no longer holds a fraction (a huge frequency weeks into a run)
// counts as the start of a period, so that the volts stay numbers.
double fraction(double x) { return std::isfinite(x) ? x - std::floor(x) : 0.0; }

bool readCsv(const std::string& path, uint32_t column, Recording& out, std::string* error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    *error = "cannot open the file";
    return false;
  }
  std::string line;
  for (uint64_t number = 1; std::getline(in, line); ++number) {
    for (char& c : line)
      if (c == ';' || c == '\t' || c == ' ') c = ',';
    std::vector<std::string> cells;
    std::string_view rest = line;
    while (true) {
      const size_t comma = rest.find(',');
      const std::string_view cell = trim(rest.substr(0, comma));
      if (!cell.empty()) cells.emplace_back(cell);
      if (comma == std::string_view::npos) break;
      rest.remove_prefix(comma + 1);
    }
    if (cells.empty() || cells[0][0] == '#') continue;
    auto value = column < cells.size() ? parseReal(cells[column]) : std::nullopt;
    if (value && !std::isfinite(*value)) value.reset();  // "nan" and "inf" are no volts to play
    if (!value) {
      // A heading on the first line is no sample.
      if (number == 1 && out.empty()) continue;
      *error = "line " + std::to_string(number) + " has no number in column " + std::to_string(column);
      return false;
    }
    out.push_back(*value);
  }
  return true;
}

template <class T>
bool readRaw(const std::string& path, Recording& out, std::string* error) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    *error = "cannot open the file";
    return false;
  }
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (bytes.size() % sizeof(T) != 0) {
    *error = "the file's size is not a whole number of samples";
    return false;
  }
  out.resize(bytes.size() / sizeof(T));
  for (size_t i = 0; i < out.size(); ++i) {
    T sample;
    std::memcpy(&sample, bytes.data() + i * sizeof(T), sizeof(T));
    out[i] = static_cast<double>(sample);
    if (!std::isfinite(out[i])) {
      *error = "sample " + std::to_string(i) + " is not a finite number";
      return false;
    }
  }
  return true;
}

}  // namespace

std::shared_ptr<const Recording> loadRecording(const SignalSetting& signal, std::string* error) {
  auto samples = std::make_shared<Recording>();
  bool read = false;
  switch (signal.format) {
    case FileFormat::kCsv:
      read = readCsv(signal.path, signal.column, *samples, error);
      break;
    case FileFormat::kF64:
      read = readRaw<double>(signal.path, *samples, error);
      break;
    case FileFormat::kF32:
      read = readRaw<float>(signal.path, *samples, error);
      break;
    case FileFormat::kI16:
      read = readRaw<int16_t>(signal.path, *samples, error);
      break;
  }
  if (read && samples->empty()) {
    *error = "the file holds no samples";
    read = false;
  }
  if (!read) return nullptr;
  return samples;
}

double noiseAt(uint64_t seed, uint32_t channel, double tau) {
  const auto tick = static_cast<uint64_t>(std::llround(tau * 1e9));
  const uint64_t bits = mix(seed ^ mix(channel + 0x51ull) ^ mix(tick));
  return static_cast<double>(bits >> 11) * (2.0 / 9007199254740992.0) - 1.0;
}

Waveform::Waveform(SignalSetting signal, uint32_t channel, uint64_t seed,
                   std::shared_ptr<const Recording> recording)
    : setting_(std::move(signal)), channel_(channel), seed_(seed), recording_(std::move(recording)) {}

double Waveform::shape(double tau, double origin) const {
  const double x = fraction(setting_.frequency * tau + setting_.phase / 360.0);
  switch (setting_.kind) {
    case WaveKind::kSine:
      return setting_.amplitude * std::sin(kTwoPi * x);
    case WaveKind::kSquare:
      return x < setting_.duty / 100.0 ? setting_.amplitude : -setting_.amplitude;
    case WaveKind::kTriangle:
      return setting_.amplitude * (x < 0.25 ? 4 * x : x < 0.75 ? 2 - 4 * x : 4 * x - 4);
    case WaveKind::kSawtooth:
      return setting_.amplitude * (2 * fraction(x + 0.5) - 1);
    case WaveKind::kConstant:
      return 0;
    case WaveKind::kNoise:
      return setting_.amplitude * noiseAt(seed_ ^ 0xA5A5ull, channel_, tau);
    case WaveKind::kFile:
      break;
  }
  if (!recording_ || recording_->empty()) return 0;
  const double position = std::floor((tau - origin) * setting_.rate + 1e-9);
  const auto size = static_cast<double>(recording_->size());
  const double index = position >= 0 && std::isfinite(position) ? std::fmod(position, size) : 0;
  return (*recording_)[static_cast<size_t>(index)] * setting_.scale;
}

double Waveform::at(double tau, double origin) const {
  return shape(tau, origin) + setting_.offset + noise(tau);
}

void Waveform::fill(const SampleTimes& times, uint64_t count, double origin, double* out,
                    size_t stride) const {
  for (uint64_t k = 0; k < count; ++k) out[k * stride] = at(times.at(k), origin);
}

double Waveform::frequency() const {
  switch (setting_.kind) {
    case WaveKind::kConstant:
    case WaveKind::kNoise:
    case WaveKind::kFile:
      return 0;
    default:
      return setting_.frequency;
  }
}

}  // namespace zqsim
