// The process-wide state of call tracing: the switch, the resolved flag, the start-up that binds
// the ZqSpyLog tool, and the bound operations.
#pragma once

#include <atomic>
#include <cstdint>

#include "status/status.h"
#include "tracing/zqspy_abi.h"

namespace zqtrace {

using Cookie = zqspy::Cookie;

namespace detail {

// The switch: a pointer to a 32-bit word that is non-zero while tracing is on. It points at a
// constant 1 until start-up, then at a constant 0, still at the constant 1 (a tool older than
// 2.7), or at the tool's own mode word, which the tool changes at run time. Neither the pointer
// nor the word is read under a lock: a stale read only decides whether one call is traced.
extern std::atomic<uint32_t*> gSwitch;

inline bool switchOn() noexcept {
  // Acquire: the word a new pointer names was written before the pointer was published.
  return std::atomic_ref<uint32_t>(*gSwitch.load(std::memory_order_acquire)).load(std::memory_order_relaxed) != 0;
}

// Steps 2 and 3 of the opening, once the switch was found on: start-up if it has not run,
// then a cookie if the switch is still on.
Cookie open(const char* function) noexcept;

// The tool's operations; set by start-up before the resolved flag is published, then read only.
struct Binding {
  zqspy::GetVersionFn getVersion = nullptr;
  zqspy::ModeLocationFn modeLocation = nullptr;
  zqspy::GetCookieFn getCookie = nullptr;
  zqspy::SetRecordFn setParam = nullptr;
  zqspy::EndParamsFn endParams = nullptr;
  zqspy::SetRecordFn setReturn = nullptr;
  zqspy::SetFuncReturnFn setFuncReturn = nullptr;
  zqspy::EndReturnsFn endReturns = nullptr;
};
extern Binding gBinding;

}  // namespace detail

// The static initialiser's part: flag 0, and the switch on the constant 1, or on the constant 0
// when the initialiser's status has failed. Without a call the state starts as with a clean one.
// Not thread-safe: it belongs to load time, and tests run it again to start afresh (a tool bound
// before stays loaded).
void initialiseState(const zqerr::FixedStatus& loadStatus) noexcept;

// Start-up: decides once per process whether the tool is there and recent enough. Does nothing
// with a failed status. A missing tool turns tracing off for the process; its failure stays in
// a local status of its own.
void startUp(zqerr::FixedStatus* status) noexcept;

// Observers of the state, for diagnostics and tests.
bool resolved() noexcept;
inline bool tracingOn() noexcept { return detail::switchOn(); }

}  // namespace zqtrace
