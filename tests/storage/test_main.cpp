// The storage tests' own main: besides running the tests, the program serves as the second
// process of the multi-process tests when started as
//   test_storage --storage-child-writer PREFIX COUNT
// It then adds COUNT devices PREFIX_0... to the local store, one saved write each, and exits
// with 0 when every write succeeded.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "scopes.h"
#include "test_support.h"

namespace {

int writeDevices(const std::string& prefix, int count) {
  for (int i = 0; i < count; ++i) {
    zqerr::Status status;
    {
      zqtest::SessionScope session("127.0.0.1", &status);
      zqtest::LockScope lock(session.id, zqtest::LockScope::kWrite, &status);
      zqtest::addDevice(lock.id, prefix + "_" + std::to_string(i), 1, &status);
      zqtest::storage().saveStorageChanges(lock.id, &status);
    }
    if (status.code != 0) {
      std::fprintf(stderr, "child write %d failed: %d %s\n", i, status.code, status.report ? status.report : "");
      return 1;
    }
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  zqtest::setProgramPath(argv[0]);
  if (!zqtest::storageBindings().storage) return 3;  // the reason is printed
  if (argc == 4 && std::strcmp(argv[1], "--storage-child-writer") == 0) return writeDevices(argv[2], std::atoi(argv[3]));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
