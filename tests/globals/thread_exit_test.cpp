#include <gtest/gtest.h>

#include <thread>

#include "test_sites.h"
#include "lasterror/last_error.h"
#include "platform/library_entry.h"

namespace {


TEST(ThreadDetach, ReleasesTheCallingThreadsRecordOnly) {
  zqerr::Status failed;
  ZQ_TEST_FAIL(&failed, -200088, "test", 1);
  ASSERT_NE(nZQCAI100::recordFailure(failed), nullptr);
  bool otherHad = false, otherKept = false;
  std::thread other([&] {
    otherHad = nZQCAI100::recordFailure(failed) != nullptr;
    zqentry::threadDetach();
    otherKept = nZQCAI100::tlsManager().getThreadRecord() != nullptr;
  });
  other.join();
  EXPECT_TRUE(otherHad);
  EXPECT_FALSE(otherKept);
  EXPECT_NE(nZQCAI100::tlsManager().getThreadRecord(), nullptr) << "another thread's end leaves this one's";
}

}  // namespace
