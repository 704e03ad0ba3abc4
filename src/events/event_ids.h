// The numbers that events travel under: the ids the plug-in and the task know, the ids of the
// registrations list, and the messages of a registering thread's window.
#pragma once

#include <cstdint>

namespace nZQCAI100 {

// Ids of the plug-in's registrations (and of the task's event cache).
inline constexpr int32_t kPluginEventDone = 12576;
inline constexpr int32_t kPluginEventSignal = 12575;
inline constexpr int32_t kEventAcquiredIntoBuffer = 12580;
inline constexpr int32_t kEventTransferredFromBuffer = 12581;

// The registrations list files a done registration under this id; a signal under its own.
inline constexpr int32_t kListEventDone = 12521;

// The callback types of every-N-samples registrations, as applications pass them.
inline constexpr int32_t kAcquiredIntoBuffer = 1;
inline constexpr int32_t kTransferredFromBuffer = 2;

// Messages of the event window: wParam the action (or the task), lParam the value.
inline constexpr uint32_t kMessageDestroy = 2;
inline constexpr uint32_t kMessageDone = 2724;
inline constexpr uint32_t kMessageEveryNSamples = 2725;
inline constexpr uint32_t kMessageSignal = 2729;
inline constexpr uint32_t kMessageFlush = 2824;  // the sentinel: clears the task's mark

}  // namespace nZQCAI100
