// The one frame of the timing and trigger functions: a row of names and enumeration
// attributes, the arguments in the order of the API, and the task operation that takes them in
// the same order. Texts come wrapped in the form they take (Trimmed, Copied, OneTerminal, List,
// CopiedList); every other argument goes as it is.
//
//   ZQ_EXPORT int32 VorexCfgImplicitTiming(TaskHandle taskHandle, int32 sampleMode, uInt64 sampsPerChan) {
//     return configCall<&ITask::configureImplicitTiming>(kImplicit, taskHandle, sampleMode, sampsPerChan);
//   }
//
// Each argument is traced by its type under its row name: text as text, double as 81, uint64_t
// as 95, uint32_t as 71, int32_t as the enumeration pair of the row's attribute (75 without
// one), an absolute time as 108.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

#include "configuration/absolute_time.h"
#include "frame/data_call.h"
#include "utilities/cutility.h"
#include "utilities/text_forms.h"

namespace zqconfig {

using zqframe::TaskHandle;
using zqvorexRedir::ITask;

struct Param {
  const char* name;
  int32_t enumAttribute = 0;  // 0: not an enumeration
};

struct CallInfo {
  const char* function;
  std::array<Param, 8> params;
};

// Converted from the system code page and trimmed.
struct Trimmed {
  const char* text;
};
// The caller's bytes as they stand, trimmed.
struct Copied {
  const char* text;
};
// Converted, trimmed, and refused when it names more than one terminal.
struct OneTerminal {
  const char* text;
  int32_t attributeId;
};
// Converted, trimmed and split at ",".
struct List {
  const char* text;
};
// Copied, trimmed and split at ",".
struct CopiedList {
  const char* text;
};

template <class T>
constexpr bool isText = std::is_same_v<T, Trimmed> || std::is_same_v<T, Copied> || std::is_same_v<T, OneTerminal> ||
                        std::is_same_v<T, List> || std::is_same_v<T, CopiedList>;

template <class T>
void traceArgument(zqtrace::TraceCall& trace, const Param& param, const T& value) {
  if constexpr (isText<T>)
    trace.paramText(param.name, value.text);
  else if constexpr (std::is_same_v<T, double>)
    trace.param(param.name, zqtrace::kF64, value);
  else if constexpr (std::is_same_v<T, uint64_t>)
    trace.param(param.name, zqtrace::kU64, value);
  else if constexpr (std::is_same_v<T, uint32_t>)
    trace.param(param.name, zqtrace::kSize, value);
  else if constexpr (std::is_same_v<T, int32_t>) {
    if (param.enumAttribute != 0)
      trace.paramEnum(param.name, param.enumAttribute, value);
    else
      trace.param(param.name, zqtrace::kI32, value);
  } else {
    static_assert(std::is_same_v<T, VorexAbsoluteTime>, "no trace form for this argument");
    trace.paramTime(param.name, value);
  }
}

// What the operation receives for each argument; texts in the order of the arguments.
inline std::string prepare(const Trimmed& a, zqerr_Status* status) { return zqutility::trimmedText(a.text, status); }
inline std::string prepare(const Copied& a, zqerr_Status* status) { return zqutility::copiedText(a.text, status); }
inline std::string prepare(const OneTerminal& a, zqerr_Status* status) {
  std::string terminal;
  zqutility::checkOneTerminal(a.attributeId, a.text, &terminal, status);
  return terminal;
}
inline zqutility::NameList prepare(const List& a, zqerr_Status* status) {
  return zqutility::nameList(zqutility::trimmedText(a.text, status), status);
}
inline zqutility::NameList prepare(const CopiedList& a, zqerr_Status* status) {
  return zqutility::nameList(zqutility::copiedText(a.text, status), status);
}
inline zqvorexPlugin_AbsoluteTime prepare(const VorexAbsoluteTime& time, zqerr_Status*) { return toPlugin(time); }
template <class T>
T prepare(const T& value, zqerr_Status*) {
  return value;
}

inline const zqgopher::StringArrayView& pass(const zqutility::NameList& list) { return list.view(); }
template <class T>
const T& pass(const T& value) {
  return value;
}

template <auto Op, class... Args>
int32_t configCall(const CallInfo& info, TaskHandle handle, const Args&... args) {
  static_assert(sizeof...(Args) <= std::tuple_size_v<decltype(info.params)>);
  return zqframe::dataCallFrame(
      info.function, handle,
      [&](zqtrace::TraceCall& trace) {
        size_t index = 0;
        (traceArgument(trace, info.params[index++], args), ...);
      },
      [&](ITask* task, zqerr_Status* status) {
        // A braced list prepares the texts from left to right.
        std::tuple<decltype(prepare(args, status))...> prepared{prepare(args, status)...};
        if (task) std::apply([&](const auto&... values) { (task->*Op)(pass(values)..., status); }, prepared);
      },
      [](zqtrace::TraceCall&) {});
}

}  // namespace zqconfig
