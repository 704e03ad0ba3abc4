// The frame of the channel creation functions (generated from channel_functions.tsv): the
// shared call frame, and the result list that no caller reads.
#pragma once

#include <utility>

#include "frame/data_call.h"
#include "zqgopher_boundary.h"

namespace zqchannels {

using zqframe::TaskHandle;

// `params` writes the parameter records after "taskHandle"; `body` converts the texts and
// makes the call on the task, null after a bad handle.
template <class Params, class Body>
int32_t tracedFrame(const char* function, TaskHandle handle, Params&& params, Body&& body) {
  return zqframe::dataCallFrame(function, handle, std::forward<Params>(params), std::forward<Body>(body),
                                [](zqtrace::TraceCall&) {});
}

// The same without a trace record.
template <class Body>
int32_t untracedFrame(TaskHandle handle, Body&& body) {
  zqerr::Status status;
  zqframe::TaskHolder<zqvorexRedir::ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<zqvorexRedir::ITask> recorder(&status, task.get(), nullptr);
  try {
    body(task.get(), &status);
  } catch (...) {
    zqerr::convertCurrentException(&status);
  }
  return status.code;
}

// One list object for every creation: a plug-in may report the channels it made through it,
// and its four operations drop them, so it has no state and needs no lock.
zqgopher_IItemAdder* discardedChannels();

}  // namespace zqchannels
