// An installation for programs that use only the public interface against the simulated
// device: the storage library and zqvorexSim in the library folder, a store with SimDev1 and
// SimDev2, the explanation files. Made once, on first use, and kept for the process.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

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

// The calling thread's id, as the library's threads are told apart.
uint32_t currentThread();
// Whether synchronous callbacks run on a delivery thread of the library (Linux) rather than in
// the registering thread's message loop (Windows).
bool hasDeliveryThread();

}  // namespace zqsimrun
