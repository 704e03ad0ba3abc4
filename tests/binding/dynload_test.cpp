#include "test_sites.h"
#include "binding/dynload.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "report_query.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::reportAt;
using zqtest::reportKeys;
using Keys = std::vector<std::string>;

// The recorder library, opened for the length of one test.
class OpenRecorder {
 public:
  OpenRecorder() {
    zqerr::Status status;
    handle_ = zqdynlib_load("zqtestRecorder", &status);
  }
  ~OpenRecorder() {
    if (handle_) zqplatform::freeLibrary(handle_);
  }
  zqplatform::LibraryHandle get() const { return handle_; }

 private:
  zqplatform::LibraryHandle handle_ = nullptr;
};

// A file that is there but is no library at all.
bool loadGarbage(zqerr_Status* status) {
  static const std::string path = [] {
    std::filesystem::path file = std::filesystem::temp_directory_path() / "zqtest-not-a-library.bin";
    std::ofstream(file, std::ios::binary) << "this is no library";
    return file.string();
  }();
  return !zqdynlib_load(path.c_str(), status);
}

// A failed load names the path it tried; a failed lookup names the symbol.
struct FailureCase {
  const char* label;
  bool (*fails)(zqplatform::LibraryHandle recorder, zqerr_Status* status);  // true when the call gave null
  bool lookup;
  std::string subject;
  const char* systemCode;
};

class DynloadFailure : public testing::TestWithParam<FailureCase> {};

TEST_P(DynloadFailure, ReportsWhatFailedAndWhatTheSystemSaid) {
  const FailureCase& c = GetParam();
  OpenRecorder recorder;
  ASSERT_NE(recorder.get(), nullptr);
  zqerr::Status status;
  EXPECT_TRUE(c.fails(recorder.get(), &status));
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  const char* r = status.report;
  EXPECT_EQ(reportKeys(r), (Keys{"error_constant", "file", "line", "component", "zqdynlib_debug", "internal_error"}));
  EXPECT_EQ(reportAt(r, {"error_constant"}), "zqapalerr_invalidParameter");
  EXPECT_EQ(reportAt(r, {"file"}), "dynload");
  EXPECT_EQ(reportAt(r, {"line"}), c.lookup ? "84" : "58");
  const Keys debugKeys{"debug", c.lookup ? "zqdynlib_symbol" : "path"};
  EXPECT_EQ(reportKeys(r, {"zqdynlib_debug"}), debugKeys);
  EXPECT_EQ(reportAt(r, {"zqdynlib_debug", "debug"}), c.lookup ? "failed to get symbol" : "failed to zqdynlib_load library");
  EXPECT_EQ(reportAt(r, {"zqdynlib_debug", debugKeys[1]}), c.subject);
  EXPECT_EQ(reportKeys(r, {"internal_error"}), (Keys{"api", "code", "string"}));
  EXPECT_EQ(reportAt(r, {"internal_error", "api"}), "win32");
  EXPECT_EQ(reportAt(r, {"internal_error", "code"}), c.systemCode);
  EXPECT_FALSE(reportAt(r, {"internal_error", "string"}).empty());
}

INSTANTIATE_TEST_SUITE_P(
    Calls, DynloadFailure,
    testing::Values(
        FailureCase{"AbsentLibrary", [](zqplatform::LibraryHandle, zqerr_Status* s) { return !zqdynlib_load("zqtestAbsent", s); },
                    false, "zqtestAbsent", "126"},
        FailureCase{"AbsentLibraryInAFolder",
                    [](zqplatform::LibraryHandle, zqerr_Status* s) { return !zqdynlib_load("no\\such\\zqtestRecorder", s); },
                    false, "no\\such\\zqtestRecorder", "126"},
        FailureCase{"NotALibrary", [](zqplatform::LibraryHandle, zqerr_Status* s) { return loadGarbage(s); }, false,
                    (std::filesystem::temp_directory_path() / "zqtest-not-a-library.bin").string(), "193"},
        FailureCase{"AbsentSymbol",
                    [](zqplatform::LibraryHandle h, zqerr_Status* s) { return !zqdynlib_getSymbol(h, "zqtestRecorder_none", s); },
                    true, "zqtestRecorder_none", "127"},
        FailureCase{"SymbolWithoutItsPrefix",
                    [](zqplatform::LibraryHandle h, zqerr_Status* s) { return !zqdynlib_getSymbol(h, "bump", s); }, true, "bump",
                    "127"}),
    [](const auto& info) { return std::string(info.param.label); });

TEST(Dynload, LoadsByBareNameAndFindsWorkingSymbols) {
  OpenRecorder recorder;
  ASSERT_NE(recorder.get(), nullptr);
  zqerr::Status status;
  auto* bump = reinterpret_cast<int32_t (*)(zqerr_Status*)>(zqdynlib_getSymbol(recorder.get(), "zqtestRecorder_bump", &status));
  ASSERT_NE(bump, nullptr);
  int32_t first = bump(&status);
  EXPECT_EQ(bump(&status), first + 1);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(status.report, nullptr);  // success writes nothing
}

// An error on entry stops both calls; a warning does not.
TEST(Dynload, AnEarlierErrorStopsBothCallsAndAWarningDoesNot) {
  OpenRecorder recorder;
  ASSERT_NE(recorder.get(), nullptr);
  struct EntryCase {
    int32_t code;
    bool runs;
  };
  for (const EntryCase& c : {EntryCase{zqpalerr_badPointer, false}, EntryCase{1, true}}) {
    zqerr::Status status;
    zqerr::setWithLocation(&status, c.code, ZQ_TEST_SITE("earlier", 7, earlier));
    std::string before = status.report;
    zqplatform::LibraryHandle loaded = zqdynlib_load("zqtestRecorder", &status);
    void* symbol = zqdynlib_getSymbol(recorder.get(), "zqtestRecorder_bump", &status);
    EXPECT_EQ(loaded != nullptr, c.runs) << c.code;
    EXPECT_EQ(symbol != nullptr, c.runs) << c.code;
    if (loaded) zqplatform::freeLibrary(loaded);
    void* absent = zqdynlib_getSymbol(recorder.get(), "zqtestRecorder_none", &status);
    EXPECT_EQ(absent, nullptr);
    EXPECT_EQ(status.code, c.runs ? zqapalerr_invalidParameter : c.code) << c.code;
    EXPECT_EQ(status.report == before, !c.runs) << c.code;
  }
}

}  // namespace
