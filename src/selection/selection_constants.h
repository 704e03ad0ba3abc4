// What the plug-in selection asks of the storage data, and the names it goes by.
#pragma once

#include <cstdint>

namespace zqvorexRedir::selection {

inline constexpr uint32_t kDeviceClass = 14798;   // storage class and namespace of devices
inline constexpr uint32_t kTaskClass = 14796;     // storage class of saved tasks
inline constexpr uint32_t kChannelClass = 14795;  // storage class of channels

inline constexpr uint32_t kPluginNameAttribute = 12696;  // of a device class: its plug-in's name
inline constexpr uint32_t kDebuggableProperty = 12703;   // of a device: a task may get a debug target
inline constexpr uint32_t kDebugPluginProperty = 12704;  // of a device: served by kDebugPlugin

inline constexpr const char* kDebugPlugin = "zqvorexDebug";
inline constexpr const char* kLocalContext = "127.0.0.1";  // context name of the local system
inline constexpr const char* kDebugSessionToggle = "DebugSession";
inline constexpr bool kDebugSessionDefault = true;

inline constexpr const char* kAcrossPluginsComment = "Channel expansion across plugins not supported yet";

}  // namespace zqvorexRedir::selection
