// The attribute functions written by hand, each the accessor frame with one difference: the task
// name from the task object itself, the channels to read, the two channel flags, the lateness
// test that always answers no, and the response mode, which is refused outright.
#include "zqcai_rd_mbcs.h"

#include "frame/export.h"
#include "frame/string_frame.h"
#include "status/error_sites.h"
#include "task/itask.h"

namespace {

using zqvorexRedir::ITask;

// The frame of a call that has no task to work on: a fresh status holding `site`'s code, the
// return records that `returns` writes before "retval", and a failure recorded without a task.
template <class Returns>
int32_t refuseWithoutTask(zqtrace::TraceCall& trace, const zqerr::Site& site, Returns&& returns) {
  zqerr::Status status;
  zqerr::fail(&status, site);
  returns();
  trace.retval(status.code);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, nullptr, nullptr);
  return status.code;
}

// The flag of a channel through getChannelAttributeBool; a null `data` only gets nothing.
uint32_t channelFlag(ITask* task, const char* channel, int32_t id, zqerr_Status* status) {
  return zqframe::callOp<&ITask::getChannelAttributeBool>(task, channel, status, id);
}

}  // namespace

// The name is the task object's own, so this works for a task without a plug-in.
ZQ_EXPORT int32 VorexGetTaskName(TaskHandle task, char* data, uInt32 bufferSize) {
  static constexpr zqframe::AccessorInfo kInfo{"VorexGetTaskName", Vorex_TaskName, nullptr,
                                               zqsite::kAccessorGetTaskName.location.line};
  return zqframe::detail::textGetFrame<ITask>(kInfo, task, nullptr, data, bufferSize,
                                              [&](ITask* self, zqerr_Status* status, bool& sizeQuery) {
                                                return zqgopher::copyStringOut(self->getName(), data, bufferSize,
                                                                               sizeQuery, status);
                                              });
}

ZQ_EXPORT int32 VorexGetReadChannelsToRead(TaskHandle task, char* data, uInt32 bufferSize) {
  static constexpr zqframe::AccessorInfo kInfo{"VorexGetReadChannelsToRead", Vorex_ReadChannelsToRead, nullptr,
                                               zqsite::kAccessorGetReadChannelsToRead.location.line};
  return zqframe::getStringList<&ITask::getReadAttributeStringVtr>(kInfo, task, nullptr, data, bufferSize);
}

ZQ_EXPORT int32 VorexSetReadChannelsToRead(TaskHandle task, const char* data) {
  static constexpr zqframe::AccessorInfo kInfo{"VorexSetReadChannelsToRead", Vorex_ReadChannelsToRead, nullptr,
                                               zqsite::kAccessorSetReadChannelsToRead.location.line};
  return zqframe::setStringList<&ITask::setReadAttributeStringVtr>(kInfo, task, nullptr, data);
}

ZQ_EXPORT int32 VorexResetReadChannelsToRead(TaskHandle task) {
  static constexpr zqframe::AccessorInfo kInfo{"VorexResetReadChannelsToRead", Vorex_ReadChannelsToRead, nullptr,
                                               zqsite::kAccessorResetReadChannelsToRead.location.line};
  return zqframe::resetAttribute<&ITask::resetReadAttributeStringVtr>(kInfo, task, nullptr);
}

// A null `data` is no error: the operation still runs and its status is the answer.
ZQ_EXPORT int32 VorexGetChanIsGlobal(TaskHandle handle, const char* channel, bool32* data) {
  zqtrace::TraceCall trace("VorexGetChanIsGlobal");
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, handle);
    trace.paramText("channel", channel);
    trace.param("data", zqtrace::kBool32Pointer, data);
    trace.endParams();
  }
  zqerr::Status status;
  zqframe::TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status)) {
    try {
      const uint32_t value = channelFlag(task.get(), channel, Vorex_ChanIsGlobal, &status);
      if (data) *data = value;
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  if (status.code < 0 && data) *data = 0;
  trace.retOut("*data", zqtrace::kBool32, data);
  trace.retval(status.code);
  return status.code;
}

// Not traced. The flag reaches the caller only on success, and as 0 or 1.
ZQ_EXPORT int32 VorexGetSigmodCalEnable(TaskHandle handle, const char* channel, bool32* data) {
  zqerr::Status status;
  zqframe::TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status)) {
    try {
      const uint32_t value = channelFlag(task.get(), channel, Vorex_SigmodCalEnable, &status);
      if (zqerr::isOpen(&status) && data) *data = value != 0 ? 1 : 0;
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  return status.code;
}

// Not traced; the flag goes to the plug-in as a 32-bit value, and there is no Reset.
ZQ_EXPORT int32 VorexSetSigmodCalEnable(TaskHandle handle, const char* channel, bool32 data) {
  zqerr::Status status;
  zqframe::TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  if (zqerr::isOpen(&status)) {
    try {
      zqframe::callOp<&ITask::setChannelAttributeU32>(task.get(), channel, &status, Vorex_SigmodCalEnable,
                                                       static_cast<uint32_t>(data));
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  return status.code;
}

ZQ_EXPORT int32 VorexIsReadOrWriteLate(int32 errorCode) {
  zqtrace::TraceCall trace("VorexIsReadOrWriteLate");
  if (trace) {
    trace.param("errorCode", zqtrace::kI32, errorCode);
    trace.endParams();
  }
  trace.retval(0);
  return 0;
}

// The response mode has no id and no plug-in operation: every call is refused, the handle
// unread and *data unwritten.
ZQ_EXPORT int32 VorexGetSampClkTimingResponseMode(TaskHandle task, int32* data) {
  zqtrace::TraceCall trace("VorexGetSampClkTimingResponseMode");
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, task);
    trace.param("data", zqtrace::kI32Pointer, data);
    trace.endParams();
  }
  return refuseWithoutTask(trace, zqsite::kChandwrittenattributesGetSampClkTimingResponseMode,
                           [&] { trace.retOut("*data", zqtrace::kI32, data); });
}

ZQ_EXPORT int32 VorexSetSampClkTimingResponseMode(TaskHandle task, int32 data) {
  zqtrace::TraceCall trace("VorexSetSampClkTimingResponseMode");
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, task);
    trace.param("data", zqtrace::kI32, data);
    trace.endParams();
  }
  return refuseWithoutTask(trace, zqsite::kChandwrittenattributesSetSampClkTimingResponseMode, [] {});
}

ZQ_EXPORT int32 VorexResetSampClkTimingResponseMode(TaskHandle task) {
  zqtrace::TraceCall trace("VorexResetSampClkTimingResponseMode");
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, task);
    trace.endParams();
  }
  return refuseWithoutTask(trace, zqsite::kChandwrittenattributesResetSampClkTimingResponseMode, [] {});
}
