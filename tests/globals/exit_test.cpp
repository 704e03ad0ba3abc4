#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "fresh_root.h"
#include "globals/one_time.h"
#include "globals/shared_globals.h"
#include "contexts/context.h"
#include "task/task.h"

namespace {

using nZQCAI100::currentSharedGlobals;
using zqtest::Installation;
using zqtest::SharedFolder;

constexpr const char* kStorageFile = ZQ_TEST_STORAGE_LIBRARY;
constexpr const char* kDrivePluginFile = ZQ_TEST_DRIVE_PLUGIN;

// A task of the factory, bound to the plug-in library zqtestDrive as a first channel would bind
// it, and left in the pool. The library writes each call it receives to ZQTEST_DRIVE_LOG.
void poolBoundTask(bool clear) {
  zqerr::Status status;
  auto factory = nZQCAI100::getTaskFactory(&status);
  auto pool = nZQCAI100::getTaskPool(&status);
  ASSERT_EQ(status.code, 0) << status.report;
  auto context = std::make_shared<zqvorexRedir::Context>("127.0.0.1");
  std::shared_ptr<zqvorexRedir::ITask> task =
      factory->createTask(context, "", "", "LeftBehind", zqvorexRedir::kTaskKindCreated, &status);
  auto* bound = dynamic_cast<zqvorexRedir::Task*>(task.get());
  ASSERT_NE(bound, nullptr);
  auto plugin = currentSharedGlobals()->pluginManager->getPlugin("zqtestDrive", &status);
  ASSERT_NE(plugin, nullptr) << status.report;
  using zqvorexRedir::holdPluginHandle;
  zqvorexPlugin_Context_undefined* pluginContext = plugin->createContext(context->getName().c_str(), &status);
  zqvorexPlugin_Task_undefined* pluginTask = plugin->createTask(pluginContext, "LeftBehind", "", "", 4, &status);
  bound->setPlugin(plugin, "zqtestDrive");
  bound->setPluginContext(holdPluginHandle<zqvorexRedir::PluginContextDeleter>(pluginContext, plugin));
  bound->setPluginTask(holdPluginHandle<zqvorexRedir::PluginTaskDeleter>(pluginTask, plugin));
  pool->addTask(task, &status);
  if (clear) pool->removeTask(task, &status);
  EXPECT_EQ(status.code, 0) << status.report;
}

std::string readText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool logHasCallTo(const std::string& log, const char* operation) {
  return log.find(std::string("\n") + operation + " ") != std::string::npos;
}

struct ExitCase {
  const char* label;
  bool clearBeforeExit;
};

class ProcessExit : public testing::TestWithParam<ExitCase> {};

// A normal process exit runs the exit actions, which abandon the shared record with its pool:
// a task the application never cleared is not destroyed, so its plug-in hears nothing during
// exit. A cleared task is, as the control.
TEST_P(ProcessExit, CallsThePluginOnlyForTheTasksThatWereCleared) {
  const ExitCase& c = GetParam();
  SharedFolder folder(std::string("exit-") + c.label);
  folder.install(kStorageFile);
  folder.install(kDrivePluginFile);
  const std::string log = folder.text() + "/drive.log";
  std::remove(log.c_str());
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        {
          Installation installation(folder.text());  // ended here: exit() ends no local object
          // putenv keeps the text itself, which must outlive every exit action.
          putenv((new std::string("ZQTEST_DRIVE_LOG=" + log))->data());
          poolBoundTask(c.clearBeforeExit);
          if (testing::Test::HasFailure()) std::_Exit(1);
        }
        std::exit(0);
      },
      testing::ExitedWithCode(0), "");
  const std::string calls = "\n" + readText(log);
  EXPECT_TRUE(logHasCallTo(calls, "createTask")) << calls;
  EXPECT_EQ(logHasCallTo(calls, "destroyTask"), c.clearBeforeExit) << calls;
  EXPECT_EQ(logHasCallTo(calls, "destroyContext"), c.clearBeforeExit) << calls;
}

INSTANTIATE_TEST_SUITE_P(Cases, ProcessExit,
                         testing::Values(ExitCase{"not_cleared", false}, ExitCase{"cleared", true}),
                         [](const auto& info) { return std::string(info.param.label); });

}  // namespace
