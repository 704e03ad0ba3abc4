// Runs a C example, compiled with its main renamed, inside an installation of its own: the
// storage library and the simulated device's plug-in in the shared folder, the build's
// explanation files, the registry that names them, and a fresh store holding SimDev1. The
// registry is this process's alone on Windows, so the example runs in this process rather than
// as a child. "run_<example> NAME [TIMES]" runs it TIMES times against the same store, in a
// shared folder named after NAME, and prints each exit code for the test's pattern to check.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "test_installation.h"

extern "C" int zq_example_main(void);

int main(int argc, char** argv) {
  const std::string name = argc > 1 ? argv[1] : "example";
  const int times = argc > 2 ? std::atoi(argv[2]) : 1;
  zqtest::TestInstallation installation(name,
                                        {ZQ_TEST_STORAGE_LIBRARY, ZQ_TEST_SIM_PLUGIN, ZQ_TEST_TASK_CATALOG});
  installation.installExplanations(ZQ_TEST_ERRORS_FOLDER);
  const std::string log = installation.library("zqvorexStorage") + ".setup.txt";
  if (installation.storage(ZQ_TEST_STORAGE_TOOL, "new-sim-store --force > \"" + log + "\" 2>&1") != 0) {
    std::fprintf(stderr, "could not make the store with SimDev1 (see %s)\n", log.c_str());
    return 2;
  }
  int code = 0;
  for (int run = 1; run <= times && code == 0; ++run) {
    code = zq_example_main();
    std::fflush(stderr);
    std::printf("run %d exit code: %d\n", run, code);
    std::fflush(stdout);
  }
  return code;
}
