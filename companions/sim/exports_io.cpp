// Reads, writes and events. The forms the device has no use for (power, waveforms, durations,
// cached samples, raw writes) are not exported, so the library reports them as not supported.
#include "sim_export.h"
#include "sim_values.h"
#include "task_events.h"
#include "task_io.h"

using namespace zqsim;

namespace {

template <class R, class F>
R onTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status, F&& body) {
  return guarded(status, R{}, [&] {
    SimTask* t = requireTask(task, status);
    return t ? body(*t) : R{};
  });
}

// The pairs of a counter write, as the library hands them: one element per pair.
uint32_t writePairBuffer(zqvorexPlugin_Task_undefined* task, PairKind kind, zqgopher_IArrayBuffer* buffer,
                         bool autoStart, zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    if (!buffer) {
      SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
      return uint32_t{0};
    }
    const uint32_t channels = buffer->table->getNumChannels(buffer, status);
    const uint64_t count = channels ? buffer->table->getNumSampsPerChan(buffer, 0, status) : 0;
    const void* pairs = count ? buffer->table->getData(buffer, 0, status) : nullptr;
    return isOpen(status) ? writePairs(t, kind, pairs, count, autoStart, status) : 0;
  });
}

}  // namespace

#define SIM_READ_VECTOR(op, call)                                                                            \
  SIM_EXPORT uint32_t zqvorexSim_##op(zqvorexPlugin_Task_undefined* task, uint32_t,                          \
                                      zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout, \
                                      int64_t numSampsPerChan, double timeout, void*,                        \
                                      zqerr_Status* status) {                                                \
    return onTask<uint32_t>(task, status, [&](SimTask& t) { return call; });                                 \
  }                                                                                                          \
  SIM_SIGNATURE(op);

SIM_READ_VECTOR(readScaledVectorF64, readScaled(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readBinaryVectorI16, readBinary<int16_t>(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readBinaryVectorU16,
                readBinary<uint16_t>(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readBinaryVectorI32, readBinary<int32_t>(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readBinaryVectorU32,
                readBinary<uint32_t>(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readPortVectorU8, readPort<uint8_t>(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readPortVectorU16, readPort<uint16_t>(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readPortVectorU32, readPort<uint32_t>(t, buffer, layout, numSampsPerChan, timeout, status))
SIM_READ_VECTOR(readVectorCounterDutyCycleAndFrequencyF64,
                ((void)layout, readPairs(t, PairKind::kFrequency, buffer, numSampsPerChan, timeout, status)))
SIM_READ_VECTOR(readVectorCounterHighAndLowTimesF64,
                ((void)layout, readPairs(t, PairKind::kTime, buffer, numSampsPerChan, timeout, status)))
SIM_READ_VECTOR(readVectorCounterHighAndLowTicksU32,
                ((void)layout, readPairs(t, PairKind::kTicks, buffer, numSampsPerChan, timeout, status)))
#undef SIM_READ_VECTOR

SIM_EXPORT uint32_t zqvorexSim_readLineVectorU8(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                zqgopher_IArrayLineBuffer* buffer,
                                                const zqvorexPlugin_ReadLayout* layout,
                                                int64_t numSampsPerChan, double timeout, void*,
                                                zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    return readLines(t, buffer, layout, numSampsPerChan, timeout, status);
  });
}

SIM_EXPORT uint32_t zqvorexSim_readRawU8(zqvorexPlugin_Task_undefined* task, uint32_t,
                                         zqgopher_IArrayBuffer* buffer, int64_t numSampsPerChan,
                                         double timeout, uint32_t* numBytesPerSamp, void*,
                                         zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    return readRaw(t, buffer, numSampsPerChan, timeout, numBytesPerSamp, status);
  });
}

SIM_EXPORT uint32_t zqvorexSim_readScaledScalarF64(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                   double timeout, double* value, void*,
                                                   zqerr_Status* status) {
  return onTask<uint32_t>(task, status,
                          [&](SimTask& t) { return readScaledScalar(t, timeout, value, status); });
}

SIM_EXPORT uint32_t zqvorexSim_readBinaryScalarU32(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                   double timeout, uint32_t* value, void*,
                                                   zqerr_Status* status) {
  return onTask<uint32_t>(task, status,
                          [&](SimTask& t) { return readBinaryScalar(t, timeout, value, status); });
}

SIM_EXPORT uint32_t zqvorexSim_readPortScalarU32(zqvorexPlugin_Task_undefined* task, uint32_t, double timeout,
                                                 uint32_t* value, void*, zqerr_Status* status) {
  return onTask<uint32_t>(task, status,
                          [&](SimTask& t) { return readPortScalar(t, timeout, value, status); });
}

SIM_EXPORT uint32_t zqvorexSim_readScalarCounterDutyCycleAndFrequencyF64(
    zqvorexPlugin_Task_undefined* task, uint32_t, double timeout,
    zqvorexPlugin_DutyCycleAndFrequencyF64* value, void*, zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    return readPairScalar(t, PairKind::kFrequency, timeout, value, status);
  });
}

SIM_EXPORT uint32_t zqvorexSim_readScalarCounterHighAndLowTimesF64(zqvorexPlugin_Task_undefined* task,
                                                                   uint32_t, double timeout,
                                                                   zqvorexPlugin_HighAndLowTimesF64* value,
                                                                   void*, zqerr_Status* status) {
  return onTask<uint32_t>(
      task, status, [&](SimTask& t) { return readPairScalar(t, PairKind::kTime, timeout, value, status); });
}

SIM_EXPORT uint32_t zqvorexSim_readScalarCounterHighAndLowTicksU32(zqvorexPlugin_Task_undefined* task,
                                                                   uint32_t, double timeout,
                                                                   zqvorexPlugin_HighAndLowTicksU32* value,
                                                                   void*, zqerr_Status* status) {
  return onTask<uint32_t>(
      task, status, [&](SimTask& t) { return readPairScalar(t, PairKind::kTicks, timeout, value, status); });
}

SIM_EXPORT uint32_t zqvorexSim_writeScaledVectorF64(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                    zqgopher_IArrayBuffer* buffer,
                                                    const zqvorexPlugin_ReadLayout* layout, bool autoStart,
                                                    double timeout, void*, zqerr_Status* status) {
  return onTask<uint32_t>(
      task, status, [&](SimTask& t) { return writeScaled(t, buffer, layout, autoStart, timeout, status); });
}

SIM_EXPORT uint32_t zqvorexSim_writeScaledScalarF64(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                    bool autoStart, double timeout, double value, void*,
                                                    zqerr_Status* status) {
  return onTask<uint32_t>(
      task, status, [&](SimTask& t) { return writeScaledScalar(t, autoStart, timeout, value, status); });
}

SIM_EXPORT uint32_t zqvorexSim_writeBinaryVectorI16(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                    zqgopher_IArrayBuffer* buffer,
                                                    const zqvorexPlugin_ReadLayout* layout, bool autoStart,
                                                    double timeout, void*, zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    return writeBinary<int16_t>(t, buffer, layout, autoStart, timeout, status);
  });
}

