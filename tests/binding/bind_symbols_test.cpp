#include "test_sites.h"
#include "binding/bind_symbols.h"
#include "binding/dynload.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

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

template <class Table>
std::pair<std::string, std::string> bindInto(zqplatform::LibraryHandle library, const char* prefix, Table* table) {
  zqerr::Status status;
  zqdynlib::bindSymbols(library, *table, &status, prefix);
  EXPECT_EQ(status.code, status.report ? zqapalerr_invalidParameter : 0);
  return {table->boundMask(), reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"})};
}

// Every name is tried and the first miss reported; a name is cut to 255 characters with its
// prefix, whether it is found or missing; without a prefix the bare names are looked up.
TEST_F(BindSymbols, TriesEveryNameAndReportsTheFirstMiss) {
  static const char* const kFull[] = {"zqtestRecorder_bump", "bump"};
  Mixed mixed;
  Present present;
  Cut cut;
  LongMissing longMissing;
  NameTable<kFull, 2> bare;
  const std::string prefix = "zqtestRecorder_";
  using Result = std::pair<std::string, std::string>;
  EXPECT_EQ(bindInto(recorder_.handle(), "zqtestRecorder_", &mixed), Result("01101", prefix + "none1"));
  EXPECT_EQ(bindInto(recorder_.handle(), "zqtestRecorder_", &present), Result("111", zqtest::kAbsent));
  EXPECT_EQ(bindInto(recorder_.handle(), "zqtestRecorder_", &cut), Result("1110", prefix + kShort254));
  EXPECT_EQ(bindInto(recorder_.handle(), "zqtestRecorder_", &longMissing),
            Result("10", prefix + std::string(240, 'w')));
  EXPECT_EQ(bindInto(recorder_.handle(), nullptr, &bare), Result("10", "bump"));
  // The slots are the library's operations.
  zqerr::Status status;
  const int32_t first = present.call(0, &status);
  EXPECT_EQ(present.call(0, &status), first + 1);
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(cut.call(i, &status), 255);
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

// The loader's own calls: an error on entry stops both, a warning does not. (What their
// failures report is read through the bindings that nest it, in load_library_test.)
TEST_F(BindSymbols, AnEarlierErrorStopsTheLoaderAndAWarningDoesNot) {
  struct Entry {
    int32_t code;
    bool runs;
  };
  for (const Entry& c : {Entry{zqpalerr_badPointer, false}, Entry{1, true}}) {
    zqerr::Status status;
    zqerr::setWithLocation(&status, c.code, ZQ_TEST_SITE("earlier", 7, earlier));
    std::string before = status.report;
    zqplatform::LibraryHandle loaded = zqdynlib_load("zqtestRecorder", &status);
    void* symbol = zqdynlib_getSymbol(recorder_.handle(), "zqtestRecorder_bump", &status);
    EXPECT_EQ(loaded != nullptr, c.runs) << c.code;
    EXPECT_EQ(symbol != nullptr, c.runs) << c.code;
    if (loaded) zqplatform::freeLibrary(loaded);
    EXPECT_EQ(zqdynlib_getSymbol(recorder_.handle(), "zqtestRecorder_none", &status), nullptr);
    EXPECT_EQ(status.code, c.runs ? zqapalerr_invalidParameter : c.code) << c.code;
    EXPECT_EQ(status.report == before, !c.runs) << c.code;
  }
}

}  // namespace
