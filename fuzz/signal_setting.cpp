// Arbitrary signal settings through the simulated device's parser. A refusal gives a reason; a
// setting that is accepted formats to text that reads back to a setting of the same text, and its
// waveform gives finite volts from the start of a run to weeks into it.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "signal_setting.h"
#include "waveform.h"

namespace {

void check(bool condition) {
  if (!condition) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::string error;
  const auto signal = zqsim::parseSignalSetting(text, &error);
  if (!signal) {
    check(!error.empty());
    return 0;
  }
  // The text keeps what the waveform uses (a sine's "scale" is dropped), so the text that is
  // written reads back to a setting that writes the same text.
  const std::string written = zqsim::formatSignalSetting(*signal);
  std::string again;
  const auto reread = zqsim::parseSignalSetting(written, &again);
  check(reread && zqsim::formatSignalSetting(*reread) == written);
  if (signal->kind == zqsim::WaveKind::kFile) return 0;  // the file target plays recordings

  const zqsim::Waveform wave(*signal, 3, 0x5EED, nullptr);
  for (double tau : {0.0, 1e-3, 0.25, 86400.0, 3e6}) {
    const double volts = wave.at(tau, 0.0);
    check(!std::isnan(volts));
  }
  return 0;
}
