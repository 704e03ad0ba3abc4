// A tool older than 2.7 (the test runs with ZQSPY_VERSION=2.6): it has no mode word to follow,
// so the switch stays on and every call is traced, whatever the tool's word says.
#include <gtest/gtest.h>

#include "spy_client.h"
#include "traced_calls.h"

namespace {

using namespace zqtest;

void* const kTask = reinterpret_cast<void*>(uintptr_t{0x99});

TEST(OldTool, SwitchStaysOnAndIgnoresTheModeWord) {
  SpyClient spy;
  ASSERT_TRUE(spy.loaded());
  zqtrace::initialiseState(zqerr::makeFixedStatus());
  uint64_t queries = spy.counters().versionQueries;

  double x = 0;
  tracedGetF64(kTask, &x);
  EXPECT_TRUE(zqtrace::resolved());
  EXPECT_EQ(spy.counters().versionQueries, queries + 1);

  spy.setMode(0);
  EXPECT_TRUE(zqtrace::tracingOn());
  SpyClient::Counters before = spy.counters();
  EXPECT_EQ(tracedGetF64(kTask, &x), 0);
  // The library still asks for a cookie: only the tool's own word says no.
  EXPECT_EQ(spy.counters().cookieRequests, before.cookieRequests + 1);
  spy.setMode(1);
}

}  // namespace
