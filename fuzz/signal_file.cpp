// Arbitrary recordings through the simulated device's file source. The input's first line is a
// "file" setting without its path (format, rate, column, scale, offset), the rest the file's
// bytes. A file that cannot be played gives a reason; one that loads holds samples, and the
// waveform plays them back as finite volts at any time of a run, before its origin included.
#include <unistd.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "signal_setting.h"
#include "waveform.h"

namespace {

void check(bool condition) {
  if (!condition) __builtin_trap();
}

// The file each input is written to, removed when the run ends.
struct ScratchFile {
  std::string path = "/tmp/zqsim-fuzz-recording-" + std::to_string(getpid()) + ".dat";
  ~ScratchFile() { std::remove(path.c_str()); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const ScratchFile scratch;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const size_t newline = input.find('\n');
  if (newline == std::string_view::npos) return 0;
  std::string error;
  const std::string words = "file " + std::string(input.substr(0, newline)) + " path=" + scratch.path;
  auto signal = zqsim::parseSignalSetting(words, &error);
  if (!signal) return 0;

  std::FILE* file = std::fopen(scratch.path.c_str(), "wb");
  if (!file) return 0;
  const std::string_view bytes = input.substr(newline + 1);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);

  const auto recording = zqsim::loadRecording(*signal, &error);
  if (!recording) {
    check(!error.empty());
    return 0;
  }
  check(!recording->empty());
  const zqsim::Waveform wave(*signal, 0, 1, recording);
  for (double tau : {0.0, 0.5, 1.0 / signal->rate, 1e-9, 86400.0, 3e6}) {
    for (double origin : {0.0, 1.0}) check(!std::isnan(wave.at(tau, origin)));
  }
  return 0;
}
