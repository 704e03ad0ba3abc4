#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "platform/platform.h"
#include "text/nstring.h"
#include "zqvorex_status_codes.h"

namespace {

using zqerr::FixedStatus;
using zqwombat::codePageToWide;
using zqwombat::wideToCodePage;

struct Failure {
  const char* name;
  bool toWide;
  uint32_t page;
  size_t length;
  size_t outSize;   // room given; 0 with no buffer is the length query
  bool withBuffer;
  bool terminated;
  int32_t code;
  uint32_t line;
};

class LowerRoutineFailure : public testing::TestWithParam<Failure> {};

TEST_P(LowerRoutineFailure, CodeAndSite) {
  const Failure& c = GetParam();
  FixedStatus status = zqerr::makeFixedStatus();
  char16_t wideOut[16] = {};
  char narrowOut[16] = {};
  size_t n = c.toWide ? codePageToWide(c.page, "abc", c.length, c.withBuffer ? wideOut : nullptr, c.outSize,
                                       c.terminated, &status)
                      : wideToCodePage(c.page, u"abc", c.length, c.withBuffer ? narrowOut : nullptr, c.outSize,
                                       c.terminated, &status);
  EXPECT_EQ(n, 0u);
  EXPECT_EQ(status.code, c.code);
  EXPECT_EQ(status.line, c.line);
  EXPECT_STREQ(status.file, "nstring");
  EXPECT_STREQ(status.component, "zqcai_rd_");
}

INSTANTIATE_TEST_SUITE_P(
    Sites, LowerRoutineFailure,
    testing::Values(Failure{"TooLong", true, 65001, 0x80000000u, 0, false, false, zqapalerr_invalidParameter, 1707},
                    Failure{"NoRoom", true, 65001, 3, 0, true, false, zqapalerr_bufferTooSmall, 1723},
                    Failure{"Short", true, 65001, 3, 2, true, false, zqapalerr_bufferTooSmall, 1735},
                    Failure{"BadPage", true, 65535, 3, 0, false, false, zqwombat::kErrorCannotReadInput, 1739},
                    Failure{"NoTerminator", true, 65001, 3, 3, true, true, zqapalerr_bufferTooSmall, 1746},
                    Failure{"WideTooLong", false, 65001, 0x80000000u, 0, false, false, zqapalerr_invalidParameter, 1762},
                    Failure{"WideNoRoom", false, 65001, 3, 0, true, false, zqapalerr_bufferTooSmall, 1778},
                    Failure{"WideShort", false, 65001, 3, 2, true, false, zqapalerr_bufferTooSmall, 1791},
                    Failure{"WideBadPage", false, 65535, 3, 0, false, false, zqwombat::kErrorCannotWriteOutput, 1795},
                    Failure{"WideNoTerminator", false, 65001, 3, 3, true, true, zqapalerr_bufferTooSmall, 1802}),
    [](const testing::TestParamInfo<Failure>& info) { return std::string(info.param.name); });

TEST(LowerRoutines, TerminatedInputEndsAtItsZero) {
  FixedStatus status = zqerr::makeFixedStatus();
  char16_t wide[8];
  std::memset(wide, 0xFF, sizeof wide);
  EXPECT_EQ(codePageToWide(65001, "ab\0cd", 5, wide, 8, true, &status), 2u);
  EXPECT_EQ(std::u16string(wide, 3), std::u16string(u"ab\0", 3));
  char narrow[8];
  std::memset(narrow, 0x7F, sizeof narrow);
  EXPECT_EQ(wideToCodePage(65001, u"ab\0cd", 5, narrow, 8, true, &status), 2u);
  EXPECT_EQ(std::string(narrow, 3), std::string("ab\0", 3));
  EXPECT_EQ(codePageToWide(65001, "", 0, wide, 1, true, &status), 0u);  // the terminator alone fits
  EXPECT_EQ(wide[0], 0);
  EXPECT_EQ(status.code, 0);
}

TEST(Conversions, EmptyInputClearsTheOutput) {
  FixedStatus status = zqerr::makeFixedStatus();
  std::string out = "old";
  zqwombat::systemTextToUtf8("", 0, &out, &status);
  EXPECT_EQ(out, "");
  out = "old";
  zqwombat::utf8ToSystemText(nullptr, 5, &out, &status);
  EXPECT_EQ(out, "");
  std::u16string wide = u"old";
  zqwombat::utf8ToWide("x", 0, &wide, &status);
  EXPECT_EQ(wide, u"");
  zqhtl::String lib;
  lib.assign("old", 3, &status);
  zqwombat::wideToUtf8(u"", 0, &lib, &status);
  EXPECT_EQ(lib.view(), "");
  EXPECT_EQ(status.code, 0);
}

TEST(Conversions, Utf8AndUtf16BothWays) {
  FixedStatus status = zqerr::makeFixedStatus();
  const std::string utf8 = "Ger\xC3\xA4t \xF0\x9F\x98\x80/ai0";
  const std::u16string utf16 = u"Ger\u00E4t \U0001F600/ai0";
  std::u16string wide;
  zqwombat::utf8ToWide(utf8.data(), utf8.size(), &wide, &status);
  EXPECT_EQ(wide, utf16);
  zqhtl::WideString libWide;
  zqwombat::utf8ToWide(utf8.data(), utf8.size(), &libWide, &status);
  EXPECT_EQ(libWide.view(), utf16);
  std::string back;
  zqwombat::wideToUtf8(utf16.data(), utf16.size(), &back, &status);
  EXPECT_EQ(back, utf8);
  zqhtl::String libBack;
  zqwombat::wideToUtf8(utf16.data(), utf16.size(), &libBack, &status);
  EXPECT_EQ(libBack.view(), utf8);
  EXPECT_EQ(status.code, 0);
}

// The system page's own characters, as that page writes them, both ways, short and past the
// stack form.
TEST(Conversions, SystemTextBothWays) {
  std::string sample = "Stra\xC3\x9F" "e \xE2\x82\xAC caf\xC3\xA9 Dev1/ai0", inPage = sample;
  switch (zqplatform::systemCodePage()) {
    case 65001: break;
    case 1252: inPage = "Stra\xDF" "e \x80 caf\xE9 Dev1/ai0"; break;
    case 932:
      sample = "\xE6\x97\xA5\xE6\x9C\xAC Dev1/ai0";
      inPage = "\x93\xFA\x96\x7B Dev1/ai0";
      break;
    default: sample = inPage = "Dev1/ai0"; break;
  }
  for (size_t repeat : {1, 400}) {
    std::string utf8, expected;
    for (size_t i = 0; i < repeat; ++i) {
      utf8 += sample;
      expected += inPage;
    }
    FixedStatus status = zqerr::makeFixedStatus();
    std::string system;
    zqwombat::utf8ToSystemText(utf8.data(), utf8.size(), &system, &status);
    EXPECT_EQ(system, expected) << "repeat " << repeat;
    zqhtl::String back;
    zqwombat::systemTextToUtf8(system.data(), system.size(), &back, &status);
    EXPECT_EQ(back.view(), utf8) << "repeat " << repeat;
    EXPECT_EQ(status.code, 0);
  }
}

TEST(Conversions, UnmappableCharacterIsReplacedWithoutFailure) {
  if (zqplatform::systemCodePage() != 1252) GTEST_SKIP() << "needs system code page 1252";
  FixedStatus status = zqerr::makeFixedStatus();
  std::string out;
  zqwombat::utf8ToSystemText("a\xE6\x97\xA5", 4, &out, &status);
  EXPECT_EQ(out, "a?");
  EXPECT_EQ(status.code, 0);
}

TEST(Conversions, FailedStatusLeavesTheOutput) {
  FixedStatus status = zqerr::makeFixedStatus();
  status.code = -3;
  std::string out = "kept";
  zqwombat::systemTextToUtf8("abc", 3, &out, &status);
  EXPECT_EQ(out, "kept");
  char16_t wide[4] = {u'x'};
  EXPECT_EQ(codePageToWide(65001, "ab", 2, wide, 4, true, &status), 0u);
  EXPECT_EQ(wide[0], u'x');
  EXPECT_EQ(status.code, -3);
}

TEST(Conversions, TooLongInputIsAnInvalidParameter) {
  FixedStatus status = zqerr::makeFixedStatus();
  std::string out = "x";
  zqwombat::systemTextToUtf8("abc", 0x80000000u, &out, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(status.line, 1707u);
  EXPECT_EQ(out, "");
}

}  // namespace
