#include "test_sites.h"
#include "binding/load_library.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "plugin/plugin.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"
#include "test_interfaces.h"

namespace {

using zqtest::NameTable;
using zqvorexRedir::Plugin;
using zqtest::reportAt;
using zqtest::reportKeys;
using Keys = std::vector<std::string>;

// The strict library's class: it lacks "write".
inline const char* const kStrictClass[] = {"open", "read", "write", "count", "close"};
inline const char* const kStrictPresent[] = {"open", "read", "count", "close"};
using StrictClass = NameTable<kStrictClass, 5>;
using StrictPresent = NameTable<kStrictPresent, 4>;
constexpr size_t kCountSlot = 2;  // "count" in StrictPresent

std::shared_ptr<StrictPresent> loadStrictPresent() {
  zqerr::Status status;
  return zqdynlib::loadBoundLibrary<StrictPresent>("zqtestStrict", &status, "zqtestStrict_");
}

// --- failures of both policies --------------------------------------------------------------

// The cause is nested: a library that is absent fails its load, one that lacks an operation
// fails a symbol lookup.
struct RefusalCase {
  const char* label;
  bool (*refused)(zqerr_Status* status);  // true when the load gave an empty pointer
  bool absent;
  const char* file;
  std::string path;
  std::string subject;  // of the nested report
  const char* systemCode;
};

// A file that is there but is no library at all.
const std::string& garbagePath() {
  static const std::string path = [] {
    std::filesystem::path file = std::filesystem::temp_directory_path() / "zqtest-not-a-library.bin";
    std::ofstream(file, std::ios::binary) << "this is no library";
    return file.string();
  }();
  return path;
}

void PrintTo(const RefusalCase& c, std::ostream* os) { *os << c.label; }

class Refusal : public testing::TestWithParam<RefusalCase> {};

TEST_P(Refusal, NamesTheLibraryAndNestsTheCause) {
  const RefusalCase& c = GetParam();
  zqerr::Status status;
  EXPECT_TRUE(c.refused(&status));
  EXPECT_EQ(status.code, c.absent ? nZQMSTS::kErrorLibraryNotPresent : nZQMSTS::kErrorFunctionNotInLibrary);
  const char* r = status.report;
  EXPECT_EQ(reportKeys(r), (Keys{"error_constant", "file", "line", "component", "translator", "translator_info",
                                 "nested_error"}));
  EXPECT_EQ(reportAt(r, {"error_constant"}),
            c.absent ? "nZQMSTS::kErrorLibraryNotPresent" : "nZQMSTS::kErrorFunctionNotInLibrary");
  EXPECT_EQ(reportAt(r, {"file"}), c.file);
  EXPECT_EQ(reportAt(r, {"translator"}), "qxlator_zqvorex");
  const char* item[] = {"translator_info", "ordered_data", "#0"};
  EXPECT_EQ(reportAt(r, {item[0], item[1], item[2], "usage"}), "kUsageTypeLibraryName");
  EXPECT_EQ(reportAt(r, {item[0], item[1], item[2], "value"}), c.path);
  EXPECT_EQ(reportAt(r, {item[0], item[1], item[2], "value_type"}), "string");
  EXPECT_EQ(reportAt(r, {item[0], item[1], "#1"}), zqtest::kAbsent);

  EXPECT_EQ(reportKeys(r, {"nested_error"}), (Keys{"code", "error_constant", "file", "line", "component",
                                                   "zqdynlib_debug", "internal_error"}));
  EXPECT_EQ(reportAt(r, {"nested_error", "code"}), "-52005");
  EXPECT_EQ(reportAt(r, {"nested_error", "error_constant"}), "zqapalerr_invalidParameter");
  EXPECT_EQ(reportAt(r, {"nested_error", "file"}), "dynload");
  EXPECT_EQ(reportAt(r, {"nested_error", "line"}), c.absent ? "58" : "84");
  const Keys debugKeys{"debug", c.absent ? "path" : "zqdynlib_symbol"};
  EXPECT_EQ(reportKeys(r, {"nested_error", "zqdynlib_debug"}), debugKeys);
  EXPECT_EQ(reportAt(r, {"nested_error", "zqdynlib_debug", "debug"}),
            c.absent ? "failed to zqdynlib_load library" : "failed to get symbol");
  EXPECT_EQ(reportAt(r, {"nested_error", "zqdynlib_debug", debugKeys[1]}), c.subject);
  EXPECT_EQ(reportAt(r, {"nested_error", "internal_error", "api"}), "win32");
  EXPECT_EQ(reportKeys(r, {"nested_error", "internal_error"}), (Keys{"api", "code", "string"}));
  EXPECT_EQ(reportAt(r, {"nested_error", "internal_error", "code"}), c.systemCode);
  EXPECT_FALSE(reportAt(r, {"nested_error", "internal_error", "string"}).empty());
}

template <class T>
bool strictRefused(const char* library, const char* prefix, zqerr_Status* status) {
  return !zqdynlib::loadBoundLibrary<T>(library, status, prefix);
}

INSTANTIATE_TEST_SUITE_P(
    Policies, Refusal,
    testing::Values(
        RefusalCase{"StrictAbsent", [](zqerr_Status* s) { return strictRefused<StrictClass>("zqtestAbsent", "x_", s); },
                    true, "pluginUtilities", "zqtestAbsent", "zqtestAbsent", "126"},
        RefusalCase{"PluginAbsent", [](zqerr_Status* s) { return !zqdynlib::loadPlugin<Plugin>("zqtestAbsent", s); },
                    true, "pluginutilities", "zqtestAbsent", "zqtestAbsent", "126"},
        RefusalCase{"StrictNotALibrary",
                    [](zqerr_Status* s) { return strictRefused<StrictClass>(garbagePath().c_str(), "x_", s); }, true,
                    "pluginUtilities", garbagePath(), garbagePath(), "193"},
        RefusalCase{"StrictLacksOne", [](zqerr_Status* s) { return strictRefused<StrictClass>("zqtestStrict", "zqtestStrict_", s); },
                    false, "pluginUtilities", "zqtestStrict", "zqtestStrict_write", "127"}),
    [](const auto& info) { return std::string(info.param.label); });

// --- the strict policy ----------------------------------------------------------------------
// (A library that has every operation: test_storage_binding binds the storage library whole.)

// The refused library goes: with its only other user gone, its count starts again.
TEST(StrictBinding, ARefusedLibraryIsUnloaded) {
  auto held = loadStrictPresent();
  ASSERT_TRUE(held);
  zqerr::Status status;
  EXPECT_EQ(held->call(kCountSlot, &status), 1);
  EXPECT_FALSE(zqdynlib::loadBoundLibrary<StrictClass>("zqtestStrict", &status, "zqtestStrict_"));
  EXPECT_EQ(status.code, nZQMSTS::kErrorFunctionNotInLibrary);
  held.reset();
  auto again = loadStrictPresent();
  ASSERT_TRUE(again);
  EXPECT_EQ(again->call(kCountSlot, &status), 1);
}

// (The lenient policy over a library that lacks operations: test_plugin's manager tests.)

// --- an error on entry ----------------------------------------------------------------------

TEST(BoundLibrary, AnEarlierErrorLoadsNothingAndChangesNothing) {
  using Load = std::shared_ptr<void> (*)(zqerr_Status*);
  const Load loads[] = {
      [](zqerr_Status* s) -> std::shared_ptr<void> { return zqdynlib::loadBoundLibrary<StrictPresent>("zqtestStrict", s, "zqtestStrict_"); },
      [](zqerr_Status* s) -> std::shared_ptr<void> {
        return zqdynlib::loadLenientLibrary<Plugin>("testplug", s, "testplug_", zqdynlib::kPluginSites);
      },
      [](zqerr_Status* s) -> std::shared_ptr<void> { return zqdynlib::loadPlugin<Plugin>("testplug", s); },
      [](zqerr_Status* s) -> std::shared_ptr<void> { return zqdynlib::loadPlugin<Plugin>("dir/", s); },
  };
  for (Load load : loads) {
    zqerr::Status status;
    ZQ_TEST_FAIL(&status, zqpalerr_badPointer, "earlier", 5);
    std::string before = status.report;
    EXPECT_FALSE(load(&status));
    EXPECT_EQ(status.code, zqpalerr_badPointer);
    EXPECT_EQ(status.report, before);
  }
}

}  // namespace
