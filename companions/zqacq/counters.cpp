// zqacq pulse: a pulse train on a counter output. zqacq count: the rising edges a counter input
// sees, optionally of a pulse train zqacq starts itself on another counter.
#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

#include "commands.h"
#include "options.h"
#include "task_info.h"

namespace zqacq {

namespace {

std::unique_ptr<TaskGuard> startPulses(const std::string& counter, double frequency, double duty) {
  auto task = std::make_unique<TaskGuard>("zqacq pulse");
  check(VorexCreateCOPulseChanFreq(task->get(), counter.c_str(), "", Vorex_Val_Hz, Vorex_Val_Low, 0.0, frequency,
                                   duty));
  check(VorexCfgImplicitTiming(task->get(), Vorex_Val_ContSamps, 1000));
  check(VorexStartTask(task->get()));
  return task;
}

// "SimDev1/ctr1" drives "/SimDev1/Ctr1InternalOutput".
std::string internalOutput(const std::string& counter) {
  const size_t slash = counter.find('/');
  if (slash == std::string::npos || counter.compare(slash + 1, 3, "ctr") != 0)
    throw UsageError("--pulse names a counter such as SimDev1/ctr1");
  return "/" + counter.substr(0, slash) + "/Ctr" + counter.substr(slash + 4) + "InternalOutput";
}

void sleepFor(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }

}  // namespace

int pulseCommand(int argc, char** argv) {
  const Options options(argc, argv, 2, {"freq", "duty", "seconds"}, {});
  const std::string& counter = options.operand("the counter, e.g. SimDev1/ctr0");
  const double frequency = options.number("freq", 1000.0), duty = options.number("duty", 0.5);
  const double seconds = options.number("seconds", 1.0);
  const auto task = startPulses(counter, frequency, duty);
  std::printf("pulses at %g Hz, duty cycle %g, on %s for %g s\n", frequency, duty, counter.c_str(), seconds);
  sleepFor(seconds);
  check(VorexStopTask(task->get()));
  return 0;
}

int countCommand(int argc, char** argv) {
  const Options options(argc, argv, 2, {"terminal", "pulse", "freq", "duty", "seconds"}, {});
  const std::string& counter = options.operand("the counter, e.g. SimDev1/ctr0");
  const double seconds = options.number("seconds", 1.0);
  TaskGuard task("zqacq count");
  check(VorexCreateCICountEdgesChan(task.get(), counter.c_str(), "", Vorex_Val_Rising, 0, Vorex_Val_CountUp));
  std::string terminal = options.text("terminal", "");
  if (options.has("pulse") && terminal.empty()) terminal = internalOutput(options.text("pulse", ""));
  if (!terminal.empty()) check(VorexSetCICountEdgesTerm(task.get(), "", terminal.c_str()));
  check(VorexStartTask(task.get()));
  std::unique_ptr<TaskGuard> pulses;
  if (options.has("pulse"))
    pulses = startPulses(options.text("pulse", ""), options.number("freq", 1000.0), options.number("duty", 0.5));
  sleepFor(seconds);
  uInt32 count = 0;
  check(VorexReadCounterScalarU32(task.get(), 10.0, &count, nullptr));
  std::printf("%u rising edges on %s in %g s\n", count, counter.c_str(), seconds);
  return 0;
}

}  // namespace zqacq
