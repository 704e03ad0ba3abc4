// The C runtime's own 64-bit calendar conversions.
#include <ctime>

#include "platform/calendar_fields.h"
#include "platform/platform.h"

namespace zqplatform {

int64_t makeTime64(CalendarTime* record) {
  std::tm t = detail::toTm(*record);
  const __time64_t time = _mktime64(&t);
  if (time < 0 || time > kMaxTime64) return -1;
  *record = detail::fromTm(t);
  return time;
}

bool localTime64(int64_t time, CalendarTime* record) {
  const __time64_t value = time;
  // The record is the runtime's per-thread one; it is read at once.
  const std::tm* t = _localtime64(&value);
  if (!t) return false;
  *record = detail::fromTm(*t);
  return true;
}

}  // namespace zqplatform
