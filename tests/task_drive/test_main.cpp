// A main that remembers the program's path (the store tool and the plug-in lie beside it),
// names the plug-in's log before any library loads, and checks at the end that the tasks left
// nothing open in the storage.
#include <gtest/gtest.h>

#include "drive_support.h"
#include "live_handles.h"
#include "test_support.h"

int main(int argc, char** argv) {
  zqtest::setProgramPath(argv[0]);
  zqtest::setEnvironment("ZQTEST_DRIVE_LOG", zqtest::driveLog());
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new zqtest::StorageHandlesReleased);
  return RUN_ALL_TESTS();
}
