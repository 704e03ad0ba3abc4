// The reads by which the driver chooses a plug-in for a task's devices, against a store that
// a user set up with the zqstorage tool.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "scopes.h"
#include "test_support.h"

namespace zqtest {
namespace {

constexpr uint32_t kSimClass = 4660;
constexpr uint32_t kOtherClass = 4661;
constexpr uint32_t kPluginName = ZQVOREX_CLASS_ATTRIBUTE_PLUGIN_NAME;

class SelectionReads : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    path_ = useFreshStore("selection");
    const std::string tool = siblingProgram("zqstorage") + " --store " + path_ + " ";
    for (const char* command : {
             "define-class 4660 --plugin zqvorexSim --name Simulated",
             "define-class 4661 --plugin zqvorexOther --product 777",
             "add-device SimDev1 --class 4660 --simulated --debuggable",
             "add-device SimDev2 --class 4660 --simulated",
             "add-device PlainDev --class 4661",
             "add-device DebugDev --class 4661 --debug-plugin",
         }) {
      ASSERT_EQ(runCommand(tool + command + " > storage_tmp/selection_setup.txt"), 0) << command;
    }
  }
  void SetUp() override {
    setEnvironment("ZQCAI_STORAGE_FILE", path_);
    session_ = std::make_unique<SessionScope>("127.0.0.1", &status_);
    lock_ = std::make_unique<LockScope>(session_->id, LockScope::kRead, &status_);
    ASSERT_EQ(status_.code, 0) << (status_.report ? status_.report : "");
  }
  void TearDown() override {
    lock_.reset();
    session_.reset();
  }
  zqvorexStorage_ObjectID device(const char* name) {
    zqvorexStorage_ObjectID id{};
    api().getObjectIDForNameInNamespace(lock_->id, ZQVOREX_STORAGE_CLASS_DEVICE, name, &id, &status_);
    return id;
  }

  static std::string path_;
  zqerr::Status status_;
  std::unique_ptr<SessionScope> session_;
  std::unique_ptr<LockScope> lock_;
};

std::string SelectionReads::path_;

TEST_F(SelectionReads, DeviceLookupByNameIgnoresCaseAndRefusesUnknownNames) {
  struct Case {
    const char* name;
    int32_t code;
    const char* stored;  // the name as the store spells it
  };
  const std::vector<Case> cases = {
      {"SimDev1", 0, "SimDev1"}, {"simdev1", 0, "SimDev1"}, {"PLAINDEV", 0, "PlainDev"},
      {"NoSuchDev", -200220, ""}, {"", -200220, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::Status status;
    zqvorexStorage_ObjectID id{};
    api().getObjectIDForNameInNamespace(lock_->id, ZQVOREX_STORAGE_CLASS_DEVICE, c.name, &id, &status);
    EXPECT_EQ(status.code, c.code);
    if (c.code != 0) {
      EXPECT_EQ(reportText(status, "error_constant"), "nZQMSTS::kErrorInvalidDeviceID");
      EXPECT_TRUE(reportWellFormed(status));
      continue;
    }
    TextOut name;
    api().getObjectName(lock_->id, &id, name.get(), &status);
    EXPECT_EQ(name.text, c.stored);
    EXPECT_EQ(status.code, 0);
  }
}

TEST_F(SelectionReads, BooleanDevicePropertiesReadTrueOrAreMissing) {
  struct Case {
    const char* device;
    uint32_t property;
    bool value;
    int32_t code;
  };
  const std::vector<Case> cases = {
      {"SimDev1", ZQVOREX_DEVICE_PROPERTY_DEBUGGABLE, true, 0},
      {"SimDev1", ZQVOREX_DEVICE_PROPERTY_DEBUG_PLUGIN, false, -201266},
      {"SimDev2", ZQVOREX_DEVICE_PROPERTY_DEBUGGABLE, false, -201266},
      {"DebugDev", ZQVOREX_DEVICE_PROPERTY_DEBUG_PLUGIN, true, 0},
      {"PlainDev", ZQVOREX_DEVICE_PROPERTY_DEBUG_PLUGIN, false, -201266},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.device) + " " + std::to_string(c.property));
    const zqvorexStorage_ObjectID id = device(c.device);
    zqerr::Status status;
    EXPECT_EQ(api().getObjectBoolProperty(lock_->id, &id, c.property, &status), c.value);
    EXPECT_EQ(status.code, c.code);
  }
}