SIM_EXPORT uint32_t zqvorexSim_writeBinaryVectorI32(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                    zqgopher_IArrayBuffer* buffer,
                                                    const zqvorexPlugin_ReadLayout* layout, bool autoStart,
                                                    double timeout, void*, zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    return writeBinary<int32_t>(t, buffer, layout, autoStart, timeout, status);
  });
}

#define SIM_WRITE_PORT(op, T)                                                                                \
  SIM_EXPORT uint32_t zqvorexSim_##op(zqvorexPlugin_Task_undefined* task, uint32_t,                          \
                                      zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout, \
                                      bool autoStart, double, void*, zqerr_Status* status) {                 \
    return onTask<uint32_t>(task, status,                                                                    \
                            [&](SimTask& t) { return writePort<T>(t, buffer, layout, autoStart, status); }); \
  }                                                                                                          \
  SIM_SIGNATURE(op);
SIM_WRITE_PORT(writePortVectorU8, uint8_t)
SIM_WRITE_PORT(writePortVectorU16, uint16_t)
SIM_WRITE_PORT(writePortVectorU32, uint32_t)
#undef SIM_WRITE_PORT

SIM_EXPORT uint32_t zqvorexSim_writeLineVectorU8(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                 zqgopher_IArrayLineBuffer* buffer,
                                                 const zqvorexPlugin_ReadLayout* layout, bool autoStart,
                                                 double, void*, zqerr_Status* status) {
  return onTask<uint32_t>(task, status,
                          [&](SimTask& t) { return writeLines(t, buffer, layout, autoStart, status); });
}

SIM_EXPORT uint32_t zqvorexSim_writePortScalarU32(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                  bool autoStart, double, uint32_t value, void*,
                                                  zqerr_Status* status) {
  return onTask<uint32_t>(task, status,
                          [&](SimTask& t) { return writePortScalar(t, autoStart, value, status); });
}

SIM_EXPORT uint32_t zqvorexSim_writeVectorCounterDutyCycleAndFrequencyF64(
    zqvorexPlugin_Task_undefined* task, uint32_t, zqgopher_IArrayBuffer* buffer,
    const zqvorexPlugin_ReadLayout*, bool autoStart, double, void*, zqerr_Status* status) {
  return writePairBuffer(task, PairKind::kFrequency, buffer, autoStart, status);
}

SIM_EXPORT uint32_t zqvorexSim_writeVectorCounterHighAndLowTimesF64(zqvorexPlugin_Task_undefined* task,
                                                                    uint32_t, zqgopher_IArrayBuffer* buffer,
                                                                    const zqvorexPlugin_ReadLayout*,
                                                                    bool autoStart, double, void*,
                                                                    zqerr_Status* status) {
  return writePairBuffer(task, PairKind::kTime, buffer, autoStart, status);
}

SIM_EXPORT uint32_t zqvorexSim_writeVectorCounterHighAndLowTicksU32(zqvorexPlugin_Task_undefined* task,
                                                                    uint32_t, zqgopher_IArrayBuffer* buffer,
                                                                    const zqvorexPlugin_ReadLayout*,
                                                                    bool autoStart, double, void*,
                                                                    zqerr_Status* status) {
  return writePairBuffer(task, PairKind::kTicks, buffer, autoStart, status);
}

