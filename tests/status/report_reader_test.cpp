#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "status/report_reader.h"

namespace {

using namespace zqerr::json;

struct ValueCase {
  const char* text;
  int type;
  size_t length;
};

class ParseValueOk : public testing::TestWithParam<ValueCase> {};

TEST_P(ParseValueOk, TypeAndExtent) {
  ParsedValue v;
  ASSERT_TRUE(parseValue(GetParam().text, &v)) << GetParam().text;
  EXPECT_EQ(v.type, GetParam().type);
  EXPECT_EQ(v.length, GetParam().length);
}

INSTANTIATE_TEST_SUITE_P(Values, ParseValueOk,
                         testing::Values(ValueCase{"null", kNull, 4}, ValueCase{" true,", kBoolean, 4},
                                         ValueCase{"false", kBoolean, 5}, ValueCase{"-12.5e+3]", kNumber, 8},
                                         ValueCase{R"("a\"b")", kString, 6}, ValueCase{"[1, [2], {}]", kArray, 12},
                                         ValueCase{R"({"k" : [ ] })", kObject, 12}));

struct ErrorCase {
  const char* text;
  int kind;
  size_t at;
};

class ParseValueError : public testing::TestWithParam<ErrorCase> {};

TEST_P(ParseValueError, KindAndPlace) {
  ParsedValue v;
  const char* text = GetParam().text;
  ASSERT_FALSE(parseValue(text, &v)) << text;
  EXPECT_EQ(v.errorKind, GetParam().kind) << text;
  EXPECT_EQ(static_cast<size_t>(v.errorAt - text), GetParam().at) << text;
}

INSTANTIATE_TEST_SUITE_P(Kinds, ParseValueError,
                         testing::Values(ErrorCase{R"({1:2})", kStringExpected, 1},
                                         ErrorCase{R"("abc)", kStringExpected, 4},
                                         ErrorCase{R"({"a":1)", kObjectMalformed, 6},
                                         ErrorCase{"[1", kArrayMalformed, 2},
                                         ErrorCase{R"({"a" 1})", kColonMissing, 5},
                                         ErrorCase{"[1 2]", kCommaOrCloseMissing, 3},
                                         ErrorCase{R"("a\q")", kBadEscape, 3},
                                         ErrorCase{R"("\u12x4")", kBadEscape, 2},
                                         ErrorCase{"[1,]", kCommaBeforeClose, 3},
                                         ErrorCase{R"({"a":1,})", kCommaBeforeClose, 7}));

TEST(ReportReader, DeepNestingIsRefusedNotRecursedInto) {
  std::string deep(100000, '[');
  EXPECT_EQ(endOfValue(deep.c_str()), nullptr);
  ParsedValue v;
  EXPECT_FALSE(parseValue(deep.c_str(), &v));
}

TEST(ReportReader, EndOfValuePointsAtTheClosingCharacter) {
  const char* text = R"({"a":[1,2],"b":"}"} tail)";
  EXPECT_EQ(endOfValue(text), text + 18);
  EXPECT_EQ(endOfValue("\"x\""), nullptr);
  EXPECT_EQ(endOfValue(" {}"), nullptr);
}

TEST(ReportReader, FindKeyTakesTheFirstTopLevelMatch) {
  const char* text = R"({"inner":{"line":1},"line":2,"li\u006ee":3})";
  EXPECT_EQ(readInt(findKey(text, "line")), 2);
  EXPECT_EQ(findKey(text, "missing"), nullptr);
  EXPECT_EQ(findKey(R"({"a":1,"line")", "line"), nullptr);
  EXPECT_EQ(findKey("[1]", "a"), nullptr);
}

TEST(ReportReader, CountItems) {
  EXPECT_EQ(countItems("[]"), 0);
  EXPECT_EQ(countItems("[ 1 , {\"a\":[2,3]} , \"x\" ]"), 3);
  EXPECT_EQ(countItems("[1,"), -1);
  EXPECT_EQ(countItems("{}"), -1);
}

TEST(ReportReader, DecodeStringJoinsSurrogatePairs) {
  std::string out;
  const std::string raw = R"(a\u00e9\ud83d\ude00\/\n)";
  ASSERT_TRUE(decodeString(raw.data(), raw.size(), &out));
  EXPECT_EQ(out, "a\xC3\xA9\xF0\x9F\x98\x80/\n");
  EXPECT_FALSE(decodeString(R"(\x)", 2, &out));
  EXPECT_FALSE(decodeString(R"(\u12)", 4, &out));
}

TEST(ReportReader, ReadIntTruncatesFractionsInAnyLocale) {
  EXPECT_EQ(readInt("42"), 42);
  EXPECT_EQ(readInt("-7"), -7);
  EXPECT_EQ(readInt("3.99"), 3);
  EXPECT_EQ(readInt("-2.5e1"), -25);
  EXPECT_EQ(readInt("1e3,"), 1000);
  // A locale with a decimal comma must not change what a JSON number means.
  if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) {
    EXPECT_EQ(readInt("3.99"), 3);
    std::setlocale(LC_NUMERIC, "C");
  }
}

}  // namespace
