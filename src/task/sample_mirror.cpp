#include "task/sample_mirror.h"

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"

namespace zqvorexRedir {

namespace {

void handOverArray(IDebugTarget& target, SampleElement element, const zqgopher_IArrayBuffer* buffer,
                   const SampleHandOver& h, zqerr_Status* local) {
#define ZQ_HAND_OVER(op) \
  target.op(h.channelKind, h.formatCode, buffer, h.layout, local, h.callerStatus, h.count)
  switch (element) {
    case SampleElement::f64:
      ZQ_HAND_OVER(cacheSamplesF64);
      return;
    case SampleElement::i8:
      ZQ_HAND_OVER(cacheSamplesI8);
      return;
    case SampleElement::i16:
      ZQ_HAND_OVER(cacheSamplesI16);
      return;
    case SampleElement::i32:
      ZQ_HAND_OVER(cacheSamplesI32);
      return;
    case SampleElement::u8:
      ZQ_HAND_OVER(cacheSamplesU8);
      return;
    case SampleElement::u16:
      ZQ_HAND_OVER(cacheSamplesU16);
      return;
    case SampleElement::u32:
      ZQ_HAND_OVER(cacheSamplesU32);
      return;
    case SampleElement::counterDutyCycleAndFrequencyF64:
      ZQ_HAND_OVER(cacheSamplesCounterDutyCycleAndFrequencyF64);
      return;
    case SampleElement::counterHighAndLowTimesF64:
      ZQ_HAND_OVER(cacheSamplesCounterHighAndLowTimesF64);
      return;
    case SampleElement::counterHighAndLowTicksU32:
      ZQ_HAND_OVER(cacheSamplesCounterHighAndLowTicksU32);
      return;
    case SampleElement::powerVoltageAndCurrentF64:
      ZQ_HAND_OVER(cacheSamplesPowerVoltageAndCurrentF64);
      return;
    case SampleElement::powerVoltageAndCurrentI16:
      ZQ_HAND_OVER(cacheSamplesPowerVoltageAndCurrentI16);
      return;
    case SampleElement::lineU8:
      return;  // line samples cross as a line buffer
  }
#undef ZQ_HAND_OVER
}

}  // namespace

// The target's answer concerns only the target: its status is dropped, and so is anything it throws.
void handSamplesOver(IDebugTarget& target, SampleElement element, const zqgopher_IArrayBuffer* buffer,
                     const SampleHandOver& handOver) noexcept {
  try {
    zqerr::Status local;
    handOverArray(target, element, buffer, handOver, &local);
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
