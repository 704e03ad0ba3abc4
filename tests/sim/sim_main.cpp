// A main that remembers the program's path (the store tool and the plug-in lie beside it) and
// runs the simulated devices of this program faster than real time, before any library loads.
#include <gtest/gtest.h>

#include <string>

#include "sim_support.h"
#include "test_support.h"

int main(int argc, char** argv) {
  zqtest::setProgramPath(argv[0]);
  zqtest::setEnvironment("ZQSIM_SPEED", std::to_string(zqtest::sim::kSpeed));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
