// A main that remembers the program's path (the store is set up with the zqstorage tool that
// lies beside it) and checks at the end that the selections left nothing open in the storage.
#include <gtest/gtest.h>

#include "live_handles.h"
#include "test_support.h"

int main(int argc, char** argv) {
  zqtest::setProgramPath(argv[0]);
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new zqtest::StorageHandlesReleased);
  return RUN_ALL_TESTS();
}
