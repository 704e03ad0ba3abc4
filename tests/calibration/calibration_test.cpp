// Calibration against the recording task: the operations and their fixed arguments, and the
// dates, whose arithmetic is this library's: rounding of the stored fraction, local time with
// daylight saving in the zone the test runs in (TZ=EST5EDT, set by CTest), dates before 1970.
#include <gtest/gtest.h>

#include <cstring>

#include "calibration/calibration_dates.h"
#include "platform/platform.h"
#include "timing_operation_cases.h"

namespace zqtest {
namespace {

const OperationCase kCases[] = {
    {"BridgeOffsetNulling", [](TaskHandle t) { return VorexPerformBridgeOffsetNullingCal(t, " ai0:1 "); },
     "performBridgeOffsetNullingCalibration", {{"channels", "ai0, ai1"}, {"skipUnsupportedChannels", "false"}}},
    {"BridgeOffsetNullingEx", [](TaskHandle t) { return VorexPerformBridgeOffsetNullingCalEx(t, "ai0", 2); },
     "performBridgeOffsetNullingCalibration", {{"channels", "ai0"}, {"skipUnsupportedChannels", "true"}}},
    {"ThrmcplLeadOffsetNulling", [](TaskHandle t) { return VorexPerformThrmcplLeadOffsetNullingCal(t, nullptr, 0); },
     "performThermocoupleLeadOffsetNullingCalibration", {{"channels", ""}, {"skipUnsupportedChannels", "false"}}},
    {"StrainShunt", [](TaskHandle t) { return VorexPerformStrainShuntCal(t, "ai0", 100000.5, 12532, 1); },
     "performStrainShuntCalibration",
     {{"channels", "ai0"}, {"shuntResistorValue", "100000.5"}, {"shuntResistorLocation", "12532"},
      {"shuntResistorSelect", "12513"}, {"shuntResistorSource", "-1"}, {"skipUnsupportedChannels", "true"}}},
    {"StrainShuntEx", [](TaskHandle t) { return VorexPerformStrainShuntCalEx(t, "ai0", 1.5, 2, 3, 4, 0); },
     "performStrainShuntCalibration",
     {{"channels", "ai0"}, {"shuntResistorValue", "1.5"}, {"shuntResistorLocation", "2"}, {"shuntResistorSelect", "3"},
      {"shuntResistorSource", "4"}, {"skipUnsupportedChannels", "false"}}},
    {"BridgeShunt", [](TaskHandle t) { return VorexPerformBridgeShuntCal(t, "ai0", 1.5, 2, 350.25, 0); },
     "performBridgeShuntCalibration",
     {{"channels", "ai0"}, {"shuntResistorValue", "1.5"}, {"shuntResistorLocation", "2"},
      {"shuntResistorSelect", "12513"}, {"shuntResistorSource", "-1"}, {"bridgeResistance", "350.25"},
      {"skipUnsupportedChannels", "false"}}},
    {"BridgeShuntEx", [](TaskHandle t) { return VorexPerformBridgeShuntCalEx(t, "ai0,ai2", 1.5, 2, -7, 8, 120, 7); },
     "performBridgeShuntCalibration",
     {{"channels", "ai0, ai2"}, {"shuntResistorValue", "1.5"}, {"shuntResistorLocation", "2"},
      {"shuntResistorSelect", "-7"}, {"shuntResistorSource", "8"}, {"bridgeResistance", "120"},
      {"skipUnsupportedChannels", "true"}}},
};

class Calibration : public ReachesOperation {};
TEST_P(Calibration, ReachesItsOperationWithTheArgumentsInOrder) { check(); }
INSTANTIATE_TEST_SUITE_P(Functions, Calibration, testing::ValuesIn(kCases), operationCaseName);

// --- the arithmetic of dates ------------------------------------------------------------------

constexpr uint64_t kHalf = 1ull << 63;
constexpr int64_t k1970 = 2082844800;

struct Rounding {
  int64_t seconds;  // since 1970
  uint64_t fraction;
  int64_t expected;
};

TEST(CalibrationDates, TheFractionRoundsToNearestAndAHalfToTheEvenSecond) {
  const Rounding cases[] = {
      {1000, kHalf, 1000},          {1001, kHalf, 1002},          {1000, kHalf + 1, 1001},
      {1000, kHalf - 1, 1000},      {1000, 0, 1000},              {-2, kHalf >> 1, -2},  // -1.75
      {-2, kHalf, -2},              {-3, kHalf, -2},              {-1, kHalf, 0},
      {(1ll << 32) + 5, 0, 5},      {1ll << 31, 0, -(1ll << 31)},
  };
  for (const Rounding& c : cases) {
    const zqvorexPlugin_AbsoluteTime time{c.fraction, c.seconds + k1970};
    EXPECT_EQ(zqcalibration::secondsSince1970(time), c.expected) << c.seconds << " + " << c.fraction;
  }
}

TEST(CalibrationDates, TheCalendarRefusesTimesBefore1970AndAfterItsEnd) {
  zqplatform::CalendarTime calendar{};
  EXPECT_FALSE(zqplatform::localTime64(zqplatform::kMaxTime64 + 1, &calendar));
  EXPECT_TRUE(zqplatform::localTime64(zqplatform::kMaxTime64, &calendar));
  EXPECT_EQ(calendar.yearsSince1900 + 1900, 3001);  // 02:59 local, EST
  zqplatform::CalendarTime early{0, 0, 12, 31, 11, 69, 0, 0, 0};
  EXPECT_EQ(zqplatform::makeTime64(&early), -1);
}

// --- dates through the API, in the test's time zone ------------------------------------------

struct Date {
  uInt32 year, month, day, hour, minute;
  bool operator==(const Date&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Date& d) {
  return out << d.year << "-" << d.month << "-" << d.day << " " << d.hour << ":" << d.minute;
}

class CalibrationDateCalls : public testing::Test {
 protected:
  void SetUp() override {
    clearLastError();
    // The stored time goes back to the next Get, as a plug-in would keep it.
    task->on("setChannelAttributeAbsoluteTime").run([this](const RecordedCall& call, zqerr_Status*) {
      const auto& bytes = std::get<std::vector<uint8_t>>(call.arg("value")->value);
      ASSERT_EQ(bytes.size(), sizeof stored);
      std::memcpy(&stored, bytes.data(), sizeof stored);
      task->on("getChannelAttributeAbsoluteTime").out(stored);
    });
  }
  int32 set(const Date& d) { return VorexSetAIChanCalCalDate(task->handle(), "ai0", d.year, d.month, d.day, d.hour, d.minute); }
  Date get() {
    Date d{};
    EXPECT_EQ(VorexGetAIChanCalCalDate(task->handle(), "ai0", &d.year, &d.month, &d.day, &d.hour, &d.minute), 0);
    return d;
  }
  // The stored time as seconds since 1970 UTC.
  int64_t storedUtc() const { return stored.seconds - k1970; }

