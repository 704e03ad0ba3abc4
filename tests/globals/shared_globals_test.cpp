#include "test_sites.h"
#include "globals/shared_globals.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "build_probe.h"
#include "debug/debug_server_factory.h"
#include "fresh_root.h"
#include "globals/one_time.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"
#include "tasknames/local_task_name_generator.h"
#include "tasknames/shared_task_name_generator.h"

namespace {

using nZQCAI100::currentSharedGlobals;
using nZQCAI100::oneTimeRecord;
using zqtest::BuildProbe;
using zqtest::inFreshProcess;
using zqtest::Installation;
using zqtest::SharedFolder;

constexpr const char* kStorageFile = ZQ_TEST_STORAGE_LIBRARY;
constexpr const char* kCatalogFile = ZQ_TEST_CATALOG_LIBRARY;

struct Services {
  std::shared_ptr<nZQCAI100::ITaskPool> pool;
  std::shared_ptr<zqvorexRedir::IContextManager> contexts;
  std::shared_ptr<zqvorexRedir::ITaskNameGenerator> names;
  int32_t code = 0;
};

Services fetchServices() {
  Services services;
  zqerr::Status status;
  services.pool = nZQCAI100::getTaskPool(&status);
  services.contexts = nZQCAI100::getContextManager(&status);
  services.names = nZQCAI100::getTaskNameGenerator(&status);
  services.code = status.code;
  return services;
}

void expectSameServices(const Services& a, const Services& b) {
  EXPECT_EQ(a.code, 0);
  EXPECT_EQ(b.code, 0);
  ASSERT_NE(a.pool, nullptr);
  EXPECT_EQ(a.pool, b.pool);
  EXPECT_EQ(a.contexts, b.contexts);
  EXPECT_EQ(a.names, b.names);
}

// --- the one-time build ----------------------------------------------------------------------

TEST(SharedGlobals, SecondCallerDuringTheBuildWaitsAndGetsTheSameServices) {
  SharedFolder folder("second-caller");
  folder.install(kStorageFile);
  for (int round = 0; round < 4; ++round)
    inFreshProcess([&] {
      Installation installation(folder.text());
      BuildProbe::install(true);
      Services first, second;
      std::thread builder([&] { first = fetchServices(); });
      while (BuildProbe::builds == 0) std::this_thread::yield();
      std::thread waiter([&] {
        BuildProbe::secondArrived = true;
        second = fetchServices();
      });
      builder.join();
      waiter.join();
      EXPECT_EQ(BuildProbe::builds, 1);
      expectSameServices(first, second);
    });
}

TEST(SharedGlobals, ThreadsStartingTogetherBuildOnce) {
  SharedFolder folder("together");
  folder.install(kStorageFile);
  for (int round = 0; round < 4; ++round)
    inFreshProcess([&] {
      Installation installation(folder.text());
      BuildProbe::install(false);
      std::array<Services, 6> seen;
      std::atomic<int> ready{0};
      std::vector<std::thread> threads;
      for (Services& services : seen)
        threads.emplace_back([&] {
          ++ready;
          while (ready < static_cast<int>(seen.size())) std::this_thread::yield();
          services = fetchServices();
        });
      for (auto& thread : threads) thread.join();
      EXPECT_EQ(BuildProbe::builds, 1);
      for (const Services& services : seen) expectSameServices(seen[0], services);
    });
}

// What the end-to-end programs cannot tell apart: the plug-in folder under a shared folder whose
// registry value ends in a separator, and the debug server factory that keeps its servers. The
// rest of the wiring is used by every call of tests/lifecycle's scenarios.
TEST(SharedGlobals, ServicesAreWiredFromTheInstallation) {
  SharedFolder folder("wired");
  folder.install(kStorageFile);
  inFreshProcess([&] {
    Installation installation(folder.text() + "\\");
    zqerr::Status status;
    ASSERT_NE(nZQCAI100::getTaskPool(&status), nullptr) << status.report;
    nZQCAI100::SharedGlobals* g = currentSharedGlobals();
    auto plugins = std::dynamic_pointer_cast<zqvorexRedir::PluginManager>(g->pluginManager);
    ASSERT_NE(plugins, nullptr);
    EXPECT_EQ(plugins->folder(), folder.text() + "\\qxef");
    EXPECT_NE(dynamic_cast<zqvorexRedir::DebugServerFactoryWithCache*>(g->debugServerFactory.get()), nullptr);
  });
}

TEST(SharedGlobals, FailedStatusGetsNothingAndBuildsNothing) {
  inFreshProcess([] {
    BuildProbe::install(false);
    zqerr::Status status;
    ZQ_TEST_FAIL(&status, -7, "earlier", 1);
    EXPECT_EQ(nZQCAI100::getTaskPool(&status), nullptr);
    EXPECT_EQ(nZQCAI100::getContextManager(&status), nullptr);
    EXPECT_EQ(status.code, -7);
    EXPECT_EQ(BuildProbe::builds, 0);
  });
}

// --- failed builds --------------------------------------------------------------------------------

TEST(SharedGlobals, MissingStorageFailsTheBuildAndTheNextCallRetries) {
  SharedFolder folder("missing-storage");
  inFreshProcess([&] {
    folder.clear();
    folder.install(kCatalogFile);
    Installation installation(folder.text());
    BuildProbe::install(false);

    zqerr::Status first;
    EXPECT_EQ(nZQCAI100::getTaskPool(&first), nullptr);
    ASSERT_EQ(first.code, nZQMSTS::kErrorLibraryNotPresent);
    EXPECT_EQ(zqtest::reportAt(first.report, {"translator_info", "ordered_data", "#0", "value"}),
              folder.text() + "\\qxef\\zqvorexStorage");
    EXPECT_EQ(currentSharedGlobals(), nullptr) << "nothing of the failed build stays";
    EXPECT_EQ(oneTimeRecord().state.load(), 0u);

    folder.install(kStorageFile);
    Services second = fetchServices();
    EXPECT_EQ(second.code, 0);
    EXPECT_NE(second.pool, nullptr);
    EXPECT_EQ(BuildProbe::builds, 2);
  });
}

TEST(SharedGlobals, MissingSharedFolderFailsTheBuild) {
  inFreshProcess([] {
    Installation installation;
    BuildProbe::install(false);
    for (int call = 1; call <= 2; ++call) {
      Services services = fetchServices();
      EXPECT_EQ(services.code, zqapalerr_resourceNotFound);
      EXPECT_EQ(services.pool, nullptr);
      EXPECT_EQ(currentSharedGlobals(), nullptr);
      EXPECT_EQ(BuildProbe::builds, call);
    }
  });
}

struct CatalogCase {
  const char* label;
  bool installed;
};

class TaskCatalog : public testing::TestWithParam<CatalogCase> {};

TEST_P(TaskCatalog, ChoosesTheNameGeneratorSilently) {
  const CatalogCase& c = GetParam();
  SharedFolder folder(std::string("catalog-") + c.label);
  folder.clear();
  folder.install(kStorageFile);
  if (c.installed) folder.install(kCatalogFile);
  inFreshProcess([&] {
    Installation installation(folder.text());
    zqerr::Status status;
    auto names = nZQCAI100::getTaskNameGenerator(&status);
    EXPECT_EQ(status.code, 0);
    EXPECT_EQ(status.report, nullptr) << "nothing is reported";
    ASSERT_NE(currentSharedGlobals(), nullptr);
    EXPECT_EQ(currentSharedGlobals()->nameGenerator != nullptr, c.installed);
    EXPECT_EQ(dynamic_cast<zqvorexRedir::SharedTaskNameGenerator*>(names.get()) != nullptr, c.installed);
    EXPECT_EQ(dynamic_cast<zqvorexRedir::LocalTaskNameGenerator*>(names.get()) != nullptr, !c.installed);
  });
}

INSTANTIATE_TEST_SUITE_P(Cases, TaskCatalog,
                         testing::Values(CatalogCase{"absent", false}, CatalogCase{"present", true}),
                         [](const auto& info) { return std::string(info.param.label); });

}  // namespace
