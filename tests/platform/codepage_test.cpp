#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/platform.h"

namespace {

using zqplatform::multiByteToWide;
using zqplatform::wideToMultiByte;

std::u16string toWide(uint32_t page, const std::string& text, uint32_t flags = 0) {
  int n = multiByteToWide(page, flags, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::u16string out(static_cast<size_t>(n), u'\0');
  if (n > 0) multiByteToWide(page, flags, text.data(), static_cast<int>(text.size()), out.data(), n);
  return out;
}

std::string toNarrow(uint32_t page, const std::u16string& text, uint32_t flags = 0) {
  int n = wideToMultiByte(page, flags, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::string out(static_cast<size_t>(n), '\0');
  if (n > 0) wideToMultiByte(page, flags, text.data(), static_cast<int>(text.size()), out.data(), n);
  return out;
}

struct RoundTrip {
  uint32_t page;
  std::string bytes;
  std::u16string wide;
};

class CodePageRoundTrip : public testing::TestWithParam<RoundTrip> {};

TEST_P(CodePageRoundTrip, BothDirections) {
  const RoundTrip& c = GetParam();
  EXPECT_EQ(toWide(c.page, c.bytes), c.wide);
  EXPECT_EQ(toNarrow(c.page, c.wide), c.bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Pages, CodePageRoundTrip,
    testing::Values(RoundTrip{1252, "Stra\xDF" "e \x80 caf\xE9", u"Stra\u00DFe \u20AC caf\u00E9"},
                    RoundTrip{932, "\x93\xFA\x96\x7B\x8C\xEA" "Dev1", u"\u65E5\u672C\u8A9EDev1"},
                    RoundTrip{932, "\xB1\xB2", u"\uFF71\uFF72"},
                    RoundTrip{949, "\xC7\xD1\xB1\xDB", u"\uD55C\uAE00"},
                    RoundTrip{936, "\xD6\xD0\xCE\xC4", u"\u4E2D\u6587"},
                    RoundTrip{65001, "\xE6\x97\xA5 \xF0\x9F\x98\x80", u"\u65E5 \U0001F600"}));

TEST(CodePage, ZeroTerminatedLengthCountsTheTerminator) {
  EXPECT_EQ(multiByteToWide(65001, 0, "abc", -1, nullptr, 0), 4);
  EXPECT_EQ(wideToMultiByte(65001, 0, u"abc", -1, nullptr, 0), 4);
}

TEST(CodePage, TooSmallOutputFailsWith122) {
  char16_t out[2];
  zqplatform::setLastError(0);
  EXPECT_EQ(multiByteToWide(65001, 0, "abc", 3, out, 2), 0);
  EXPECT_EQ(zqplatform::lastError(), zqplatform::kErrorInsufficientBuffer);
  char narrow[2];
  EXPECT_EQ(wideToMultiByte(1252, 0, u"abc", 3, narrow, 2), 0);
  EXPECT_EQ(zqplatform::lastError(), zqplatform::kErrorInsufficientBuffer);
}

TEST(CodePage, InvalidUtf8IsReplacedOrRefused) {
  const std::string bad = "a\xFF" "b";
  EXPECT_EQ(toWide(65001, bad), u"a\uFFFDb");
  zqplatform::setLastError(0);
  EXPECT_EQ(multiByteToWide(65001, zqplatform::kMbErrInvalidChars, bad.data(), 3, nullptr, 0), 0);
  EXPECT_EQ(zqplatform::lastError(), zqplatform::kErrorNoUnicodeTranslation);
}

TEST(CodePage, UnmappableCharacterBecomesQuestionMark) {
  EXPECT_EQ(toNarrow(1252, u"a\u65E5b"), "a?b");
  EXPECT_EQ(toNarrow(1252, u"a\u65E5b", zqplatform::kWcNoBestFitChars), "a?b");
}

TEST(CodePage, EmptyInputIsAnInvalidParameter) {
  zqplatform::setLastError(0);
  EXPECT_EQ(multiByteToWide(65001, 0, "", 0, nullptr, 0), 0);
  EXPECT_EQ(zqplatform::lastError(), zqplatform::kErrorInvalidParameter);
}

}  // namespace