  std::shared_ptr<RecordingTask> task = RecordingTask::create();
  zqvorexPlugin_AbsoluteTime stored{};
};

TEST_F(CalibrationDateCalls, DatesRoundTripOnBothSidesOfADaylightSavingChange) {
  struct Case {
    Date date;
    int64_t utc;  // what the channel stores
  };
  const Case cases[] = {
      {{2021, 1, 15, 14, 30}, 1610739000},  // standard time, UTC-5
      {{2021, 7, 15, 14, 30}, 1626373800},  // daylight saving, UTC-4: the wall clock as given
      {{2021, 3, 14, 1, 30}, 1615703400},   // the last half hour before the change
      {{2021, 3, 14, 3, 30}, 1615707000},   // the first after it
      {{2021, 11, 7, 0, 30}, 1636259400},   // before the change back
      {{2021, 11, 7, 3, 30}, 1636273800},   // after it
  };
  for (const Case& c : cases) {
    ASSERT_EQ(set(c.date), 0) << c.date;
    EXPECT_EQ(stored.fraction, 0u);
    EXPECT_EQ(storedUtc(), c.utc) << c.date;
    EXPECT_EQ(get(), c.date);
  }
  EXPECT_EQ(task->lastCall().attributeId, 8858);
}

TEST_F(CalibrationDateCalls, AHalfSecondRoundsToTheEvenSecondWhichCanBeTheNextMinute) {
  // 2021-01-15 14:30:58.5 and 14:30:59.5 local time.
  task->on("getChannelAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{kHalf, 1610739058 + k1970});
  EXPECT_EQ(get(), (Date{2021, 1, 15, 14, 30}));
  task->on("getChannelAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{kHalf, 1610739059 + k1970});
  EXPECT_EQ(get(), (Date{2021, 1, 15, 14, 31}));
}

TEST_F(CalibrationDateCalls, FieldsOutOfRangeCarryOver) {
  ASSERT_EQ(set({2020, 13, 1, 0, 0}), 0);
  EXPECT_EQ(get(), (Date{2021, 1, 1, 0, 0}));
  ASSERT_EQ(set({2021, 3, 0, 24, 60}), 0);
  EXPECT_EQ(get(), (Date{2021, 3, 1, 1, 0}));
}

TEST_F(CalibrationDateCalls, ADateBefore1970IsRefusedAndNothingIsWritten) {
  EXPECT_EQ(set({1969, 12, 31, 12, 0}), -200077);
  EXPECT_EQ(lastErrorCode(), -200077);
  // The operation sees the failed status, with the time left at 0.
  EXPECT_EQ(stored.seconds, 0);
  EXPECT_EQ(stored.fraction, 0u);
}

TEST_F(CalibrationDateCalls, AStoredTimeBefore1970ReadsAsZeroAndFails) {
  task->on("getChannelAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{0, k1970 - 3600});
  Date d{1, 2, 3, 4, 5};
  EXPECT_EQ(VorexGetAIChanCalExpDate(task->handle(), "ai0", &d.year, &d.month, &d.day, &d.hour, &d.minute),
            -200077);
  EXPECT_EQ(d, (Date{0, 0, 0, 0, 0}));
  EXPECT_EQ(task->lastCall().attributeId, 8859);
}

TEST_F(CalibrationDateCalls, NullFieldsAreSkippedAndAFailedReadLeavesTheOthers) {
  task->on("getChannelAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{0, 1610739000 + k1970});
  Date d{};
  EXPECT_EQ(VorexGetAIChanCalCalDate(task->handle(), "ai0", &d.year, &d.month, &d.day, nullptr, nullptr), 0);
  EXPECT_EQ(d, (Date{2021, 1, 15, 0, 0}));
  task->on("getChannelAttributeAbsoluteTime").status(-200431);
  d = {1, 2, 3, 4, 5};
  EXPECT_EQ(VorexGetAIChanCalCalDate(task->handle(), "ai0", &d.year, &d.month, &d.day, &d.hour, &d.minute),
            -200431);
  EXPECT_EQ(d, (Date{1, 2, 3, 4, 5}));
}

TEST_F(CalibrationDateCalls, TheChannelListIsTrimmedAndSplit) {
  ASSERT_EQ(VorexSetAIChanCalExpDate(task->handle(), " ai0, ai1 ", 2021, 1, 1, 0, 0), 0);
  EXPECT_EQ(task->lastCall().channels, (std::vector<std::string>{"ai0", "ai1"}));
  EXPECT_EQ(task->lastCall().attributeId, 8859);
  ASSERT_EQ(VorexSetAIChanCalExpDate(task->handle(), nullptr, 2021, 1, 1, 0, 0), 0);
  EXPECT_EQ(task->lastCall().channels, std::vector<std::string>{});
}

}  // namespace
}  // namespace zqtest
