#include <gtest/gtest.h>

#include <string>

#include "report_items.h"
#include "status/report_writer.h"
#include "text/name_rule.h"
#include "zqvorex_status_codes.h"

namespace {

using zqerr::usage::kUsageTypeInvalidString;
using zqerr::usage::kUsageTypePositionOfInvalidCharacter;
using zqtest::stringItem;
using zqtest::uint32Item;

constexpr int32_t kNoPosition = -1;

struct NameCase {
  int32_t kind;
  std::u16string name;
  int32_t code;
  int32_t line;      // of a failure
  int32_t position;  // kNoPosition when the failure has none
  const char* utf8;  // the name as the report's JSON text holds it
};

class NameRule : public testing::TestWithParam<NameCase> {};

TEST_P(NameRule, CodeSiteAndItems) {
  const NameCase& c = GetParam();
  zqerr::Status status;
  zqwombat::validateObjectName(c.name, &c.kind, &status);
  ASSERT_EQ(status.code, c.code);
  if (c.code == 0) {
    EXPECT_EQ(status.report, nullptr);
    return;
  }
  EXPECT_EQ(zqtest::siteOf(status), (zqtest::Site{"nparseutilities", c.line, "zqcai_rd_"}));
  std::string items = "<none>";
  if (c.code >= zqwombat::kErrorNameBeginsWithUnderscore && c.code <= zqwombat::kErrorInvalidNameCharacter) {
    items = "[";
    if (c.position != kNoPosition)
      items += uint32Item(kUsageTypePositionOfInvalidCharacter, static_cast<uint32_t>(c.position)) + ",";
    items += stringItem(kUsageTypeInvalidString, c.utf8) + "]";
  }
  EXPECT_EQ(zqtest::items(status), items);
}

INSTANTIATE_TEST_SUITE_P(
    TaskNames, NameRule,
    testing::Values(NameCase{1, u"ab::cd", 0, 0, kNoPosition, ""},
                    NameCase{1, u"a b", 0, 0, kNoPosition, ""},
                    NameCase{1, u"a!#$&'()+;=@^`{}~_", 0, 0, kNoPosition, ""},
                    NameCase{1, u"a\u0007b", 0, 0, kNoPosition, ""},
                    NameCase{1, u"a_", 0, 0, kNoPosition, ""},
                    NameCase{1, u"ab:cd", zqwombat::kErrorInvalidNameCharacter, 658, 2, "ab:cd"},
                    NameCase{1, u":a", zqwombat::kErrorInvalidNameCharacter, 658, 0, ":a"},
                    NameCase{1, u"a:::b", zqwombat::kErrorInvalidNameCharacter, 658, 3, "a:::b"},
                    NameCase{1, u"ab:", zqwombat::kErrorInvalidNameCharacter, 658, 2, "ab:"},
                    NameCase{1, u"::a", zqwombat::kErrorInvalidNameCharacter, 689, kNoPosition, "::a"},
                    NameCase{1, u"a::", zqwombat::kErrorInvalidNameCharacter, 689, kNoPosition, "a::"},
                    NameCase{1, u"_a", zqwombat::kErrorNameBeginsWithUnderscore, 689, kNoPosition, "_a"},
                    NameCase{1, u" a", zqwombat::kErrorNameBeginsWithSpace, 689, kNoPosition, " a"},
                    NameCase{1, u"a ", zqwombat::kErrorNameEndsWithSpace, 689, kNoPosition, "a "},
                    NameCase{1, u" _a", zqwombat::kErrorNameBeginsWithSpace, 689, kNoPosition, " _a"},
                    NameCase{1, u"_a ", zqwombat::kErrorNameEndsWithSpace, 689, kNoPosition, "_a "},
                    NameCase{1, u"a.b", zqwombat::kErrorInvalidNameCharacter, 658, 1, "a.b"},
                    NameCase{1, u"a\u0008", zqwombat::kErrorInvalidNameCharacter, 658, 1, "a\\b"},
                    NameCase{1, u"ab\u007F", zqwombat::kErrorInvalidNameCharacter, 658, 2, "ab\\u007f"},
                    NameCase{1, u"a:b.c", zqwombat::kErrorInvalidNameCharacter, 658, 3, "a:b.c"},  // the set is looked at before colons
                    NameCase{1, u"\u00E4\u00F6,", zqwombat::kErrorInvalidNameCharacter, 658, 2, "\xC3\xA4\xC3\xB6,"},
                    NameCase{1, u"\U0001F600|", zqwombat::kErrorInvalidNameCharacter, 658, 2, "\xF0\x9F\x98\x80|"},  // UTF-16 units
                    NameCase{1, u"", zqwombat::kErrorEmptyName, 616, kNoPosition, ""}));

INSTANTIATE_TEST_SUITE_P(
    OtherKinds, NameRule,
    testing::Values(NameCase{0, u"ab:cd", zqwombat::kErrorInvalidNameCharacter, 658, 2, "ab:cd"},
                    NameCase{5, u"a*", zqwombat::kErrorInvalidNameCharacter, 658, 1, "a*"},
                    NameCase{2, u"a b", zqwombat::kErrorInvalidNameCharacter, 658, 1, "a b"},
                    NameCase{2, u"a::b", zqwombat::kErrorInvalidNameCharacter, 658, 1, "a::b"},
                    NameCase{3, u"a!b", zqwombat::kErrorInvalidNameCharacter, 658, 1, "a!b"},
                    NameCase{3, u" a", zqwombat::kErrorInvalidNameCharacter, 658, 0, " a"},
                    NameCase{3, u"_a", zqwombat::kErrorNameBeginsWithUnderscore, 689, kNoPosition, "_a"},
                    NameCase{3, u"a_b", 0, 0, kNoPosition, ""},
                    NameCase{4, std::u16string(254, u'x'), 0, 0, kNoPosition, ""},
                    NameCase{4, std::u16string(255, u'x'), -201337, 700, kNoPosition, ""},
                    NameCase{6, u"abc", zqwombat::kErrorInvalidNameCharacter, 658, 0, "abc"},
                    NameCase{-1, u"abc", zqwombat::kErrorInvalidNameCharacter, 658, 0, "abc"},
                    NameCase{6, u"", zqwombat::kErrorEmptyName, 616, kNoPosition, ""}));

TEST(NameRule, ItemsUnderTheTranslator) {
  zqerr::Status status;
  int32_t kind = zqwombat::kNameKindTask;
  zqwombat::validateObjectName(u"ab:cd", &kind, &status);
  EXPECT_STREQ(status.report,
               R"({"file":"nparseutilities","line":658,"component":"zqcai_rd_","translator":"qxlator_zqvorex",)"
               R"("translator_info":{"is_debug":"0","version":1,"ordered_data":[{"type":"usage",)"
               R"("usage":"kUsageTypePositionOfInvalidCharacter","value":2,"value_type":"uint32_t"},)"
               R"({"type":"usage","usage":"kUsageTypeInvalidString","value":"ab:cd","value_type":"string"}]}})");
}

TEST(NameRule, LengthTestOfKind4RunsAfterAnEarlierFailure) {
  zqerr::Status status;
  int32_t kind = 4;
  std::u16string name(300, u'x');
  name[3] = u'.';
  zqwombat::validateObjectName(name, &kind, &status);
  EXPECT_EQ(status.code, zqwombat::kErrorInvalidNameCharacter);
  EXPECT_EQ(zqtest::siteOf(status).line, 658);
  std::string utf8(300, 'x');
  utf8[3] = '.';
  EXPECT_EQ(zqtest::items(status), "[" + uint32Item(kUsageTypePositionOfInvalidCharacter, 3) + "," +
                                             stringItem(kUsageTypeInvalidString, utf8) + "]");
}

TEST(NameRule, NullKindRefusesLikeAnUnknownKind) {
  zqerr::Status status;
  zqwombat::validateObjectName(u"abc", nullptr, &status);
  EXPECT_EQ(status.code, zqwombat::kErrorInvalidNameCharacter);
  EXPECT_EQ(zqtest::items(status), "[" + uint32Item(kUsageTypePositionOfInvalidCharacter, 0) + "," +
                                             stringItem(kUsageTypeInvalidString, "abc") + "]");
}

TEST(NameRule, FailedStatusIsLeftAlone) {
  zqerr::Status status;
  status.code = -7;
  int32_t kind = 1;
  zqwombat::validateObjectName(u":a", &kind, &status);
  EXPECT_EQ(status.code, -7);
  EXPECT_EQ(status.report, nullptr);
}

TEST(NameRule, SetsHoldThirtyEightAndFiftySixCharacters) {
  int shortCount = 0, longCount = 0;
  for (char32_t c = 0; c < 0x10000; ++c) {
    shortCount += zqwombat::inShortNameSet(static_cast<char16_t>(c));
    longCount += zqwombat::inLongNameSet(static_cast<char16_t>(c));
    if (zqwombat::inShortNameSet(static_cast<char16_t>(c))) {
      EXPECT_TRUE(zqwombat::inLongNameSet(static_cast<char16_t>(c)));
    }
  }
  EXPECT_EQ(shortCount, 38);
  EXPECT_EQ(longCount, 56);
}

}  // namespace
