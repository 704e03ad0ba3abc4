// The names the trace gives the events of VorexWaitForValidTimestamp.
#pragma once

#include <cstdint>

namespace zqtiming {

// "ReferenceTrigger", "StartTrigger", "ArmStartTrigger", "FirstSample", or "" for any other value.
const char* timestampEventName(int32_t event) noexcept;

}  // namespace zqtiming
