#include <gtest/gtest.h>

#include <string>

#include "text/trim_split.h"

namespace {

struct Trim {
  std::string text;
  std::string expected;
};

class TrimText : public testing::TestWithParam<Trim> {};

TEST_P(TrimText, BothStringKinds) {
  zqerr::Status status;
  std::string s = GetParam().text;
  zqwombat::trimText(&s, &status);
  EXPECT_EQ(s, GetParam().expected);
  zqhtl::String lib;
  lib.assign(GetParam().text, &status);
  zqwombat::trimText(&lib, &status);
  EXPECT_EQ(lib.view(), GetParam().expected);
  EXPECT_EQ(status.code, 0);
}

INSTANTIATE_TEST_SUITE_P(Cases, TrimText,
                         testing::Values(Trim{" \t\r\n\f\vDev1/ai0 \t\r\n\f\v", "Dev1/ai0"}, Trim{"a b", "a b"},
                                         Trim{"  a b  ", "a b"}, Trim{"", ""}, Trim{" \t ", ""}, Trim{"x", "x"},
                                         Trim{"\x1F" "a\xC2\xA0", "\x1F" "a\xC2\xA0"}));  // only the six

struct Split {
  std::string text;
  size_t start;
  std::string device;
  std::string channel;
};

class SplitDeviceAndChannel : public testing::TestWithParam<Split> {};

TEST_P(SplitDeviceAndChannel, BothStringKinds) {
  const Split& c = GetParam();
  zqerr::Status status;
  std::string device = "old", channel = "old";
  zqwombat::splitDeviceAndChannel(c.text, &device, &channel, &status, c.start);
  EXPECT_EQ(device, c.device);
  EXPECT_EQ(channel, c.channel);
  zqhtl::String libDevice, libChannel;
  zqwombat::splitDeviceAndChannel(c.text, &libDevice, &libChannel, &status, c.start);
  EXPECT_EQ(libDevice.view(), c.device);
  EXPECT_EQ(libChannel.view(), c.channel);
}

INSTANTIATE_TEST_SUITE_P(Cases, SplitDeviceAndChannel,
                         testing::Values(Split{"Dev1/ai0", 0, "Dev1", "ai0"}, Split{"Dev1", 0, "Dev1", ""},
                                         Split{"", 0, "", ""}, Split{"/ai0", 0, "", "ai0"},
                                         Split{"Dev1/", 0, "Dev1", ""}, Split{"Dev1/ai0/x", 0, "Dev1", "ai0/x"},
                                         Split{"x/Dev1/ai0", 2, "Dev1", "ai0"}, Split{"Dev1/ai0", 8, "", ""},
                                         Split{"Dev1/ai0", 50, "", ""}));

TEST(TrimSplit, FailedStatusLeavesTheOutputs) {
  zqerr::FixedStatus status = zqerr::makeFixedStatus();
  status.code = -1;
  std::string text = " a ", device = "d", channel = "c";
  zqwombat::trimText(&text, &status);
  zqwombat::splitDeviceAndChannel("Dev1/ai0", &device, &channel, &status);
  EXPECT_EQ(text, " a ");
  EXPECT_EQ(device, "d");
  EXPECT_EQ(channel, "c");
}

}  // namespace
