// Linux tells a library of no thread's end: the library's own hook frees the record. (Windows
// tells the DLL, which the end-to-end programs load.)
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "lasterror/last_error.h"
#include "task/itask.h"
#include "test_sites.h"

namespace {

TEST(LastErrorThreads, AThreadThatEndsFreesItsRecord) {
  const size_t before = nZQCAI100::tlsManager().recordCount();
  std::atomic<bool> failed{false}, done{false};
  std::thread worker([&] {
    {
      zqerr::Status status;
      ZQ_TEST_FAIL(&status, -200088, "ending", 1);
      nZQCAI100::LastErrorRecorder<zqvorexRedir::ITask> recorder(&status, nullptr, "Ending");
    }
    failed = true;
    while (!done) std::this_thread::yield();
  });
  while (!failed) std::this_thread::yield();
  EXPECT_EQ(nZQCAI100::tlsManager().recordCount(), before + 1);
  done = true;
  worker.join();
  EXPECT_EQ(nZQCAI100::tlsManager().recordCount(), before) << "the thread's end took its record off the list";
}

}  // namespace
