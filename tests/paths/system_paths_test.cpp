#include "test_sites.h"
#include "paths/system_paths.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "report_query.h"
#include "scratch_registry.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::reportAt;
using zqtest::ScratchRegistry;
using View = ScratchRegistry::View;

constexpr const char* kInstaller = "SOFTWARE\\Torvane\\Common\\Installer";

std::u16string toWide(const std::string& utf8) {
  int n = zqplatform::multiByteToWide(zqplatform::kCpUtf8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::u16string wide(static_cast<size_t>(n), u'\0');
  if (n > 0) zqplatform::multiByteToWide(zqplatform::kCpUtf8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), n);
  return wide;
}

// --- the shared folders ---------------------------------------------------------------------

struct FolderCase {
  std::string stored;
  std::string folder;
};

struct SharedFolderOp {
  const char* label;
  View view;
  const char* valueName;
  void (*get)(std::string*, zqerr_Status*);
};

const SharedFolderOp kSharedFolderOps[] = {
    {"ZQSHAREDDIR_in_the_32bit_view", View::k32, "ZQSHAREDDIR", &zqsysq::getSharedFolder},
    {"ZQSHAREDDIR64", View::k64, "ZQSHAREDDIR64", &zqsysq::getSharedFolder64},
};

class SharedFolder : public testing::TestWithParam<std::tuple<FolderCase, SharedFolderOp>> {
 protected:
  ScratchRegistry registry_{ScratchRegistry::Scope::kPrivate};
};