SIM_EXPORT uint32_t zqvorexSim_writeScalarCounterDutyCycleAndFrequencyF64(
    zqvorexPlugin_Task_undefined* task, uint32_t, bool autoStart, double,
    zqvorexPlugin_DutyCycleAndFrequencyF64 value, void*, zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    return writePairs(t, PairKind::kFrequency, &value, 1, autoStart, status);
  });
}

SIM_EXPORT uint32_t zqvorexSim_writeScalarCounterHighAndLowTimesF64(zqvorexPlugin_Task_undefined* task,
                                                                    uint32_t, bool autoStart, double,
                                                                    zqvorexPlugin_HighAndLowTimesF64 value,
                                                                    void*, zqerr_Status* status) {
  return onTask<uint32_t>(
      task, status, [&](SimTask& t) { return writePairs(t, PairKind::kTime, &value, 1, autoStart, status); });
}

SIM_EXPORT uint32_t zqvorexSim_writeScalarCounterHighAndLowTicksU32(zqvorexPlugin_Task_undefined* task,
                                                                    uint32_t, bool autoStart, double,
                                                                    zqvorexPlugin_HighAndLowTicksU32 value,
                                                                    void*, zqerr_Status* status) {
  return onTask<uint32_t>(task, status, [&](SimTask& t) {
    return writePairs(t, PairKind::kTicks, &value, 1, autoStart, status);
  });
}

SIM_EXPORT zqvorexPlugin_EventToken zqvorexSim_registerEveryNSamplesEvent(zqvorexPlugin_Task_undefined* task,
                                                                          int32_t eventId, uint32_t nSamples,
                                                                          bool,
                                                                          zqgopher_IEventEveryNSamples* event,
                                                                          zqerr_Status* status) {
  return onTask<zqvorexPlugin_EventToken>(task, status, [&](SimTask& t) {
    return registerEvent(t, eventId, nSamples, 0, reinterpret_cast<zqgopher_IEventBase*>(event), status);
  });
}

SIM_EXPORT zqvorexPlugin_EventToken zqvorexSim_registerDoneEvent(zqvorexPlugin_Task_undefined* task, bool,
                                                                 zqgopher_IEventDone* event,
                                                                 zqerr_Status* status) {
  return onTask<zqvorexPlugin_EventToken>(task, status, [&](SimTask& t) {
    return registerEvent(t, val::kEventDone, 0, 0, reinterpret_cast<zqgopher_IEventBase*>(event), status);
  });
}

SIM_EXPORT zqvorexPlugin_EventToken zqvorexSim_registerSignalEvent(zqvorexPlugin_Task_undefined* task,
                                                                   int32_t signalID, bool,
                                                                   zqgopher_IEventSignal* event,
                                                                   zqerr_Status* status) {
  return onTask<zqvorexPlugin_EventToken>(task, status, [&](SimTask& t) {
    return registerEvent(t, val::kEventSignal, 0, signalID, reinterpret_cast<zqgopher_IEventBase*>(event),
                         status);
  });
}

SIM_EXPORT void zqvorexSim_unregisterEvent(zqvorexPlugin_Task_undefined* task, zqvorexPlugin_EventToken token,
                                           zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) unregisterEvent(*t, token, status);
  });
}

SIM_SIGNATURE(readLineVectorU8);
SIM_SIGNATURE(readRawU8);
SIM_SIGNATURE(readScaledScalarF64);
SIM_SIGNATURE(readBinaryScalarU32);
SIM_SIGNATURE(readPortScalarU32);
SIM_SIGNATURE(readScalarCounterDutyCycleAndFrequencyF64);
SIM_SIGNATURE(readScalarCounterHighAndLowTimesF64);
SIM_SIGNATURE(readScalarCounterHighAndLowTicksU32);
SIM_SIGNATURE(writeScaledVectorF64);
SIM_SIGNATURE(writeScaledScalarF64);
SIM_SIGNATURE(writeBinaryVectorI16);
SIM_SIGNATURE(writeBinaryVectorI32);
SIM_SIGNATURE(writeLineVectorU8);
SIM_SIGNATURE(writePortScalarU32);
SIM_SIGNATURE(writeVectorCounterDutyCycleAndFrequencyF64);
SIM_SIGNATURE(writeVectorCounterHighAndLowTimesF64);
SIM_SIGNATURE(writeVectorCounterHighAndLowTicksU32);
SIM_SIGNATURE(writeScalarCounterDutyCycleAndFrequencyF64);
SIM_SIGNATURE(writeScalarCounterHighAndLowTimesF64);
SIM_SIGNATURE(writeScalarCounterHighAndLowTicksU32);
SIM_SIGNATURE(registerEveryNSamplesEvent);
SIM_SIGNATURE(registerDoneEvent);
SIM_SIGNATURE(registerSignalEvent);
SIM_SIGNATURE(unregisterEvent);
