// The counter pair writes: two arrays merged, element by element, into one temporary array of
// pair records in the order of the plug-in's record.
#include <cstring>

#include "write_fixture.h"

namespace zqtest {
namespace {

using PairPath = WriteTest;

template <class Record>
std::vector<Record> recordsSeen(const BufferSeen& seen) {
  std::vector<Record> records(seen.bytes.size() / sizeof(Record));
  if (!records.empty()) std::memcpy(records.data(), seen.bytes.data(), seen.bytes.size());
  return records;
}

TEST_F(PairPath, FrequencyGoesToTheSecondFieldAndDutyCycleToTheFirst) {
  channels(2);
  const double frequency[4] = {100, 200, 300, 400};
  const double dutyCycle[4] = {0.1, 0.2, 0.3, 0.4};
  task->on("writeVectorCounterDutyCycleAndFrequencyF64").value(uint32_t{2});
  int32_t written = -7;
  ASSERT_EQ(VorexWriteCtrFreq(handle, 2, 1, 1.0, 0, frequency, dutyCycle, &written, nullptr), 0);
  EXPECT_EQ(written, 2);
  EXPECT_EQ(task->seen.channels, 2u);
  EXPECT_EQ(task->seen.sampsPerChan, 2u);
  EXPECT_NE(task->seen.data, static_cast<const void*>(frequency));
  const auto records = recordsSeen<zqvorexPlugin_DutyCycleAndFrequencyF64>(task->seen);
  ASSERT_EQ(records.size(), 4u);
  for (size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(records[i].dutyCycle, dutyCycle[i]) << i;
    EXPECT_EQ(records[i].frequency, frequency[i]) << i;
  }
  EXPECT_EQ(task->seen.resizeCode, 0);  // the temporary array has the read-form table
}

TEST_F(PairPath, HighGoesToTheFirstFieldAndLowToTheSecond) {
  channels(1);
  const double highTime[3] = {1.5, 2.5, 3.5}, lowTime[3] = {4.5, 5.5, 6.5};
  ASSERT_EQ(VorexWriteCtrTime(handle, 3, 0, 1.0, 1, highTime, lowTime, nullptr, nullptr), 0);
  const auto times = recordsSeen<zqvorexPlugin_HighAndLowTimesF64>(task->seen);
  ASSERT_EQ(times.size(), 3u);
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(times[i].highTime, highTime[i]);
    EXPECT_EQ(times[i].lowTime, lowTime[i]);
  }
  EXPECT_EQ(task->seen.layout, 1);

  channels(3);
  const uint32_t highTicks[3] = {10, 20, 30}, lowTicks[3] = {40, 50, 60};
  ASSERT_EQ(VorexWriteCtrTicks(handle, 1, 0, 1.0, 0, highTicks, lowTicks, nullptr, nullptr), 0);
  const auto ticks = recordsSeen<zqvorexPlugin_HighAndLowTicksU32>(task->seen);
  ASSERT_EQ(ticks.size(), 3u);
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(ticks[i].highTicks, highTicks[i]);
    EXPECT_EQ(ticks[i].lowTicks, lowTicks[i]);
  }
  EXPECT_EQ(task->seen.layout, 0);
}

const std::vector<WriteRoute> kPairs = writesOf({WriteShape::kPair});

TEST_F(PairPath, ACountOfZeroReachesThePlugInEvenWithNullArrays) {
  channels(2);
  for (const WriteRoute& c : kPairs) {
    SCOPED_TRACE(c.name);
    task->on(c.op).value(uint32_t{0});
    int32_t written = -7;
    EXPECT_EQ(c.call({handle, 0, 0, 0, true, true, &written}), 0);
    EXPECT_EQ(callsOf(c.op), 1u);
    EXPECT_EQ(task->seen.sampsPerChan, 0u);
    EXPECT_EQ(written, 0);
  }
}

// A task without channels fails. The byte count of numSampsPerChan x numChans records overflows
// the address space on 64 bits and cannot be allocated on 32: that fails too, and the arrays are
// never read. Neither calls the plug-in.
TEST_F(PairPath, NoChannelsOrATemporaryArrayTooLargeForMemoryFailWithoutAPlugInCall) {
  const struct {
    uint32_t numChans;
    int32_t n;
    int32_t code;
  } cases[] = {{0, 2, -201395}, {0xFFFFFFFFu, 0x7FFFFFFF, -52000}};
  for (const auto& k : cases) {
    channels(k.numChans);
    for (const WriteRoute& c : kPairs) {
      SCOPED_TRACE(std::string(c.name) + " code " + std::to_string(k.code));
      int32_t written = -7;
      EXPECT_EQ(c.call({.handle = handle, .n = k.n, .written = &written}), k.code);
      EXPECT_EQ(callsOf(c.op), 0u);
      EXPECT_EQ(written, 0);
    }
  }
}

}  // namespace
}  // namespace zqtest
