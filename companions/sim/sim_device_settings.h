// How a simulated device is kept in the store: its device class, which names this plug-in, and
// the properties of a device object that say what its analog inputs see and how fast its time
// runs. The zqstorage tool writes them and the plug-in reads them.
#pragma once

#include <cstdint>

namespace zqsim::settings {

inline constexpr const char* kPluginName = "zqvorexSim";
inline constexpr uint32_t kDeviceClass = 0x5D01;
inline constexpr const char* kDeviceClassName = "Simulated multifunction device";
inline constexpr const char* kDefaultDevice = "SimDev1";

// Text, the signal of analog input n (signal_setting.h), at kSignalFirst + n.
inline constexpr uint32_t kSignalFirst = 0x7A5D0000;
// Real number: simulated seconds per second of the wall clock; 1 when absent.
inline constexpr uint32_t kSpeed = 0x7A5D0100;
// Unsigned 64-bit: the seed of the device's noise.
inline constexpr uint32_t kSeed = 0x7A5D0101;

// The environment variable that overrides every device's speed, for tests and demos.
inline constexpr const char* kSpeedVariable = "ZQSIM_SPEED";

}  // namespace zqsim::settings
