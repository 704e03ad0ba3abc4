// The json1 formatter's layout and its refusals, with the stand-in translator, whose dynamic
// description is the report's own "test_dynamic" and whose static text is "Static <code>".
#include "translator/json1.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "report_query.h"
#include "translator/session.h"
#include "translator_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::entry;
using zqtest::explanationFile;
using zqtest::Input;
using zqtest::reportAt;

constexpr uint32_t kStatic = 1, kDynamic = 2, kDebug = 4, kNested = 8;

std::string tested(const std::string& rest) { return R"({"translator":"qxlator_test")" + rest + "}"; }

class Json1 : public zqtest::TranslatorTest {
 protected:
  std::string format(int32_t code, const std::string& report, uint32_t flags) {
    Input input(code, report);
    zqhtl::String out;
    zqxlator::json1::translateErrStatusToRawText(session_.get(), input.status, 0x200, flags, &out, &status_);
    return std::string(out.view());
  }

  zqerr::Status status_;
  std::unique_ptr<zqxlator::Session> session_{zqxlator::Session::create(&status_)};
};

struct LayoutCase {
  const char* name;
  std::string report;
  uint32_t flags;
  std::string text;
};

const LayoutCase kLayouts[] = {
    {"elaboration_item_runs_on",
     tested(R"(,"test_dynamic":{"dynamic":[{"type":"elaboration","key":"Key","value":["x","y"]}]})"),
     kStatic | kDynamic, "Static -5\nKeyxy"},
    {"escaped_texts_are_expanded", tested(R"(,"test_dynamic":{"dynamic":[{"key":"Tab\tQuote\"","value":"\u00e9"}]})"),
     kDynamic, "Tab\tQuote\": \xC3\xA9"},
    {"key_written_with_an_escape_still_matches",
     R"({"transl\u0061tor":"qxlator_test","test_dynamic":{"dynamic":[{"key":"K","value":"V"}]}})", kStatic | kDynamic,
     "Static -5\n\nK: V"},
    {"nested_object", tested(R"(,"nested_error":{"translator":"qxlator_test","code":-6,)"
                             R"("nested_error":{"translator":"qxlator_test","code":-7}})"),
     kStatic | kNested, "Static -5\n\n   Static -6\n\n      Static -7"},
    {"nested_array_of_one_object", tested(R"(,"nested_error":[{"translator":"qxlator_test","code":-6,)"
                                          R"("nested_error":[{"translator":"qxlator_test","code":-7}]}])"),
     kStatic | kNested, "Static -5\n\n   Static -6\n\n      Static -7"},
    {"nested_lines_all_indented",
     tested(R"(,"nested_error":[{"translator":"qxlator_test","code":-6,"test_dynamic":{"dynamic":[{"key":"K","value":"V"}]}},)"
            R"({"translator":"qxlator_test","code":-8}])"),
     kStatic | kNested, "Static -5\n\n   Static -6\n   \n   K: V\n\n   Static -8"},
    {"empty_nested_array", tested(R"(,"nested_error":[])"), kStatic | kNested, "Static -5"},
};

class Json1Layout : public Json1, public testing::WithParamInterface<LayoutCase> {};

TEST_P(Json1Layout, MakesTheText) {
  EXPECT_EQ(format(-5, GetParam().report, GetParam().flags), GetParam().text);
  EXPECT_EQ(status_.code, 0) << status_.report;
}

INSTANTIATE_TEST_SUITE_P(Cases, Json1Layout, testing::ValuesIn(kLayouts),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(Json1, AStatusWithoutTranslatorGetsTheDefaultTranslatorsTextAndNoItems) {
  folders_.write("English/e.txt", explanationFile(entry(-5, "From the files.")));
  EXPECT_EQ(format(-5, R"({"test_dynamic":{"dynamic":[{"key":"K","value":"V"}]}})", kStatic | kDynamic | kDebug),
            "From the files.");
  EXPECT_EQ(status_.code, 0) << status_.report;
  EXPECT_EQ(format(0, tested(R"(,"test_dynamic":{"dynamic":[{"key":"K","value":"V"}]})"), kStatic | kDynamic), "")
      << "code 0 has no text";
}

struct RefusalCase {
  const char* name;
  std::string report;
  std::string path1, path2;  // the report entry that says what failed, and one more
  std::string value1, value2;
};

const RefusalCase kRefusals[] = {
    {"item_not_an_object", tested(R"(,"test_dynamic":{"dynamic":[{"key":"K","value":"V"},7]})"),
     "formatDynamicReportItems", "json1DynamicObjectBegin",
     "json1 dynamic object invalid. each array item must be an object", R"([{"key":"K","value":"V"},7])"},
    {"value_not_a_string", tested(R"(,"test_dynamic":{"dynamic":[{"key":"K","value":["a",2]}]})"),
     "formatDynamicReportItems", "value type", "json1 dynamic object invalid. value can only be string", "3"},
    {"nested_error_of_another_kind", tested(R"(,"nested_error":5)"), "translateErrStatusToFormattedText",
     "jsonz_type", "nested_error contains invalid json type", "3"},
    {"nested_array_element_not_an_object", tested(R"(,"nested_error":[{"code":1},"x"])"),
     "translateErrStatusToFormattedText", "invalid json_type",
     "nested_error contains invalid json type on one of the element", "4"},
};

class Json1Refusal : public Json1, public testing::WithParamInterface<RefusalCase> {};

TEST_P(Json1Refusal, IsAnInvalidParameterWithWhatFailed) {
  const RefusalCase& c = GetParam();
  folders_.write("English/e.txt", explanationFile(entry(1, "nested one")));
  format(-5, c.report, kStatic | kDynamic | kNested);
  EXPECT_EQ(status_.code, zqapalerr_invalidParameter);
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", c.path1}), c.value1);
  EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", c.path2}), c.value2);
}

INSTANTIATE_TEST_SUITE_P(Cases, Json1Refusal, testing::ValuesIn(kRefusals),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
