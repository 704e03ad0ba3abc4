// Names of the simulated device's channels and terminals, read against its model.
#include "device_model.h"

#include <gtest/gtest.h>

namespace zqsim {
namespace {

struct ListCase {
  const char* list;
  std::vector<std::string> names;
};

class PhysicalLists : public testing::TestWithParam<ListCase> {};

TEST_P(PhysicalLists, ExpandToTheirChannels) {
  NameError error;
  const auto parsed = parsePhysicalList(GetParam().list, &error);
  ASSERT_TRUE(parsed) << error.entry;
  std::vector<std::string> names;
  for (const PhysicalName& p : *parsed) names.push_back(p.text());
  EXPECT_EQ(names, GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    Lists, PhysicalLists,
    testing::Values(ListCase{"SimDev1/ai2:0, simdev1/AI7",
                             {"SimDev1/ai2", "SimDev1/ai1", "SimDev1/ai0", "simdev1/ai7"}},
                    ListCase{"/SimDev1/ao3", {"SimDev1/ao3"}},
                    ListCase{"SimDev1/port1/line6:7", {"SimDev1/port1/line6", "SimDev1/port1/line7"}}));

struct BadName {
  const char* list;
  bool tooHigh;
};

class BadPhysicalLists : public testing::TestWithParam<BadName> {};

TEST_P(BadPhysicalLists, AreRefusedSayingWhy) {
  NameError error;
  EXPECT_FALSE(parsePhysicalList(GetParam().list, &error));
  EXPECT_EQ(error.tooHigh, GetParam().tooHigh) << error.entry;
}

INSTANTIATE_TEST_SUITE_P(Lists, BadPhysicalLists,
                         testing::Values(BadName{"", false}, BadName{"ai0", false},
                                         BadName{"SimDev1/ai16", true}, BadName{"SimDev1/ao4", true},
                                         BadName{"SimDev1/port3", true}, BadName{"SimDev1/port0/line8", true},
                                         BadName{"SimDev1/port0:1/line0", false},
                                         BadName{"SimDev1/ai1:x", false},
                                         BadName{"SimDev1/temperature", false}));

// A PFI line and an internal signal by their full names are used by the drive tests and the
// examples; what is left are the edges.
TEST(Terminals, MayBeLocalAndEndAtPfi15) {
  const auto local = parseTerminal(" pfi3 ");
  ASSERT_TRUE(local);
  EXPECT_EQ(local->pfi, 3u);
  EXPECT_EQ(local->device, "");
  EXPECT_FALSE(parseTerminal("/SimDev1/PFI16"));
  EXPECT_FALSE(parseTerminal(""));
}

TEST(Counters, CountOnTheirOwnInputTerminal) { EXPECT_EQ(counterInputPfi(1), 9u); }

}  // namespace
}  // namespace zqsim
