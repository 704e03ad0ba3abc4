#include "attributes/absolute_time.h"

#include <cstddef>

#include "boundary/array_view.h"

namespace nZQCAI100 {

namespace {

// The caller's record and the plug-in's are the same two words.
static_assert(sizeof(VorexAbsoluteTime) == 16 && sizeof(zqvorexPlugin_AbsoluteTime) == 16);
static_assert(offsetof(VorexAbsoluteTime, fraction) == offsetof(zqvorexPlugin_AbsoluteTime, fraction));
static_assert(offsetof(VorexAbsoluteTime, seconds) == offsetof(zqvorexPlugin_AbsoluteTime, seconds));

zqvorexPlugin_AbsoluteTime toPlugin(const VorexAbsoluteTime& value) { return {value.fraction, value.seconds}; }

}  // namespace

void getAbsoluteTime(zqvorexRedir::ITask& task, int32_t id, VorexAbsoluteTime* value, zqerr_Status* status) {
  const zqgopher::StringArrayView none;
  zqvorexPlugin_AbsoluteTime time{};
  task.getTimingAttributeAbsoluteTime(none, id, &time, status);
  if (zqerr::isOpen(status)) *value = {time.fraction, time.seconds};
}

void setAbsoluteTime(zqvorexRedir::ITask& task, int32_t id, const VorexAbsoluteTime* value, zqerr_Status* status) {
  const zqgopher::StringArrayView none;
  const zqvorexPlugin_AbsoluteTime time = toPlugin(*value);
  task.setTimingAttributeAbsoluteTime(none, id, &time, status);
}

void resetAbsoluteTime(zqvorexRedir::ITask& task, int32_t id, zqerr_Status* status) {
  const zqgopher::StringArrayView none;
  task.resetTimingAttributeAbsoluteTime(none, id, status);
}

}  // namespace nZQCAI100
