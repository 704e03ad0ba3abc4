// One explanation file read for one code: every rule of the layout, one case each.
#include "translator/explanation_files.h"

#include <gtest/gtest.h>

#include <string>

#include "installation.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::entry;
using zqtest::explanationFile;

constexpr const char* kHeader = "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n<zqdocument>\n";

struct FileCase {
  const char* name;
  std::string content;
  int32_t code;
  std::string text;           // what is found
  const char* debug = nullptr;  // the failure's "zqxlator_debug" "debug", when the file is damaged
};

const std::string kLongLine(3000, 'x');

const FileCase kCases[] = {
    {"hexadecimal_number", explanationFile("<zqerror code=\"0x10\">\nhex\n</zqerror>\n"), 16, "hex"},
    {"octal_number", explanationFile("<zqerror code=\"020\">\noctal\n</zqerror>\n"), 16, "octal"},
    {"rest_of_the_opening_line_ignored", explanationFile("<zqerror code=\"16\" lang=\"en\">\nx\n</zqerror>\n"), 16, "x"},
    {"short_header", "<?xml version=\"1.0\">\n<zqdocument>\n" + entry(16, "x") + "</zqdocument>\n", 16, "x"},
    {"not_an_explanation_file", "<?xml version=\"1.1\">\n<zqdocument>\n" + entry(16, "x"), 16, ""},
    {"second_line_wrong", "<?xml version=\"1.0\">\n<document>\n" + entry(16, "x"), 16, ""},
    {"empty_file", "", 16, ""},
    {"tags_in_upper_case", std::string(kHeader) + "<ZQERROR CODE=\"16\">\nUpper\n</ZQERROR>\n</ZQDOCUMENT>\n", 16, "Upper"},
    {"indented_tag_not_seen", explanationFile(" <zqerror code=\"16\">\nx\n</zqerror>\n"), 16, ""},
    {"indented_closing_tag_is_body", explanationFile("<zqerror code=\"16\">\na\n </zqerror>\n</zqerror>\n"), 16,
     "a\n </zqerror>"},
    {"first_of_two_wins", explanationFile(entry(16, "first") + entry(16, "second")), 16, "first"},
    {"inner_line_ends_kept", explanationFile(entry(16, "a\nb\nc")), 16, "a\nb\nc"},
    {"body_of_line_ends_alone_stays", explanationFile("<zqerror code=\"16\">\n\n</zqerror>\n"), 16, "\n"},
    {"empty_body_ends_the_file", explanationFile("<zqerror code=\"16\">\n</zqerror>\n" + entry(16, "later")), 16, ""},
    {"long_line_arrives_whole", explanationFile(entry(16, kLongLine)), 16, kLongLine},
    {"comment_hides_entry", explanationFile("<zqcomment>\n" + entry(16, "hidden") + "</zqcomment>\n"), 16, ""},
    {"comment_closes_only_at_line_start",
     explanationFile("<zqcomment> a </zqcomment>\n" + entry(16, "hidden") + "</zqcomment>\n" + entry(5, "seen")), 16,
     ""},
    {"entry_after_comment", explanationFile("<zqcomment>\nnote\n</zqcomment>\n" + entry(16, "seen")), 16, "seen"},
    {"unterminated_comment_ends_quietly", explanationFile("<zqcomment>\n" + entry(16, "x")), 16, ""},
    {"nothing_after_document_end", std::string(kHeader) + "</zqdocument>\n" + entry(16, "late"), 16, ""},
    {"blank_and_unknown_lines_skipped", explanationFile("\n<other>\n\n" + entry(16, "x")), 16, "x"},
    {"entry_without_end", explanationFile(entry(16, "x") + "<zqerror code=\"5\">\nopen"), 16, "x"},
    {"entry_without_end_at_the_files_end", std::string(kHeader) + "<zqerror code=\"5\">\nopen\n", 16, "",
     "Bad explanation file. Could not find the end of the status code definition !"},
    {"unended_entry_swallows_the_next", std::string(kHeader) + "<zqerror code=\"5\">\nopen\n" + entry(16, "x"), 16,
     ""},
    {"number_that_does_not_read", explanationFile("<zqerror code=\"five\">\nx\n</zqerror>\n" + entry(16, "x")), 16, "",
     "Could not successfully read the status data!"},
    {"line_starting_with_a_zero_byte", explanationFile(std::string("\0x\n", 3) + entry(16, "x")), 16, "",
     "Bad explanation file. Unidentified section heading !"},
};

class ExplanationFile : public testing::TestWithParam<FileCase> {
 protected:
  zqtest::ExplanationFolders folders_{"file"};
};

TEST_P(ExplanationFile, ReadsByTheLayoutsRules) {
  const FileCase& c = GetParam();
  folders_.write("one.txt", c.content);
  zqerr::Status status;
  zqhtl::String text;
  zqxlator::readExplanationFile((folders_.base() + "/one.txt").c_str(), c.code, &text, &status);
  EXPECT_EQ(std::string(text.view()), c.text);
  if (!c.debug) {
    EXPECT_EQ(status.code, 0) << status.report;
    return;
  }
  EXPECT_EQ(status.code, zqapalerr_resourceNotFound);
  EXPECT_EQ(zqtest::reportAt(status.report, {"zqxlator_debug", "debug"}), c.debug);
  EXPECT_EQ(zqtest::reportAt(status.report, {"file"}), "gferrorsparser");
}

INSTANTIATE_TEST_SUITE_P(Cases, ExplanationFile, testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ExplanationFileOpen, AMissingFileIsAFailureWithItsPath) {
  zqtest::ExplanationFolders folders("missing");
  const std::string path = folders.base() + "/absent.txt";
  zqerr::Status status;
  zqhtl::String text;
  zqxlator::readExplanationFile(path.c_str(), 16, &text, &status);
  EXPECT_EQ(status.code, zqapalerr_resourceNotFound);
  EXPECT_EQ(zqtest::reportAt(status.report, {"zqxlator_debug", "debug"}), "Could not open status explanations file");
  EXPECT_EQ(zqtest::reportAt(status.report, {"zqxlator_debug", "path"}), path);
}

TEST(ExplanationFileOpen, AFailedStatusReadsNothing) {
  zqtest::ExplanationFolders folders("failed");
  folders.write("one.txt", explanationFile(entry(16, "x")));
  zqerr::Status status;
  status.code = -1;
  zqhtl::String text;
  zqxlator::readExplanationFile((folders.base() + "/one.txt").c_str(), 16, &text, &status);
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(status.code, -1);
}

}  // namespace
