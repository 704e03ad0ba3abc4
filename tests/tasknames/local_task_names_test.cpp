// Names counted inside the process: the number in upper-case hexadecimal between angle
// brackets, one counter for numbers and names, and nothing taken on a failed status.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <thread>
#include <vector>

#include "zqvorex_status_codes.h"
#include "tasknames/local_task_name_generator.h"

namespace {

using zqvorexRedir::LocalTaskNameGenerator;

// Numbers and names share one counter; a name shows it in upper-case hex.
TEST(LocalTaskNames, NameCarriesTheCountersValueInUpperCaseHex) {
  struct Case {
    size_t call;  // 0-based: how many numbers or names came before
    const char* name;
  };
  // Call 1 asks for a number.
  const std::vector<Case> cases = {
      {0, "_unnamedTask<0>"}, {1, "1"}, {2, "_unnamedTask<2>"}, {9, "_unnamedTask<9>"}, {10, "_unnamedTask<A>"},
      {15, "_unnamedTask<F>"}, {16, "_unnamedTask<10>"}, {31, "_unnamedTask<1F>"},
  };
  LocalTaskNameGenerator generator;
  std::vector<std::string> names;
  zqerr::Status status;
  for (size_t i = 0; i < 32; ++i) {
    names.push_back(i == 1 ? std::to_string(generator.generateTaskNumber(&status)) : generator.generateTaskName(&status));
  }
  for (const Case& c : cases) EXPECT_EQ(names[c.call], c.name) << c.call;
  EXPECT_EQ(status.code, 0);
}

// An error on entry takes no number; a warning still gets one.
TEST(LocalTaskNames, TheStatusOnEntryDecides) {
  LocalTaskNameGenerator generator;
  zqerr::Status status;
  EXPECT_EQ(generator.generateTaskNumber(&status), 0u);
  for (int32_t failed : {zqpalerr_badPointer, nZQMSTS::kErrorInvalidTask}) {
    zqerr::Status failedStatus;
    failedStatus.code = failed;
    EXPECT_EQ(generator.generateTaskNumber(&failedStatus), 0u);
    EXPECT_EQ(generator.generateTaskName(&failedStatus), "");
    EXPECT_EQ(failedStatus.code, failed);
  }
  status.code = 5;
  EXPECT_EQ(generator.generateTaskName(&status), "_unnamedTask<1>");
  EXPECT_EQ(status.code, 5);
}

TEST(LocalTaskNames, ConcurrentCallersNeverShareANumber) {
  constexpr size_t kThreads = 4;
  constexpr size_t kEach = 2000;
  LocalTaskNameGenerator generator;
  std::vector<std::vector<std::string>> taken(kThreads);
  std::vector<std::thread> threads;
  for (size_t t = 0; t < kThreads; ++t) {
    threads.emplace_back([&generator, &taken, t] {
      zqerr::Status status;
      for (size_t i = 0; i < kEach; ++i) taken[t].push_back(generator.generateTaskName(&status));
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::set<std::string> all;
  for (const auto& names : taken) all.insert(names.begin(), names.end());
  EXPECT_EQ(all.size(), kThreads * kEach);
  zqerr::Status status;
  EXPECT_EQ(generator.generateTaskNumber(&status), kThreads * kEach);
}

}  // namespace
