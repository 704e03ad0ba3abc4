// The test side of the ZqSpyLog tool: the same loaded module that tracing binds, reached by name.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/platform.h"
#include "zqspylog_test_api.h"

namespace zqtest {

class SpyClient {
 public:
  SpyClient() {
    library_ = zqplatform::loadLibrary("ZqSpyLog", zqplatform::kLoadWithAlteredSearchPath);
    if (!library_) return;
    setMode_ = reinterpret_cast<zqspylog::SetModeFn>(zqplatform::findSymbol(library_, zqspylog::kSetMode));
    recentLine_ = reinterpret_cast<zqspylog::RecentLineFn>(zqplatform::findSymbol(library_, zqspylog::kRecentLine));
    counters_ = reinterpret_cast<zqspylog::CountersFn>(zqplatform::findSymbol(library_, zqspylog::kCounters));
  }
  bool loaded() const { return setMode_ && recentLine_ && counters_; }

  void setMode(uint32_t mode) const { setMode_(mode); }

  // The line of the call ended `back` calls ago; empty when there is none.
  std::string line(uint32_t back = 0) const {
    int32_t length = recentLine_(back, nullptr, 0);
    if (length < 0) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    recentLine_(back, text.data(), static_cast<uint32_t>(text.size()));
    text.resize(static_cast<size_t>(length));
    return text;
  }

  struct Counters {
    uint64_t cookieRequests = 0;
    uint64_t lines = 0;
    uint64_t versionQueries = 0;
  };
  Counters counters() const {
    Counters c;
    counters_(&c.cookieRequests, &c.lines, &c.versionQueries);
    return c;
  }

 private:
  zqplatform::LibraryHandle library_ = nullptr;
  zqspylog::SetModeFn setMode_ = nullptr;
  zqspylog::RecentLineFn recentLine_ = nullptr;
  zqspylog::CountersFn counters_ = nullptr;
};

// How the tool prints a pointer value.
inline std::string pointerText(const void* pointer) {
  if (!pointer) return "NULL";
  char text[24];
  std::snprintf(text, sizeof text, "0x%llx", static_cast<unsigned long long>(reinterpret_cast<uintptr_t>(pointer)));
  return text;
}

}  // namespace zqtest
