// The calendar record to and from the C runtime's struct tm, for both backends.
#pragma once

#include <ctime>

#include "platform/platform.h"

namespace zqplatform::detail {

inline std::tm toTm(const CalendarTime& record) {
  std::tm t{};
  t.tm_sec = record.second;
  t.tm_min = record.minute;
  t.tm_hour = record.hour;
  t.tm_mday = record.day;
  t.tm_mon = record.month;
  t.tm_year = record.yearsSince1900;
  t.tm_isdst = record.daylightSaving;
  return t;
}

inline CalendarTime fromTm(const std::tm& t) {
  return {t.tm_sec, t.tm_min, t.tm_hour, t.tm_mday, t.tm_mon, t.tm_year, t.tm_wday, t.tm_yday, t.tm_isdst};
}

}  // namespace zqplatform::detail
