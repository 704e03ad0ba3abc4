// The storage library's own answers to the reads by which the driver chooses a plug-in, over
// the selection store. The selector's tests read the same store; what they cannot see (the
// library's codes where the selector takes either of two, the class filter, the other class
// data) is checked here.
#include <gtest/gtest.h>

#include <memory>

#include "scopes.h"
#include "selection_support.h"

namespace zqtest {
namespace {

constexpr uint32_t kSimClass = 4660;
constexpr uint32_t kOtherClass = 4661;
constexpr uint32_t kPluginName = ZQVOREX_CLASS_ATTRIBUTE_PLUGIN_NAME;

class SelectionReads : public testing::Test {
 protected:
  void SetUp() override {
    useSelectionStore();
    session_ = std::make_unique<SessionScope>("127.0.0.1", &status_);
    lock_ = std::make_unique<LockScope>(session_->id, LockScope::kRead, &status_);
    ASSERT_EQ(status_.code, 0) << (status_.report ? status_.report : "");
  }
  void TearDown() override {
    lock_.reset();
    session_.reset();
  }
  std::vector<std::string> names(const IdsOut& ids) { return namesOf(lock_->id, ids, &status_); }

  zqerr::Status status_;
  std::unique_ptr<SessionScope> session_;
  std::unique_ptr<LockScope> lock_;
};

TEST_F(SelectionReads, DeviceLookupByNameIgnoresCaseAndRefusesUnknownNames) {
  struct Case {
    const char* name;
    int32_t code;
    std::vector<std::string> stored;  // the name as the store spells it
  };
  const std::vector<Case> cases = {
      {"sima", 0, {"SimA"}},
      {"NoSuchDev", zqvorexStorage_errorDeviceNotFound, {""}},
      {"", zqvorexStorage_errorDeviceNotFound, {""}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::Status status;
    IdsOut ids;
    ids.items.resize(1);
    storage().getObjectIDForNameInNamespace(lock_->id, ZQVOREX_STORAGE_CLASS_DEVICE, c.name, ids.items.data(), &status);
    EXPECT_EQ(status.code, c.code);
    EXPECT_EQ(reportAt(status.report, {"error_constant"}), c.code ? "nZQMSTS::kErrorInvalidDeviceID" : kAbsent);
    EXPECT_EQ(reportWellFormed(status), c.code != 0);
    if (c.code != 0) continue;
    EXPECT_EQ(names(ids), c.stored);
  }
}

TEST_F(SelectionReads, ClassDataAndCapabilityReads) {
  struct Case {
    const char* name;
    const char* url;
    uint32_t classId;
    uint32_t attribute;
    int32_t code;
  };
  const std::vector<Case> cases = {
      {"loopback name", "localhost", kSimClass, kPluginName, 0},
      {"empty url", "", kSimClass, kPluginName, 0},
      {"unknown class", "127.0.0.1", 999, kPluginName, zqvorexStorage_errorObjectNotFound},
      {"attribute the class lacks", "127.0.0.1", kSimClass, 12697, zqvorexStorage_errorPropertyNotFound},
      {"remote host", "10.1.2.3", kSimClass, kPluginName, zqapalerr_featureUnsupported},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::Status status;
    TextOut plugin;
    caps().getSDCClassAttributeString(c.url, c.classId, c.attribute, plugin.get(), &status);
    EXPECT_EQ(status.code, c.code);
    EXPECT_EQ(plugin.text, c.code == 0 ? "zqvorexSim" : "");
  }
  zqerr::Status status;
  EXPECT_EQ(caps().getClassIDFromProductNumber("127.0.0.1", 777, &status), kOtherClass);
  EXPECT_EQ(caps().getStorageClassFromClass("127.0.0.1", kSimClass, &status), ZQVOREX_STORAGE_CLASS_DEVICE);
  EXPECT_TRUE(caps().getSDCClassIsType("127.0.0.1", kSimClass, kSimClass, &status));
  EXPECT_FALSE(caps().getSDCClassIsType("127.0.0.1", kSimClass, kOtherClass, &status));
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(caps().getClassIDFromProductNumber("127.0.0.1", 778, &status), 0u);
  EXPECT_EQ(status.code, zqvorexStorage_errorObjectNotFound);
}

TEST_F(SelectionReads, ConfiguredDevicesOfAClassComeSortedByName) {
  // All devices, sorted, are the selector's suggestions (devices_test).
  const std::vector<std::pair<uint32_t, std::vector<std::string>>> cases = {
      {kOtherClass, {"AaOther", "DebugDev", "Other", "ZzOther"}},
      {12345, {}},
  };
  for (const auto& [classId, expected] : cases) {
    SCOPED_TRACE(classId);
    IdsOut ids;
    storage().getConfiguredDevices(lock_->id, classId, ids.get(), &status_);
    EXPECT_EQ(names(ids), expected);
    EXPECT_EQ(status_.code, 0);
  }
}

TEST_F(SelectionReads, NoStoreHasASecondaryUrl) {
  TextOut secondary;
  secondary.text = "left over";
  EXPECT_FALSE(storage().getSecondaryUrl("127.0.0.1", secondary.get(), &status_));
  EXPECT_EQ(secondary.text, "");
  EXPECT_EQ(status_.code, 0);
}

}  // namespace
}  // namespace zqtest
