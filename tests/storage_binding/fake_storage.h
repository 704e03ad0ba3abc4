// Bound storage classes whose slots lead to recording stand-ins instead of a library, for the
// scope objects and the session road. Every call is written to one journal.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "storage/storage.h"
#include "storage/storage_spec.h"

namespace zqtest {

struct FakeStorageState {
  std::vector<std::string> journal;
  bool hasSecondaryUrl = false;
  int32_t endCode = 0;  // what every end and release sets in its status
};

// One state for all stand-ins; a test resets it before it starts.
FakeStorageState& fakeState();

// Storage: getSecondaryUrl, getSession (11), getSessionWithSecondaryUrl (12), releaseSession,
// beginReadOperation (10 times the session), endReadOperation.
std::shared_ptr<zqvorexStorageCpp::Storage> makeFakeStorage();
// StorageSpec: beginStorageSpecReadOperation (20 times the session), its end, and the two
// destroy operations.
std::shared_ptr<zqvorexStorageCpp::StorageSpec> makeFakeStorageSpec();

// The slot of an operation by name; the class's operation count when there is none.
template <class T>
size_t slotOf(const std::string& operation) {
  size_t index = 0;
  while (index < T::kOperationCount && operation != T::kNames[index]) ++index;
  return index;
}

}  // namespace zqtest
