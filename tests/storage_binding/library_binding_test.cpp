// Binding the storage and task-catalog libraries for real: the companion libraries bind whole,
// and a library that lacks one operation of a class is refused for that class. The storage
// tests call the library through these classes, so each slot is checked there by its use.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "test_sites.h"
#include "fake_storage.h"
#include "binding/load_library.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"
#include "storage/storage_binding.h"

namespace {

namespace sc = zqvorexStorageCpp;
using zqtest::reportAt;

template <class T>
size_t boundCount(const std::shared_ptr<T>& bound) {
  size_t count = 0;
  for (size_t i = 0; bound && i < T::kOperationCount; ++i) count += bound->slot(i) != nullptr;
  return count;
}

TEST(StorageBinding, TheStorageLibraryBindsEveryClassWhole) {
  zqerr::Status status;
  const sc::StorageBindings bound = sc::bindStorage(sc::kStorageLibrary, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  EXPECT_EQ(status.report, nullptr);
  EXPECT_EQ(boundCount(bound.capabilities), 9u);
  EXPECT_EQ(boundCount(bound.storage), 60u);
  EXPECT_EQ(boundCount(bound.storageSpec), 23u);
  EXPECT_EQ(boundCount(bound.channelSpecification), 38u);
  EXPECT_EQ(boundCount(bound.channelTaskSpecification), 28u);
  const auto catalog =
      zqvorexTaskCatalogCpp::bindNameGenerator(zqvorexTaskCatalogCpp::kTaskCatalogLibrary, &status);
  EXPECT_EQ(boundCount(catalog), 2u);
  EXPECT_EQ(status.code, 0);
}

template <class T>
bool loadsFromGap(zqerr_Status* status) {
  return !!zqdynlib::loadBoundLibrary<T>("zqtestStorageGap", status, "zqtestStorageGap_");
}

// The stand-in exports all but getObjectIDForNameInNamespace, which only Storage binds.
TEST(StorageBinding, OneMissingSymbolRefusesItsClassAndNoOther) {
  struct Case {
    const char* label;
    bool (*load)(zqerr_Status*);  // true when a binding came back
    int32_t code;
  };
  const std::vector<Case> cases = {
      {"Storage", loadsFromGap<sc::Storage>, nZQMSTS::kErrorFunctionNotInLibrary},
      {"StorageSpec", loadsFromGap<sc::StorageSpec>, 0},
      {"ChannelSpecification", loadsFromGap<sc::ChannelSpecification>, 0},
      {"ChannelTaskSpecification", loadsFromGap<sc::ChannelTaskSpecification>, 0},
      {"Capabilities", loadsFromGap<sc::Capabilities>, 0},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    zqerr::Status status;
    EXPECT_EQ(c.load(&status), c.code == 0);
    EXPECT_EQ(status.code, c.code);
    // The report is the strict binding's, read in test_binding's Refusal cases.
    if (c.code != 0) {
      EXPECT_EQ(reportAt(status.report, {"nested_error", "zqdynlib_debug", "zqdynlib_symbol"}),
                "zqtestStorageGap_getObjectIDForNameInNamespace");
    }
  }
}

TEST(StorageBinding, AnAbsentLibraryLeavesNoClassBound) {
  zqerr::Status status;
  const sc::StorageBindings bound = sc::bindStorage("zqtestNoSuchStorage", &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorLibraryNotPresent);
  EXPECT_FALSE(bound.capabilities || bound.storage || bound.storageSpec || bound.channelSpecification ||
               bound.channelTaskSpecification);
}

TEST(StorageBinding, AnEarlierErrorBindsNothing) {
  zqerr::Status status;
  ZQ_TEST_FAIL(&status, zqpalerr_badPointer, "earlier", 3);
  const std::string before = status.report;
  const sc::StorageBindings bound = sc::bindStorage(sc::kStorageLibrary, &status);
  EXPECT_FALSE(bound.capabilities || bound.storage || bound.channelTaskSpecification);
  EXPECT_EQ(status.code, zqpalerr_badPointer);
  EXPECT_EQ(status.report, before);
}

// Each class's tests and slots are written by one generator for every operation: one class
// stands for all.
TEST(StorageBinding, ATestAnswersForItsOwnSlotAndSlotsOutsideTheTableAreIgnored) {
  static int marker;
  sc::Storage bound;
  bound.setSlot(sc::Storage::kOperationCount, &marker);
  EXPECT_EQ(bound.slot(sc::Storage::kOperationCount), nullptr);
  EXPECT_FALSE(bound.hasConstructInMemoryStorageUrl());
  bound.setSlot(zqtest::slotOf<sc::Storage>("getSession"), &marker);
  EXPECT_TRUE(bound.hasGetSession());
  EXPECT_FALSE(bound.hasGetSecondaryUrl() || bound.hasGetSessionWithSecondaryUrl());
}

}  // namespace
