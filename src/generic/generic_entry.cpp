#include "generic/generic_entry.h"

#include "frame/task_holder.h"
#include "lasterror/last_error.h"
#include "status/report_writer.h"
#include "task/itask.h"
#include "text/trim_split.h"

namespace zqgeneric {

namespace {

// The generated entries' module, as the reports name it.
constexpr const char* kModule = "SetGetFn";

struct Code {
  int32_t code;
  const char* constant;
};

Code codeOf(Answer answer) {
  switch (answer) {
    case Answer::kCannotBeSet:
      return {nZQMSTS100::kErrorAttrCannotBeSet, "nZQMSTS100::kErrorAttrCannotBeSet"};
    case Answer::kCannotBeReset:
      return {nZQMSTS100::kErrorAttrCannotBeReset, "nZQMSTS100::kErrorAttrCannotBeReset"};
    case Answer::kNullTime:
      return {nZQMSTS100::kErrorNULLPtr, "nZQMSTS100::kErrorNULLPtr"};
    case Answer::kNotValid:
      break;
  }
  return {nZQMSTS100::kErrorSpecifiedAttrNotValid, "nZQMSTS100::kErrorSpecifiedAttrNotValid"};
}

}  // namespace

const VorexParmSlot* slotsOrZeros(const VorexParmSlot* parmInfo) {
  static constexpr VorexParmSlot kZeros[2] = {};
  return parmInfo ? parmInfo : kZeros;
}

int32_t answer(TaskHandle handle, int32_t id, Answer answer, uint32_t line) {
  using zqvorexRedir::ITask;
  zqerr::Status status;
  zqframe::TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  const Code code = codeOf(answer);
  // The plain int32 writer: the id goes without the attribute's name as "comment".
  if (zqerr::setWithLocation(&status, code.code, {kModule, line, zqerr::kComponent, code.constant}))
    zqerr::addPlainItem(zqerr::openOrderedData(&status, zqerr::kTranslatorZqvorex),
                        zqerr::usage::kUsageTypeAttributeIdentifier, id);
  return status.code;
}

int32_t setTime(int32 (*set)(TaskHandle, VorexAbsoluteTime), TaskHandle task, int32_t id,
                const VorexParmSlot* slots, uint32_t line) {
  const VorexAbsoluteTime* record = slotPointer<VorexAbsoluteTime>(slots, 0);
  if (!record) return answer(task, id, Answer::kNullTime, line);
  const VorexAbsoluteTime copy = *record;
  return set(task, copy);
}

bool plainTimingTakes(int32_t id, const char* deviceNames) {
  if (id == -1) return false;
  for (const char* at = deviceNames ? deviceNames : ""; *at; ++at)
    if (!zqwombat::isWhite(static_cast<unsigned char>(*at))) return false;
  return true;
}

}  // namespace zqgeneric
