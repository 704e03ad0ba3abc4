// The names and trace records that the write paths share around the common data-call frame.
#pragma once

#include <algorithm>
#include <cstdint>

#include "frame/data_call.h"
#include "frame/pair_records.h"
#include "write/write_checks.h"

namespace zqwrite {

using zqframe::arrayCode;
using zqframe::layoutOf;
using zqframe::TaskHandle;

// Names of one write function's trace record: the function and the parameters that differ
// between members of a path.
struct WriteInfo {
  const char* name;
  const char* firstArray = "writeArray";
  const char* secondArray = nullptr;
  const char* written = "sampsPerChanWritten";
  const char* writtenOut = "*sampsPerChanWritten";
};

// The arguments common to the vector, lines and pair writes.
struct VectorArgs {
  int32_t numSampsPerChan;
  int32_t autoStart;
  double timeout;
  int32_t dataLayout;
  int32_t* written;
  uint32_t* reserved;
};

// The leading parameters: the count always as a number, there being no automatic count.
inline void traceLeading(zqtrace::TraceCall& trace, const char* countName, int32_t count, int32_t autoStart,
                         double timeout) {
  trace.param(countName, zqtrace::kI32, count);
  trace.param("autoStart", zqtrace::kBool32, autoStart);
  trace.param("timeout", zqtrace::kF64, timeout);
}

// An input array: its address, then its content over the count given.
template <class Element>
void traceInput(zqtrace::TraceCall& trace, const char* name, const Element* array, int32_t count) {
  trace.paramArray(name, arrayCode<Element>(), array, static_cast<uint64_t>(std::max(count, 0)));
}

inline void traceTail(zqtrace::TraceCall& trace, const WriteInfo& info, const int32_t* written,
                      const uint32_t* reserved) {
  trace.param(info.written, zqtrace::kI32Pointer, written);
  trace.param("reserved", zqtrace::kBool32Pointer, reserved);
}

inline void traceReturns(zqtrace::TraceCall& trace, const WriteInfo& info, const int32_t* written,
                         const uint32_t* reserved) {
  trace.retOut(info.writtenOut, zqtrace::kI32, written);
  trace.retOut("*reserved", zqtrace::kBool32, reserved);
}

}  // namespace zqwrite
