// A run's timeline: the times of its samples, a reference edge too early for the pretrigger,
// and the triggers the simulated signals cannot make on their own. The device's time runs a
// million times as fast as the wall clock here, so what lies in its future comes at once.
// Analog and digital edges and reference triggers are checked where they fall in sim_e2e.
#include "timeline.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "device.h"
#include "sim_values.h"

namespace zqsim {
namespace {

std::shared_ptr<Device> fastDevice() { return std::make_shared<Device>("TimelineDev", 1e6); }

// Advances until the timeline is ready, with a guard against a hang.
bool ready(Timeline& timeline) {
  for (int i = 0; i < 20000; ++i) {
    timeline.advance();
    if (timeline.ready()) return true;
    std::this_thread::sleep_for(std::chrono::microseconds(100));
  }
  return false;
}

TimelineConfig finite(uint64_t samples) {
  TimelineConfig c;
  c.arm = 0;
  c.rate = 1000;
  c.finite = true;
  c.samples = samples;
  c.start.type = val::kNone;
  c.reference.type = val::kNone;
  return c;
}

TEST(Timeline, WithoutTriggersSamplesStartAtTheArmingOnTheClock) {
  Timeline t(fastDevice(), finite(100));
  ASSERT_TRUE(ready(t));
  EXPECT_DOUBLE_EQ(t.timeOf(0), 0.0);
  EXPECT_DOUBLE_EQ(t.timeOf(99), 0.099);
  EXPECT_EQ(t.availableAt(0.0495), 50u);
  EXPECT_EQ(t.availableAt(5.0), 100u) << "a finite run has no more";
  EXPECT_TRUE(std::isinf(t.timeWhenAvailable(101)));
}

TEST(Timeline, AnEdgeBeforeThePretriggerIsFullIsPassedOver) {
  TimelineConfig c = finite(100);
  c.reference.type = val::kDigEdge;
  c.reference.edge = Edge::kRising;
  c.reference.digital = [] {
    return std::make_shared<LevelHistory>(
        false, std::vector<std::pair<double, bool>>{{0.002, true}, {0.003, false}, {0.5, true}});
  };
  c.pretrigger = 10;
  Timeline t(fastDevice(), c);
  ASSERT_TRUE(ready(t));
  EXPECT_EQ(t.firstTick(), 490u);
}

TEST(Timeline, APatternStartsWhenTheLinesFirstMatch) {
  TimelineConfig c = finite(10);
  c.start.type = val::kDigPattern;
  c.start.when = val::kPatternMatches;
  c.start.pattern = "1X0";
  const auto high = std::make_shared<LevelHistory>(false, std::vector<std::pair<double, bool>>{{0.4, true}});
  const auto low = std::make_shared<LevelHistory>(true, std::vector<std::pair<double, bool>>{{0.6, false}});
  c.start.lines = {[high] { return high; }, [] { return lowSignal(); }, [low] { return low; }};
  Timeline t(fastDevice(), c);
  ASSERT_TRUE(ready(t));
  EXPECT_DOUBLE_EQ(t.timeOf(0), 0.6);
}

TEST(Timeline, ATimeTriggerStartsAtItsTime) {
  TimelineConfig c = finite(10);
  c.start.type = val::kTime;
  c.start.time = 0.75;
  Timeline t(fastDevice(), c);
  ASSERT_TRUE(ready(t));
  EXPECT_DOUBLE_EQ(t.timeOf(0), 0.75);
}

}  // namespace
}  // namespace zqsim
