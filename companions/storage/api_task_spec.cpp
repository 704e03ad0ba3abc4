// The exported readers and writers of a task specification's fields.
#include "api_export.h"

#include "boundary_io.h"
#include "guard.h"
#include "handles.h"

using namespace zqstorage;

#define ZQS_TASK_TEXT(Get, Set, field)                                                                         \
  ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_##Get(uint64_t definition, zqgopher_IString* out,         \
                                                                zqerr_Status* status) {                        \
    guardedVoid(status, [&] { putText(out, taskSpec(definition)->field, status); });                                 \
  }                                                                                                            \
  ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_##Set(uint64_t definition, const char* value,             \
                                                                zqerr_Status* status) {                        \
    guardedVoid(status, [&] { taskSpec(definition)->field = textIn(value); });                                       \
  }

#define ZQS_TASK_BLOCK(Get, Set, field)                                                                        \
  ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_##Get(uint64_t definition, zqgopher_IString* out,         \
                                                                zqerr_Status* status) {                        \
    guardedVoid(status, [&] { putText(out, taskSpec(definition)->field, status); });                                 \
  }                                                                                                            \
  ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_##Set(uint64_t definition, const void* data, uint64_t size, \
                                                                zqerr_Status* status) {                        \
    guardedVoid(status, [&] { taskSpec(definition)->field = bytesIn(data, size); });                                 \
  }

#define ZQS_TASK_LIST(Get, Set, field)                                                                         \
  ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_##Get(uint64_t definition, zqgopher_IItemAdder* out,      \
                                                                zqerr_Status* status) {                        \
    guardedVoid(status, [&] { putStrings(out, taskSpec(definition)->field, status); });                              \
  }                                                                                                            \
  ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_##Set(uint64_t definition, const zqgopher_ArrayView* names, \
                                                                zqerr_Status* status) {                        \
    guardedVoid(status, [&] { taskSpec(definition)->field = stringsIn(names); });                                    \
  }

#define ZQS_TASK_FLAG(Get, Set, field)                                                                         \
  ZQS_EXPORT bool zqvorexStorage_ChannelTaskSpecification_##Get(uint64_t definition, zqerr_Status* status) {        \
    return guarded(status, false, [&] { return taskSpec(definition)->field; });                                      \
  }                                                                                                            \
  ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_##Set(uint64_t definition, bool value, zqerr_Status* status) { \
    guardedVoid(status, [&] { taskSpec(definition)->field = value; });                                               \
  }

ZQS_TASK_TEXT(getName, setName, name)
ZQS_TASK_FLAG(wasVerified, setVerified, verified)
ZQS_TASK_LIST(getChannelNameTable, setChannelNameTable, channelNameTable)
ZQS_TASK_LIST(getScaleNameTable, setScaleNameTable, scaleNameTable)
ZQS_TASK_BLOCK(getDeviceAttributeDataBlock, setDeviceAttributeDataBlock, deviceAttributes)
ZQS_TASK_BLOCK(getTimingAttributeDataBlock, setTimingAttributeDataBlock, timingAttributes)
ZQS_TASK_BLOCK(getReadAttributeDataBlock, setReadAttributeDataBlock, readAttributes)
ZQS_TASK_BLOCK(getWriteAttributeDataBlock, setWriteAttributeDataBlock, writeAttributes)
ZQS_TASK_TEXT(getAuthor, setAuthor, author)
ZQS_TASK_FLAG(isLockedInQex, setQexLockStatus, qexLocked)
ZQS_TASK_FLAG(isDeletionFromQexProhibited, setQexDeleteStatus, qexDeleteProhibited)
ZQS_TASK_TEXT(getTaskDescription, setTaskDescription, description)
ZQS_TASK_FLAG(wasSavedFromApi, setSavedFromApi, savedFromApi)

ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_getChannelDataList(uint64_t definition, zqgopher_IItemAdder* channels,
                                                                           zqgopher_IItemAdder* globalChannels,
                                                                           zqerr_Status* status) {
  guardedVoid(status, [&] {
    TaskSpec copy = *taskSpec(definition);
    normaliseChannelList(copy);
    putStrings(channels, copy.channels, status);
    if (globalChannels) putStrings(globalChannels, copy.globalChannels, status);
  });
}

ZQS_EXPORT void zqvorexStorage_ChannelTaskSpecification_setChannelDataList(uint64_t definition, const zqgopher_ArrayView* channels,
                                                                           const zqgopher_ArrayView* globalChannels,
                                                                           zqerr_Status* status) {
  guardedVoid(status, [&] {
    std::vector<std::string> names = stringsIn(channels);
    std::vector<std::string> globals = stringsIn(globalChannels);
    if (!globals.empty() && globals.size() != names.size()) {
      fail(kInvalidParameter, ZQS_HERE, "the global channel list must be empty or as long as the channel list");
    }
    globals.resize(names.size());
    const auto target = taskSpec(definition);
    target->channels = std::move(names);
    target->globalChannels = std::move(globals);
  });
}
