// Saving tasks and global channels, and tasks as INI text. Saving and writing the text are the
// plug-in's work; the task object forwards them. Making a task from text goes through the
// selection, which reads the text with the storage library.
#include <string>

#include "zqcai_rd_mbcs.h"

#include "boundary/string_adapter.h"
#include "frame/data_call.h"
#include "frame/export.h"
#include "lifecycle/task_creation.h"
#include "lifecycle/text_arguments.h"
#include "status/error_sites.h"
#include "status/report_writer.h"
#include "text/nstring.h"

namespace {

using nZQCAI100::utf8Argument;
using zqvorexRedir::ITask;

// The plug-in's save operations take bits 0 to 2 of `options` as flags, then a fourth that is
// always set.
struct SaveFlags {
  explicit SaveFlags(uint32_t options)
      : first((options & 1u) != 0), second((options & 2u) != 0), third((options & 4u) != 0) {}
  bool first, second, third;
  static constexpr bool kFourth = true;
};

template <class Params, class Body>
int32_t saveCall(const char* function, TaskHandle handle, Params&& params, Body&& body) {
  return zqframe::dataCallFrame(
      function, handle, std::forward<Params>(params),
      [&](ITask* task, zqerr_Status* status) {
        if (task && zqerr::isOpen(status)) body(*task, status);
      },
      [](zqtrace::TraceCall&) {});
}

// The task's INI text under `name`, in UTF-16.
std::u16string taskAsText(ITask& task, const std::string& name, zqerr_Status* status) {
  std::string text;
  zqgopher::StringAdapter sink(text);
  task.saveTaskToString("", name, false, sink.boundary(), status);
  std::u16string wide;
  if (!zqerr::isOpen(status)) return wide;
  zqerr::StatusBridge bridge(status);
  zqwombat::utf8ToWide(text.data(), text.size(), &wide, bridge.fixed());
  return wide;
}

// The whole text with its terminator into the caller's buffer, never cut; the size needed
// for a size query.
int32_t copyText(const std::u16string& text, VorexUtf16Char* buffer, uint32_t bufferLength, zqerr_Status* status) {
  const uint64_t needed = text.empty() ? 0 : text.size() + 1;
  if (!buffer || bufferLength == 0) return static_cast<int32_t>(needed);
  if (text.size() + 1 > bufferLength) {
    if (ZQ_FAIL(status, kCtaskTaskAsIniBufferTooSmall)) {
      auto items = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
      items = zqerr::addItem(items, zqerr::usage::kUsageTypeReqBufSizeInBytes, static_cast<int32_t>(text.size() + 1));
      zqerr::addItem(items, zqerr::usage::kUsageTypeBufferLength, bufferLength);
    }
    return 0;
  }
  text.copy(buffer, text.size());
  buffer[text.size()] = u'\0';
  return 0;
}

}  // namespace

ZQ_EXPORT int32 VorexSaveTask(TaskHandle taskHandle, const char* saveAs, const char* author, uInt32 options) {
  return saveCall(
      "VorexSaveTask", taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramText("saveAs", saveAs);
        trace.paramText("author", author);
        trace.param("options", zqtrace::kSize, options);
      },
      [&](ITask& task, zqerr_Status* status) {
        const std::string name = utf8Argument(saveAs, true, status);
        const std::string authorText = utf8Argument(author, false, status);
        const SaveFlags flags(options);
        if (zqerr::isOpen(status))
          task.saveTask(name, authorText, flags.first, flags.second, flags.third, SaveFlags::kFourth, status);
      });
}

ZQ_EXPORT int32 VorexSaveGlobalChan(TaskHandle taskHandle, const char* channelName, const char* saveAs,
                                    const char* author, uInt32 options) {
  return saveCall(
      "VorexSaveGlobalChan", taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramText("channelName", channelName);
        trace.paramText("saveAs", saveAs);
        trace.paramText("author", author);
        trace.param("options", zqtrace::kSize, options);
      },
      [&](ITask& task, zqerr_Status* status) {
        const std::string channel = utf8Argument(channelName, true, status);
        const std::string name = utf8Argument(saveAs, true, status);
        const std::string authorText = utf8Argument(author, false, status);
        const SaveFlags flags(options);
        if (zqerr::isOpen(status))
          task.saveChannel(channel, name, authorText, flags.first, flags.second, flags.third, SaveFlags::kFourth,
                           status);
      });
}

// Not traced, like its twin below.
ZQ_EXPORT int32 VorexGetTaskAsINI(const VorexUtf16Char* taskName, TaskHandle* taskHandle, VorexUtf16Char* buffer,
                                  uInt32 bufferLength) {
  zqerr::Status status;
  if (!taskHandle) ZQ_FAIL(&status, kCtaskTaskAsIniNullHandle);
  zqframe::TaskHolder<ITask> task(taskHandle ? *taskHandle : nullptr, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  int32_t size = 0;
  if (zqerr::isOpen(&status)) {
    try {
      const std::string name = nZQCAI100::utf8FromUtf16(taskName, true, &status);
      const std::u16string text = zqerr::isOpen(&status) ? taskAsText(*task.get(), name, &status) : std::u16string();
      if (zqerr::isOpen(&status)) size = copyText(text, buffer, bufferLength, &status);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  return status.code >= 0 && size > 0 ? size : status.code;
}

ZQ_EXPORT int32 VorexCreateTaskFromINI(const VorexUtf16Char* taskName, const VorexUtf16Char* iniText,
                                       TaskHandle* taskHandle) {
  zqerr::Status status;
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, nullptr, nullptr);
  if (!taskHandle) {
    ZQ_FAIL(&status, kCtaskCreateFromIniNullHandle);
    return status.code;
  }
  *taskHandle = nullptr;
  try {
    const std::string name = nZQCAI100::utf8FromUtf16(taskName, false, &status);
    const std::string text = nZQCAI100::utf8FromUtf16(iniText, false, &status);
    nZQCAI100::TaskCreation creation(&status);
    const nZQCAI100::TaskRef task = nZQCAI100::createTaskFromText(creation, name, text, &status);
    *taskHandle = task ? static_cast<TaskHandle>(task.get()) : nullptr;
  } catch (...) {
    zqerr::convertCurrentException(&status);
    *taskHandle = nullptr;
  }
  return status.code;
}
