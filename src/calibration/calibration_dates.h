// Calibration dates: the calendar fields an application reads and writes, and the absolute time
// the channel attribute stores (seconds since 1904 and a fraction of a second in 2^-64 units).
#pragma once

#include <cstdint>

#include "status/status.h"
#include "zqvorex_plugin.h"

namespace zqcalibration {

// Seconds between 1904-01-01 00:00:00 and 1970-01-01 00:00:00.
inline constexpr int64_t kSeconds1904To1970 = 2082844800;

struct CalendarDate {
  uint32_t year;
  uint32_t month;  // from 1
  uint32_t day;
  uint32_t hour;
  uint32_t minute;
};

// The time as whole seconds since 1970, rounded to nearest with a half going to the even
// second (-1.5 gives -2, -2.5 gives -2), and cut to its low 32 bits as a signed number.
int64_t secondsSince1970(const zqvorexPlugin_AbsoluteTime& time);

// The local calendar date of `time`, seconds dropped; -200077 when the calendar cannot show it.
CalendarDate localDate(const zqvorexPlugin_AbsoluteTime& time, zqerr_Status* status);

// The absolute time of a local calendar date, read as the wall-clock time in force on that date;
// -200077 and 0 when the calendar cannot make it (as before 1970). Out-of-range fields carry
// over: month 13 is January of the next year.
zqvorexPlugin_AbsoluteTime timeOfDate(const CalendarDate& date, zqerr_Status* status);

}  // namespace zqcalibration
