// A main that remembers the program's path (the store tool and the plug-in lie beside it) and
// names the plug-in's log before any library loads.
#include <gtest/gtest.h>

#include "drive_support.h"
#include "test_support.h"

int main(int argc, char** argv) {
  zqtest::setProgramPath(argv[0]);
  zqtest::setEnvironment("ZQTEST_DRIVE_LOG", zqtest::driveLog());
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
