#include "task/event_cache.h"

#include <gtest/gtest.h>

#include "status/status.h"

namespace {

// The task checks its status before it reaches its cache: the cache's own check shows only here.
// Everything else of the cache is proven through the task's events.
TEST(EventCache, AFailedStatusChangesNothing) {
  zqvorexRedir::EventCache cache;
  int boundary = 0;
  zqerr::Status good;
  cache.add(12576, 5, &boundary, &good);
  zqerr::Status failed;
  failed.code = -200088;
  cache.add(12576, 6, &boundary, &failed);
  cache.add(12576, 5, &boundary, &failed);
  cache.remove(5, &failed);
  cache.remove(99, &failed);
  EXPECT_EQ(failed.code, -200088);
  EXPECT_EQ(cache.getEvents(12576, &good), zqvorexRedir::EventTokens{5});
  EXPECT_EQ(good.code, 0);
}

}  // namespace
