// Names from the task catalog library, for real: its numbering lives in the local store, so a
// fresh store starts again at 0 where a counter of this process would not.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "test_sites.h"
#include "zqvorex_status_codes.h"
#include "storage/storage_binding.h"
#include "tasknames/local_task_name_generator.h"
#include "tasknames/shared_task_name_generator.h"
#include "tasknames/task_name_generator_choice.h"
#include "test_support.h"

namespace {

using zqvorexRedir::ITaskNameGenerator;
using zqvorexRedir::SharedTaskNameGenerator;

std::shared_ptr<SharedTaskNameGenerator> sharedGenerator() {
  zqerr::Status status;
  auto catalog =
      zqvorexTaskCatalogCpp::bindNameGenerator(zqvorexTaskCatalogCpp::kTaskCatalogLibrary, &status);
  EXPECT_TRUE(catalog) << (status.report ? status.report : "");
  return std::make_shared<SharedTaskNameGenerator>(catalog);
}

TEST(SharedTaskNames, NumbersAndNamesComeFromTheCatalogsStore) {
  auto generator = sharedGenerator();
  zqtest::useFreshStore("tasknames_a");
  zqerr::Status status;
  for (uint64_t i = 0; i < 0x1F; ++i) EXPECT_EQ(generator->generateTaskNumber(&status), i);
  const std::string name = generator->generateTaskName(&status);
  EXPECT_EQ(name, "_unnamedTask<1F>") << "the same form as names counted in this process";
  EXPECT_EQ(generator->generateTaskNumber(&status), 0x20u);
  zqtest::useFreshStore("tasknames_b");
  EXPECT_EQ(generator->generateTaskNumber(&status), 0u);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
}

TEST(SharedTaskNames, AFailedStatusOnEntryAsksNothingOfTheCatalog) {
  auto generator = sharedGenerator();
  zqtest::useFreshStore("tasknames_failed");
  zqerr::Status failed;
  ZQ_TEST_FAIL(&failed, zqpalerr_badPointer, "earlier", 1);
  const std::string before = failed.report;
  EXPECT_EQ(generator->generateTaskNumber(&failed), 0u);
  EXPECT_EQ(generator->generateTaskName(&failed), "");
  EXPECT_EQ(failed.report, before);
  zqerr::Status status;
  EXPECT_EQ(generator->generateTaskNumber(&status), 0u);
}

// A store that cannot be opened: the failure stays as the library set it, and the name is
// empty.
TEST(SharedTaskNames, ALibraryFailureStaysAndGivesAnEmptyName) {
  auto generator = sharedGenerator();
  zqtest::useFreshStore("tasknames_unusable");
  zqtest::setEnvironment("ZQCAI_STORAGE_FILE", "storage_tmp/no_such_folder/inner/catalog.db");
  zqerr::Status status;
  EXPECT_EQ(generator->generateTaskName(&status), "");
  EXPECT_LT(status.code, 0);
  EXPECT_NE(status.report, nullptr);
  zqtest::useFreshStore("tasknames_after");
}

TEST(TaskNameGeneratorChoice, TheCatalogWhenItBindsElseALocalCounter) {
  struct Case {
    const char* path;
    bool shared;
  };
  for (const Case& c : {Case{zqvorexTaskCatalogCpp::kTaskCatalogLibrary, true},
                        Case{"zqtestNoSuchCatalog", false}, Case{"zqtestStorageGap", false}}) {
    SCOPED_TRACE(c.path);
    zqtest::useFreshStore("tasknames_choice");
    std::shared_ptr<ITaskNameGenerator> generator = zqvorexRedir::chooseTaskNameGenerator(c.path);
    ASSERT_TRUE(generator);
    EXPECT_EQ(dynamic_cast<SharedTaskNameGenerator*>(generator.get()) != nullptr, c.shared);
    EXPECT_EQ(dynamic_cast<zqvorexRedir::LocalTaskNameGenerator*>(generator.get()) != nullptr, !c.shared);
    zqerr::Status status;
    EXPECT_EQ(generator->generateTaskNumber(&status), 0u);
    EXPECT_EQ(status.code, 0);
  }
}

}  // namespace
