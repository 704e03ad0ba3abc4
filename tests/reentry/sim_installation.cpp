#include "sim_installation.h"

#include <cstdio>
#include <cstdlib>
#include <thread>

#include "e2e_platform.h"
#include "test_installation.h"

namespace zqsimrun {

namespace {

class Installation {
 public:
  explicit Installation(const std::string& program) : installation_(program, {ZQ_TEST_STORAGE_LIBRARY, ZQ_TEST_SIM_PLUGIN}) {
    // The tool's output goes beside the store, out of the program's own output.
    const std::string out = " > " + installation_.library("zqvorexStorage") + ".out 2>&1";
    for (const char* arguments : {"new-sim-store --force", "add-sim-device SimDev2"})
      if (installation_.storage(ZQ_TEST_STORAGE_TOOL, arguments + out) != 0) {
        std::fprintf(stderr, "the installation failed: zqstorage %s\n", arguments);
        std::exit(2);
      }
    installation_.installExplanations(ZQ_TEST_ERRORS_FOLDER);
  }

 private:
  zqtest::TestInstallation installation_;
};

}  // namespace

void installSimulatedDevices(const std::string& program) { static Installation installation(program); }

bool awaitPumping(const std::function<bool()>& reached) {
  const auto limit = std::chrono::steady_clock::now() + kHangGuard;
  for (;;) {
    zqe2e::pumpMessages();
    if (reached()) return true;
    if (std::chrono::steady_clock::now() > limit) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void pumpFor(std::chrono::milliseconds span) {
  const auto end = std::chrono::steady_clock::now() + span;
  awaitPumping([&] { return std::chrono::steady_clock::now() >= end; });
}

}  // namespace zqsimrun
