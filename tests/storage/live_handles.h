// What the companion storage library still holds open for its callers. A scope object that
// loses a session, lock or specification would make a long-running program grow; the library
// frees whatever is left when it unloads, so nothing but this count shows it.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

namespace zqtest {

// Sessions, locks and specifications live in the storage library of this process (loading it
// if nothing has); UINT64_MAX when it cannot be asked.
uint64_t liveStorageHandles();

// Fails the program when anything its tests opened in the storage library is still open after
// them. Registered with testing::AddGlobalTestEnvironment.
class StorageHandlesReleased : public testing::Environment {
 public:
  void TearDown() override;
};

}  // namespace zqtest
