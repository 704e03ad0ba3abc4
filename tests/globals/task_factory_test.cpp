#include "test_sites.h"
#include "globals/shared_factory.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "contexts/context.h"
#include "fresh_root.h"
#include "globals/one_time.h"
#include "globals/shared_globals.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"
#include "task/task.h"

namespace {

using zqtest::inFreshProcess;
using zqtest::Installation;
using zqtest::SharedFolder;
using zqvorexRedir::ITask;
using zqvorexRedir::ITaskFactory;

constexpr const char* kStorageFile = ZQ_TEST_STORAGE_LIBRARY;

std::shared_ptr<zqvorexRedir::IContext> context() { return std::make_shared<zqvorexRedir::Context>("127.0.0.1"); }

// Runs `body` in a fresh process whose services come from an installation with the storage
// library and an empty store.
void withFactory(const char* name, const std::function<void(ITaskFactory&)>& body) {
  SharedFolder folder(name);
  folder.clear();
  folder.install(kStorageFile);
  inFreshProcess([&] {
    Installation installation(folder.text());
    zqerr::Status status;
    std::shared_ptr<ITaskFactory> factory = nZQCAI100::getTaskFactory(&status);
    ASSERT_EQ(status.code, 0) << status.report;
    ASSERT_NE(factory, nullptr);
    body(*factory);
  });
}

TEST(TaskFactory, ACreatedTaskWithNoNamesIsUnboundAndCarriesTheServicesOfTheRecord) {
  withFactory("factory-create", [](ITaskFactory& factory) {
    zqerr::Status status;
    auto ctx = context();
    std::shared_ptr<ITask> task = factory.createTask(ctx, "", "", "MyTask", zqvorexRedir::kTaskKindCreated, &status);
    ASSERT_NE(task, nullptr);
    EXPECT_EQ(status.code, 0);
    EXPECT_EQ(task->getName(), "MyTask");
    EXPECT_EQ(task->getContext(), ctx);
    EXPECT_EQ(task->sharedFromThis(), task);
    auto* plugins = dynamic_cast<zqvorexRedir::PluginManager*>(nZQCAI100::currentSharedGlobals()->pluginManager.get());
    ASSERT_NE(plugins, nullptr);
    EXPECT_EQ(plugins->pluginCount(), 0u) << "no library is loaded for an unbound task";
  });
}

struct FailedRequest {
  const char* name;
  std::function<std::shared_ptr<ITask>(ITaskFactory&, zqerr_Status*)> request;
  int32_t code;
};

// A failed load goes through the factory in tests/lifecycle's TaskCalls scenario (an unknown
// saved task); the refusal of a load without a name is the set-up's, in tests/task.
TEST(TaskFactory, ARequestWhoseSetUpFailsGivesNoTaskAndTheFailure) {
  withFactory("factory-failures", [](ITaskFactory& factory) {
    const FailedRequest requests[] = {
        {"platform task without its plug-in",
         [](ITaskFactory& f, zqerr_Status* s) { return f.createPlatformTask(context(), "", "P", s); },
         nZQMSTS::kErrorLibraryNotPresent},
        {"watchdog on an unknown device",
         [](ITaskFactory& f, zqerr_Status* s) { return f.createWatchdogTask(context(), "NoSuchDevice", "W", s); },
         nZQMSTS::kErrorInvalidDeviceID},
    };
    for (const FailedRequest& r : requests) {
      zqerr::Status status;
      EXPECT_EQ(r.request(factory, &status), nullptr) << r.name;
      EXPECT_EQ(status.code, r.code) << r.name << ": " << (status.report ? status.report : "");
    }
  });
}

TEST(TaskFactory, AFailedStatusMakesNothing) {
  withFactory("factory-failed-status", [](ITaskFactory& factory) {
    zqerr::Status status;
    ZQ_TEST_FAIL(&status, -7, "earlier", 1);
    EXPECT_EQ(factory.createTask(context(), "", "", "T", zqvorexRedir::kTaskKindCreated, &status), nullptr);
    EXPECT_EQ(factory.createNullTask(context(), "N", nullptr, &status), nullptr);
    EXPECT_EQ(status.code, -7);
  });
}

TEST(TaskFactory, ANullTaskAnswersWithTheStatusItCarries) {
  withFactory("factory-null", [](ITaskFactory& factory) {
    zqerr::Status carried;
    ZQ_TEST_FAIL(&carried, -200088, "carried", 5);
    zqerr::Status status;
    std::shared_ptr<ITask> task = factory.createNullTask(context(), "N", &carried, &status);
    ASSERT_NE(task, nullptr);
    EXPECT_EQ(status.code, 0);
    EXPECT_TRUE(task->getEvents(12576, &status).empty());
    task->controlTask(0, false, &status);
    EXPECT_EQ(status.code, -200088);
    EXPECT_EQ(zqtest::reportAt(status.report, {"file"}), "carried");
  });
}

TEST(TaskFactory, AFactoryKeptPastTheExitOfTheServicesMakesNoTask) {
  withFactory("factory-after-exit", [](ITaskFactory& factory) {
    nZQCAI100::abandonSharedGlobals();
    zqerr::Status status;
    EXPECT_EQ(factory.createTask(context(), "", "", "T", zqvorexRedir::kTaskKindCreated, &status), nullptr);
    EXPECT_EQ(status.code, zqpalerr_softwareFault);
    EXPECT_EQ(zqtest::reportAt(status.report, {"file"}), "taskFactory");
  });
}

}  // namespace
