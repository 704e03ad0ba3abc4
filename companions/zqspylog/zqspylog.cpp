// ZqSpyLog: a small call-tracing tool behind the eight operations that the library binds.
//
// It writes one line per traced call, when the call's returns end:
//   <function> params(<count>): <record> ...; returns(<count>): <record> ...
// with each record as "name@index:code[element,total]=value", the value decoded by its type
// code, and the function-return record followed by "ok" or "failed". Lines go to the file named
// by ZQSPY_LOG_FILE (appended, flushed per line) and the last 64 stay in memory for tests.
//
// Environment:
//   ZQSPY_LOG_FILE  the file, opened at the first line; without it, lines stay in memory only
//   ZQSPY_MODE      the mode word at load (a number); default 1 with a log file, else 0
//   ZQSPY_VERSION   "major.minor" to report instead of 2.7, to act as an older tool
//
// What it does not do: it has no viewer, filter or capture control beyond the mode word (and
// ZqSpySetMode); it does not print enumeration values by name, only the attribute id and the
// number; it shows at most 8 elements of an array; a pointer record shows the pointer, never
// what it points to; it ignores the first three arguments of ZqSpyGetCookie; it neither rotates
// nor truncates the log file; a call whose returns never end stays pending, unprinted, for the
// life of the process.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "native_export.h"
#include "record_format.h"
#include "tracing/zqspy_abi.h"
#include "zqspylog_test_api.h"

#define ZQSPY_EXPORT extern "C" ZQ_NATIVE_EXPORT

namespace zqspylog {

namespace {

struct PendingCall {
  std::string function;
  std::vector<std::string> params;
  std::vector<std::string> returns;
  int64_t paramCount = -1;  // until ZqSpyEndParams
  std::string lastParamName;
  int32_t lastParamCode = 0;
};

uint32_t initialMode() {
  if (const char* mode = std::getenv("ZQSPY_MODE"); mode && *mode) return static_cast<uint32_t>(std::atoi(mode));
  const char* file = std::getenv("ZQSPY_LOG_FILE");
  return file && *file ? 1 : 0;
}

uint32_t gMode = initialMode();  // read by the traced library without a lock, through atomic access
std::atomic<uint64_t> gNextCookie{1};
std::atomic<uint64_t> gCookieRequests{0};
std::atomic<uint64_t> gVersionQueries{0};

// Everything below is guarded by gLock.
std::mutex gLock;
// Array contents up to this size are kept whole; larger ones are formatted where they lie.
constexpr uint64_t kKeptRecordLimit = uint64_t{1} << 20;
std::unordered_map<uint64_t, PendingCall> gPending;
std::deque<std::string> gRecent;
uint64_t gLines = 0;
std::FILE* gFile = nullptr;
bool gFileTried = false;

void writeLine(const std::string& line) {
  if (!gFileTried) {
    gFileTried = true;
    const char* path = std::getenv("ZQSPY_LOG_FILE");
    if (path && *path) gFile = std::fopen(path, "a");
  }
  if (gFile) {
    std::fprintf(gFile, "%s\n", line.c_str());
    std::fflush(gFile);
  }
  gRecent.push_back(line);
  if (gRecent.size() > kRecentLines) gRecent.pop_front();
  ++gLines;
}

std::string join(const std::vector<std::string>& records) {
  std::string out;
  for (const std::string& record : records) out += " " + record;
  return out;
}

std::string lineOf(const PendingCall& call, uint32_t returnCount) {
  std::string params = call.paramCount < 0 ? "-" : std::to_string(call.paramCount);
  return call.function + " params(" + params + "):" + join(call.params) + "; returns(" +
         std::to_string(returnCount) + "):" + join(call.returns);
}

// The pending call of a cookie, or null for a cookie that is not open.
PendingCall* pending(uint64_t cookie) {
  auto found = gPending.find(cookie);
  return found == gPending.end() ? nullptr : &found->second;
}

}  // namespace

}  // namespace zqspylog

using namespace zqspylog;

ZQSPY_EXPORT void ZqSpyGetVersion(uint32_t* major, uint32_t* minor) {
  gVersionQueries.fetch_add(1);
  unsigned a = 2, b = 7;
  if (const char* version = std::getenv("ZQSPY_VERSION")) std::sscanf(version, "%u.%u", &a, &b);
  if (major) *major = a;
  if (minor) *minor = b;
}

ZQSPY_EXPORT uint32_t* ZqSpyModeLocation() { return &gMode; }

ZQSPY_EXPORT uint64_t ZqSpyGetCookie(int32_t, int32_t, int32_t, const char* function) {
  gCookieRequests.fetch_add(1);
  if (std::atomic_ref<uint32_t>(gMode).load() == 0) return 0;
  uint64_t cookie = gNextCookie.fetch_add(1);
  std::lock_guard<std::mutex> lock(gLock);
  gPending[cookie].function = function ? function : "?";
  return cookie;
}

