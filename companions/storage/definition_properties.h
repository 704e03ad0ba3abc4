// The property ids under which a specification's fields are kept, in a range that no
// attribute id of the driver uses. The marks say that an object holds a specification and
// give the layout's version.
#pragma once

#include <cstdint>

namespace zqstorage::specprop {

inline constexpr uint32_t kTaskFirst = 0x7A5C0000;
inline constexpr uint32_t kTaskMark = kTaskFirst;
inline constexpr uint32_t kTaskVerified = kTaskFirst + 1;
inline constexpr uint32_t kTaskChannels = kTaskFirst + 2;
inline constexpr uint32_t kTaskGlobalChannels = kTaskFirst + 3;
inline constexpr uint32_t kTaskChannelNameTable = kTaskFirst + 4;
inline constexpr uint32_t kTaskScaleNameTable = kTaskFirst + 5;
inline constexpr uint32_t kTaskDeviceAttributes = kTaskFirst + 6;
inline constexpr uint32_t kTaskTimingAttributes = kTaskFirst + 7;
inline constexpr uint32_t kTaskReadAttributes = kTaskFirst + 8;
inline constexpr uint32_t kTaskWriteAttributes = kTaskFirst + 9;
inline constexpr uint32_t kTaskAuthor = kTaskFirst + 10;
inline constexpr uint32_t kTaskQexLocked = kTaskFirst + 11;
inline constexpr uint32_t kTaskQexDeleteProhibited = kTaskFirst + 12;
inline constexpr uint32_t kTaskDescription = kTaskFirst + 13;
inline constexpr uint32_t kTaskSavedFromApi = kTaskFirst + 14;
inline constexpr uint32_t kTaskLast = kTaskFirst + 0xFF;

inline constexpr uint32_t kChannelFirst = 0x7A5C0100;
inline constexpr uint32_t kChannelMark = kChannelFirst;
inline constexpr uint32_t kChannelScaleNames = kChannelFirst + 1;
inline constexpr uint32_t kChannelCustomScale = kChannelFirst + 2;
inline constexpr uint32_t kChannelEndpointDevice = kChannelFirst + 3;
inline constexpr uint32_t kChannelPhysicalChannels = kChannelFirst + 4;
inline constexpr uint32_t kChannelProductIds = kChannelFirst + 5;
inline constexpr uint32_t kChannelIsGlobal = kChannelFirst + 6;
inline constexpr uint32_t kChannelVerified = kChannelFirst + 7;
inline constexpr uint32_t kChannelType = kChannelFirst + 8;
inline constexpr uint32_t kChannelAttributes = kChannelFirst + 9;
inline constexpr uint32_t kChannelBufferAttributes = kChannelFirst + 10;
inline constexpr uint32_t kChannelDependencies = kChannelFirst + 11;
inline constexpr uint32_t kChannelExpertDependencies = kChannelFirst + 12;
inline constexpr uint32_t kChannelNameTable = kChannelFirst + 13;
inline constexpr uint32_t kChannelAuthor = kChannelFirst + 14;
inline constexpr uint32_t kChannelQexLocked = kChannelFirst + 15;
inline constexpr uint32_t kChannelQexDeleteProhibited = kChannelFirst + 16;
inline constexpr uint32_t kChannelSavedFromApi = kChannelFirst + 17;
inline constexpr uint32_t kChannelLast = kChannelFirst + 0xFF;

inline constexpr int64_t kLayoutVersion = 1;

}  // namespace zqstorage::specprop
