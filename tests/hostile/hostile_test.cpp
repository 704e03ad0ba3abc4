// Every exported function, called with a hostile value in each parameter in turn: each call
// returns a status, a call with an invalid handle fails, and every failure leaves a report
// that parses as JSON. A hang guard ends the run, naming the call, instead of hanging.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "e2e_harness.h"
#include "hostile_caller.h"
#include "installation.h"
#include "reentry_hang_guard.h"

namespace {

// Longer than any call takes even under the sanitizers; only a hang gets there.
constexpr auto kHangGuard = std::chrono::minutes(2);

std::vector<zqhostile::Export> allExports() {
  std::vector<zqhostile::Export> all;
  for (const zqhostile::Export* chunk : {zqhostile_chunk0, zqhostile_chunk1, zqhostile_chunk2, zqhostile_chunk3,
                                         zqhostile_chunk4, zqhostile_chunk5})
    for (const zqhostile::Export* e = chunk; e->name; ++e) all.push_back(*e);
  return all;
}

TEST(HostileInput, EveryExportReturnsAStatusWithAReport) {
  zqe2e::pluginSymbol("zqtestDrive_testCounter");  // the installation, made before the first call
  zqtest::TranslatorFolder translators;  // the translator describes each failure's report
  translators.install(ZQ_TEST_XLATOR);
  const std::vector<zqhostile::Export> exports = allExports();
  zqhostile::Caller caller;
  {
    zqtest::HangGuard guard(kHangGuard, [&caller] { return caller.current(); },
                            [&caller] { return caller.progress(); });
    for (const zqhostile::Export& e : exports) {
      e.call(caller);
      caller.finishExport();
    }
  }
  size_t skipped = 0;
  for (const zqhostile::Skipped* s = zqhostile_skipped; s->name; ++s) ++skipped;
  std::printf("hostile input: %llu calls of %zu exports, %llu reports parsed as JSON (%zu variadic "
              "exports not called)\n",
              static_cast<unsigned long long>(caller.calls()), exports.size(),
              static_cast<unsigned long long>(caller.reports()), skipped);
  EXPECT_GT(exports.size(), 2000u);
  EXPECT_GT(caller.reports(), 0u) << "no report was checked";
  const auto& faults = caller.faults();
  for (size_t i = 0; i < faults.size() && i < 100; ++i) ADD_FAILURE() << faults[i];
  EXPECT_EQ(faults.size(), 0u);
}

// A handle is the task object's address and is not looked up on the way to the task, so a
// handle used after its clear is the caller's error. What holds without a lookup: a clear of a
// handle that was cleared, or of a block that is no task, is refused and leaves the other tasks.
struct ClearCase {
  const char* name;
  int clears;  // of the same real task
  bool zeroedBlock;
  int32 lastStatus;
};

class ClearedHandle : public testing::TestWithParam<ClearCase> {};

TEST_P(ClearedHandle, IsRefusedByTheClear) {
  zqe2e::pluginSymbol("zqtestDrive_testCounter");
  const ClearCase& c = GetParam();
  TaskHandle other = nullptr;
  ASSERT_EQ(VorexCreateTask("", &other), 0);
  alignas(16) unsigned char block[256] = {};
  TaskHandle task = nullptr;
  int32 status = 0;
  if (c.zeroedBlock) {
    status = VorexClearTask(block);
  } else {
    ASSERT_EQ(VorexCreateTask("", &task), 0);
    for (int i = 0; i < c.clears; ++i) status = VorexClearTask(task);
  }
  EXPECT_EQ(status, c.lastStatus);
  bool32 done = 7;
  EXPECT_EQ(VorexIsTaskDone(other, &done), 0) << "the other task is still there";
  EXPECT_EQ(VorexClearTask(other), 0);
}

INSTANTIATE_TEST_SUITE_P(Clears, ClearedHandle,
                         testing::Values(ClearCase{"Once", 1, false, 0}, ClearCase{"Twice", 2, false, -200088},
                                         ClearCase{"ZeroedBlock", 0, true, -200088}),
                         [](const testing::TestParamInfo<ClearCase>& info) { return std::string(info.param.name); });

}  // namespace
