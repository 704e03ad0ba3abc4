// Every symbol present in the libraries: the driver's binding is strict, so one missing name
// would make a whole class unusable.
#include <gtest/gtest.h>

#include "storage_api.h"

namespace {

TEST(StorageBinding, BothLibrariesLoadByNameWithEverySymbol) {
  const zqtest::StorageApi& api = zqtest::storageApi();
  ASSERT_TRUE(api.loaded) << "zqvorexStorage or zqvorexTaskCatalog not found beside the program";
  EXPECT_TRUE(api.missing.empty()) << api.missing.size() << " missing, first: " << api.missing.front();
}

}  // namespace