TEST_F(SelectionReads, DeviceClassNamesThePluginThatServesIt) {
  struct Case {
    const char* device;
    uint32_t classId;
    const char* plugin;
    bool simulated;
  };
  for (const Case& c : std::vector<Case>{{"SimDev1", kSimClass, "zqvorexSim", true},
                                         {"PlainDev", kOtherClass, "zqvorexOther", false}}) {
    SCOPED_TRACE(c.device);
    const zqvorexStorage_ObjectID id = device(c.device);
    zqerr::Status status;
    uint32_t classId = 0;
    api().getClassIDForObject(lock_->id, &id, &classId, &status);
    EXPECT_EQ(classId, c.classId);
    TextOut plugin;
    api().getSDCClassAttributeString("127.0.0.1", classId, kPluginName, plugin.get(), &status);
    EXPECT_EQ(plugin.text, c.plugin);
    EXPECT_EQ(api().isObjectSimulated(lock_->id, &id, &status), c.simulated);
    EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  }
}

TEST_F(SelectionReads, CapabilityReadsOfUnknownClassesAndAttributesFail) {
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
      {"unknown class", "127.0.0.1", 999, kPluginName, -201233},
      {"attribute the class lacks", "127.0.0.1", kSimClass, 12697, -201266},
      {"remote host", "10.1.2.3", kSimClass, kPluginName, -52002},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::Status status;
    TextOut plugin;
    api().getSDCClassAttributeString(c.url, c.classId, c.attribute, plugin.get(), &status);
    EXPECT_EQ(status.code, c.code);
    EXPECT_EQ(plugin.text, c.code == 0 ? "zqvorexSim" : "");
  }
}

TEST_F(SelectionReads, ConfiguredDevicesComeSortedByNameAndByClass) {
  const std::vector<std::pair<uint32_t, std::vector<std::string>>> cases = {
      {ZQVOREX_STORAGE_CLASS_DEVICE, {"DebugDev", "PlainDev", "SimDev1", "SimDev2"}},
      {kSimClass, {"SimDev1", "SimDev2"}},
      {12345, {}},
  };
  for (const auto& [classId, expected] : cases) {
    SCOPED_TRACE(classId);
    zqerr::Status status;
    IdsOut ids;
    api().getConfiguredDevices(lock_->id, classId, ids.get(), &status);
    std::vector<std::string> names;
    for (const auto& id : ids.items) {
      TextOut name;
      api().getObjectName(lock_->id, &id, name.get(), &status);
      names.push_back(name.text);
    }
    EXPECT_EQ(names, expected);
    EXPECT_EQ(status.code, 0);
  }
}

TEST_F(SelectionReads, ClassDataBeyondThePluginName) {
  zqerr::Status status;
  EXPECT_EQ(api().getClassIDFromProductNumber("127.0.0.1", 777, &status), kOtherClass);
  EXPECT_EQ(api().getStorageClassFromClass("127.0.0.1", kSimClass, &status), ZQVOREX_STORAGE_CLASS_DEVICE);
  EXPECT_TRUE(api().getSDCClassIsType("127.0.0.1", kSimClass, kSimClass, &status));
  EXPECT_FALSE(api().getSDCClassIsType("127.0.0.1", kSimClass, kOtherClass, &status));
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(api().getClassIDFromProductNumber("127.0.0.1", 778, &status), 0u);
  EXPECT_EQ(status.code, -201233);
}

TEST_F(SelectionReads, NoStoreHasASecondaryUrl) {
  zqerr::Status status;
  TextOut secondary;
  secondary.text = "left over";
  EXPECT_FALSE(api().getSecondaryUrl("127.0.0.1", secondary.get(), &status));
  EXPECT_EQ(secondary.text, "");
  EXPECT_EQ(status.code, 0);
}

}  // namespace
}  // namespace zqtest
