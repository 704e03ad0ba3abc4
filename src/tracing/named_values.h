// Reserved values that the trace shows by name: when an argument has one of these values, its
// record is the literal's text (type 79) under the parameter's own name instead of the number.
#pragma once

#include <cstdint>

namespace zqtrace {

// Which parameter a value belongs to; each set names only its own values.
enum class Literals : uint8_t {
  kTerminalConfig,  // -1 Vorex_Val_Cfg_Default
  kLineGrouping,    // 0 Vorex_Val_ChanPerLine, 1 Vorex_Val_ChanForAllLines
  kSampsPerChan,    // numSampsPerChan of the reads: -1 Vorex_Val_Auto
  kGrouping,        // fillMode, dataLayout: 0 Vorex_Val_GroupByChannel, 1 Vorex_Val_GroupByScanNumber
  kEveryNSamplesEventType,  // 1 Vorex_Val_Acquired_Into_Buffer, 2 Vorex_Val_Transferred_From_Buffer
  kTaskAction,      // 0..6 Vorex_Val_Task_Start .. Vorex_Val_Task_Abort
  kSignal,          // exportable signals and signal event types, 12484..12536
};

// The literal of `value` in `set`, or null when the value has no name there.
const char* namedLiteral(Literals set, int32_t value) noexcept;

// The literal of a timeout: "Vorex_Val_WaitInfinitely" for -1.0, else null.
const char* namedTimeout(double value) noexcept;

}  // namespace zqtrace
