// The harness of the end-to-end scenarios: an installation with the storage library and the
// test plug-in zqtestDrive serving Dev1, the plug-in's switches, threads and the message loop
// for the scenarios written in C.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>

#include "../task_drive/drive_switches.h"
#include "e2e_platform.h"
#include "e2e_support.h"
#include "test_installation.h"

namespace {

constexpr auto kHangGuard = std::chrono::minutes(3);

const char* kVoltsChannel =
    "[channel Volts0]\n"
    "type = 10322\n"
    "device = Dev1\n"
    "physical_channels = Dev1/ai0\n";

class Installed {
 public:
  Installed() : installation_("lifecycle-e2e", {ZQ_TEST_STORAGE_LIBRARY, ZQ_TEST_DRIVE_PLUGIN}) {
    const std::string ini = installation_.library("zqtestDrive") + ".ini";
    std::FILE* file = std::fopen(ini.c_str(), "wb");
    std::fputs(kVoltsChannel, file);
    std::fclose(file);
    for (const std::string& arguments : {std::string("define-class 7100 --plugin zqtestDrive"),
                                         std::string("add-device Dev1 --class 7100"), "import " + ini})
      EXPECT_EQ(installation_.storage(ZQ_TEST_STORAGE_TOOL, arguments + " > " + ini + ".out"), 0) << arguments;
    plugin_ = installation_.library("zqtestDrive");
  }
  template <class Fn>
  Fn symbol(const char* name) const {
    return reinterpret_cast<Fn>(zqe2e::librarySymbol(plugin_, name));
  }

 private:
  zqtest::TestInstallation installation_;
  std::string plugin_;
};

const Installed& installed() {
  static Installed instance;
  return instance;
}

using Scenario = int (*)(char*, size_t);

struct Case {
  const char* name;
  Scenario run;
};

class EndToEnd : public testing::TestWithParam<Case> {};

TEST_P(EndToEnd, HoldsEveryCheck) {
  installed();
  char why[256] = "";
  EXPECT_EQ(GetParam().run(why, sizeof why), 0) << why;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, EndToEnd,
                         testing::Values(Case{"TaskCalls", e2e_run_task_calls},
                                         Case{"Lifecycle", e2e_run_lifecycle},
                                         Case{"DirectRestart", e2e_run_direct_restart},
                                         Case{"StopDropsQueued", e2e_run_stop_drops_queued},
                                         Case{"ClearEndsCallbacks", e2e_run_clear_ends_callbacks},
                                         Case{"ForeignThread", e2e_run_foreign_thread},
                                         Case{"RegistrationErrors", e2e_run_registration_errors}),
                         [](const testing::TestParamInfo<Case>& info) { return std::string(info.param.name); });

}  // namespace

extern "C" {

int32_t e2e_fire(const char* taskName, int32_t eventId, uint32_t times, int32_t code) {
  static auto fire = installed().symbol<zqtestDrive_testFire_fn>("zqtestDrive_testFire");
  return fire ? fire(taskName, eventId, times, code) : -2;
}

void e2e_storm(int on) {
  static auto storm = installed().symbol<zqtestDrive_testFireStorm_fn>("zqtestDrive_testFireStorm");
  if (storm) storm(on);
}

int64_t e2e_counter(int32_t which) {
  static auto counter = installed().symbol<zqtestDrive_testCounter_fn>("zqtestDrive_testCounter");
  return counter ? counter(which) : -1;
}

int e2e_await(int (*reached)(void*), void* context) {
  const auto limit = std::chrono::steady_clock::now() + kHangGuard;
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
