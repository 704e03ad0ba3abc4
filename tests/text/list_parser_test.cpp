#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "test_sites.h"
#include "report_items.h"
#include "status/report_writer.h"
#include "text/list_parser.h"
#include "zqvorex_status_codes.h"

namespace {

using zqerr::usage::kUsageTypeInvalidString;
using zqerr::usage::kUsageTypeMaxNumberInRange;
using zqerr::usage::kUsageTypeMaxNumObjects;
using zqtest::stringItem;
using zqtest::uint32Item;
using Names = std::vector<std::string>;

Names parse(const std::string& text, const char* delimiter = ",") {
  zqerr::Status status;
  Names out{"stale"};
  zqwombat::parseList(text, delimiter, &out, &status);
  EXPECT_EQ(status.code, 0) << text;
  EXPECT_EQ(status.report, nullptr) << text;
  return out;
}

struct Expansion {
  const char* text;
  Names expected;
};

class ListExpansion : public testing::TestWithParam<Expansion> {};

TEST_P(ListExpansion, GivesTheEntries) { EXPECT_EQ(parse(GetParam().text), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Cases, ListExpansion,
    testing::Values(
        Expansion{"Dev1/ai0:3", {"Dev1/ai0", "Dev1/ai1", "Dev1/ai2", "Dev1/ai3"}},
        Expansion{"ai3:1", {"ai3", "ai2", "ai1"}},
        Expansion{"ai2:0", {"ai2", "ai1", "ai0"}},
        Expansion{"ai08:10", {"ai08", "ai09", "ai10"}},
        Expansion{"ai007:9", {"ai007", "ai008", "ai009"}},
        Expansion{"ai9:011", {"ai9", "ai10", "ai11"}},  // the right side's padding plays no part
        Expansion{"ai0:0", {"ai0"}},
        Expansion{"0:2", {"0", "1", "2"}},
        Expansion{"00:2", {"00", "01", "02"}},
        Expansion{"x::y", {"x::y"}},
        Expansion{"ai0::1", {"ai0::1"}},
        Expansion{"AI0:ai3", {"AI0", "AI1", "AI2", "AI3"}},
        Expansion{"ai0:AI2", {"ai0", "ai1", "ai2"}},
        Expansion{"Dev1/ai 0 : 1", {"Dev1/ai 0", "Dev1/ai 1"}},
        Expansion{"STRASSE1:straße2", {"STRASSE1", "STRASSE2"}},
        Expansion{"Gerät/ai0:1", {"Gerät/ai0", "Gerät/ai1"}},
        Expansion{"ai3999999999:4000000000", {"ai3999999999", "ai4000000000"}},
        Expansion{"Dev1/ai0:1, Dev2/ai5", {"Dev1/ai0", "Dev1/ai1", "Dev2/ai5"}},
        Expansion{" Dev1/ai0 ,\tDev1/ai1\r\n", {"Dev1/ai0", "Dev1/ai1"}},
        Expansion{"a,, b ,c ,", {"a", "b", "c"}},
        Expansion{",,,", {}},
        Expansion{"", {}},
        Expansion{" \t\f\v ", {}},
        Expansion{"a\xFF", {"a\xEF\xBF\xBD"}}));  // through UTF-16: a bad byte becomes U+FFFD

TEST(ListParser, FifteenThousandEntriesAreTheLimit) {
  Names names = parse("ai0:14999");
  ASSERT_EQ(names.size(), 15000u);
  EXPECT_EQ(names.front(), "ai0");
  EXPECT_EQ(names[1234], "ai1234");
  EXPECT_EQ(names.back(), "ai14999");
  EXPECT_EQ(parse("14999:0").back(), "0");
}

TEST(ListParser, DelimiterIsAWholeText) {
  EXPECT_EQ(parse("a; b;c", ";"), (Names{"a", "b", "c"}));
  EXPECT_EQ(parse("a<>b <> c1:2<>", "<>"), (Names{"a", "b", "c1", "c2"}));
  EXPECT_EQ(parse("a<b>c", "<>"), (Names{"a<b>c"}));
  EXPECT_EQ(parse("a,b;c", ";"), (Names{"a,b", "c"}));
  EXPECT_EQ(parse(" a , b ", ""), (Names{"a , b"}));
}

TEST(ListParser, LongTextLeavesTheStack) {
  std::string text;
  Names expected;
  for (int i = 0; i < 400; ++i) {
    expected.push_back("Dev1/ai" + std::to_string(i));
    text += expected.back() + ", ";
  }
  ASSERT_GT(text.size(), 2048u);
  EXPECT_EQ(parse(text), expected);
}

struct Failure {
  const char* text;
  int32_t code;
  int32_t line;
  const char* blamed;
};

class ListFailure : public testing::TestWithParam<Failure> {};

TEST_P(ListFailure, SetsTheSiteAndTheItems) {
  const Failure& c = GetParam();
  zqerr::Status status;
  Names out{"stale"};
  zqwombat::parseList(c.text, ",", &out, &status);
  EXPECT_EQ(status.code, c.code);
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(zqtest::siteOf(status), (zqtest::Site{"nparseutilities", c.line, "zqcai_rd_"}));
  std::string items = "[" + stringItem(kUsageTypeInvalidString, c.blamed);
  if (c.code == zqwombat::kErrorRangeTooLong) items += "," + uint32Item(kUsageTypeMaxNumObjects, 15000);
  if (c.code == zqwombat::kErrorNumberTooLarge) items += "," + uint32Item(kUsageTypeMaxNumberInRange, 4000000000u);
  EXPECT_EQ(zqtest::items(status), items + "]");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ListFailure,
    testing::Values(Failure{"ai0:15000", zqwombat::kErrorRangeTooLong, 984, "ai0:15000"},
                    Failure{"ai0:4000000000", zqwombat::kErrorRangeTooLong, 984, "ai0:4000000000"},
                    Failure{"0:15000", zqwombat::kErrorRangeTooLong, 1088, "0:15000"},
                    Failure{"15000:0", zqwombat::kErrorRangeTooLong, 1088, "15000:0"},
                    Failure{"ai4000000001:4000000002", zqwombat::kErrorNumberTooLarge, 903, "ai4000000001:4000000002"},
                    Failure{"ai5000000000:1", zqwombat::kErrorNumberTooLarge, 903, "ai5000000000:1"},
                    Failure{"ai10000000000:1", zqwombat::kErrorNumberTooLarge, 903, "ai10000000000:1"},
                    Failure{"ai1:4000000001", zqwombat::kErrorNumberTooLarge, 928, "ai1:4000000001"},
                    Failure{"ai1:ai4000000001", zqwombat::kErrorNumberTooLarge, 966, "ai1:ai4000000001"},
                    Failure{"4000000001:2", zqwombat::kErrorNumberTooLarge, 1038, "4000000001:2"},
                    Failure{"1:4100000000", zqwombat::kErrorNumberTooLarge, 1064, "1:4100000000"},
                    Failure{"ai0:", zqwombat::kErrorInvalidRange, 935, "ai0:"},
                    Failure{"0:", zqwombat::kErrorInvalidRange, 1072, "0:"},
                    Failure{"0:a", zqwombat::kErrorInvalidRange, 1080, "0:a"},
                    Failure{"0:ai3", zqwombat::kErrorInvalidRange, 1080, "0:ai3"},
                    Failure{":3", zqwombat::kErrorInvalidRange, 886, ":3"},
                    Failure{"ai:3", zqwombat::kErrorInvalidRange, 886, "ai:3"},
                    Failure{"a:::b", zqwombat::kErrorInvalidRange, 886, "a:::b"},
                    Failure{"ai0:3x", zqwombat::kErrorInvalidRange, 947, "ai0:3x"},
                    Failure{"ai0:Dev1/ai3", zqwombat::kErrorInvalidRange, 973, "ai0:Dev1/ai3"},
                    Failure{"\xD0\x94" "0:\xD0\xB4" "1", zqwombat::kErrorInvalidRange, 973, "\xD0\x94" "0:\xD0\xB4" "1"},  // Cyrillic is not folded
                    Failure{" x , ai:3 , y", zqwombat::kErrorInvalidRange, 886, "ai:3"},
                    Failure{"ai0:1, ai0:bx1, ai5", zqwombat::kErrorInvalidRange, 973, "ai0:bx1"}));

TEST(ListParser, ReportIsExact) {
  zqerr::Status status;
  Names out;
  zqwombat::parseList("ai:3", ",", &out, &status);
  EXPECT_STREQ(status.report,
               R"({"file":"nparseutilities","line":886,"component":"zqcai_rd_","translator":"qxlator_zqvorex",)"
               R"("translator_info":{"is_debug":"0","version":1,"ordered_data":[{"type":"usage",)"
               R"("usage":"kUsageTypeInvalidString","value":"ai:3","value_type":"string"}]}})");
}

TEST(ListParser, FailedStatusLeavesTheOutputAlone) {
  zqerr::Status status;
  status.code = -1;
  Names out{"kept"};
  zqwombat::parseList("a,b", ",", &out, &status);
  EXPECT_EQ(out, Names{"kept"});
  EXPECT_EQ(status.code, -1);
  EXPECT_EQ(status.report, nullptr);
}

TEST(ListParser, WarningStaysOnSuccessAndGivesWayToAnError) {
  zqerr::Status status;
  ZQ_TEST_FAIL(&status, 200026, "cerrorinfo", 5);
  Names out;
  zqwombat::parseList("a,b", ",", &out, &status);
  EXPECT_EQ(out, (Names{"a", "b"}));
  EXPECT_EQ(status.code, 200026);

  zqwombat::parseList("ai:3", ",", &out, &status);
  EXPECT_EQ(status.code, zqwombat::kErrorInvalidRange);
  EXPECT_TRUE(out.empty());
  EXPECT_EQ(zqtest::siteOf(status).line, 886);
  EXPECT_EQ(zqtest::items(status), "[" + stringItem(kUsageTypeInvalidString, "ai:3") + "]");
}

}  // namespace
