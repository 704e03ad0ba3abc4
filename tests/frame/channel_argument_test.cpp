// The channel argument: a single plain name is kept in place without the list parser, and every
// text reads as the list parser reads it, whichever road it takes.
#include "frame/channel_argument.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "text/list_parser.h"

namespace {

using zqframe::NameList;

std::vector<std::string> namesOf(const NameList& list) {
  std::vector<std::string> out;
  for (size_t i = 0; i < list.size(); ++i) out.emplace_back(list[i]);
  return out;
}

struct ChannelCase {
  const char* name;
  std::string text;
  bool keptInPlace;
};

class ChannelArgument : public testing::TestWithParam<ChannelCase> {};

TEST_P(ChannelArgument, ReadsAsTheListParser) {
  const ChannelCase& c = GetParam();
  zqerr::Status parsed, expected;
  NameList list;
  zqframe::parseChannelArgument(c.text.c_str(), &list, &parsed);
  std::vector<std::string> byParser;
  zqwombat::parseCommaList(c.text, &byParser, &expected);
  EXPECT_EQ(parsed.code, expected.code);
  EXPECT_EQ(namesOf(list), byParser);
  EXPECT_EQ(list.isShort(), c.keptInPlace);

  // The view shows the same names, wherever they are kept.
  const zqgopher::StringArrayView view(list);
  ASSERT_EQ(view.size(), byParser.size());
  for (size_t i = 0; i < byParser.size(); ++i) EXPECT_STREQ(view[i], byParser[i].c_str()) << i;
}

const std::string kLongest(NameList::kShortCapacity, 'a');
const std::string kTooLong(NameList::kShortCapacity + 1, 'a');

INSTANTIATE_TEST_SUITE_P(
    Texts, ChannelArgument,
    testing::Values(ChannelCase{"OneName", "Dev1/ai0", true},
                    ChannelCase{"TrimmedOfEveryWhiteSpace", " \t\r\n\f\vDev1/ai0 \t\r\n\f\v", true},
                    ChannelCase{"InnerSpaceStays", "my channel", true},
                    ChannelCase{"AllWhiteIsNoName", " \t ", false},
                    ChannelCase{"LongestInPlace", kLongest, true},
                    ChannelCase{"OneLongerGoesToTheParser", kTooLong, false},
                    ChannelCase{"TwoNames", "Dev1/ai0, Dev1/ai1", false},
                    ChannelCase{"ARange", "Dev1/ai0:3", false},
                    ChannelCase{"ABadRange", "Dev1/aiX:3", false}),
    [](const auto& info) { return info.param.name; });

TEST(ChannelArgumentList, ANullOrEmptyArgumentIsTheEmptyList) {
  for (const char* text : {static_cast<const char*>(nullptr), ""}) {
    zqerr::Status status;
    NameList list;
    list.assignShort("left over");
    zqframe::parseChannelArgument(text, &list, &status);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(status.code, 0);
    EXPECT_EQ(zqgopher::StringArrayView(list).data, nullptr);
  }
}

TEST(ChannelArgumentList, AFailedStatusLeavesTheListEmpty) {
  zqerr::Status status;
  status.code = -1;
  NameList list;
  zqframe::parseChannelArgument("Dev1/ai0", &list, &status);
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(status.code, -1);
}

}  // namespace
