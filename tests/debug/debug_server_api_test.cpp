// A server library that lacks operations: it loads, and each missing one answers at its call.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "debug/debug_proxies.h"
#include "debug/debug_server_factory.h"
#include "report_query.h"
#include "stand_in_task.h"
#include "zqvorex_status_codes.h"

namespace zqvorexRedir {
namespace {

using zqtest::reportAt;

struct MissingCase {
  const char* operation;
  uint32_t line;  // the operation's place in the table, from 1
  std::function<void(IDebugServer&, IDebugTarget&, zqerr_Status*)> call;
};

class PartialServerTest : public ::testing::TestWithParam<MissingCase> {};

TEST_P(PartialServerTest, MissingOperationAnswersAtTheCall) {
  auto factory = std::make_shared<DebugServerFactory>("zqtestPartialDebugServer");
  zqtest::StandInTask task;
  zqerr::Status status;
  auto server = factory->createDebugServer(2, "", &status);
  ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
  ASSERT_TRUE(server);
  auto target = server->createDebugTarget("task A", task.callbacks.boundary(), &status);
  ASSERT_EQ(status.code, 0);
  ASSERT_TRUE(target);

  GetParam().call(*server, *target, &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorFunctionNotInLibrary);
  EXPECT_EQ(reportAt(status.report, {"error_constant"}), "nZQMSTS::kErrorFunctionNotInLibrary");
  EXPECT_EQ(reportAt(status.report, {"file"}), "DebugServerApi");
  EXPECT_EQ(reportAt(status.report, {"line"}), std::to_string(GetParam().line));
  EXPECT_EQ(reportAt(status.report, {"zqdynlib_debug", "debug"}), "failed to get symbol");
  EXPECT_EQ(reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"}), GetParam().operation);
}

INSTANTIATE_TEST_SUITE_P(
    Operations, PartialServerTest,
    ::testing::Values(
        MissingCase{"revokeControl", 23, [](auto&, auto& t, auto* s) { t.revokeControl(true, s); }},
        MissingCase{"getMaxPrivilegeLevel", 3, [](auto& v, auto&, auto* s) { v.getMaxPrivilegeLevel(s); }},
        MissingCase{"getPipeName", 4,
                    [](auto& v, auto&, auto* s) {
                      std::string text;
                      v.getPipeName(text, s);
                    }},
        MissingCase{"getPhysicalChannels", 16,
                    [](auto&, auto& t, auto* s) {
                      std::vector<std::string> list;
                      t.getPhysicalChannels(list, s);
                    }},
        MissingCase{"cacheSamplesLineU8", 37,
                    [](auto&, auto& t, auto* s) {
                      zqerr::Status caller;
                      t.cacheSamplesLineU8(1, 16124, nullptr, nullptr, s, &caller, 0);
                    }}),
    [](const ::testing::TestParamInfo<MissingCase>& info) { return std::string(info.param.operation); });

TEST(DebugServerFactoryTest, AbsentLibraryIsReportedAndRetried) {
  auto factory = std::make_shared<DebugServerFactory>("zqtestNoSuchDebugServer");
  for (int attempt = 0; attempt < 2; ++attempt) {
    zqerr::Status status;
    EXPECT_FALSE(factory->createDebugServer(2, "", &status));
    EXPECT_EQ(status.code, nZQMSTS::kErrorLibraryNotPresent);
    EXPECT_EQ(reportAt(status.report, {"file"}), "debugserverfactory");
    EXPECT_EQ(reportAt(status.report, {"translator_info", "ordered_data", "#0", "usage"}),
              "kUsageTypeLibraryName");
    EXPECT_EQ(reportAt(status.report, {"nested_error", "code"}), std::to_string(zqapalerr_invalidParameter));
  }
}

}  // namespace
}  // namespace zqvorexRedir
