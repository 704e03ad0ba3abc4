// One element of a task's channel, read-channel or device list, by number from 1.
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "zqcai_rd_mbcs.h"

#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "boundary/out_parameters.h"
#include "frame/export.h"
#include "frame/task_holder.h"
#include "lasterror/last_error.h"
#include "status/error_sites.h"
#include "status/exceptions.h"
#include "status/report_writer.h"
#include "task/itask.h"
#include "tracing/trace.h"

namespace {

using zqvorexRedir::ITask;
using Names = std::vector<std::string>;

// A list attribute of the task through a string-list sink; `get` runs the operation.
template <class Get>
Names listOf(Get&& get) {
  Names names;
  zqgopher::ItemAdderAdapter<std::string> sink(names);
  get(sink.boundary());
  return names;
}

// An index of 0 or past the count is refused with the index and the count in the report.
bool indexRefused(uint32_t index, uint32_t count, const zqerr::Site& site, const char* countUsage,
                  zqerr_Status* status) {
  if (index != 0 && index <= count) return false;
  if (zqerr::fail(status, site)) {
    zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
    w = zqerr::addItem(w, zqerr::usage::kUsageTypeRequestedIndex, index);
    zqerr::addItem(w, countUsage, count);
  }
  return true;
}

// A plug-in whose count and list disagree leaves the index past the list's end.
const std::string& element(const Names& names, uint32_t index) {
  if (index - 1 >= names.size()) throw std::out_of_range("invalid vector<T> subscript");
  return names[index - 1];
}

// The frame: `pick` gives the element of a valid index; the text goes out by the string copy.
template <class Pick>
int32_t nthFrame(const char* function, TaskHandle handle, uint32_t index, char* buffer, int32_t bufferSize,
                 Pick&& pick) {
  zqtrace::TraceCall trace(function);
  if (trace) {
    trace.param("taskHandle", zqtrace::kPointer, handle);
    trace.param("index", zqtrace::kSize, index);
    trace.param("buffer", buffer ? zqtrace::kTextBuffer : zqtrace::kPointer, buffer);
    trace.param("bufferSize", zqtrace::kI32, bufferSize);
    trace.endParams();
  }
  zqerr::Status status;
  zqframe::TaskHolder<ITask> task(handle, &status);
  nZQCAI100::LastErrorRecorder<ITask> recorder(&status, task.get(), nullptr);
  // A negative size holds nothing: like 0 it asks for the size.
  const uint32_t size = bufferSize > 0 ? static_cast<uint32_t>(bufferSize) : 0;
  bool sizeQuery = false;
  int32_t needed = 0;
  if (zqerr::isOpen(&status)) {
    try {
      std::string text;
      if (pick(*task.get(), &text, &status)) needed = zqgopher::copyStringOut(text, buffer, size, sizeQuery, &status);
    } catch (...) {
      zqerr::convertCurrentException(&status);
    }
  }
  if (sizeQuery && status.code >= 0) {
    trace.retSize(needed);
    return needed;
  }
  if (trace) {
    // A failed call may have left the buffer unterminated: no further than its size.
    const void* end = buffer ? std::memchr(buffer, '\0', size) : nullptr;
    trace.retText("buffer", buffer, end ? static_cast<size_t>(static_cast<const char*>(end) - buffer) : size);
  }
  trace.retval(status.code);
  return status.code;
}

}  // namespace

ZQ_EXPORT int32 VorexGetNthTaskChannel(TaskHandle taskHandle, uInt32 index, char buffer[], int32 bufferSize) {
  return nthFrame("VorexGetNthTaskChannel", taskHandle, index, buffer, bufferSize,
                  [&](ITask& task, std::string* text, zqerr_Status* status) {
                    const uint32_t count = task.getTaskAttributeU32(Vorex_TaskNumChans, status);
                    if (!zqerr::isOpen(status) || indexRefused(index, count, zqsite::kCuserutilitiesChannelIndex,
                                                               zqerr::usage::kUsageTypeNumberOfChannelsInTask, status))
                      return false;
                    Names names = listOf([&](zqgopher_IItemAdder* sink) {
                      task.getTaskAttributeStringVtr(Vorex_TaskChannels, sink, status);
                    });
                    if (!zqerr::isOpen(status)) return false;
                    *text = element(names, index);
                    return true;
                  });
}

ZQ_EXPORT int32 VorexGetNthTaskReadChannel(TaskHandle taskHandle, uInt32 index, char buffer[], int32 bufferSize) {
  return nthFrame("VorexGetNthTaskReadChannel", taskHandle, index, buffer, bufferSize,
                  [&](ITask& task, std::string* text, zqerr_Status* status) {
                    const zqgopher::StringArrayView none;
                    const uint32_t count = task.getReadAttributeU32(none, Vorex_ReadNumChans, status);
                    if (!zqerr::isOpen(status) ||
                        indexRefused(index, count, zqsite::kCuserutilitiesReadChannelIndex,
                                     zqerr::usage::kUsageTypeNumberOfChannelsInTask, status))
                      return false;
                    Names names = listOf([&](zqgopher_IItemAdder* sink) {
                      task.getReadAttributeStringVtr(none, Vorex_ReadChannelsToRead, sink, status);
                    });
                    if (!zqerr::isOpen(status)) return false;
                    *text = element(names, index);
                    return true;
                  });
}

ZQ_EXPORT int32 VorexGetNthTaskDevice(TaskHandle taskHandle, uInt32 index, char buffer[], int32 bufferSize) {
  return nthFrame("VorexGetNthTaskDevice", taskHandle, index, buffer, bufferSize,
                  [&](ITask& task, std::string* text, zqerr_Status* status) {
                    Names names = listOf([&](zqgopher_IItemAdder* sink) {
                      task.getTaskAttributeStringVtr(Vorex_TaskDevices, sink, status);
                    });
                    if (!zqerr::isOpen(status) ||
                        indexRefused(index, static_cast<uint32_t>(names.size()), zqsite::kCuserutilitiesDeviceIndex,
                                     zqerr::usage::kUsageTypeNumberOfDevicesInTask, status))
                      return false;
                    *text = names[index - 1];
                    return true;
                  });
}
