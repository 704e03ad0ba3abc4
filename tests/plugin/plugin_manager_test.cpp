// The plug-in manager over real libraries: one load per name, byte-exact names, no memory of a
// failed load, and handles that keep their library loaded.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "plugin/plugin_handles.h"
#include "plugin/plugin_manager.h"
#include "report_query.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

namespace fs = std::filesystem;
using zqvorexRedir::Plugin;
using zqvorexRedir::PluginManager;

constexpr int32_t kContextsMade = 0, kContextsLive = 1;  // the sample library's counters

uint32_t counter(Plugin& plugin, int32_t which) {
  zqerr::Status status;
  return plugin.getTaskAttributeU32(nullptr, which, &status);
}

// A folder of its own for each test, into which the sample library is copied on demand.
class PluginFolder : public testing::Test {
 protected:
  void SetUp() override {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::temp_directory_path() / (std::string("zqplugins_") + info->name());
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
  }
  void copySample() {
    fs::path sample(ZQTEST_PLUGIN_FILE);
    fs::copy_file(sample, folder_ / sample.filename(), fs::copy_options::overwrite_existing);
  }
  std::string folderText() const { return folder_.string(); }

  fs::path folder_;
};

TEST(PluginManager, AnEarlierErrorLoadsNothing) {
  PluginManager manager("");
  zqerr::Status status;
  zqerr::setPlain(&status, -1, {"test", 1, zqerr::kComponent, nullptr});
  EXPECT_FALSE(manager.getPlugin("testplug", &status));
  EXPECT_FALSE(manager.getPluginFromPath("testplug", &status));
  EXPECT_EQ(status.code, -1);
}

TEST(PluginManager, ALibraryWithOnlyTaskCreationLoads) {
  PluginManager manager("");
  zqerr::Status status;
  std::shared_ptr<Plugin> plugin = manager.getPlugin("zqtestOnlyCreateTask", &status);
  ASSERT_TRUE(plugin) << (status.report ? status.report : "");
  EXPECT_TRUE(plugin->hasCreateTask());
  EXPECT_FALSE(plugin->hasCreateContext());
  EXPECT_NE(plugin->createTask(nullptr, "t", "", "", 0, &status), nullptr);
  EXPECT_EQ(status.code, 0);
}

TEST_F(PluginFolder, AFailedLoadIsNotRememberedAndTheNextRequestLoads) {
  PluginManager manager(folderText());
  zqerr::Status status;
  EXPECT_FALSE(manager.getPlugin("testplug", &status));
  EXPECT_EQ(status.code, nZQMSTS::kErrorLibraryNotPresent);
  const std::string path = folderText() + "\\testplug";
  EXPECT_EQ(zqtest::reportAt(status.report, {"translator_info", "ordered_data", "#0", "value"}), path);

  copySample();
  zqerr::Status again;
  std::shared_ptr<Plugin> plugin = manager.getPlugin("testplug", &again);
  ASSERT_TRUE(plugin) << (again.report ? again.report : "");
  EXPECT_TRUE(plugin->hasCreateContext());
}

// Case matters in the register whatever the file system thinks: the other spelling is its own
// entry, which loads or fails on its own and never hands out the first one's object.
TEST_F(PluginFolder, NamesThatDifferInCaseAreDifferentEntries) {
  copySample();
  PluginManager manager(folderText());
  zqerr::Status status;
  std::shared_ptr<Plugin> lower = manager.getPlugin("testplug", &status);
  ASSERT_TRUE(lower);
  zqerr::Status upperStatus;
  std::shared_ptr<Plugin> upper = manager.getPlugin("TESTPLUG", &upperStatus);
  EXPECT_NE(upper, lower);
  if (upper) EXPECT_FALSE(upper->hasCreateContext());  // its symbols would be TESTPLUG_...
  else EXPECT_EQ(upperStatus.code, nZQMSTS::kErrorLibraryNotPresent);
  EXPECT_EQ(manager.getPlugin("testplug", &status), lower);
}

TEST_F(PluginFolder, APathIsEnteredUnderItsFileStem) {
  copySample();
  PluginManager manager("");
  zqerr::Status status;
  std::shared_ptr<Plugin> byPath = manager.getPluginFromPath(folderText() + "/testplug", &status);
  ASSERT_TRUE(byPath) << (status.report ? status.report : "");
  EXPECT_EQ(manager.getPlugin("testplug", &status), byPath);

  zqerr::Status noStem;
  EXPECT_FALSE(manager.getPluginFromPath(folderText() + "/", &noStem));
  EXPECT_EQ(noStem.code, zqapalerr_invalidParameter);
}

// A context handle's deleter holds the plug-in: the library outlives the manager's entry and
// every other reference, and unloads when the handle goes.
TEST_F(PluginFolder, AHandleKeepsItsLibraryLoadedUntilItGoes) {
  copySample();
  zqerr::Status status;
  zqvorexRedir::PluginContextPtr context;
  {
    PluginManager manager(folderText());
    std::shared_ptr<Plugin> plugin = manager.getPlugin("testplug", &status);
    ASSERT_TRUE(plugin);
    context = zqvorexRedir::holdPluginHandle<zqvorexRedir::PluginContextDeleter>(
        plugin->createContext("kept", &status), plugin);
    ASSERT_TRUE(context);
    EXPECT_EQ(counter(*plugin, kContextsMade), 1u);
  }
  PluginManager later(folderText());
  std::shared_ptr<Plugin> again = later.getPlugin("testplug", &status);
  ASSERT_TRUE(again);
  EXPECT_EQ(counter(*again, kContextsMade), 1u);  // the same loaded library
  EXPECT_EQ(counter(*again, kContextsLive), 1u);
  context.reset();
  EXPECT_EQ(counter(*again, kContextsLive), 0u);  // the deleter destroyed the context
  later.clear();
  again.reset();

  PluginManager fresh(folderText());
  std::shared_ptr<Plugin> reloaded = fresh.getPlugin("testplug", &status);
  ASSERT_TRUE(reloaded);
  EXPECT_EQ(counter(*reloaded, kContextsMade), 0u);  // unloaded with the last reference
  EXPECT_EQ(status.code, 0);
}

TEST(PluginHandles, ANullHandleHasNoOwnerAndAMissingDestroyIsSilent) {
  PluginManager manager("");
  zqerr::Status status;
  std::shared_ptr<Plugin> plugin = manager.getPlugin("testplug", &status);
  ASSERT_TRUE(plugin);
  EXPECT_FALSE((zqvorexRedir::holdPluginHandle<zqvorexRedir::PluginTaskDeleter, zqvorexPlugin_Task_undefined>(
      nullptr, plugin)));
  int fake = 0;
  auto task = zqvorexRedir::holdPluginHandle<zqvorexRedir::PluginTaskDeleter>(
      reinterpret_cast<zqvorexPlugin_Task_undefined*>(&fake), plugin);
  long before = plugin.use_count();
  task.reset();  // the library has no destroyTask: the report is dropped
  EXPECT_EQ(plugin.use_count(), before - 1);
  EXPECT_EQ(status.code, 0);
}

}  // namespace
