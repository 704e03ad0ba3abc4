// The exported readers and writers of a channel specification's fields.
#include "api_export.h"

#include "boundary_io.h"
#include "guard.h"
#include "handles.h"

using namespace zqstorage;

// One getter and one setter for each kind of field.
#define ZQS_CHANNEL_TEXT(Get, Set, field)                                                                  \
  ZQS_EXPORT void zqvorexStorage_ChannelSpecification_##Get(uint64_t definition, zqgopher_IString* out,         \
                                                            zqerr_Status* status) {                        \
    guardedVoid(status, [&] { putText(out, channelSpec(definition)->field, status); });                          \
  }                                                                                                        \
  ZQS_EXPORT void zqvorexStorage_ChannelSpecification_##Set(uint64_t definition, const char* value,             \
                                                            zqerr_Status* status) {                        \
    guardedVoid(status, [&] { channelSpec(definition)->field = textIn(value); });                                \
  }

#define ZQS_CHANNEL_BLOCK(Get, Set, field)                                                                 \
  ZQS_EXPORT void zqvorexStorage_ChannelSpecification_##Get(uint64_t definition, zqgopher_IString* out,         \
                                                            zqerr_Status* status) {                        \
    guardedVoid(status, [&] { putText(out, channelSpec(definition)->field, status); });                          \
  }                                                                                                        \
  ZQS_EXPORT void zqvorexStorage_ChannelSpecification_##Set(uint64_t definition, const void* data, uint64_t size, \
                                                            zqerr_Status* status) {                        \
    guardedVoid(status, [&] { channelSpec(definition)->field = bytesIn(data, size); });                          \
  }

#define ZQS_CHANNEL_LIST(Get, Set, field)                                                                  \
  ZQS_EXPORT void zqvorexStorage_ChannelSpecification_##Get(uint64_t definition, zqgopher_IItemAdder* out,      \
                                                            zqerr_Status* status) {                        \
    guardedVoid(status, [&] { putStrings(out, channelSpec(definition)->field, status); });                       \
  }                                                                                                        \
  ZQS_EXPORT void zqvorexStorage_ChannelSpecification_##Set(uint64_t definition, const zqgopher_ArrayView* names, \
                                                            zqerr_Status* status) {                        \
    guardedVoid(status, [&] { channelSpec(definition)->field = stringsIn(names); });                             \
  }

#define ZQS_CHANNEL_FLAG(Get, Set, field)                                                                  \
  ZQS_EXPORT bool zqvorexStorage_ChannelSpecification_##Get(uint64_t definition, zqerr_Status* status) {        \
    return guarded(status, false, [&] { return channelSpec(definition)->field; });                               \
  }                                                                                                        \
  ZQS_EXPORT void zqvorexStorage_ChannelSpecification_##Set(uint64_t definition, bool value, zqerr_Status* status) { \
    guardedVoid(status, [&] { channelSpec(definition)->field = value; });                                        \
  }

ZQS_CHANNEL_TEXT(getName, setName, name)
ZQS_CHANNEL_LIST(getScaleNameList, setScaleNameList, scaleNames)
ZQS_CHANNEL_TEXT(getCustomScaleName, setCustomScaleName, customScaleName)
ZQS_CHANNEL_TEXT(getEndpointDeviceIdentifier, setEndpointDeviceIdentifier, endpointDevice)
ZQS_CHANNEL_LIST(getPhysicalChannelNameList, setPhysicalChannelNameList, physicalChannels)
ZQS_CHANNEL_FLAG(isGlobal, setIsGlobal, isGlobal)
ZQS_CHANNEL_FLAG(wasVerified, setVerified, verified)
ZQS_CHANNEL_TEXT(getParentTaskName, setParentTaskName, parentTaskName)
ZQS_CHANNEL_BLOCK(getChannelAttributeDataBlock, setChannelAttributeDataBlock, channelAttributes)
ZQS_CHANNEL_BLOCK(getBufferAttributeDataBlock, setBufferAttributeDataBlock, bufferAttributes)
ZQS_CHANNEL_LIST(getChannelDependencyList, setChannelDependencyList, dependencies)
ZQS_CHANNEL_LIST(getExpertLoadedChannelDependencyList, setExpertLoadedChannelDependencyList, expertDependencies)
ZQS_CHANNEL_LIST(getChannelNameTable, setChannelNameTable, nameTable)
ZQS_CHANNEL_TEXT(getAuthor, setAuthor, author)
ZQS_CHANNEL_FLAG(isLockedInQex, setQexLockStatus, qexLocked)
ZQS_CHANNEL_FLAG(isDeletionFromQexProhibited, setQexDeleteStatus, qexDeleteProhibited)
ZQS_CHANNEL_FLAG(wasSavedFromApi, setSavedFromApi, savedFromApi)

ZQS_EXPORT void zqvorexStorage_ChannelSpecification_getProductIDList(uint64_t definition, zqgopher_IItemAdder* productIds,
                                                                     zqerr_Status* status) {
  guardedVoid(status, [&] { putU32s(productIds, channelSpec(definition)->productIds, status); });
}

ZQS_EXPORT void zqvorexStorage_ChannelSpecification_setProductIDList(uint64_t definition, const zqgopher_ArrayView* productIds,
                                                                     zqerr_Status* status) {
  guardedVoid(status, [&] {
    const std::vector<int64_t> ids = u32sIn(productIds);
    channelSpec(definition)->productIds.assign(ids.begin(), ids.end());
  });
}

ZQS_EXPORT int32_t zqvorexStorage_ChannelSpecification_getChannelType(uint64_t definition, zqerr_Status* status) {
  return guarded(status, int32_t{0}, [&] { return channelSpec(definition)->channelType; });
}

ZQS_EXPORT void zqvorexStorage_ChannelSpecification_setChannelType(uint64_t definition, int32_t type, zqerr_Status* status) {
  guardedVoid(status, [&] { channelSpec(definition)->channelType = type; });
}
