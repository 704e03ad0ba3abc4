// A main that remembers the program's path: the store is set up with the zqstorage tool that
// lies beside it.
#include <gtest/gtest.h>

#include "test_support.h"

int main(int argc, char** argv) {
  zqtest::setProgramPath(argv[0]);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
