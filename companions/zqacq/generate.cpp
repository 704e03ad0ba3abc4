// zqacq write: a sine on the analog outputs given, regenerated from the buffer for the time asked.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <thread>
#include <vector>

#include "commands.h"
#include "options.h"
#include "task_info.h"

namespace zqacq {

int writeCommand(int argc, char** argv) {
  const Options options(argc, argv, 2, {"sine", "amplitude", "offset", "rate", "seconds"}, {});
  const std::string& channels = options.operand("the output channels, e.g. SimDev1/ao0");
  const double frequency = options.number("sine", 10.0);
  const double amplitude = options.number("amplitude", 1.0);
  const double offset = options.number("offset", 0.0);
  const double rate = options.number("rate", 1000.0);
  const double seconds = options.number("seconds", 1.0);
  if (frequency <= 0 || rate <= 0 || seconds < 0) throw UsageError("--sine, --rate must be positive");

  TaskGuard task("zqacq write");
  check(VorexCreateAOVoltageChan(task.get(), channels.c_str(), "", -10, 10, Vorex_Val_Volts, nullptr));
  const size_t outputs = channelNames(task.get()).size();
  // Whole periods in the buffer, so that its regeneration joins without a step.
  const double period = rate / frequency;
  const size_t periods = std::max<size_t>(1, static_cast<size_t>(std::ceil(100 / period)));
  const size_t length = static_cast<size_t>(std::llround(period * periods));
  std::vector<double> wave(length * outputs);
  const double pi = std::acos(-1.0);
  for (size_t i = 0; i < length; ++i) {
    for (size_t c = 0; c < outputs; ++c)
      wave[i * outputs + c] = offset + amplitude * std::sin(2 * pi * frequency * static_cast<double>(i) / rate);
  }
  check(VorexCfgSampClkTiming(task.get(), "", rate, Vorex_Val_Rising, Vorex_Val_ContSamps, length));
  int32 written = 0;
  check(VorexWriteAnalogF64(task.get(), static_cast<int32>(length), 0, 10.0, Vorex_Val_GroupByScanNumber,
                            wave.data(), &written, nullptr));
  check(VorexStartTask(task.get()));
  std::printf("generating a %g Hz sine of %g V amplitude around %g V on %s at %g S/s for %g s\n", frequency,
              amplitude, offset, channels.c_str(), rate, seconds);
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  check(VorexStopTask(task.get()));
  std::printf("done: %d samples per channel in the buffer, regenerated\n", written);
  return 0;
}

}  // namespace zqacq
