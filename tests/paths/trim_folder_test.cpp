#include <gtest/gtest.h>

#include <string>

#include "paths/system_paths.h"

namespace {

using namespace std::string_literals;

struct TrimCase {
  std::string raw;
  std::string trimmed;
};

class TrimFolderText : public testing::TestWithParam<TrimCase> {};

TEST_P(TrimFolderText, DropsTheTailThenLeadingSpace) {
  std::string text = GetParam().raw;
  zqsysq::trimFolderText(text);
  EXPECT_EQ(text, GetParam().trimmed);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TrimFolderText,
    testing::Values(TrimCase{"C:\\Shared\\ ", "C:\\Shared"},              // the space goes, then the backslash
                    TrimCase{"C:\\Shared\\\\\\", "C:\\Shared"},           // every trailing backslash
                    TrimCase{"", ""},                                    // an empty value stays empty
                    TrimCase{"C:\\Shared\0\0\0"s, "C:\\Shared"},         // the zeros of a fixed buffer
                    TrimCase{"C:\\a \\\0 \\\t"s, "C:\\a"},               // any mix at the end
                    TrimCase{" \t\r\n\v\fD:\\x", "D:\\x"},                // C white space at the front
                    TrimCase{"\\\\server\\share\\", "\\\\server\\share"},  // a backslash at the front stays
                    TrimCase{"\0C:\\x"s, "\0C:\\x"s},                    // and so does a zero
                    TrimCase{"\\\\\\", ""},                              // nothing but separators
                    TrimCase{"C:\\Program Files\\x", "C:\\Program Files\\x"},
                    TrimCase{"/usr/lib/", "/usr/lib/"},                  // only the Windows separator goes
                    TrimCase{"\xC2\xA0" "C:\\x\xC2\xA0", "\xC2\xA0" "C:\\x\xC2\xA0"}));  // no-break space is no C space

}  // namespace
