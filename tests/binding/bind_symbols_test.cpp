#include "test_sites.h"
#include "binding/bind_symbols.h"

#include <gtest/gtest.h>

#include <string>

#include "report_query.h"
#include "zqvorex_status_codes.h"
#include "test_interfaces.h"

namespace {

using zqtest::NameTable;
using zqtest::reportAt;

// The recorder exports "zqtestRecorder_" + 240 times "q": 255 characters.
const std::string kQ240(240, 'q');
const std::string kCut241 = kQ240 + "Z";                       // 256 characters with the prefix
const std::string kCut300 = kQ240 + std::string(60, 'x');      // cut to the same 255
const std::string kExact255 = kQ240;                           // needs no cut
const std::string kShort254 = std::string(239, 'q');           // a real prefix of the export: no match
const std::string kMissingLong = std::string(300, 'w');

inline const char* const kMixedNames[] = {"none1", "bump", "add", "none2", "journal"};
inline const char* const kAllPresent[] = {"bump", "add", "journal"};
inline const char* const kCutNames[] = {kCut241.c_str(), kCut300.c_str(), kExact255.c_str(), kShort254.c_str()};
inline const char* const kLongMissing[] = {"bump", kMissingLong.c_str()};

using Mixed = NameTable<kMixedNames, 5>;
using Present = NameTable<kAllPresent, 3>;
using Cut = NameTable<kCutNames, 4>;
using LongMissing = NameTable<kLongMissing, 2>;

class BindSymbols : public testing::Test {
 protected:
  void SetUp() override {
    zqerr::Status status;
    recorder_.load("zqtestRecorder", &status);
    ASSERT_NE(recorder_.handle(), nullptr) << (status.report ? status.report : "");
  }
  zqdynlib::AutoLib recorder_;
};

TEST_F(BindSymbols, TriesEveryNameAndKeepsTheFirstMiss) {
  zqerr::Status status;
  Mixed table;
  zqdynlib::bindSymbols(recorder_.handle(), table, &status, "zqtestRecorder_");
  EXPECT_EQ(table.boundMask(), "01101");  // the loop went on past both misses
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"}), "zqtestRecorder_none1");
}

TEST_F(BindSymbols, BindsAllWhenAllArePresentAndWritesNothing) {
  zqerr::Status status;
  Present table;
  zqdynlib::bindSymbols(recorder_.handle(), table, &status, "zqtestRecorder_");
  ASSERT_EQ(table.boundMask(), "111");
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(status.report, nullptr);
  int32_t first = table.call(0, &status);
  EXPECT_EQ(table.call(0, &status), first + 1);  // the slots are the library's operations
}

TEST_F(BindSymbols, CutsTheSymbolTo255Characters) {
  zqerr::Status status;
  Cut table;
  zqdynlib::bindSymbols(recorder_.handle(), table, &status, "zqtestRecorder_");
  ASSERT_EQ(table.boundMask(), "1110");
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(table.call(i, &status), 255);
  EXPECT_EQ(reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"}), "zqtestRecorder_" + kShort254);
}

TEST_F(BindSymbols, ReportsTheCutNameOfAMissingLongSymbol) {
  zqerr::Status status;
  LongMissing table;
  zqdynlib::bindSymbols(recorder_.handle(), table, &status, "zqtestRecorder_");
  EXPECT_EQ(table.boundMask(), "10");
  std::string symbol = reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"});
  EXPECT_EQ(symbol.size(), 255u);
  EXPECT_EQ(symbol, "zqtestRecorder_" + std::string(240, 'w'));
}

TEST_F(BindSymbols, NoPrefixMeansTheBareNames) {
  static const char* const kFull[] = {"zqtestRecorder_bump", "bump"};
  NameTable<kFull, 2> table;
  zqerr::Status status;
  zqdynlib::bindSymbols(recorder_.handle(), table, &status, nullptr);
  EXPECT_EQ(table.boundMask(), "10");
  EXPECT_EQ(reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"}), "bump");
}

struct EntryCase {
  const char* label;
  int32_t entry;
  const char* mask;
  int32_t result;
};

class BindSymbolsEntry : public BindSymbols, public testing::WithParamInterface<EntryCase> {};

// An error on entry looks nothing up and leaves the status as it was; a warning gives way to
// the first missing symbol.
TEST_P(BindSymbolsEntry, StatusOnEntryDecides) {
  const EntryCase& c = GetParam();
  zqerr::Status status;
  zqerr::setWithLocation(&status, c.entry, ZQ_TEST_SITE("earlier", 3, earlier));
  std::string before = status.report ? status.report : "";
  Mixed table;
  zqdynlib::bindSymbols(recorder_.handle(), table, &status, "zqtestRecorder_");
  EXPECT_EQ(table.boundMask(), c.mask);
  EXPECT_EQ(status.code, c.result);
  std::string report = status.report ? status.report : "";
  EXPECT_EQ(report == before, c.entry < 0);
  EXPECT_EQ(reportAt(status.report, {"file"}), c.entry < 0 ? "earlier" : "dynload");
}

INSTANTIATE_TEST_SUITE_P(Codes, BindSymbolsEntry,
                         testing::Values(EntryCase{"Error", zqpalerr_badPointer, "00000", zqpalerr_badPointer},
                                         EntryCase{"Warning", 200, "01101", zqapalerr_invalidParameter}),
                         [](const auto& info) { return std::string(info.param.label); });

}  // namespace
