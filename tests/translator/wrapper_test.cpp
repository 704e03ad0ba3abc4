// The wrapper's retry ladder: what each rung asks, what survives a failure, the language's
// encoding, and the translator library missing altogether.
#include "translator/qxl_wrapper.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report_query.h"
#include "status/error_sites.h"
#include "status/exceptions.h"
#include "test_sites.h"
#include "translator/json1.h"
#include "translator/session.h"
#include "translator_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::entry;
using zqtest::explanationFile;
using zqtest::Input;
using zqtest::reportAt;

// What a formatter that always fails was asked, rung by rung.
struct Asked {
  uint32_t flags;
  std::string report;
};
std::vector<Asked> gAsked;

void failingFormatter(zqxlator::Session*, const zqerr_Status& input, uint32_t, uint32_t flags, zqhtl::String* out,
                      zqerr_Status* status) {
  gAsked.push_back({flags, input.report ? input.report : ""});
  out->append(std::string_view("partial"), status);
  ZQ_TEST_FAIL(status, zqapalerr_invalidParameter, "formatter", 7);
}

class Wrapper : public zqtest::TranslatorTest {
 protected:
  std::string translate(int32_t code, const std::string& report, uint32_t languageAndAde, uint32_t flags,
                        zqxlator::Formatter formatter = &zqxlator::json1::translateErrStatusToRawText) {
    Input input(code, report);
    zqhtl::String out;
    wrapper_.translate(input.status, languageAndAde, flags, formatter, &out, &status_);
    return std::string(out.view());
  }

  zqerr::Status status_;
  zqerr::Status made_;
  zqqxl::ThreadSafeQxlWrapper wrapper_{&made_};
};

TEST_F(Wrapper, EachRungAsksForLessUntilOnlyTheBareCodeIsLeft) {
  gAsked.clear();
  const std::string report = R"({"translator":"qxlator_test"})";
  const std::string text = translate(-5, report, 0x200, 1 | 2 | 8, &failingFormatter);
  ASSERT_EQ(gAsked.size(), 4u);
  EXPECT_EQ(gAsked[0].flags, 11u);
  EXPECT_EQ(gAsked[1].flags, 3u) << "without nested errors";
  EXPECT_EQ(gAsked[2].flags, 1u) << "the static description alone";
  EXPECT_EQ(gAsked[3].flags, 1u);
  EXPECT_EQ(gAsked[2].report, report);
  EXPECT_EQ(reportAt(gAsked[3].report.c_str(), {"error_constant"}), "statusin.code") << "the code alone";
  EXPECT_EQ(reportAt(gAsked[3].report.c_str(), {"file"}), "qxlate");
  EXPECT_EQ(reportAt(gAsked[3].report.c_str(), {"translator"}), zqtest::kAbsent);
  // The failure outlives the ladder: its report ends the text, behind an empty line.
  EXPECT_EQ(status_.code, zqapalerr_invalidParameter);
  EXPECT_EQ(text, "partial\n\n" + std::string(status_.report));
}

TEST_F(Wrapper, WithoutTheStaticFlagThereAreNoLaterRungs) {
  gAsked.clear();
  translate(-5, "{}", 0x200, 2 | 4, &failingFormatter);
  EXPECT_EQ(gAsked.size(), 1u);
}

// The static-only rung starts from a cleared status: its text stands and the failure is gone.
TEST_F(Wrapper, ABadDynamicDescriptionStillGivesTheStaticText) {
  EXPECT_EQ(translate(-5, R"({"translator":"qxlator_test","test_dynamic":{"dynamic":[1]}})", 0x200, 3), "Static -5");
  EXPECT_EQ(status_.code, 0);
}

TEST_F(Wrapper, ABadNestedErrorStillGivesTheLevelsOwnText) {
  const std::string report =
      R"({"translator":"qxlator_test","test_dynamic":{"dynamic":[{"key":"K","value":"V"}]},"nested_error":5})";
  EXPECT_EQ(translate(-5, report, 0x200, 1 | 2 | 8), "Static -5\n\nK: V");
  EXPECT_EQ(status_.code, 0);
}

TEST_F(Wrapper, ATranslatorThatCannotBeFoundLeavesTheDefaultTranslatorsText) {
  folders_.write("English/e.txt", explanationFile(entry(-5, "The files' text.")));
  EXPECT_EQ(translate(-5, R"({"translator":"qxlator_unknown"})", 0x200, 3), "The files' text.");
  EXPECT_EQ(status_.code, 0);
}

TEST_F(Wrapper, WhenEveryRungFailsTheTextIsTheFailuresReport) {
  folders_.write("English/e.txt", explanationFile(entry(1, "another code")));
  const std::string text = translate(-5, R"({"translator":"qxlator_unknown"})", 0x200, 3);
  EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
  EXPECT_EQ(text, std::string(status_.report));
}

TEST_F(Wrapper, TheEncodingFlagGivesTheLanguagesBytes) {
  folders_.write("German/g.txt", explanationFile(entry(-5, "Gr\xF6\xDF" "e")));
  EXPECT_EQ(translate(-5, "{}", 0x202, 1), "Gr\xC3\xB6\xC3\x9F" "e");
  EXPECT_EQ(translate(-5, "{}", 0x202, 1 | 0x40000000), "Gr\xF6\xDF" "e");
  EXPECT_EQ(status_.code, 0) << status_.report;
}

TEST_F(Wrapper, WithoutTheTranslatorLibraryTheDefaultTranslatorStillAnswers) {
  ASSERT_TRUE(library_.clear());
  folders_.write("English/e.txt", explanationFile(entry(-5, "Still described.")));
  const std::string report = R"({"translator":"qxlator_zqvorex","translator_info":{"ordered_data":[]}})";
  EXPECT_EQ(translate(-5, report, 0x200, 3), "Still described.");
  EXPECT_EQ(status_.code, 0);
}

}  // namespace