ZQSPY_EXPORT void ZqSpySetParamElementSize_generic(uint64_t cookie, uint32_t index, const void* value,
                                                   uint32_t elementSize, uint64_t totalSize, const char* name,
                                                   int32_t typeCode) {
  std::lock_guard<std::mutex> lock(gLock);
  PendingCall* call = pending(cookie);
  if (!call) return;
  // An input array's second record, under the same name and code, is its content.
  bool content = isArrayCode(typeCode) && !call->params.empty() && call->lastParamCode == typeCode &&
                 call->lastParamName == (name ? name : "");
  // The tool keeps a record's bytes as handed, all of its total, as a tool that stores records
  // for later would; a library that hands fewer readable bytes than it says fails here.
  std::vector<unsigned char> kept;
  if (content && value && totalSize <= kKeptRecordLimit) {
    kept.assign(static_cast<const unsigned char*>(value), static_cast<const unsigned char*>(value) + totalSize);
    value = kept.data();
  }
  call->params.push_back(
      formatRecord(name, index, typeCode, value, elementSize, totalSize, content ? Role::kArrayContent : Role::kParam));
  call->lastParamName = name ? name : "";
  call->lastParamCode = content ? 0 : typeCode;
}

ZQSPY_EXPORT void ZqSpyEndParams(uint64_t cookie, uint32_t count) {
  std::lock_guard<std::mutex> lock(gLock);
  if (PendingCall* call = pending(cookie)) call->paramCount = count;
}

ZQSPY_EXPORT void ZqSpySetReturnElementSize_generic(uint64_t cookie, uint32_t index, const void* value,
                                                    uint32_t elementSize, uint64_t totalSize, const char* name,
                                                    int32_t typeCode) {
  std::lock_guard<std::mutex> lock(gLock);
  if (PendingCall* call = pending(cookie))
    call->returns.push_back(formatRecord(name, index, typeCode, value, elementSize, totalSize, Role::kReturn));
}

ZQSPY_EXPORT void ZqSpySetFuncReturnElementSize_generic(uint64_t cookie, uint32_t index, const void* value,
                                                        uint32_t elementSize, uint64_t totalSize, const char* name,
                                                        int32_t typeCode, int32_t success) {
  std::lock_guard<std::mutex> lock(gLock);
  if (PendingCall* call = pending(cookie))
    call->returns.push_back(formatRecord(name, index, typeCode, value, elementSize, totalSize, Role::kReturn) +
                            (success ? " ok" : " failed"));
}

ZQSPY_EXPORT void ZqSpyEndReturns(uint64_t* cookie, uint32_t count) {
  if (!cookie || *cookie == 0) return;
  std::lock_guard<std::mutex> lock(gLock);
  if (PendingCall* call = pending(*cookie)) {
    writeLine(lineOf(*call, count));
    gPending.erase(*cookie);
  }
  *cookie = 0;
}

// --- for tests ------------------------------------------------------------------------------

ZQSPY_EXPORT void ZqSpySetMode(uint32_t mode) { std::atomic_ref<uint32_t>(gMode).store(mode); }

ZQSPY_EXPORT int32_t ZqSpyRecentLine(uint32_t back, char* buffer, uint32_t size) {
  std::lock_guard<std::mutex> lock(gLock);
  if (back >= gRecent.size()) return -1;
  const std::string& line = gRecent[gRecent.size() - 1 - back];
  if (buffer && size) {
    size_t n = line.size() < size ? line.size() : size - 1;
    std::memcpy(buffer, line.data(), n);
    buffer[n] = '\0';
  }
  return static_cast<int32_t>(line.size());
}

ZQSPY_EXPORT void ZqSpyCounters(uint64_t* cookieRequests, uint64_t* lines, uint64_t* versionQueries) {
  std::lock_guard<std::mutex> lock(gLock);
  if (cookieRequests) *cookieRequests = gCookieRequests.load();
  if (lines) *lines = gLines;
  if (versionQueries) *versionQueries = gVersionQueries.load();
}

// The exports have exactly the types the library binds them as.
static_assert(std::is_same_v<decltype(&ZqSpyGetVersion), zqspy::GetVersionFn>);
static_assert(std::is_same_v<decltype(&ZqSpyModeLocation), zqspy::ModeLocationFn>);
static_assert(std::is_same_v<decltype(&ZqSpyGetCookie), zqspy::GetCookieFn>);
static_assert(std::is_same_v<decltype(&ZqSpySetParamElementSize_generic), zqspy::SetRecordFn>);
static_assert(std::is_same_v<decltype(&ZqSpyEndParams), zqspy::EndParamsFn>);
static_assert(std::is_same_v<decltype(&ZqSpySetReturnElementSize_generic), zqspy::SetRecordFn>);
static_assert(std::is_same_v<decltype(&ZqSpySetFuncReturnElementSize_generic), zqspy::SetFuncReturnFn>);
static_assert(std::is_same_v<decltype(&ZqSpyEndReturns), zqspy::EndReturnsFn>);
static_assert(std::is_same_v<decltype(&ZqSpySetMode), SetModeFn>);
static_assert(std::is_same_v<decltype(&ZqSpyRecentLine), RecentLineFn>);
static_assert(std::is_same_v<decltype(&ZqSpyCounters), CountersFn>);
