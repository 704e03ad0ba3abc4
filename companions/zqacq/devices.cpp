// zqacq devices: the devices of the store, as the storage tool of the same installation lists
// them (the library itself has no call that lists devices). zqacq error: a code's text.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "commands.h"
#include "failure.h"
#include "options.h"

namespace zqacq {

namespace {

// zqstorage lies beside zqacq in the build tree and in an installation; found on the PATH when
// zqacq was.
std::string storageTool(const char* self) {
  const std::string program = self;
  const size_t slash = program.find_last_of("/\\");
  return slash == std::string::npos ? "zqstorage" : program.substr(0, slash + 1) + "zqstorage";
}

}  // namespace

int devicesCommand(int argc, char** argv) {
  const Options options(argc, argv, 2, {}, {});
  if (!options.operands().empty()) throw UsageError("devices takes no operand");
  const std::string command = "\"" + storageTool(argv[0]) + "\" devices";
  std::fflush(stdout);
  const int result = std::system(command.c_str());
  if (result != 0) std::fprintf(stderr, "zqacq: the storage tool could not list the devices (%s)\n", command.c_str());
  return result == 0 ? 0 : 1;
}

int errorCommand(int argc, char** argv) {
  const Options options(argc, argv, 2, {}, {});
  if (options.operands().empty()) throw UsageError("error needs a status code, e.g. zqacq error -200088");
  for (const std::string& operand : options.operands()) {
    char* end = nullptr;
    const long code = std::strtol(operand.c_str(), &end, 10);
    if (end == operand.c_str() || *end != '\0') throw UsageError("not a status code: " + operand);
    std::printf("%ld: %s\n", code, errorText(static_cast<int32>(code)).c_str());
  }
  return 0;
}

}  // namespace zqacq
