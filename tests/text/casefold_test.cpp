#include <gtest/gtest.h>

#include <string>

#include "text/casefold.h"
#include "text/sstutf8.h"

namespace {

int folded(const std::string& a, const std::string& b) {
  return zqwombat::compareFolded(a.data(), a.data() + a.size(), b.data(), b.data() + b.size());
}

int foldedWide(const std::u16string& a, const std::u16string& b) {
  return zqwombat::compareFoldedWide(a.data(), a.data() + a.size(), b.data(), b.data() + b.size());
}

struct Comparison {
  std::u16string left;
  std::u16string right;
  int expected;
};

// The same text in UTF-8, written by the transcoder that the language encodings use.
std::string utf8(const std::u16string& text) {
  std::string out;
  zqsstutf8::StdStringSink sink(&out);
  zqsstutf8::utf16ToUtf8(text.data(), text.size(), sink);
  return out;
}

class FoldedComparison : public testing::TestWithParam<Comparison> {};

TEST_P(FoldedComparison, Utf8AndWideAgree) {
  const Comparison& c = GetParam();
  EXPECT_EQ(folded(utf8(c.left), utf8(c.right)), c.expected);
  EXPECT_EQ(folded(utf8(c.right), utf8(c.left)), -c.expected);
  EXPECT_EQ(foldedWide(c.left, c.right), c.expected);
  EXPECT_EQ(foldedWide(c.right, c.left), -c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FoldedComparison,
    testing::Values(Comparison{u"STRASSE", u"stra\u00DFe", 0},
                    Comparison{u"MyTask", u"mytask", 0},
                    Comparison{u"\u0391\u0392", u"\u03B1\u03B2", -1},        // Greek is not folded
                    Comparison{u"\u0414", u"\u0434", -1},                    // nor Cyrillic
                    Comparison{u"\u0130", u"i\u0307", 0},                    // to two units
                    Comparison{u"\u0130", u"i", 1},
                    Comparison{u"\u0131", u"i", 1},                          // dotless i stays
                    Comparison{u"\uFB03", u"ffi", 0},                        // to three units
                    Comparison{u"\uFB03", u"FFI", 0},
                    Comparison{u"\uFB03x", u"ffiy", -1},                     // comparison crosses code points
                    Comparison{u"\u00B5", u"\u03BC", 0},
                    Comparison{u"\u017F", u"S", 0},
                    Comparison{u"\u0232", u"\u0233", 0},                     // last row of the first range
                    Comparison{u"\u0245", u"\u028C", -1},                    // beyond it: not folded
                    Comparison{u"\u1E00", u"\u1E01", 0},
                    Comparison{u"\u1E9B", u"\u1E60", 0},
                    Comparison{u"\u1E9E", u"ss", 1},                         // past the second range
                    Comparison{u"\u216B\u216F", u"\u217B\u217F", 0},   // first and last rows of a range
                    Comparison{u"\u24B6\u24CF", u"\u24D0\u24E9", 0},
                    Comparison{u"\uFF21\uFF3A", u"\uFF41\uFF5A", 0},
                    Comparison{u"abc", u"abd", -1},
                    Comparison{u"ABD", u"abc", 1},
                    Comparison{u"ab", u"ABC", -1},
                    Comparison{u"", u"", 0},
                    Comparison{u"", u"a", -1},
                    Comparison{u"\U0001F600A", u"\U0001F600a", 0}));

// UTF-8 is compared by code point, UTF-16 unit by unit: the two orders differ above U+FFFF.
TEST(CaseFold, AboveTheBasicPlaneOrdersByForm) {
  EXPECT_EQ(folded("\xF0\x90\x80\x80", "\xEF\xBF\xBF"), 1);
  EXPECT_EQ(foldedWide(u"\U00010000", u"\uFFFF"), -1);
}

TEST(CaseFold, LoneSurrogatesFoldToThemselves) {
  EXPECT_EQ(foldedWide(std::u16string{0xD800, u'A'}, std::u16string{0xD800, u'a'}), 0);
  EXPECT_EQ(foldedWide(std::u16string{0xDC00}, std::u16string{0xD800}), 1);
}

TEST(CaseFold, TruncatedUtf8IsReadWithoutOverrun) {
  const std::string cut = "a\xE2\x82";  // a three-byte lead with one continuation byte
  EXPECT_EQ(folded(cut, "A\xE2\x82"), 0);
  EXPECT_NE(folded(cut, "a"), 0);
}

}  // namespace
