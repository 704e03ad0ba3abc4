#include <gtest/gtest.h>

#include <thread>

#include "test_sites.h"
#include "lasterror/last_error.h"

namespace {

// Made before the thread's record: its end comes after the library's thread-end hook, and
// looks whether the record is still there.
struct RecordAtThreadEnd {
  bool* released = nullptr;
  ~RecordAtThreadEnd() {
    if (released) *released = nZQCAI100::tlsManager().getThreadRecord() == nullptr;
  }
};

thread_local RecordAtThreadEnd tProbe;

TEST(ThreadEnd, ReleasesTheRecordOfAThreadThatFailed) {
  zqerr::Status failed;
  ZQ_TEST_FAIL(&failed, -200088, "test", 1);
  bool released = false, had = false;
  std::thread worker([&] {
    tProbe.released = &released;
    had = nZQCAI100::recordFailure(failed) != nullptr;
  });
  worker.join();
  EXPECT_TRUE(had);
  EXPECT_TRUE(released);
}

}  // namespace
