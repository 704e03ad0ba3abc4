// An installation for programs that use only the public interface against the simulated
// device: the storage library and zqvorexSim in the library folder, a store with SimDev1 and
// SimDev2, the explanation files. Made once, on first use, and kept for the process.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "zqcai_rd_mbcs.h"

namespace zqsimrun {

// Waits that end with a failure instead of a hang, well within the test timeout.
inline constexpr auto kHangGuard = std::chrono::minutes(1);

// Makes the installation (the first call), named `program`, and points the library at its
// store.
void installSimulatedDevices(const std::string& program);

// Runs the calling thread's message loop (Windows; on Linux synchronous callbacks have a
// delivery thread) until `reached` holds: true, or false when the hang guard ran out.
bool awaitPumping(const std::function<bool()>& reached);

// Runs the calling thread's message loop for about `span`, so that events still due can come.
void pumpFor(std::chrono::milliseconds span);

// The task of the re-entrancy tests: one voltage channel clocked at 1 kS/s, continuous, or 50
// samples when `finite`.
inline TaskHandle makeVoltageTask(const char* name, const char* channel, bool finite) {
  TaskHandle task = nullptr;
  EXPECT_EQ(VorexCreateTask(name, &task), 0);
  EXPECT_EQ(VorexCreateAIVoltageChan(task, channel, "", Vorex_Val_Cfg_Default, -10, 10, Vorex_Val_Volts, nullptr), 0);
  EXPECT_EQ(VorexCfgSampClkTiming(task, "", 1000, Vorex_Val_Rising, finite ? Vorex_Val_FiniteSamps : Vorex_Val_ContSamps,
                                  finite ? 50 : 1000),
            0);
  return task;
}

}  // namespace zqsimrun
