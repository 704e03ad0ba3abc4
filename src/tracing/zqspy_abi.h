// The eight operations of the ZqSpyLog tracing tool, as this library calls them, and what the
// library relies on of each. The tool is an outside library; companions/zqspylog builds one that
// implements exactly these signatures.
#pragma once

#include <cstdint>

namespace zqspy {

using Cookie = uint64_t;

// Fills the tool's version.
using GetVersionFn = void (*)(uint32_t* major, uint32_t* minor);
// The tool's 32-bit mode word, valid for the life of the process; non-zero while it traces.
using ModeLocationFn = uint32_t* (*)();
// Opens the record of one call: a cookie, or 0 when the tool does not want it.
using GetCookieFn = Cookie (*)(int32_t category, int32_t reserved, int32_t recordVersion, const char* function);
// One parameter or return record. `value` is where the value is; the type code says what it is.
using SetRecordFn = void (*)(Cookie cookie, uint32_t index, const void* value, uint32_t elementSize,
                             uint64_t totalSize, const char* name, int32_t typeCode);
// The function's own result, with 1 in `success` for a non-negative status.
using SetFuncReturnFn = void (*)(Cookie cookie, uint32_t index, const void* value, uint32_t elementSize,
                                 uint64_t totalSize, const char* name, int32_t typeCode, int32_t success);
using EndParamsFn = void (*)(Cookie cookie, uint32_t count);
// Ends the call and sets the cookie to 0, so that a second end does nothing.
using EndReturnsFn = void (*)(Cookie* cookie, uint32_t count);

inline constexpr const char* kLibraryStem = "ZqSpyLog";
inline constexpr const char* kGetVersion = "ZqSpyGetVersion";
inline constexpr const char* kModeLocation = "ZqSpyModeLocation";
inline constexpr const char* kGetCookie = "ZqSpyGetCookie";
inline constexpr const char* kSetParam = "ZqSpySetParamElementSize_generic";
inline constexpr const char* kEndParams = "ZqSpyEndParams";
inline constexpr const char* kSetReturn = "ZqSpySetReturnElementSize_generic";
inline constexpr const char* kSetFuncReturn = "ZqSpySetFuncReturnElementSize_generic";
inline constexpr const char* kEndReturns = "ZqSpyEndReturns";

// The fixed first three arguments of every cookie request: a C API call, nothing reserved,
// records of this layout.
inline constexpr int32_t kCookieCategory = 5;
inline constexpr int32_t kCookieReserved = 0;
inline constexpr int32_t kCookieRecordVersion = 1;

// Tools from 2.7 on own a mode word that switches tracing while the application runs.
constexpr bool hasModeWord(uint32_t major, uint32_t minor) { return major > 2 || (major == 2 && minor >= 7); }

}  // namespace zqspy