TEST_P(SharedFolder, ReadsItsOwnValueAndTrimsIt) {
  const auto& [c, op] = GetParam();
  // The other operation's value stands beside it and must not be read.
  for (const SharedFolderOp& other : kSharedFolderOps)
    registry_.setString(other.view, kInstaller, other.valueName, "Z:\\not this one");
  registry_.setString(op.view, kInstaller, op.valueName, c.stored);
  zqerr::Status status;
  std::string folder = "old text";
  op.get(&folder, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  EXPECT_EQ(folder, c.folder);
}

INSTANTIATE_TEST_SUITE_P(
    Values, SharedFolder,
    testing::Combine(
        // The trimming itself is trim_folder_test's: here the value's way there, in any length.
        // 255 characters and the terminator fill the first 512-byte round of the read exactly;
        // from 256 on the value needs the second round with the size the first one reported.
        testing::Values(FolderCase{"C:\\Shared\\ ", "C:\\Shared"}, FolderCase{"", ""},
                        FolderCase{"C:\\Gemeinsame Dat\xC3\xA4ien\\", "C:\\Gemeinsame Dat\xC3\xA4ien"},
                        FolderCase{"E:\\" + std::string(252, 'd'), "E:\\" + std::string(252, 'd')},
                        FolderCase{"E:\\" + std::string(253, 'd'), "E:\\" + std::string(253, 'd')},
                        FolderCase{"E:\\" + std::string(700, 'd'), "E:\\" + std::string(700, 'd')}),
        testing::ValuesIn(kSharedFolderOps)),
    [](const auto& info) { return std::get<1>(info.param).label + std::string("_") + std::to_string(info.index); });

// --- the views --------------------------------------------------------------------------------

struct ViewCase {
  uint32_t access;
  const char* expected;
};

class RegistryView : public testing::TestWithParam<ViewCase> {};

TEST_P(RegistryView, FlagChoosesTheView) {
  ScratchRegistry registry(ScratchRegistry::Scope::kMachine);
  std::string key = registry.root() + "\\Views";
  registry.setString(View::k64, key, "which", "64-bit");
  registry.setString(View::k32, key, "which", "32-bit");
  zqerr::Status status;
  std::u16string buffer;
  zqsysq::readRegistryValue(zqplatform::kHkeyLocalMachine, toWide(key).c_str(), u"which", GetParam().access,
                            &buffer, &status);
  ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
  EXPECT_EQ(buffer, toWide(GetParam().expected) + u'\0');
}

INSTANTIATE_TEST_SUITE_P(Access, RegistryView,
                         testing::Values(ViewCase{zqplatform::kKeyRead, "64-bit"},
                                         ViewCase{zqplatform::kKeyRead | zqplatform::kKeyWow64_64Key, "64-bit"},
                                         ViewCase{zqsysq::kSharedFolder32Access, "32-bit"}));

// --- failures ---------------------------------------------------------------------------------

struct FailureCase {
  const char* label;
  bool keyExists;  // the installer key, with some other value in it
  const char* file;
  const char* line;
  const char* desc;
};

class SharedFolderFailure : public testing::TestWithParam<std::tuple<FailureCase, SharedFolderOp>> {
 protected:
  ScratchRegistry registry_{ScratchRegistry::Scope::kPrivate};
};

TEST_P(SharedFolderFailure, ReportsTheCallAndLeavesTheOutputAlone) {
  const auto& [c, op] = GetParam();
  if (c.keyExists) registry_.setString(op.view, kInstaller, "SomethingElse", "x");
  zqerr::Status status;
  std::string folder = "untouched";
  op.get(&folder, &status);
  EXPECT_EQ(status.code, zqapalerr_resourceNotFound);
  EXPECT_EQ(folder, "untouched");
  const char* r = status.report;
  EXPECT_EQ(zqtest::reportKeys(r), (std::vector<std::string>{"error_constant", "file", "line", "component",
                                                              "internal_error", "zqsysq_debug"}));
  EXPECT_EQ(reportAt(r, {"error_constant"}), "zqapalerr_resourceNotFound");
  EXPECT_EQ(reportAt(r, {"file"}), c.file);
  EXPECT_EQ(reportAt(r, {"line"}), c.line);
  EXPECT_EQ(reportAt(r, {"component"}), "zqcai_rd_mbcs");
  EXPECT_EQ(zqtest::reportKeys(r, {"internal_error"}), (std::vector<std::string>{"api", "code", "string"}));
  EXPECT_EQ(reportAt(r, {"internal_error", "api"}), "win32");
  EXPECT_EQ(reportAt(r, {"internal_error", "code"}), "2");  // the file (here: key or value) was not found
  EXPECT_FALSE(reportAt(r, {"internal_error", "string"}).empty());
  EXPECT_EQ(reportAt(r, {"zqsysq_debug", "desc"}), c.desc);
}

INSTANTIATE_TEST_SUITE_P(
    Steps, SharedFolderFailure,
    testing::Combine(testing::Values(FailureCase{"MissingKey", false, "windowsregistry", "91", "RegOpenKeyEx failed"},
                                     FailureCase{"MissingValue", true, "stdpath", "77", "RegQueryValue failed"}),
                     testing::ValuesIn(kSharedFolderOps)),
    [](const auto& info) { return std::get<0>(info.param).label + std::string("_") + std::get<1>(info.param).label; });

TEST(SystemPaths, NothingHappensAfterAnEarlierError) {
  ScratchRegistry registry(ScratchRegistry::Scope::kPrivate);
  registry.setString(View::k64, kInstaller, "ZQSHAREDDIR64", "C:\\Shared");
  registry.setString(View::k32, kInstaller, "ZQSHAREDDIR", "C:\\Shared");
  registry.chooseSystemFolder();
  for (int op = 0; op < 4; ++op) {
    zqerr::Status status;
    ZQ_TEST_FAIL(&status, zqpalerr_badPointer, "earlier", 1);
    std::string before = status.report;
    std::string folder = "untouched";
    std::u16string wide;
    if (op == 0) zqsysq::getSharedFolder(&folder, &status);
    if (op == 1) zqsysq::getSharedFolder64(&folder, &status);
    if (op == 2) zqsysq::getSystemFolder(&wide, &status);
    if (op == 3) zqsysq::readRegistryText(u"ZQSHAREDDIR64", zqsysq::kSharedFolderAccess, &wide, &status);
    EXPECT_EQ(status.code, zqpalerr_badPointer) << op;
    EXPECT_EQ(status.report, before) << op;
    EXPECT_EQ(folder, "untouched") << op;
    EXPECT_TRUE(wide.empty()) << op;
  }
}

// --- the system folder ------------------------------------------------------------------------

TEST(SystemFolder, FillsTheShellBufferAndTrimsToTheFolder) {
  ScratchRegistry registry(ScratchRegistry::Scope::kPrivate);
  std::string expected = registry.chooseSystemFolder();
  zqerr::Status status;
  std::u16string wide;
  zqsysq::getSystemFolder(&wide, &status);
  ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
  EXPECT_EQ(wide.size(), zqplatform::kMaxPath);
  EXPECT_EQ(wide.substr(0, wide.find(u'\0')), toWide(expected));
  std::string folder;
  zqsysq::folderToUtf8(wide, &folder);
  EXPECT_EQ(folder.size(), zqplatform::kMaxPath - toWide(expected).size() + expected.size());
  zqsysq::trimFolderText(folder);
  EXPECT_EQ(folder, expected);
}

TEST(SystemFolder, ShellFailureIsReportedWithItsResult) {
  ScratchRegistry registry(ScratchRegistry::Scope::kPrivate);
  if (!registry.breakSystemFolder()) GTEST_SKIP() << "the system folder cannot be made to fail here";
  zqerr::Status status;
  std::u16string wide;
  zqsysq::getSystemFolder(&wide, &status);
  EXPECT_EQ(status.code, zqapalerr_resourceNotFound);
  const char* r = status.report;
  EXPECT_EQ(reportAt(r, {"file"}), "stdpath");
  EXPECT_EQ(reportAt(r, {"line"}), "114");
  EXPECT_EQ(zqtest::reportKeys(r, {"internal_error"}), (std::vector<std::string>{"api", "code"}));
  EXPECT_EQ(reportAt(r, {"internal_error", "api"}), "hresult");
  EXPECT_LT(std::stol(reportAt(r, {"internal_error", "code"})), 0);  // a failed HRESULT is negative
  EXPECT_EQ(reportAt(r, {"zqsysq_debug", "desc"}), "SHGetFolderPathW failed");
}

}  // namespace
