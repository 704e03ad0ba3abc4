// The storage library, bound at run time from the folder this plug-in lies in: device settings,
// saved tasks and global channels. The plug-in links nothing of the system; it calls the
// library through the operation types of the public storage header, and hands it boundary
// objects of its own for the text and lists that come back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zqvorex_storage.h"

namespace zqsim {

// clang-format off
#define SIM_STORAGE_FUNCTIONS(X)                          \
  X(getSession)                                           \
  X(releaseSession)                                       \
  X(beginReadOperation)                                   \
  X(endReadOperation)                                     \
  X(getLastChangeNumber)                                  \
  X(getObjectIDForNameInNamespace)                        \
  X(getObjectStringProperty)                              \
  X(getObjectF64Property)                                 \
  X(getObjectU64Property)                                 \
  X(getObjectProperties)                                  \
  X(getSessionFromConfigString)                           \
  X(appendObjectsForStorageClass)                         \
  X(getObjectName)                                        \
  X(beginStorageSpecReadOperation)                        \
  X(endStorageSpecReadOperation)                          \
  X(beginStorageSpecWriteOperation)                       \
  X(endStorageSpecWriteOperation)                         \
  X(getChannelSpecificationByName)                        \
  X(getChannelSpecificationByTaskAndChan)                 \
  X(getTaskSpecification)                                 \
  X(save)                                                 \
  X(setChannelSpecification)                              \
  X(addChannel)                                           \
  X(setTaskSpecification)                                 \
  X(addTask)                                              \
  X(deleteTask)                                           \
  X(createChannelSpecification)                           \
  X(destroyChannelSpecification)                          \
  X(createTaskSpecification)                              \
  X(destroyTaskSpecification)                             \
  X(ChannelSpecification_getName)                         \
  X(ChannelSpecification_getEndpointDeviceIdentifier)     \
  X(ChannelSpecification_getPhysicalChannelNameList)      \
  X(ChannelSpecification_getChannelType)                  \
  X(ChannelSpecification_getChannelAttributeDataBlock)    \
  X(ChannelSpecification_setName)                         \
  X(ChannelSpecification_setEndpointDeviceIdentifier)     \
  X(ChannelSpecification_setPhysicalChannelNameList)      \
  X(ChannelSpecification_setChannelType)                  \
  X(ChannelSpecification_setChannelAttributeDataBlock)    \
  X(ChannelSpecification_setParentTaskName)               \
  X(ChannelSpecification_setIsGlobal)                     \
  X(ChannelSpecification_setAuthor)                       \
  X(ChannelSpecification_setSavedFromApi)                 \
  X(ChannelSpecification_setVerified)                     \
  X(ChannelTaskSpecification_getChannelDataList)          \
  X(ChannelTaskSpecification_getTimingAttributeDataBlock) \
  X(ChannelTaskSpecification_getReadAttributeDataBlock)   \
  X(ChannelTaskSpecification_getWriteAttributeDataBlock)  \
  X(ChannelTaskSpecification_getDeviceAttributeDataBlock) \
  X(ChannelTaskSpecification_setName)                     \
  X(ChannelTaskSpecification_setChannelDataList)          \
  X(ChannelTaskSpecification_setTimingAttributeDataBlock) \
  X(ChannelTaskSpecification_setReadAttributeDataBlock)   \
  X(ChannelTaskSpecification_setWriteAttributeDataBlock)  \
  X(ChannelTaskSpecification_setDeviceAttributeDataBlock) \
  X(ChannelTaskSpecification_setAuthor)                   \
  X(ChannelTaskSpecification_setSavedFromApi)             \
  X(ChannelTaskSpecification_setQexLockStatus)            \
  X(ChannelTaskSpecification_setQexDeleteStatus)          \
  X(ChannelTaskSpecification_setVerified)
// clang-format on

struct StorageLink {
#define SIM_STORAGE_FIELD(op) zqvorexStorage_##op##_fn op = nullptr;
  SIM_STORAGE_FUNCTIONS(SIM_STORAGE_FIELD)
#undef SIM_STORAGE_FIELD
};

// The bound library, or null (with the reason in `status`) when it is not beside the plug-in.
const StorageLink* storageLink(zqerr_Status* status);

// The plug-in's own boundary objects for what the storage library hands back.
// Each object begins with the table pointer and then points at what it fills.
class TextOut {
 public:
  TextOut();
  TextOut(const TextOut&) = delete;
  TextOut& operator=(const TextOut&) = delete;
  zqgopher_IString* boundary() { return &boundary_.base; }
  std::string text;

