// Runs the simulated device's end-to-end scenarios (sim_e2e_scenarios.c), each a C function
// against the public header, in an installation of this program's own: the storage library,
// the simulated device's plug-in and the task catalogue in the shared folder, the build's
// explanation files, a fresh store holding SimDev1, and the translator library in the system
// folder, which writes the items of the plug-in's reports into the extended error text.
#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "installation.h"
#include "reentry_hang_guard.h"
#include "sim_e2e_support.h"
#include "test_installation.h"

namespace {

// Waits end with a failure instead of a hang; a scenario stuck inside a call ends the program.
constexpr auto kHangGuard = std::chrono::minutes(2);
constexpr auto kScenarioGuard = std::chrono::minutes(4);

class Installation : public testing::Environment {
 public:
  void SetUp() override {
    installation_ = std::make_unique<zqtest::TestInstallation>(
        "sim_e2e", std::initializer_list<const char*>{ZQ_TEST_STORAGE_LIBRARY, ZQ_TEST_SIM_PLUGIN,
                                                      ZQ_TEST_TASK_CATALOG});
    installation_->installExplanations(ZQ_TEST_ERRORS_FOLDER);
    translator_ = std::make_unique<zqtest::TranslatorFolder>();
    translator_->install(ZQ_TEST_XLATOR);
    const std::string log = installation_->library("zqvorexStorage") + ".setup.txt";
    ASSERT_EQ(installation_->storage(ZQ_TEST_STORAGE_TOOL, "new-sim-store --force > \"" + log + "\" 2>&1"), 0)
        << "could not make the store with SimDev1 (see " << log << ")";
  }
  void TearDown() override {
    translator_.reset();
    installation_.reset();
  }

 private:
  std::unique_ptr<zqtest::TestInstallation> installation_;
  std::unique_ptr<zqtest::TranslatorFolder> translator_;
};

const testing::Environment* const kInstallation = testing::AddGlobalTestEnvironment(new Installation);

class SimEndToEnd : public testing::TestWithParam<const SimE2eCase*> {};

TEST_P(SimEndToEnd, HoldsEveryCheck) {
  char why[1024] = "";
  int failed = 0;
  {
    const std::string name = GetParam()->name;
    zqtest::HangGuard guard(kScenarioGuard, [name] { return "scenario " + name; });
    failed = GetParam()->run(why, sizeof why);
  }
  EXPECT_EQ(failed, 0) << why;
}

std::vector<const SimE2eCase*> cases() {
  std::vector<const SimE2eCase*> all;
  for (size_t i = 0; i < kSimE2eCaseCount; ++i) all.push_back(&kSimE2eCases[i]);
  return all;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, SimEndToEnd, testing::ValuesIn(cases()),
                         [](const testing::TestParamInfo<const SimE2eCase*>& info) {
                           return std::string(info.param->name);
                         });

}  // namespace

extern "C" {

int sim_e2e_await(int (*reached)(void*), void* context) {
  const auto limit = std::chrono::steady_clock::now() + kHangGuard;
  for (;;) {
    if (reached(context)) return 1;
    if (std::chrono::steady_clock::now() > limit) return 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void sim_e2e_sleep_ms(uint32_t milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

void* sim_e2e_start(void (*body)(void*), void* context) { return new std::thread(body, context); }

void sim_e2e_join(void* thread) {
  auto* t = static_cast<std::thread*>(thread);
  t->join();
  delete t;
}

}  // extern "C"
