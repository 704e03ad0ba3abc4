// Digital signals on the device's timeline: the edges of pulse trains, histories and driven
// terminals counted and found exactly, with every edge in one window only.
#include "digital_signal.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zqsim {
namespace {

// Five pulses of 4 ms every 10 ms from 1 s on.
PulseTrain fivePulses(bool idleHigh) {
  PulseSegment s;
  s.start = 1.0;
  s.period = 0.01;
  s.high = 0.004;
  s.pulses = 5;
  return PulseTrain(idleHigh, {s});
}

struct Window {
  double from;
  double to;
  Edge edge;
  uint64_t count;
};

class PulseEdges : public testing::TestWithParam<Window> {};

TEST_P(PulseEdges, AreCountedInTheHalfOpenWindow) {
  EXPECT_EQ(fivePulses(false).count(GetParam().from, GetParam().to, GetParam().edge), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(Windows, PulseEdges,
                         testing::Values(Window{0, 10, Edge::kRising, 5}, Window{0, 10, Edge::kFalling, 5},
                                         Window{0, 10, Edge::kBoth, 10}, Window{1.0, 1.02, Edge::kRising, 2},
                                         Window{0.99, 1.0, Edge::kRising, 1},
                                         Window{1.0005, 1.0045, Edge::kFalling, 1},
                                         Window{1.05, 10, Edge::kBoth, 0}, Window{2, 1, Edge::kRising, 0}));

TEST(PulseTrain, WindowsThatMeetCountEachEdgeOnce) {
  const PulseTrain train = fivePulses(false);
  uint64_t total = 0;
  for (double t = 0.95; t < 1.1; t += 0.0007) total += train.count(t, t + 0.0007, Edge::kBoth);
  EXPECT_EQ(total, 10u);
}

TEST(PulseTrain, AnIdleHighTrainPulsesLow) {
  const PulseTrain train = fivePulses(true);
  EXPECT_FALSE(train.level(1.002));
  EXPECT_TRUE(train.level(1.005));
  EXPECT_DOUBLE_EQ(train.next(1.0, 2.0, Edge::kRising), 1.004) << "the rising edge ends the pulse";
  EXPECT_DOUBLE_EQ(train.next(0.0, 2.0, Edge::kFalling), 1.0);
  EXPECT_DOUBLE_EQ(train.finish(), 1.044);
}

TEST(PulseTrain, ASecondSegmentTakesOverAtItsStart) {
  PulseSegment first{0, 1, 0.5, 0, kForever};
  PulseSegment second{10, 0.1, 0.05, 0, kForever};
  const PulseTrain train(false, {first, second});
  EXPECT_EQ(train.count(0, 10, Edge::kRising), 10u) << "0..9 from the first, 10 from the second's start";
  EXPECT_EQ(train.count(10, 11, Edge::kRising), 10u);
}

TEST(LevelHistory, KeepsOnlyChangesAndCountsThem) {
  std::shared_ptr<const LevelHistory> history = std::make_shared<LevelHistory>(false);
  history = history->with(1.0, true)->with(2.0, true)->with(3.0, false)->with(4.0, true);
  EXPECT_EQ(history->count(0, 10, Edge::kRising), 2u);
  EXPECT_EQ(history->count(0, 10, Edge::kFalling), 1u);
  EXPECT_TRUE(history->level(2.5));
  EXPECT_FALSE(history->level(3.5));
  EXPECT_DOUBLE_EQ(history->next(1.0, 10, Edge::kRising), 4.0);
  // A write in the past of the last change replaces what followed it.
  EXPECT_FALSE(history->with(2.5, false)->level(5.0));
}

TEST(LevelHistory, ForgetsTheOldestChangesBeyondItsLimit) {
  std::shared_ptr<const LevelHistory> history = std::make_shared<LevelHistory>(false);
  for (int i = 1; i <= 10; ++i) history = history->with(i, i % 2 == 1, 4);
  EXPECT_EQ(history->count(0, 100, Edge::kBoth), 4u);
  EXPECT_FALSE(history->level(10.5));
}

TEST(DrivenSignal, AnEdgeAtTheStartOfADriveBelongsToIt) {
  std::vector<DriveSpan> spans{{5.0, kForever, triggerPulse(5.0), 1}};
  const DrivenSignal driven(spans, lowSignal());
  EXPECT_EQ(driven.count(0, 10, Edge::kRising), 1u);
  EXPECT_DOUBLE_EQ(driven.next(0, 10, Edge::kRising), 5.0);
}

TEST(DrivenSignal, OutsideItsDrivesTheLineShowsItsOwnLevel) {
  auto line = std::make_shared<LevelHistory>(false)->with(1.0, true)->with(8.0, false);
  PulseSegment clock{3.0, 1.0, 0.5, 0, kForever};
  std::vector<DriveSpan> spans{
      {2.5, 6.0, std::make_shared<PulseTrain>(false, std::vector<PulseSegment>{clock}), 1}};
  const DrivenSignal driven(spans, line);
  EXPECT_TRUE(driven.level(2.0));
  EXPECT_FALSE(driven.level(4.7));
  EXPECT_TRUE(driven.level(7.0));
  EXPECT_EQ(driven.count(0, 10, Edge::kRising), 1u + 3u) << "the line's own edge and pulses at 3, 4 and 5";
}

}  // namespace
}  // namespace zqsim
