// The harness of the end-to-end programs: an installation with the storage library and the
// test plug-in zqtestDrive serving Dev1 (and the global channel Volts0 on it), the plug-in's
// switches, threads and the message loop, for scenarios written in C and for the stress run.
#include "e2e_harness.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "../task_drive/drive_switches.h"
#include "e2e_platform.h"
#include "e2e_support.h"
#include "test_installation.h"

namespace zqe2e {

namespace {

const char* kVoltsChannel =
    "[channel Volts0]\n"
    "type = 10322\n"
    "device = Dev1\n"
    "physical_channels = Dev1/ai0\n";

class Installation {
 public:
  Installation() : installation_(ZQ_E2E_PROGRAM, {ZQ_TEST_STORAGE_LIBRARY, ZQ_TEST_DRIVE_PLUGIN}) {
    const std::string ini = installation_.library("zqtestDrive") + ".ini";
    std::FILE* file = std::fopen(ini.c_str(), "wb");
    std::fputs(kVoltsChannel, file);
    std::fclose(file);
    for (const std::string& arguments : {std::string("define-class 7100 --plugin zqtestDrive"),
                                         std::string("add-device Dev1 --class 7100"), "import " + ini})
      if (installation_.storage(ZQ_TEST_STORAGE_TOOL, arguments + " > " + ini + ".out") != 0) {
        std::fprintf(stderr, "the installation failed: zqstorage %s\n", arguments.c_str());
        std::exit(2);
      }
    installation_.installExplanations(ZQ_TEST_ERRORS_FOLDER);
    plugin_ = installation_.library("zqtestDrive");
  }
  void* symbol(const char* name) const { return librarySymbol(plugin_, name); }

 private:
  zqtest::TestInstallation installation_;
  std::string plugin_;
};

}  // namespace

void* pluginSymbol(const char* name) {
  static Installation installation;
  return installation.symbol(name);
}

}  // namespace zqe2e

extern "C" {

int32_t e2e_fire(const char* taskName, int32_t eventId, uint32_t times, int32_t code) {
  static auto fire = reinterpret_cast<zqtestDrive_testFire_fn>(zqe2e::pluginSymbol("zqtestDrive_testFire"));
  return fire ? fire(taskName, eventId, times, code) : -2;
}

void e2e_storm(int on) {
  static auto storm = reinterpret_cast<zqtestDrive_testFireStorm_fn>(zqe2e::pluginSymbol("zqtestDrive_testFireStorm"));
  if (storm) storm(on);
}

int64_t e2e_counter(int32_t which) {
  static auto counter = reinterpret_cast<zqtestDrive_testCounter_fn>(zqe2e::pluginSymbol("zqtestDrive_testCounter"));
  return counter ? counter(which) : -1;
}

int e2e_await(int (*reached)(void*), void* context) {
  const auto limit = std::chrono::steady_clock::now() + zqe2e::kHangGuard;
  for (;;) {
    zqe2e::pumpMessages();
    if (reached(context)) return 1;
    if (std::chrono::steady_clock::now() > limit) return 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

int e2e_delivery_thread(void) { return zqe2e::hasDeliveryThread() ? 1 : 0; }
uint32_t e2e_thread_id(void) { return zqe2e::threadId(); }

void e2e_on_other_thread(void (*body)(void*), void* context) { std::thread(body, context).join(); }

void e2e_sleep_ms(uint32_t milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

}  // extern "C"
