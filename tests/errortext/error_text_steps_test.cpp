// The steps of the error text functions on their own: the language mapping, the task name in
// the report and the repair of a translated text.
#include "errortext/error_text.h"

#include <gtest/gtest.h>

#include <string>

#include "report_query.h"
#include "status/report_writer.h"
#include "translator_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqerrortext::kSubstituteText;
using zqtest::reportAt;

TEST(LanguageAndAde, PublicValuesMapToTheTranslatorsForm) {
  struct Case {
    uint32_t language, ade, expected;
  };
  const Case cases[] = {{0, 0, 0x100}, {1, 1, 0x201}, {5, 2, 0x305},      {6, 3, 0x200},
                        {3, 0, 0x103}, {0xFFFFFFFF, 0xFFFFFFFF, 0x200}, {2, 7, 0x202}};
  for (const Case& c : cases)
    EXPECT_EQ(zqerrortext::languageAndAdeOf(c.language, c.ade), c.expected) << c.language << " " << c.ade;
}

struct TaskNameCase {
  const char* name;
  const char* report;
  int item;        // the task name's place in "ordered_data"; -1 for the "mdbg" key
  int emptyItem;   // the separator's place, or -1
};

const TaskNameCase kTaskNameCases[] = {
    {"zqvorex_without_items", R"({"translator":"qxlator_zqvorex","translator_info":{"ordered_data":[]}})", 0, -1},
    {"another_qxlator",
     R"({"translator":"qxlator_other","translator_info":{"ordered_data":[{"type":"usage","usage":"u","value":1}]}})", 2,
     1},
    {"mdbg", R"({"translator":"mdbg","translator_info":{"x":1}})", -1, -1},
};

class TaskName : public testing::TestWithParam<TaskNameCase> {};

TEST_P(TaskName, LandsWhereItsTranslatorReadsIt) {
  const TaskNameCase& c = GetParam();
  zqtest::Input input(-1, c.report);
  zqerr::Status& copy = input.status;
  zqerrortext::putTaskName(&copy, "Pressure Log");
  if (c.item < 0) {
    EXPECT_EQ(reportAt(copy.report, {"translator_info", "mdbg_task_name"}), "Pressure Log") << copy.report;
    return;
  }
  const std::string item = "#" + std::to_string(c.item);
  EXPECT_EQ(reportAt(copy.report, {"translator_info", "ordered_data", item, "usage"}), "kUsageTypeTaskName")
      << copy.report;
  EXPECT_EQ(reportAt(copy.report, {"translator_info", "ordered_data", item, "value"}), "Pressure Log");
  const std::string empty = "#" + std::to_string(c.emptyItem);
  if (c.emptyItem >= 0) {
    EXPECT_EQ(reportAt(copy.report, {"translator_info", "ordered_data", empty, "type"}), "empty");
  }
  EXPECT_NE(reportAt(copy.report, {"translator"}), zqtest::kAbsent);
}

INSTANTIATE_TEST_SUITE_P(Cases, TaskName, testing::ValuesIn(kTaskNameCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(TaskNameElsewhere, AReportOfAnyOtherTranslatorStaysAsItIs) {
  for (const char* report : {R"({"translator":"qxlator_"})", R"({"translator":"someone"})",
                             R"({"translator":"QXLATOR_ZQVOREX"})"}) {
    zqtest::Input copy(-1, report);
    zqerrortext::putTaskName(&copy.status, "Pressure Log");
    EXPECT_STREQ(copy.status.report, report);
  }
}

struct RepairCase {
  const char* name;
  std::string text;
  int32_t code;
  bool failed;
  std::string repaired;
};

const char* kFailure = R"({"file":"qxlate","line":1})";

const RepairCase kRepairs[] = {
    {"failure_report_leaves_the_text", std::string("Some text\n\n") + kFailure, -5, true, "Some text"},
    {"code_zero_gets_no_substitute", kFailure, 0, true, ""},
    {"a_text_without_the_report_stays", "Some text", -5, true, "Some text"},
    {"not_found_sentence_replaced", "Error description not found. More.", -5, false,
     std::string(kSubstituteText) + ". More."},
    {"not_found_sentence_kept_for_code_zero", "Error description not found", 0, false, "Error description not found"},
    {"a_good_text_stays", "Fine.", -5, false, "Fine."},
};

class Repair : public testing::TestWithParam<RepairCase> {};

TEST_P(Repair, GivesTheCallerTextAndNoFailure) {
  const RepairCase& c = GetParam();
  zqtest::Input failed(c.failed ? -1 : 0, c.failed ? kFailure : "{}");
  zqerr::Status& status = failed.status;
  zqhtl::String text;
  zqerr::Status own;
  text.assign(c.text, &own);
  zqerrortext::repairText(&text, c.code, &status);
  EXPECT_EQ(std::string(text.view()), c.repaired);
  EXPECT_EQ(status.code, 0);
  if (c.failed) {
    EXPECT_STREQ(status.report, "{}");
  }
}

INSTANTIATE_TEST_SUITE_P(Cases, Repair, testing::ValuesIn(kRepairs),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
