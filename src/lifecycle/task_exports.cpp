// The task calls of the C interface: create, load, clear, control, wait and global channels.
#include <string>

#include "zqcai_rd_mbcs.h"

#include "frame/data_call.h"
#include "frame/export.h"
#include "globals/shared_globals.h"
#include "lifecycle/task_control.h"
#include "lifecycle/task_creation.h"
#include "lifecycle/text_arguments.h"
#include "status/error_sites.h"

namespace {

using nZQCAI100::utf8Argument;
using zqvorexRedir::ITask;

// VorexCreateTask and VorexLoadTask: `make` runs after the out-pointer's check, and the
// creation's rollback lasts until the handle is written.
template <class Make>
int32_t creationFrame(const char* function, const char* taskName, TaskHandle* taskHandle,
                      const zqerr::Site& nullHandle, Make&& make) {
  zqtrace::TraceCall trace(function);
  if (trace) {
    trace.paramText("taskName", taskName);
    trace.param("taskHandle", zqtrace::kPointer, taskHandle);
    trace.endParams();
  }
  zqerr::Status status;
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, nullptr, taskName);
  if (!taskHandle) {
    zqerr::fail(&status, nullHandle);
  } else {
    try {
      nZQCAI100::TaskRef task = make(&status);
      *taskHandle = task ? static_cast<TaskHandle>(task.get()) : nullptr;
    } catch (...) {
      zqerr::convertCurrentException(&status);
      *taskHandle = nullptr;
    }
  }
  trace.retOut("*taskHandle", zqtrace::kOutHandle, taskHandle);
  trace.retval(status.code);
  return status.code;
}

// The frame of the calls on one task, with no out-parameters to trace.
template <class Params, class Body>
int32_t taskCall(const char* function, TaskHandle handle, Params&& params, Body&& body) {
  return zqframe::dataCallFrame(
      function, handle, std::forward<Params>(params),
      [&](ITask* task, zqerr_Status* status) {
        if (task) body(*task, status);
      },
      [](zqtrace::TraceCall&) {});
}

int32_t tracedControl(const char* function, TaskHandle taskHandle, int32 action) {
  zqtrace::TraceCall trace(function);
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, taskHandle);
    trace.endParams();
  }
  int32_t code = VorexTaskControl(taskHandle, action);
  trace.retval(code);
  return code;
}

}  // namespace

ZQ_EXPORT int32 VorexCreateTask(const char* taskName, TaskHandle* taskHandle) {
  return creationFrame("VorexCreateTask", taskName, taskHandle, zqsite::kCtaskCreateNullHandle,
                       [&](zqerr_Status* status) -> nZQCAI100::TaskRef {
                         std::string name = utf8Argument(taskName, true, status);
                         nZQCAI100::TaskCreation creation(status);
                         return nZQCAI100::createNamedTask(creation, name, status);
                       });
}

ZQ_EXPORT int32 VorexLoadTask(const char* taskName, TaskHandle* taskHandle) {
  return creationFrame("VorexLoadTask", taskName, taskHandle, zqsite::kCtaskLoadNullHandle,
                       [&](zqerr_Status* status) -> nZQCAI100::TaskRef {
                         nZQCAI100::TaskCreation creation(status);
                         std::string name = utf8Argument(taskName, false, status);
                         return nZQCAI100::loadSavedTask(creation, name, status);
                       });
}

ZQ_EXPORT int32 VorexClearTask(TaskHandle taskHandle) {
  zqtrace::TraceCall trace("VorexClearTask");
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, taskHandle);
    trace.endParams();
  }
  zqerr::Status status;
  std::shared_ptr<nZQCAI100::ICTaskEventsList> events = nZQCAI100::getTaskEventsList(&status);
  // No task for the recorder: the task is going away.
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, nullptr, nullptr);
  if (events && taskHandle) {
    try {
      nZQCAI100::clearTask(*events, taskHandle, &status);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  trace.retval(status.code);
  return status.code;
}

ZQ_EXPORT int32 VorexTaskControl(TaskHandle taskHandle, int32 action) {
  return taskCall(
      "VorexTaskControl", taskHandle,
      [&](zqtrace::TraceCall& trace) { trace.paramNamed("action", zqtrace::Literals::kTaskAction, action); },
      [&](ITask& task, zqerr_Status* status) { nZQCAI100::controlTask(task, taskHandle, action, status); });
}

ZQ_EXPORT int32 VorexStartTask(TaskHandle taskHandle) {
  return tracedControl("VorexStartTask", taskHandle, Vorex_Val_Task_Start);
}

ZQ_EXPORT int32 VorexStopTask(TaskHandle taskHandle) {
  return tracedControl("VorexStopTask", taskHandle, Vorex_Val_Task_Stop);
}

ZQ_EXPORT int32 VorexWaitUntilTaskDone(TaskHandle taskHandle, float64 timeout) {
  return taskCall(
      "VorexWaitUntilTaskDone", taskHandle, [&](zqtrace::TraceCall& trace) { trace.paramTimeout("timeout", timeout); },
      [&](ITask& task, zqerr_Status* status) { task.waitUntilTaskDone(timeout, status); });
}

ZQ_EXPORT int32 VorexIsTaskDone(TaskHandle taskHandle, bool32* isTaskDone) {
  return zqframe::dataCallFrame(
      "VorexIsTaskDone", taskHandle,
      [&](zqtrace::TraceCall& trace) { trace.param("isTaskDone", zqtrace::kBool32Pointer, isTaskDone); },
      [&](ITask* task, zqerr_Status* status) {
        if (!isTaskDone) {
          ZQ_FAIL(status, kCtaskIsTaskDoneNull);
          return;
        }
        *isTaskDone = 0;
        uint32_t done = task && zqerr::isOpen(status) ? task->isTaskDone(status) : 0;
        *isTaskDone = zqerr::isOpen(status) && done != 0 ? 1 : 0;
      },
      [&](zqtrace::TraceCall& trace) { trace.retOut("*isTaskDone", zqtrace::kBool32, isTaskDone); });
}

ZQ_EXPORT int32 VorexAddGlobalChansToTask(TaskHandle taskHandle, const char* channelNames) {
  return taskCall(
      "VorexAddGlobalChansToTask", taskHandle,
      [&](zqtrace::TraceCall& trace) { trace.paramText("channelNames", channelNames); },
      [&](ITask& task, zqerr_Status* status) {
        std::string names = utf8Argument(channelNames, true, status);
        if (zqerr::isOpen(status)) task.addChannelsToTask(names, status);
      });
}
