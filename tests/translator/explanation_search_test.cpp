// The walk over the folders of explanation files: which files count, which folder goes first,
// the path limits, and what a damaged file hides.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "installation.h"
#include "platform/platform.h"
#include "report_query.h"
#include "translator/explanation_files.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::entry;
using zqtest::explanationFile;
using zqtest::reportAt;

constexpr uint32_t kEnglish = 0;
constexpr uint32_t kGerman = 2;

class ExplanationSearch : public testing::Test {
 protected:
  std::string search(int32_t code, uint32_t language) {
    zqhtl::String text;
    zqxlator::searchExplanations(folders_.base(), code, language, &text, &status_);
    return std::string(text.view());
  }
  std::string walk(const std::string& folder, int32_t code) {
    zqhtl::String text;
    zqxlator::walkExplanationFolder(folder, code, &text, &status_);
    return std::string(text.view());
  }

  zqtest::ExplanationFolders folders_{"search"};
  zqerr::Status status_;
};

TEST_F(ExplanationSearch, OnlyRegularFilesEndingExactlyInTxtOrErrAreRead) {
  folders_.write("English/upper.TXT", explanationFile(entry(1, "upper")));
  folders_.write("English/backup.txt.bak", explanationFile(entry(1, "backup")));
  folders_.write("English/noextension", explanationFile(entry(1, "bare")));
  folders_.write("English/folder.txt/inner.txt", explanationFile(entry(1, "inner")));
  EXPECT_EQ(search(1, kEnglish), "");
  EXPECT_EQ(status_.code, 0);
  folders_.write("English/other.err", explanationFile(entry(1, "err file")));
  EXPECT_EQ(search(1, kEnglish), "err file");
}

TEST_F(ExplanationSearch, TheLanguagesFolderGoesBeforeTheBase) {
  folders_.write("German/a.txt", explanationFile(entry(1, "deutsch")));
  folders_.write("base.txt", explanationFile(entry(1, "base") + entry(2, "base only")));
  EXPECT_EQ(search(1, kGerman), "deutsch");
  EXPECT_EQ(search(2, kGerman), "base only");
  EXPECT_EQ(status_.code, 0);
}

TEST_F(ExplanationSearch, AMissingLanguageFolderEndsTheSearchWithoutTheBase) {
  folders_.write("base.txt", explanationFile(entry(1, "base")));
  EXPECT_EQ(search(1, kGerman), "");
  EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
  EXPECT_EQ(reportAt(status_.report, {"internal_error", "api"}), "errno");
  EXPECT_EQ(reportAt(status_.report, {"internal_error", "code"}), "2");
  EXPECT_NE(reportAt(status_.report, {"internal_error", "string"}), "");
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "debug"}), "open dir failed");
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "path"}), folders_.base() + "\\German");
}

TEST_F(ExplanationSearch, ALanguageAboveFiveIsRefused) {
  folders_.write("base.txt", explanationFile(entry(1, "base")));
  EXPECT_EQ(search(1, 6), "");
  EXPECT_EQ(status_.code, zqapalerr_invalidParameter);
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "gferrorsparser"}), "invalid language");
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "lang"}), "6");
}

TEST_F(ExplanationSearch, OneTrailingSeparatorIsDropped) {
  folders_.write("English/a.txt", explanationFile(entry(1, "found")));
  EXPECT_EQ(walk(folders_.base() + "\\English/", 1), "found");
  EXPECT_EQ(walk(folders_.base() + "\\English\\", 1), "found");
  EXPECT_EQ(status_.code, 0);
}

// The folder's path, with one separator at its end or not, and the errno of the refusal.
struct PathCase {
  const char* name;
  size_t length;
  const char* end;
  int code;
};

TEST_F(ExplanationSearch, FolderPathsAreRefusedFromTheirLength) {
  const PathCase cases[] = {
      {"empty", 0, "", 22},
      {"length_plus_two_reaches_260", 258, "", 38},
      {"one_shorter_is_looked_for", 257, "", 2},
      {"a_trailing_separator_counts_in_the_length", 258, "/", 38},
  };
  for (const PathCase& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::clearReport(&status_);
    std::string folder = c.length ? "/" + std::string(c.length - 1 - std::string(c.end).size(), 'p') + c.end : "";
    EXPECT_EQ(walk(folder, 1), "");
    EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
    EXPECT_EQ(reportAt(status_.report, {"internal_error", "code"}), std::to_string(c.code));
    EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "path"}), folder);
  }
}

TEST_F(ExplanationSearch, AnEntryWhosePathReachesTheLimitIsAFailure) {
  const std::string file = "sixteen-chars.txt";  // 17 characters
  const std::string base = folders_.base() + "\\";
  for (size_t total : {259u, 260u}) {
    SCOPED_TRACE(total);
    zqerr::clearReport(&status_);
    // folder + "/" + name, and the 2 more the limit counts
    const std::string pad(total - 3 - file.size() - base.size(), 'd');
    folders_.write(pad + "/" + file, explanationFile(entry(1, "reached")));
    const std::string found = walk(base + pad, 1);
    if (total < 260) {
      EXPECT_EQ(found, "reached");
      EXPECT_EQ(status_.code, 0);
    } else {
      EXPECT_EQ(found, "");
      EXPECT_EQ(reportAt(status_.report, {"internal_error", "code"}), "38");
      EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "zqxlator"}), "get file info failed");
    }
  }
}

// The files of a folder in the order the system lists them.
std::vector<std::string> listing(const std::string& folder) {
  std::vector<std::string> names;
  zqplatform::FolderListing* list = zqplatform::openFolderListing(folder.c_str());
  zqplatform::FolderEntry entry;
  while (list && zqplatform::nextFolderEntry(list, &entry) == zqplatform::ListingStep::kEntry)
    if (entry.regularFile) names.push_back(entry.name);
  if (list) zqplatform::closeFolderListing(list);
  return names;
}

TEST_F(ExplanationSearch, ADamagedFileHidesWhatLiesBehindItInTheOrder) {
  const std::map<std::string, int32_t> codeOf = {{"one.txt", 1}, {"three.txt", 3}, {"four.txt", 4}};
  for (const auto& [name, code] : codeOf) folders_.write("English/" + name, explanationFile(entry(code, name)));
  folders_.write("English/bad.txt", explanationFile(entry(2, "bad.txt") + "<zqerror code=\"9\">\nunended\n"));
  bool behind = false;
  for (const std::string& name : listing(folders_.base() + "\\English")) {
    if (name == "bad.txt") {
      behind = true;
      zqerr::clearReport(&status_);
      EXPECT_EQ(search(2, kEnglish), "bad.txt") << "what stands before the damage is found";
      continue;
    }
    SCOPED_TRACE(name);
    zqerr::clearReport(&status_);
    EXPECT_EQ(search(codeOf.at(name), kEnglish), behind ? "" : name);
    EXPECT_EQ(status_.code, behind ? zqapalerr_resourceNotFound : 0);
  }
}

}  // namespace
