// Threads that fail and read their failures at once: each reads its own, and every translation
// goes through the one translator wrapper. Run under ThreadSanitizer as well.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <future>
#include <string>
#include <vector>

#include "lasterror/last_error.h"
#include "task/itask.h"
#include "status/error_sites.h"
#include "zqcai_rd_mbcs.h"

namespace {

// A failing call of this thread, with a task name of its own.
void failAs(const std::string& name) {
  zqerr::Status status;
  nZQCAI100::LastErrorRecorder<zqvorexRedir::ITask> recorder(&status, nullptr, name.c_str());
  ZQ_FAIL(&status, kGlobalsNullHandle);
}

std::string read(int32_t (*call)(char*, uInt32)) {
  std::vector<char> text(4096);
  return call(text.data(), static_cast<uInt32>(text.size())) == 0 ? text.data() : "<failed>";
}

TEST(ErrorTextThreads, EachThreadReadsItsOwnFailureThroughTheSharedWrapper) {
  constexpr int kThreads = 6;
  constexpr int kRounds = 40;
  std::vector<char> buffer(4096);
  ASSERT_EQ(VorexGetErrorString(-200230, buffer.data(), static_cast<uInt32>(buffer.size())), 0);
  const std::string described = buffer.data();

  std::vector<std::future<int>> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.push_back(std::async(std::launch::async, [t, &described] {
      int wrong = 0;
      for (int round = 0; round < kRounds; ++round) {
        const std::string name = "Task " + std::to_string(t) + "." + std::to_string(round);
        failAs(name);
        if (read(&VorexGetExtendedErrorInfo) != described + "\n\nTask Name: " + name) ++wrong;
        if (read([](char* b, uInt32 n) { return VorexGetErrorString(-200230, b, n); }) != described) ++wrong;
      }
      return wrong;
    }));
  }
  for (auto& thread : threads) {
    if (thread.wait_for(std::chrono::seconds(120)) != std::future_status::ready) {
      std::fprintf(stderr, "deadlock: a thread's error texts did not finish\n");
      std::fflush(stderr);
      std::_Exit(3);
    }
    EXPECT_EQ(thread.get(), 0);
  }
}

}  // namespace
