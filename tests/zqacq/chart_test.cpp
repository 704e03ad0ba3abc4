// The terminal chart and the statistics of zqacq: what a column shows and what a channel's line
// says, for signals whose drawing and numbers are known.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "chart.h"
#include "stats.h"

namespace zqacq {
namespace {

const std::string kFull = "\xe2\x96\x88", kEighth = "\xe2\x96\x81";

std::string repeat(const std::string& cell, size_t n) {
  std::string out;
  for (size_t i = 0; i < n; ++i) out += cell;
  return out;
}

TEST(Chart, AFlatSignalIsALineAlongTheBottom) {
  const std::vector<double> flat(50, 2.5);
  const auto rows = chartRows(flat.data(), flat.size(), 1, {10, 3});
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0], repeat(" ", 10));
  EXPECT_EQ(rows[1], repeat(" ", 10));
  EXPECT_EQ(rows[2], repeat(kEighth, 10));
}

TEST(Chart, TheMaximumFillsEveryRowAndTheMinimumOnlyAnEighth) {
  // Two channels interleaved: the second is read with stride 2.
  const std::vector<double> scans{0, -1, 0, -1, 0, 5, 0, 5};
  const auto rows = chartRows(scans.data() + 1, 4, 2, {4, 2});
  EXPECT_EQ(rows[0], "  " + repeat(kFull, 2));
  EXPECT_EQ(rows[1], repeat(kEighth, 2) + repeat(kFull, 2));
}

TEST(Chart, AColumnShowsTheMeanOfItsSamples) {
  // Columns of (0, 8), (8, 8), (0, 0): the first averages to the middle of 16 heights, 9 when
  // rounded onto 1..16, so its top cell is one eighth; a first-sample drawing would show 1.
  const std::vector<double> samples{0, 8, 8, 8, 0, 0};
  const auto rows = chartRows(samples.data(), samples.size(), 1, {3, 2});
  EXPECT_EQ(rows[0], kEighth + kFull + " ");
  EXPECT_EQ(rows[1], kFull + kFull + kEighth);
}

TEST(Chart, FewerSamplesThanColumnsGiveOneColumnEach) {
  const std::vector<double> samples{1, 2, 3};
  const auto rows = chartRows(samples.data(), samples.size(), 1, {100, 1});
  EXPECT_EQ(rows[0], kEighth + "\xe2\x96\x85" + kFull);
}

struct StatsCase {
  std::vector<double> samples;
  ChannelStats expected;
};

class Stats : public testing::TestWithParam<StatsCase> {};

TEST_P(Stats, AreThoseOfTheSamples) {
  const auto& c = GetParam();
  const ChannelStats s = statsOf(c.samples.data(), c.samples.size(), 1);
  EXPECT_DOUBLE_EQ(s.min, c.expected.min);
  EXPECT_DOUBLE_EQ(s.max, c.expected.max);
  EXPECT_NEAR(s.mean, c.expected.mean, 1e-12);
  EXPECT_NEAR(s.rms, c.expected.rms, 1e-12);
  EXPECT_NEAR(s.stddev, c.expected.stddev, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Signals, Stats,
                         testing::Values(StatsCase{{3, 3, 3}, {3, 3, 3, 3, 0}},
                                         StatsCase{{-1, 1, -1, 1}, {-1, 1, 0, 1, 1}},
                                         StatsCase{{1, 2, 3, 4}, {1, 4, 2.5, std::sqrt(7.5), std::sqrt(1.25)}},
                                         // A large offset must not swallow a small spread.
                                         StatsCase{{1e9 + 1, 1e9 - 1}, {1e9 - 1, 1e9 + 1, 1e9, 1e9, 1}}));

}  // namespace
}  // namespace zqacq
