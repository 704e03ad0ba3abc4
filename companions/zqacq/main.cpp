// zqacq: acquisitions from the command line, on any device the store lists (SimDev1 to begin).
#include <cstdio>
#include <cstring>
#include <exception>

#include "commands.h"
#include "failure.h"

namespace {

const char* const kUsage =
    "usage: zqacq COMMAND [OPTIONS]\n"
    "  devices                              the devices of the store\n"
    "  read CHANNELS [--rate R] [--samples N] [--continuous] [--trigger SOURCE[,LEVEL[,falling]]]\n"
    "                [--min V] [--max V] [--csv FILE] [--width COLUMNS] [--rows ROWS]\n"
    "                                       analog input: a chart and statistics per channel\n"
    "  write CHANNELS [--sine HZ] [--amplitude V] [--offset V] [--rate R] [--seconds S]\n"
    "                                       a sine on analog outputs\n"
    "  count COUNTER [--terminal T] [--pulse COUNTER [--freq HZ] [--duty D]] [--seconds S]\n"
    "                                       rising edges seen by a counter input\n"
    "  pulse COUNTER [--freq HZ] [--duty D] [--seconds S]\n"
    "                                       a pulse train on a counter output\n"
    "  error CODE...                        the text of status codes\n"
    "example: zqacq read SimDev1/ai0:3 --rate 1000 --samples 1000\n";

struct Command {
  const char* name;
  int (*run)(int, char**);
};

const Command kCommands[] = {{"read", zqacq::readCommand},   {"write", zqacq::writeCommand},
                             {"count", zqacq::countCommand}, {"pulse", zqacq::pulseCommand},
                             {"devices", zqacq::devicesCommand}, {"error", zqacq::errorCommand}};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || !std::strcmp(argv[1], "--help") || !std::strcmp(argv[1], "help")) {
    std::fputs(kUsage, argc < 2 ? stderr : stdout);
    return argc < 2 ? 2 : 0;
  }
  for (const Command& command : kCommands) {
    if (std::strcmp(argv[1], command.name) != 0) continue;
    try {
      return command.run(argc, argv);
    } catch (const zqacq::UsageError& e) {
      std::fprintf(stderr, "zqacq %s: %s\n\n%s", command.name, e.what(), kUsage);
      return 2;
    } catch (const zqacq::Failure& e) {
      std::fprintf(stderr, "zqacq %s failed with status %d:\n%s\n", command.name, e.code(), e.what());
      return 1;
    } catch (const std::exception& e) {
      std::fprintf(stderr, "zqacq %s: %s\n", command.name, e.what());
      return 1;
    }
  }
  std::fprintf(stderr, "zqacq: unknown command \"%s\"\n\n%s", argv[1], kUsage);
  return 2;
}