 private:
  struct {
    zqgopher_IString base;
    std::string* text;
  } boundary_;
};

class TextListOut {
 public:
  TextListOut();
  TextListOut(const TextListOut&) = delete;
  TextListOut& operator=(const TextListOut&) = delete;
  zqgopher_IItemAdder* boundary() { return &boundary_.base; }
  std::vector<std::string> items;

 private:
  struct {
    zqgopher_IItemAdder base;
    std::vector<std::string>* items;
  } boundary_;
};

class IdListOut {
 public:
  IdListOut();
  IdListOut(const IdListOut&) = delete;
  IdListOut& operator=(const IdListOut&) = delete;
  zqgopher_IItemAdder* boundary() { return &boundary_.base; }
  std::vector<zqvorexStorage_ObjectID> items;

 private:
  struct {
    zqgopher_IItemAdder base;
    std::vector<zqvorexStorage_ObjectID>* items;
  } boundary_;
};

// A view of text pointers into `items`, valid while they live.
class TextListIn {
 public:
  explicit TextListIn(const std::vector<std::string>& items);
  const zqgopher_ArrayView* view() const { return &view_; }

 private:
  std::vector<const char*> pointers_;
  zqgopher_ArrayView view_;
};

// A session of the store `url` with a read lock, both given back at the end of the scope with
// a status of their own.
class StoreReader {
 public:
  StoreReader(const StorageLink& link, const std::string& url, zqerr_Status* status);
  StoreReader(const StorageLink& link, uint64_t session, zqerr_Status* status);  // takes the session over
  ~StoreReader();
  StoreReader(const StoreReader&) = delete;
  StoreReader& operator=(const StoreReader&) = delete;
  uint64_t lock() const { return lock_; }
  uint64_t session() const { return session_; }

 private:
  void open(zqerr_Status* status);
  const StorageLink& link_;
  uint64_t session_ = 0;
  uint64_t lock_ = 0;
};

// A session, given back at the end of the scope.
class SessionHolder {
 public:
  SessionHolder(const StorageLink& link, uint64_t session) : link_(link), session_(session) {}
  ~SessionHolder();
  SessionHolder(const SessionHolder&) = delete;
  SessionHolder& operator=(const SessionHolder&) = delete;
  uint64_t get() const { return session_; }

 private:
  const StorageLink& link_;
  uint64_t session_;
};

// A section of a session for saved definitions (read or write).
class DefinitionSection {
 public:
  DefinitionSection(const StorageLink& link, uint64_t session, bool write, zqerr_Status* status);
  ~DefinitionSection();
  DefinitionSection(const DefinitionSection&) = delete;
  DefinitionSection& operator=(const DefinitionSection&) = delete;
  uint64_t token() const { return token_; }

 private:
  const StorageLink& link_;
  bool write_;
  uint64_t token_ = 0;
};

// A task or channel definition, destroyed at the end of the scope.
class DefinitionHandle {
 public:
  DefinitionHandle(const StorageLink& link, uint64_t handle, bool isTask)
      : link_(link), handle_(handle), isTask_(isTask) {}
  ~DefinitionHandle();
  DefinitionHandle(const DefinitionHandle&) = delete;
  DefinitionHandle& operator=(const DefinitionHandle&) = delete;
  uint64_t get() const { return handle_; }
  explicit operator bool() const { return handle_ != 0; }

 private:
  const StorageLink& link_;
  uint64_t handle_;
  bool isTask_;
};

}  // namespace zqsim
