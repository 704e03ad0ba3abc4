#include "task/sample_mirror.h"

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"

namespace zqvorexRedir {

namespace {

using ArrayHandOver = void (IDebugTarget::*)(uint32_t, uint32_t, const zqgopher_IArrayBuffer*,
                                             const zqvorexPlugin_ReadLayout*, zqerr_Status*, const zqerr_Status*,
                                             uint64_t);

// The target's hand-over of each element type that crosses as an array; none for lines, which
// cross as a line buffer.
ArrayHandOver arrayHandOverOf(SampleElement element) {
  switch (element) {
    case SampleElement::f64:
      return &IDebugTarget::cacheSamplesF64;
    case SampleElement::i8:
      return &IDebugTarget::cacheSamplesI8;
    case SampleElement::i16:
      return &IDebugTarget::cacheSamplesI16;
    case SampleElement::i32:
      return &IDebugTarget::cacheSamplesI32;
    case SampleElement::u8:
      return &IDebugTarget::cacheSamplesU8;
    case SampleElement::u16:
      return &IDebugTarget::cacheSamplesU16;
    case SampleElement::u32:
      return &IDebugTarget::cacheSamplesU32;
    case SampleElement::counterDutyCycleAndFrequencyF64:
      return &IDebugTarget::cacheSamplesCounterDutyCycleAndFrequencyF64;
    case SampleElement::counterHighAndLowTimesF64:
      return &IDebugTarget::cacheSamplesCounterHighAndLowTimesF64;
    case SampleElement::counterHighAndLowTicksU32:
      return &IDebugTarget::cacheSamplesCounterHighAndLowTicksU32;
    case SampleElement::powerVoltageAndCurrentF64:
      return &IDebugTarget::cacheSamplesPowerVoltageAndCurrentF64;
    case SampleElement::powerVoltageAndCurrentI16:
      return &IDebugTarget::cacheSamplesPowerVoltageAndCurrentI16;
    case SampleElement::lineU8:
      return nullptr;
  }
  return nullptr;
}

}  // namespace

// The target's answer concerns only the target: its status is dropped, and so is anything it throws.
void handSamplesOver(IDebugTarget& target, SampleElement element, const zqgopher_IArrayBuffer* buffer,
                     const SampleHandOver& handOver) noexcept {
  const ArrayHandOver handOverArray = arrayHandOverOf(element);
  if (!handOverArray) return;
  try {
    zqerr::Status local;
    (target.*handOverArray)(handOver.channelKind, handOver.formatCode, buffer, handOver.layout, &local,
                            handOver.callerStatus, handOver.count);
  } catch (...) {
  }
}

void handSamplesOver(IDebugTarget& target, const zqgopher_IArrayLineBuffer* buffer,
                     const SampleHandOver& h) noexcept {
  try {
    zqerr::Status local;
    target.cacheSamplesLineU8(h.channelKind, h.formatCode, buffer, h.layout, &local, h.callerStatus, h.count);
  } catch (...) {
  }
}

void handScalarOver(IDebugTarget& target, SampleElement element, bool lines, void* value, uint64_t n,
                    const SampleHandOver& handOver) noexcept {
  zqerr::Status local;
  if (lines) {
    zqgopher::ScalarArrayLineBufferAdapter adapter(value, n, &local,
                                                   zqgopher::ScalarArrayLineBufferAdapter::kKindOneChannel);
    handSamplesOver(target, adapter.boundary(), handOver);
  } else {
    zqgopher::ScalarArrayBufferAdapter adapter(value, n, &local,
                                               zqgopher::ScalarArrayBufferAdapter::kKindOneChannel);
    handSamplesOver(target, element, adapter.boundary(), handOver);
  }
}

}  // namespace zqvorexRedir
