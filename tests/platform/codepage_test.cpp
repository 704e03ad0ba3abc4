#include <gtest/gtest.h>

#include "platform/platform.h"

namespace {

using zqplatform::multiByteToWide;
using zqplatform::wideToMultiByte;

// The round trips through each page, replacement and the no-best-fit default are the text
// conversions' checks; here the Windows call contract those conversions do not reach.
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

TEST(CodePage, InvalidUtf8IsRefusedUnderTheFlag) {
  zqplatform::setLastError(0);
  EXPECT_EQ(multiByteToWide(65001, zqplatform::kMbErrInvalidChars, "a\xFF" "b", 3, nullptr, 0), 0);
  EXPECT_EQ(zqplatform::lastError(), zqplatform::kErrorNoUnicodeTranslation);
}

TEST(CodePage, EmptyInputIsAnInvalidParameter) {
  zqplatform::setLastError(0);
  EXPECT_EQ(multiByteToWide(65001, 0, "", 0, nullptr, 0), 0);
  EXPECT_EQ(zqplatform::lastError(), zqplatform::kErrorInvalidParameter);
}

}  // namespace
