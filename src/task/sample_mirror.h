// What a debug target that caches samples is shown after a read or a write: the samples as
// the plug-in left them, with the format code of the operation and the count it returned.
// Without a target this costs one pointer test and allocates nothing.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "debug/debug_interfaces.h"
#include "debug/target_callbacks.h"
#include "status/status.h"

namespace zqvorexRedir {

// The target's hand-over for each element type.
enum class SampleElement : uint8_t {
  f64,
  i8,
  i16,
  i32,
  u8,
  u16,
  u32,
  counterDutyCycleAndFrequencyF64,
  counterHighAndLowTimesF64,
  counterHighAndLowTicksU32,
  powerVoltageAndCurrentF64,
  powerVoltageAndCurrentI16,
  lineU8,
};

// How the samples cross: the caller's array or line array, or one value that the task wraps.
enum class SampleShape : uint8_t { array, lines, scalar, scalarLines };

struct MirrorRow {
  std::string_view operation;
  uint32_t formatCode;
  SampleElement element;
  SampleShape shape;
};

inline constexpr uint32_t kFormatNone = 0;  // raw samples carry no format

namespace mirror {
using E = SampleElement;
using S = SampleShape;

inline constexpr MirrorRow kRows[] = {
    // 64-bit float
    {"readScaledScalarF64", 16111, E::f64, S::scalar},
    {"readScaledVectorF64", 16111, E::f64, S::array},
    {"readScaledVectorDurationF64", 16111, E::f64, S::array},
    {"writeScaledScalarF64", 16111, E::f64, S::scalar},
    {"writeScaledVectorF64", 16111, E::f64, S::array},
    // port, 8-bit
    {"readPortScalarU8", 16112, E::u8, S::scalar},
    {"readPortVectorU8", 16112, E::u8, S::array},
    {"writePortScalarU8", 16112, E::u8, S::scalar},
    {"writePortVectorU8", 16112, E::u8, S::array},
    // port, 16-bit
    {"readPortScalarU16", 16113, E::u16, S::scalar},
    {"readPortVectorU16", 16113, E::u16, S::array},
    {"writePortScalarU16", 16113, E::u16, S::scalar},
    {"writePortVectorU16", 16113, E::u16, S::array},
    // port, 32-bit
    {"readPortScalarU32", 16114, E::u32, S::scalar},
    {"readPortVectorU32", 16114, E::u32, S::array},
    {"writePortScalarU32", 16114, E::u32, S::scalar},
    {"writePortVectorU32", 16114, E::u32, S::array},
    // binary, unsigned 16-bit
    {"readBinaryVectorU16", 16115, E::u16, S::array},
    // binary, signed 16-bit
    {"readBinaryVectorI16", 16116, E::i16, S::array},
    {"writeBinaryVectorI16", 16116, E::i16, S::array},
    // binary, unsigned 32-bit
    {"readBinaryScalarU32", 16117, E::u32, S::scalar},
    {"readBinaryVectorU32", 16117, E::u32, S::array},
    // binary, signed 32-bit
    {"readBinaryVectorI32", 16118, E::i32, S::array},
    {"writeBinaryVectorI32", 16118, E::i32, S::array},
    // counter frequency and duty cycle
    {"readScalarCounterDutyCycleAndFrequencyF64", 16121, E::counterDutyCycleAndFrequencyF64, S::scalar},
    {"readVectorCounterDutyCycleAndFrequencyF64", 16121, E::counterDutyCycleAndFrequencyF64, S::array},
    {"writeScalarCounterDutyCycleAndFrequencyF64", 16121, E::counterDutyCycleAndFrequencyF64, S::scalar},
    {"writeVectorCounterDutyCycleAndFrequencyF64", 16121, E::counterDutyCycleAndFrequencyF64, S::array},
    // counter high and low times
    {"readScalarCounterHighAndLowTimesF64", 16122, E::counterHighAndLowTimesF64, S::scalar},
    {"readVectorCounterHighAndLowTimesF64", 16122, E::counterHighAndLowTimesF64, S::array},
    {"writeScalarCounterHighAndLowTimesF64", 16122, E::counterHighAndLowTimesF64, S::scalar},
    {"writeVectorCounterHighAndLowTimesF64", 16122, E::counterHighAndLowTimesF64, S::array},
    // counter high and low ticks
    {"readScalarCounterHighAndLowTicksU32", 16123, E::counterHighAndLowTicksU32, S::scalar},
    {"readVectorCounterHighAndLowTicksU32", 16123, E::counterHighAndLowTicksU32, S::array},
    {"writeScalarCounterHighAndLowTicksU32", 16123, E::counterHighAndLowTicksU32, S::scalar},
    {"writeVectorCounterHighAndLowTicksU32", 16123, E::counterHighAndLowTicksU32, S::array},
    // lines
    {"readLineScalarU8", 16124, E::lineU8, S::scalarLines},
    {"readLineVectorU8", 16124, E::lineU8, S::lines},
    {"writeLineScalarU8", 16124, E::lineU8, S::scalarLines},
    {"writeLineVectorU8", 16124, E::lineU8, S::lines},
    // digital waveform
    {"readDigitalWaveformVectorU8", 16125, E::lineU8, S::lines},
    {"readDigitalWaveformVectorDurationU8", 16125, E::lineU8, S::lines},
    {"writeDigitalWaveformVectorU8", 16125, E::lineU8, S::lines},
    // power, 64-bit float
    {"readScalarPowerVoltageAndCurrentF64", 15504, E::powerVoltageAndCurrentF64, S::scalar},
    {"readVectorPowerVoltageAndCurrentF64", 15504, E::powerVoltageAndCurrentF64, S::array},
    // power, signed 16-bit
    {"readVectorPowerVoltageAndCurrentI16", 15505, E::powerVoltageAndCurrentI16, S::array},
    // raw
    {"readRawI8", kFormatNone, E::i8, S::array},
    {"readRawI16", kFormatNone, E::i16, S::array},
    {"readRawI32", kFormatNone, E::i32, S::array},
    {"readRawU8", kFormatNone, E::u8, S::array},
    {"readRawU16", kFormatNone, E::u16, S::array},
    {"readRawU32", kFormatNone, E::u32, S::array},
    {"writeRawI8", kFormatNone, E::i8, S::array},
    {"writeRawI16", kFormatNone, E::i16, S::array},
    {"writeRawI32", kFormatNone, E::i32, S::array},
    {"writeRawU8", kFormatNone, E::u8, S::array},
    {"writeRawU16", kFormatNone, E::u16, S::array},
    {"writeRawU32", kFormatNone, E::u32, S::array},
};

inline constexpr size_t kRowCount = sizeof(kRows) / sizeof(kRows[0]);

}  // namespace mirror

// The row of `operation`; mirror::kRowCount when it has none.
constexpr size_t mirrorRowOf(std::string_view operation) {
  for (size_t i = 0; i < mirror::kRowCount; ++i)
    if (mirror::kRows[i].operation == operation) return i;
  return mirror::kRowCount;
}

// Bytes of one element, to count the elements of a scalar value.
constexpr size_t elementSize(SampleElement element) {
  switch (element) {
    case SampleElement::i8:
    case SampleElement::u8:
    case SampleElement::lineU8:
      return 1;
    case SampleElement::i16:
    case SampleElement::u16:
      return 2;
    case SampleElement::i32:
    case SampleElement::u32:
      return 4;
    case SampleElement::f64:
      return sizeof(double);
    case SampleElement::counterDutyCycleAndFrequencyF64:
      return sizeof(zqvorexPlugin_DutyCycleAndFrequencyF64);
    case SampleElement::counterHighAndLowTimesF64:
      return sizeof(zqvorexPlugin_HighAndLowTimesF64);
    case SampleElement::counterHighAndLowTicksU32:
      return sizeof(zqvorexPlugin_HighAndLowTicksU32);
    case SampleElement::powerVoltageAndCurrentF64:
      return sizeof(zqvorexPlugin_VoltageAndCurrentF64);
    case SampleElement::powerVoltageAndCurrentI16:
      return sizeof(zqvorexPlugin_VoltageAndCurrentI16);
  }
  return 1;
}

// What the target is handed; the status the target writes into is a local one, dropped.
struct SampleHandOver {
  uint32_t channelKind;
  uint32_t formatCode;
  const zqvorexPlugin_ReadLayout* layout;
  const zqerr_Status* callerStatus;
  uint64_t count;
};

void handSamplesOver(IDebugTarget& target, SampleElement element, const zqgopher_IArrayBuffer* buffer,
                     const SampleHandOver& handOver) noexcept;
void handSamplesOver(IDebugTarget& target, const zqgopher_IArrayLineBuffer* buffer,
                     const SampleHandOver& handOver) noexcept;
// One value of `n` elements, wrapped first in the constrained adapter of its shape.
void handScalarOver(IDebugTarget& target, SampleElement element, bool lines, void* value, uint64_t n,
                    const SampleHandOver& handOver) noexcept;

namespace mirror {

template <class T, class A>
void pick(T& found, A& argument) {
  if constexpr (std::is_same_v<std::remove_cv_t<A>, T>) found = argument;
}

// The operation's argument of type T; a null T when it has none.
template <class T, class... Args>
T argumentOf(Args&... args) {
  T found{};
  (pick(found, args), ...);
  return found;
}

template <size_t rowIndex, class... Args>
void show(IDebugTarget& target, uint64_t count, Args&... args) {
  static_assert(rowIndex < kRowCount, "a read or write without a row in the mirror table");
  constexpr MirrorRow row = kRows[rowIndex];
  static_assert((row.element == SampleElement::lineU8) ==
                (row.shape == SampleShape::lines || row.shape == SampleShape::scalarLines));
  auto all = std::tie(args...);
  const SampleHandOver handOver{std::get<0>(all), row.formatCode,
                                argumentOf<const zqvorexPlugin_ReadLayout*>(args...),
                                std::get<sizeof...(Args) - 1>(all), count};
  if constexpr (row.shape == SampleShape::array) {
    static_assert((std::is_same_v<Args, zqgopher_IArrayBuffer*> || ...));
    handSamplesOver(target, row.element, argumentOf<zqgopher_IArrayBuffer*>(args...), handOver);
  } else if constexpr (row.shape == SampleShape::lines) {
    static_assert((std::is_same_v<Args, zqgopher_IArrayLineBuffer*> || ...));
    handSamplesOver(target, argumentOf<zqgopher_IArrayLineBuffer*>(args...), handOver);
  } else {
    // A scalar is the argument before `reserved`: the caller's out-value of a read, the
    // value of a write.
    auto& value = std::get<sizeof...(Args) - 3>(all);
    using Value = std::remove_reference_t<decltype(value)>;
    constexpr bool lines = row.shape == SampleShape::scalarLines;
    if constexpr (std::is_pointer_v<Value>) {
      static_assert(sizeof(*value) % elementSize(row.element) == 0);
      const uint64_t n = value ? sizeof(*value) / elementSize(row.element) : 0;
      handScalarOver(target, row.element, lines, value, n, handOver);
    } else {
      static_assert(sizeof(value) % elementSize(row.element) == 0);
      handScalarOver(target, row.element, lines, &value, sizeof(value) / elementSize(row.element), handOver);
    }
  }
}

}  // namespace mirror

// After the plug-in call of the read or write of table row `rowIndex`, whatever its status.
template <size_t rowIndex, class... Args>
void mirrorSamples(IDebugTarget* target, const DebugTargetFlags& flags, uint64_t count, Args&... args) {
  if (!target || flags.cacheSamples.load(std::memory_order_relaxed) == 0) return;
  mirror::show<rowIndex>(*target, count, args...);
}

}  // namespace zqvorexRedir
