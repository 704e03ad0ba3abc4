// The frame of the reads: the shared data-call frame under the names of one read.
#pragma once

#include <cstdint>
#include <utility>

#include "frame/data_call.h"
#include "frame/pair_records.h"
#include "read/read_checks.h"

namespace zqread {

using zqframe::arrayCode;
using zqframe::FrequencySplit;
using zqframe::layoutOf;
using zqframe::PowerBinarySplit;
using zqframe::PowerSplit;
using zqframe::TaskHandle;
using zqframe::TicksSplit;
using zqframe::TimesSplit;

// Names of one read function's trace record: the function and the parameters that differ
// between members of a path. A null `modeParam` means the function has no fillMode.
struct ReadInfo {
  const char* name;
  const char* modeParam = nullptr;
  const char* firstArray = "readArray";
  const char* secondArray = nullptr;
  // The return records of the two outputs of a pair scalar: "*" and the parameter's name.
  const char* firstOut = nullptr;
  const char* secondOut = nullptr;
};

// The leading parameters of a vector read: the count, the timeout and the mode when there is one.
inline void traceCountAndMode(zqtrace::TraceCall& trace, const ReadInfo& info, int32_t numSampsPerChan,
                              double timeout, int32_t mode) {
  trace.paramNamed("numSampsPerChan", zqtrace::Literals::kSampsPerChan, numSampsPerChan);
  trace.param("timeout", zqtrace::kF64, timeout);
  if (info.modeParam) trace.paramNamed(info.modeParam, zqtrace::Literals::kGrouping, mode);
}

// Runs one read in the frame every data call shares.
template <class Params, class Body, class Returns>
int32_t readFrame(const ReadInfo& info, TaskHandle handle, Params&& params, Body&& body, Returns&& returns) {
  return zqframe::dataCallFrame(info.name, handle, std::forward<Params>(params), std::forward<Body>(body),
                                std::forward<Returns>(returns));
}

}  // namespace zqread
