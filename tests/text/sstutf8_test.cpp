#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/platform.h"
#include "text/sstutf8.h"
#include "zqvorex_status_codes.h"

namespace {

using zqsstutf8::kErrorConversion;

struct Converted {
  int32_t code;
  std::string text;
};

Converted toUtf8(const char* text, uint32_t encoding) {
  std::string out;
  zqsstutf8::StdStringSink sink(&out);
  int32_t code = zqsstutf8::mbsToUtf8(text, encoding, sink);
  return {code, out};
}

Converted fromUtf8(const char* text, uint32_t encoding) {
  std::string out;
  zqsstutf8::StdStringSink sink(&out);
  int32_t code = zqsstutf8::utf8ToMbs(text, encoding, sink);
  return {code, out};
}

TEST(LanguageEncodings, NumbersSelectCodePages) {
  const uint32_t pages[] = {0, 1252, 1252, 1252, 932, 949, 936, 65535, 65535};
  for (uint32_t encoding = 0; encoding < std::size(pages); ++encoding)
    EXPECT_EQ(zqsstutf8::codePageOfEncoding(encoding), pages[encoding]) << encoding;
  EXPECT_EQ(zqsstutf8::codePageOfEncoding(0xFFFFFFFFu), 65535u);
}

struct Language {
  uint32_t encoding;
  std::string native;
  std::string utf8;
};

class LanguageRoundTrip : public testing::TestWithParam<Language> {};

TEST_P(LanguageRoundTrip, BothDirections) {
  const Language& c = GetParam();
  Converted up = toUtf8(c.native.c_str(), c.encoding);
  EXPECT_EQ(up.code, 0);
  EXPECT_EQ(up.text, c.utf8);
  Converted down = fromUtf8(c.utf8.c_str(), c.encoding);
  EXPECT_EQ(down.code, 0);
  EXPECT_EQ(down.text, c.native);
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, LanguageRoundTrip,
    testing::Values(Language{1, "Stra\xDF" "e \x80", "Stra\xC3\x9F" "e \xE2\x82\xAC"},
                    Language{2, "caf\xE9", "caf\xC3\xA9"},
                    Language{3, "\xC4rger", "\xC3\x84rger"},
                    Language{4, "\x93\xFA\x96\x7B\x8C\xEA", "\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E"},
                    Language{4, "\xB1\xB2", "\xEF\xBD\xB1\xEF\xBD\xB2"},
                    Language{5, "\xC7\xD1\xB1\xDB", "\xED\x95\x9C\xEA\xB8\x80"},
                    Language{6, "\xD6\xD0\xCE\xC4", "\xE4\xB8\xAD\xE6\x96\x87"}));

TEST(LanguageEncodings, AsciiPassesEveryEncodingUnchanged) {
  const char* text = "Dev1/ai0: -200088 {\"x\"}";
  for (uint32_t encoding : {0u, 1u, 2u, 3u, 4u, 5u, 6u, 7u, 99u, 65535u}) {
    Converted up = toUtf8(text, encoding);
    Converted down = fromUtf8(text, encoding);
    EXPECT_EQ(up.code, 0) << encoding;
    EXPECT_EQ(down.code, 0) << encoding;
    EXPECT_EQ(up.text, text);
    EXPECT_EQ(down.text, text);
  }
}

TEST(LanguageEncodings, NullAndEmptyWriteNothing) {
  for (const char* text : {static_cast<const char*>(nullptr), ""}) {
    EXPECT_EQ(toUtf8(text, 1).code, 0);
    EXPECT_EQ(toUtf8(text, 1).text, "");
    EXPECT_EQ(fromUtf8(text, 1).code, 0);
    EXPECT_EQ(fromUtf8(text, 1).text, "");
  }
}

TEST(LanguageEncodings, InvalidUtf8IsRefused) {
  const char* bad[] = {"\x80",                 // continuation byte as lead
                       "a\xFF",                // never a lead
                       "\xF8\x88\x80\x80\x80",  // five-byte lead
                       "\xC3",                 // truncated
                       "\xE6\x97",             // truncated
                       "\xC3\x28",             // bad continuation
                       "\xC0\xAF",             // overlong
                       "\xE0\x80\xAF",         // overlong
                       "\xF0\x80\x80\xAF",     // overlong
                       "\xED\xA0\x80",         // surrogate
                       "\xF4\x90\x80\x80"};    // above U+10FFFF
  for (const char* text : bad) {
    Converted down = fromUtf8(text, 1);
    EXPECT_EQ(down.code, kErrorConversion) << testing::PrintToString(std::string(text));
    EXPECT_EQ(down.text, "");
  }
  EXPECT_EQ(fromUtf8("\xF4\x8F\xBF\xBF", 1).code, 0);  // U+10FFFF itself is valid
}

TEST(LanguageEncodings, UnreadableOrUnknownIsAConversionError) {
  EXPECT_EQ(toUtf8("\x81", 4).code, kErrorConversion);            // a lone lead byte of page 932
  EXPECT_EQ(toUtf8("caf\xE9", 7).code, kErrorConversion);          // page 65535
  EXPECT_EQ(fromUtf8("caf\xC3\xA9", 7).code, kErrorConversion);
}

// Encoding 0 converts with the system page under the same flags; a UTF-8 page refuses them
// (as the Windows calls do), so there only ASCII passes.
TEST(LanguageEncodings, EncodingZeroIsTheSystemPage) {
  switch (zqplatform::systemCodePage()) {
    case 1252:
      EXPECT_EQ(toUtf8("caf\xE9", 0).text, "caf\xC3\xA9");
      EXPECT_EQ(fromUtf8("caf\xC3\xA9", 0).text, "caf\xE9");
      break;
    case 932:
      EXPECT_EQ(toUtf8("\x93\xFA\x96\x7B", 0).text, "\xE6\x97\xA5\xE6\x9C\xAC");
      EXPECT_EQ(fromUtf8("\xE6\x97\xA5\xE6\x9C\xAC", 0).text, "\x93\xFA\x96\x7B");
      break;
    case 65001:
      EXPECT_EQ(toUtf8("caf\xC3\xA9", 0).code, kErrorConversion);
      EXPECT_EQ(fromUtf8("caf\xC3\xA9", 0).code, kErrorConversion);
      break;
    default:
      GTEST_SKIP() << "no sample for system code page " << zqplatform::systemCodePage();
  }
}

TEST(LanguageEncodings, UnmappableCharacterBecomesTheDefault) {
  Converted down = fromUtf8("a\xE6\x97\xA5", 1);
  EXPECT_EQ(down.code, 0);
  EXPECT_EQ(down.text, "a?");
}

TEST(LanguageEncodings, LongTextCrossesTheChunks) {
  std::string native, utf8;
  for (int i = 0; i < 3000; ++i) {
    native += "\xE9";
    utf8 += "\xC3\xA9";
  }
  EXPECT_EQ(toUtf8(native.c_str(), 1).text, utf8);
  EXPECT_EQ(fromUtf8(utf8.c_str(), 1).text, native);
}

class RefusingSink final : public zqsstutf8::ByteSink {
 public:
  bool write(const char*, size_t) override { return false; }
};

TEST(LanguageEncodings, SinkFailureIsMemoryFull) {
  RefusingSink sink;
  EXPECT_EQ(zqsstutf8::mbsToUtf8("abc", 1, sink), zqapalerr_memoryFull);
  EXPECT_EQ(zqsstutf8::mbsToUtf8("caf\xE9", 1, sink), zqapalerr_memoryFull);
  EXPECT_EQ(zqsstutf8::utf8ToMbs("caf\xC3\xA9", 1, sink), zqapalerr_memoryFull);
}

struct Transcoding {
  std::u16string units;
  std::string bytes;
};

class Transcoder : public testing::TestWithParam<Transcoding> {};

TEST_P(Transcoder, WritesTheBytes) {
  std::string out;
  zqsstutf8::StdStringSink sink(&out);
  ASSERT_TRUE(zqsstutf8::utf16ToUtf8(GetParam().units.data(), GetParam().units.size(), sink));
  EXPECT_EQ(out, GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Units, Transcoder,
    testing::Values(Transcoding{u"A", "A"}, Transcoding{u"\u00E9", "\xC3\xA9"},
                    Transcoding{u"\u07FF\u0800", "\xDF\xBF\xE0\xA0\x80"},
                    Transcoding{u"\U0001F600", "\xF0\x9F\x98\x80"},
                    // The partner of a high surrogate is not checked: D800 0041 is U+2441.
                    Transcoding{std::u16string{0xD800, u'A'}, "\xE2\x91\x81"},
                    Transcoding{std::u16string{0xDBFF, 0xFFFF}, "\xF4\x91\xBF\xBF"},
                    Transcoding{std::u16string{0xDC00}, "\xED\xB0\x80"},
                    Transcoding{std::u16string{u'a', 0xD800}, "a\xED\xA0\x80"}));

}  // namespace
