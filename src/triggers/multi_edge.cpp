#include "triggers/multi_edge.h"

#include "frame/data_call.h"
#include "utilities/text_forms.h"

namespace zqtriggers {

namespace {

void traceHead(zqtrace::TraceCall& trace, const MultiEdge& edges) {
  trace.paramText("triggerSources", edges.sources);
  trace.paramArray("triggerSlopeArray", zqtrace::kEnumArray, edges.slopes, edges.arraySize);
  trace.paramArray("triggerLevelArray", zqtrace::kF64Array, edges.levels, edges.arraySize);
}

// The names, then the views of the levels and the slopes, then the call. The number of names is
// not compared with the arrays here.
template <class Call>
void withViews(const MultiEdge& edges, zqerr_Status* status, Call&& call) {
  const zqutility::NameList names = zqutility::nameList(zqutility::trimmedText(edges.sources, status), status);
  const zqgopher::ArrayViewAdapter<double> levels(edges.levels, edges.arraySize, status);
  const zqgopher::ArrayViewAdapter<int32_t> slopes(edges.slopes, edges.arraySize, status);
  call(names.view(), slopes.boundary(), levels.boundary());
}

}  // namespace

int32_t multiEdgeStart(zqframe::TaskHandle handle, const MultiEdge& edges) {
  return zqframe::dataCallFrame(
      "VorexCfgAnlgMultiEdgeStartTrig", handle,
      [&](zqtrace::TraceCall& trace) {
        traceHead(trace, edges);
        trace.param("arraySize", zqtrace::kSize, edges.arraySize);
      },
      [&](zqvorexRedir::ITask* task, zqerr_Status* status) {
        withViews(edges, status, [&](const auto& names, auto slopes, auto levels) {
          if (task) task->configureAnalogMultiEdgeStartTrigger(names, slopes, levels, status);
        });
      },
      [](zqtrace::TraceCall&) {});
}

int32_t multiEdgeReference(const char* function, Order order, zqframe::TaskHandle handle, const MultiEdge& edges,
                           uint32_t pretriggerSamples) {
  return zqframe::dataCallFrame(
      function, handle,
      [&](zqtrace::TraceCall& trace) {
        traceHead(trace, edges);
        if (order == Order::kSizeFirst) trace.param("arraySize", zqtrace::kSize, edges.arraySize);
        trace.param("pretriggerSamples", zqtrace::kSize, pretriggerSamples);
        if (order == Order::kPretriggerFirst) trace.param("arraySize", zqtrace::kSize, edges.arraySize);
      },
      [&](zqvorexRedir::ITask* task, zqerr_Status* status) {
        withViews(edges, status, [&](const auto& names, auto slopes, auto levels) {
          if (task) task->configureAnalogMultiEdgeReferenceTrigger(names, slopes, levels, pretriggerSamples, status);
        });
      },
      [](zqtrace::TraceCall&) {});
}

}  // namespace zqtriggers
