// Signal export and the sample buffers: each the common frame around one task operation. The
// routing of a signal to its terminal attribute is the task's (task/task_signals.cpp).
#include "zqcai_rd_mbcs.h"

#include "frame/data_call.h"
#include "frame/export.h"
#include "utilities/text_forms.h"

namespace {

using zqvorexRedir::ITask;

// The size of the input or the output buffer, as a set of that attribute on no channels. Any
// size goes to the plug-in, 0 included.
int32_t configureBuffer(const char* function, TaskHandle taskHandle, int32_t attributeId, uint32_t numSampsPerChan) {
  return zqframe::dataCallFrame(
      function, taskHandle,
      [&](zqtrace::TraceCall& trace) { trace.param("numSampsPerChan", zqtrace::kSize, numSampsPerChan); },
      [&](ITask* task, zqerr_Status* status) {
        const zqgopher::StringArrayView none;
        if (task) task->setBufferAttributeSize(none, attributeId, numSampsPerChan, status);
      },
      [](zqtrace::TraceCall&) {});
}

}  // namespace

ZQ_EXPORT int32 VorexCfgInputBuffer(TaskHandle taskHandle, uInt32 numSampsPerChan) {
  return configureBuffer("VorexCfgInputBuffer", taskHandle, Vorex_BufInputBufSize, numSampsPerChan);
}

ZQ_EXPORT int32 VorexCfgOutputBuffer(TaskHandle taskHandle, uInt32 numSampsPerChan) {
  return configureBuffer("VorexCfgOutputBuffer", taskHandle, Vorex_BufOutputBufSize, numSampsPerChan);
}

ZQ_EXPORT int32 VorexExportSignal(TaskHandle taskHandle, int32 signalID, const char* outputTerminal) {
  return zqframe::dataCallFrame(
      "VorexExportSignal", taskHandle,
      [&](zqtrace::TraceCall& trace) {
        trace.paramNamed("signalID", zqtrace::Literals::kSignal, signalID);
        trace.paramText("outputTerminal", outputTerminal);
      },
      [&](ITask* task, zqerr_Status* status) {
        const zqutility::NameList terminals =
            zqutility::nameList(zqutility::trimmedText(outputTerminal, status), status);
        const zqgopher::StringArrayView none;
        if (task) task->exportSignal(signalID, none, terminals.view(), status);
      },
      [](zqtrace::TraceCall&) {});
}
