#include "calibration/calibration_dates.h"

#include "platform/platform.h"
#include "status/error_sites.h"

namespace zqcalibration {

namespace {

constexpr uint64_t kHalfSecond = uint64_t{1} << 63;

}  // namespace

int64_t secondsSince1970(const zqvorexPlugin_AbsoluteTime& time) {
  // Unsigned, so that any value a plug-in sends wraps instead of overflowing. The fraction is
  // never negative, so the seconds are the floor of the time.
  uint64_t seconds = static_cast<uint64_t>(time.seconds) - kSeconds1904To1970;
  const bool odd = (seconds & 1) != 0;
  if (time.fraction > kHalfSecond || (time.fraction == kHalfSecond && odd)) ++seconds;
  return static_cast<int32_t>(static_cast<uint32_t>(seconds));
}

CalendarDate localDate(const zqvorexPlugin_AbsoluteTime& time, zqerr_Status* status) {
  zqplatform::CalendarTime calendar{};
  if (!zqplatform::localTime64(secondsSince1970(time), &calendar)) {
    ZQ_FAIL(status, kCcalibrationLocalTime);
    return {};
  }
  return {static_cast<uint32_t>(calendar.yearsSince1900 + 1900), static_cast<uint32_t>(calendar.month + 1),
          static_cast<uint32_t>(calendar.day), static_cast<uint32_t>(calendar.hour),
          static_cast<uint32_t>(calendar.minute)};
}

zqvorexPlugin_AbsoluteTime timeOfDate(const CalendarDate& date, zqerr_Status* status) {
  zqplatform::CalendarTime calendar{};
  calendar.yearsSince1900 = static_cast<int32_t>(date.year - 1900);
  calendar.month = static_cast<int32_t>(date.month - 1);
  calendar.day = static_cast<int32_t>(date.day);
  calendar.hour = static_cast<int32_t>(date.hour);
  calendar.minute = static_cast<int32_t>(date.minute);
  int64_t seconds = zqplatform::makeTime64(&calendar);
  if (seconds < 0) {
    ZQ_FAIL(status, kCcalibrationMakeTime);
    return {0, 0};
  }
  // The fields were read as standard time; while daylight saving is in force the wall clock is
  // an hour ahead of that, so a summer date reads back with the hour it was given.
  if (calendar.daylightSaving > 0) seconds -= 3600;
  return {0, static_cast<int32_t>(static_cast<uint32_t>(seconds)) + kSeconds1904To1970};
}

}  // namespace zqcalibration
