// mktime and localtime_r standing for _mktime64 and _localtime64: the same valid range, so a
// date before 1970 fails on both systems.
#include <ctime>

#include "platform/calendar_fields.h"
#include "platform/platform.h"

namespace zqplatform {

namespace {

bool inRange(int64_t time) { return time >= 0 && time <= kMaxTime64; }

}  // namespace

int64_t makeTime64(CalendarTime* record) {
  std::tm t = detail::toTm(*record);
  const std::time_t time = std::mktime(&t);
  if (!inRange(time)) return -1;
  *record = detail::fromTm(t);
  return time;
}

bool localTime64(int64_t time, CalendarTime* record) {
  if (!inRange(time)) return false;
  // localtime_r need not look at TZ again; mktime does, and the two must agree.
  tzset();
  const std::time_t value = static_cast<std::time_t>(time);
  std::tm t{};
  if (!localtime_r(&value, &t)) return false;
  *record = detail::fromTm(t);
  return true;
}

}  // namespace zqplatform
