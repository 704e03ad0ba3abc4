// The default translator over the explanation files: its fallbacks to English, the failures
// that are final, and the text's way from the language's encoding to UTF-8.
#include "translator/default_translator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "installation.h"
#include "report_query.h"
#include "translator/session.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::entry;
using zqtest::explanationFile;
using zqtest::reportAt;

constexpr uint32_t kEnglish = 0x200;
constexpr uint32_t kGerman = 0x202;

class DefaultTranslator : public testing::Test {
 protected:
  std::string describe(int32_t code, uint32_t languageAndAde) {
    std::unique_ptr<char, decltype(&std::free)> text(
        zqxlator::defaultStaticDesc(code, languageAndAde, &zqxlator::Session::reallocate, nullptr, &status_),
        &std::free);
    return text ? text.get() : "<null>";
  }

  zqtest::ExplanationFolders folders_{"default"};
  zqerr::Status status_;
};

TEST_F(DefaultTranslator, ARequestInAnotherLanguageFallsBackToEnglish) {
  folders_.write("English/e.txt", explanationFile(entry(1, "one") + entry(2, "two")));
  folders_.write("German/g.txt", explanationFile(entry(1, "eins")));
  EXPECT_EQ(describe(1, kGerman), "eins");
  EXPECT_EQ(describe(2, kGerman), "two");
  folders_.write("German/g.txt", explanationFile("<zqerror code=\"1\">\nunended\n"));
  EXPECT_EQ(describe(1, kGerman), "one") << "a damaged file in another language sends the request to English";
  EXPECT_EQ(describe(1, 0x206), "one") << "so does a language that does not exist";
  EXPECT_EQ(status_.code, 0) << status_.report;
}

TEST_F(DefaultTranslator, AFailureInEnglishIsFinal) {
  folders_.write("English/e.txt", explanationFile("<zqerror code=\"1\">\nunended\n"));
  EXPECT_EQ(describe(1, kGerman), "<null>");
  EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "debug"}),
            "Bad explanation file. Could not find the end of the status code definition !");
}

TEST_F(DefaultTranslator, ACodeWithoutTextIsReportedWithItsRequest) {
  folders_.write("English/e.txt", explanationFile(entry(1, "one")));
  EXPECT_EQ(describe(-7, 0x302), "<null>");
  EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "zqxlator_defaultTranslator"}),
            "couldn't find description for code");
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "code"}), "-7");
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "lang"}), "0");
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "ade"}), "3");
}

TEST_F(DefaultTranslator, WithoutTheSharedFolderThereIsNoText) {
  zqtest::ScratchRegistry empty(zqtest::ScratchRegistry::Scope::kPrivate);
  EXPECT_EQ(describe(1, kEnglish), "<null>");
  EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
}

}  // namespace
