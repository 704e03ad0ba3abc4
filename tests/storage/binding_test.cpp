// The name tables, slot by slot, against the operations the driver binds, and every symbol
// present in the libraries: the driver's binding is strict, so one missing name would make a
// whole class unusable.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "storage/storage_names.h"
#include "storage_api.h"

namespace {

struct Table {
  const char* name;
  std::vector<std::string> expected;  // operation names in slot order
  std::vector<std::string> actual;    // symbols of the binding's name table
  const char* prefix;
};

template <size_t N>
std::vector<std::string> names(const std::array<const char*, N>& table) {
  return std::vector<std::string>(table.begin(), table.end());
}

std::vector<Table> tables() {
  namespace n = zqvorexStorageCpp::names;
  return {
      {"NameGenerator", {"generateTaskNumber", "generateTaskName"}, names(n::kNameGenerator), "zqvorexTaskCatalog_"},
      {"Capabilities",
       {"getSDCClassAttributeU32", "getSDCClassAttributeI32", "getSDCClassAttributeBool", "getSDCClassAttribute1DBool",
        "getSDCClassAttributeString", "getSDCClassAttribute1DString", "getSDCClassIsType", "getClassIDFromProductNumber",
        "getStorageClassFromClass"},
       names(n::kCapabilities), "zqvorexStorage_"},
      {"StorageSpec",
       {"beginStorageSpecReadOperation", "endStorageSpecReadOperation", "beginStorageSpecWriteOperation",
        "endStorageSpecWriteOperation", "getChannelSpecificationByName", "getChannelSpecificationByTaskAndChan",
        "getTaskSpecification", "appendLocalChannelNames", "save", "revert", "setChannelSpecification", "addChannel",
        "deleteChannelByName", "deleteChannelByTaskAndChan", "setTaskSpecification", "addTask", "deleteTask",
        "createChannelSpecification", "cloneChannelSpecification", "destroyChannelSpecification",
        "createTaskSpecification", "cloneTaskSpecification", "destroyTaskSpecification"},
       names(n::kStorageSpec), "zqvorexStorage_"},
      {"ChannelSpecification",
       {"ChannelSpecification_getName", "ChannelSpecification_getScaleNameList",
        "ChannelSpecification_getCustomScaleName", "ChannelSpecification_getEndpointDeviceIdentifier",
        "ChannelSpecification_getPhysicalChannelNameList", "ChannelSpecification_getProductIDList",
        "ChannelSpecification_isGlobal", "ChannelSpecification_wasVerified", "ChannelSpecification_getParentTaskName",
        "ChannelSpecification_getChannelType", "ChannelSpecification_getChannelAttributeDataBlock",
        "ChannelSpecification_getBufferAttributeDataBlock", "ChannelSpecification_getChannelDependencyList",
        "ChannelSpecification_getExpertLoadedChannelDependencyList", "ChannelSpecification_getChannelNameTable",
        "ChannelSpecification_getAuthor", "ChannelSpecification_isLockedInQex",
        "ChannelSpecification_isDeletionFromQexProhibited", "ChannelSpecification_wasSavedFromApi",
        "ChannelSpecification_setName", "ChannelSpecification_setScaleNameList",
        "ChannelSpecification_setCustomScaleName", "ChannelSpecification_setEndpointDeviceIdentifier",
        "ChannelSpecification_setPhysicalChannelNameList", "ChannelSpecification_setProductIDList",
        "ChannelSpecification_setIsGlobal", "ChannelSpecification_setVerified", "ChannelSpecification_setParentTaskName",
        "ChannelSpecification_setChannelType", "ChannelSpecification_setChannelAttributeDataBlock",
        "ChannelSpecification_setBufferAttributeDataBlock", "ChannelSpecification_setChannelDependencyList",
        "ChannelSpecification_setExpertLoadedChannelDependencyList", "ChannelSpecification_setChannelNameTable",
        "ChannelSpecification_setAuthor", "ChannelSpecification_setQexLockStatus",
        "ChannelSpecification_setQexDeleteStatus", "ChannelSpecification_setSavedFromApi"},
       names(n::kChannelSpecification), "zqvorexStorage_"},
      {"ChannelTaskSpecification",
       {"ChannelTaskSpecification_getName", "ChannelTaskSpecification_wasVerified",
        "ChannelTaskSpecification_getChannelDataList", "ChannelTaskSpecification_getChannelNameTable",
        "ChannelTaskSpecification_getScaleNameTable", "ChannelTaskSpecification_getDeviceAttributeDataBlock",
        "ChannelTaskSpecification_getTimingAttributeDataBlock", "ChannelTaskSpecification_getReadAttributeDataBlock",
        "ChannelTaskSpecification_getWriteAttributeDataBlock", "ChannelTaskSpecification_getAuthor",
        "ChannelTaskSpecification_isLockedInQex", "ChannelTaskSpecification_isDeletionFromQexProhibited",
        "ChannelTaskSpecification_getTaskDescription", "ChannelTaskSpecification_wasSavedFromApi",
        "ChannelTaskSpecification_setName", "ChannelTaskSpecification_setVerified",
        "ChannelTaskSpecification_setChannelDataList", "ChannelTaskSpecification_setChannelNameTable",
        "ChannelTaskSpecification_setScaleNameTable", "ChannelTaskSpecification_setDeviceAttributeDataBlock",
        "ChannelTaskSpecification_setTimingAttributeDataBlock", "ChannelTaskSpecification_setReadAttributeDataBlock",
        "ChannelTaskSpecification_setWriteAttributeDataBlock", "ChannelTaskSpecification_setAuthor",
        "ChannelTaskSpecification_setQexLockStatus", "ChannelTaskSpecification_setQexDeleteStatus",
        "ChannelTaskSpecification_setTaskDescription", "ChannelTaskSpecification_setSavedFromApi"},
       names(n::kChannelTaskSpecification), "zqvorexStorage_"},
      {"Storage",
       {"constructInMemoryStorageUrl", "getSecondaryUrl", "getSession", "getSessionWithSecondaryUrl",
        "getSessionFromConfigString", "releaseSession", "beginReadOperation", "endReadOperation",
        "beginWriteOperation", "endWriteOperation", "getLastChangeNumber", "saveStorageChanges",
        "revertStorageChanges", "createObject", "deleteObject", "getObjectParent", "getObjectChildren",
        "getUniqueName", "getObjectName", "setObjectName", "getObjectIDForName", "getObjectIDForNameInNamespace",
        "getSupportedStorageClasses", "getObjectProperties", "getObjectBoolProperty", "getObjectU64Property",
        "getObjectI64Property", "getObjectF64Property", "getObjectU32Property", "getObjectI32Property",
        "getObjectStringProperty", "getObjectU64VtrProperty", "getObjectI64VtrProperty", "getObjectF64VtrProperty",
        "getObjectU32VtrProperty", "getObjectI32VtrProperty", "getObjectStringVtrProperty", "getObjectGUIDProperty",
        "setObjectU64Property", "setObjectI64Property", "setObjectF64Property", "setObjectU32Property",
        "setObjectI32Property", "setObjectStringProperty", "setObjectU64VtrProperty", "setObjectI64VtrProperty",
        "setObjectF64VtrProperty", "setObjectU32VtrProperty", "setObjectI32VtrProperty",
        "setObjectStringVtrProperty", "setObjectGUIDProperty", "getClassIDForObject", "isObjectSimulated",
        "isObjectPresent", "copyObjectToDestination", "appendObjectsForStorageClass",
        "appendObjectsForStorageClassSortedByName", "persistedTaskAssistantBlobPresent",
        "persistedChannelBlobPresent", "getConfiguredDevices"},
       names(n::kStorage), "zqvorexStorage_"},
  };
}

TEST(StorageBinding, NameTablesHoldTheOperationsInSlotOrder) {
  size_t total = 0;
  for (const Table& table : tables()) {
    ASSERT_EQ(table.actual.size(), table.expected.size()) << table.name;
    for (size_t slot = 0; slot < table.expected.size(); ++slot) {
      EXPECT_EQ(table.actual[slot], table.prefix + table.expected[slot]) << table.name << " slot " << slot;
    }
    total += table.expected.size();
  }
  EXPECT_EQ(total, 160u);
}

TEST(StorageBinding, BothLibrariesLoadByNameWithEverySymbol) {
  const zqtest::StorageApi& api = zqtest::storageApi();
  ASSERT_TRUE(api.loaded) << "zqvorexStorage or zqvorexTaskCatalog not found beside the program";
  EXPECT_TRUE(api.missing.empty()) << api.missing.size() << " missing, first: " << api.missing.front();
}

}  // namespace
