#include "counter_io.h"

#include <cmath>
#include <limits>

#include "input_read.h"
#include "sim_values.h"

namespace zqsim {

namespace {

using namespace val;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// Consecutive measurements share an edge: the next one may begin at the edge that ended this.
constexpr double kEdgeSlack = 1e-10;

bool counts(const Channel& c) {
  return c.type == kMeasCountEdges || c.type == kMeasLinEncoder || c.type == kMeasAngEncoder;
}

// Measurements one after another, each handed to `emit`; waits for them up to the timeout.
uint32_t measure(SimTask& task, std::unique_lock<std::mutex>& lock, uint64_t wanted, double timeout,
                 const std::function<void(uint64_t, const Measurement&)>& emit, zqerr_Status* status) {
  const bool started = startForAccess(task, task.settingI32(Vorex_ReadAutoStart) != 0, status);
  if (!isOpen(status)) return 0;
  std::shared_ptr<Run> run = task.run;
  const Channel& channel = task.channels.front();
  // On demand, a measurement begins after the read is asked for.
  double cursor = run->onDemand ? std::max(run->measureCursor, task.device()->now()) : run->measureCursor;
  uint64_t got = 0;
  double expected = kNaN;
  Measurement m;
  const int outcome = task.waitFor(
      lock, timeout,
      [&] {
        while (got < wanted && nextMeasurement(channel, cursor, task.device()->now(), &m, &expected)) {
          emit(got++, m);
          cursor = m.end - kEdgeSlack;
        }
        return got >= wanted;
      },
      [&] { return expected; });
  if (task.run == run) run->measureCursor = cursor;
  if (outcome < 0) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationAborted, Items().text(usage::kTaskName, task.name));
  } else if (got < wanted) {
    SIM_FAIL(status, nZQMDEV::kErrorReadTimeout,
             Items()
                 .f64(usage::kTimeout, timeout)
                 .u64(usage::kRequestedSamples, wanted)
                 .u64(usage::kAvailableSamples, got)
                 .text(usage::kTerminal, channel.name));
  }
  finishAccess(task, started);
  return static_cast<uint32_t>(got);
}

uint64_t wantedMeasurements(const SimTask& task, int64_t samples) {
  if (samples >= 0) return static_cast<uint64_t>(samples);
  const bool finite = task.settingI32(Vorex_SampTimingType) == kImplicit && task.finite();
  return finite ? task.samplesPerChannel() : 1;
}

template <class T, class Value>
uint32_t readCounts(SimTask& task, std::unique_lock<std::mutex>& lock, zqgopher_IArrayBuffer* buffer,
                    bool scan, int64_t samples, double timeout, Value value, zqerr_Status* status) {
  const auto channels = static_cast<uint32_t>(task.channels.size());
  return readSamples(
      task, lock, samples, timeout,
      [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status* s) {
        T* out = shapeBuffer<T>(buffer, channels, count, s);
        if (!isOpen(s)) return false;
        for (uint32_t c = 0; out && c < channels; ++c)
          for (uint64_t k = 0; k < count; ++k)
            out[scan ? k * channels + c : c * count + k] = value(task.channels[c], times.at(k));
        return true;
      },
      status);
}

}  // namespace

uint32_t readCounterScaled(SimTask& task, std::unique_lock<std::mutex>& lock, zqgopher_IArrayBuffer* buffer,
                           bool byScan, int64_t samples, double timeout, zqerr_Status* status) {
  if (counts(task.channels.front())) {
    return readCounts<double>(
        task, lock, buffer, byScan, samples, timeout,
        [&](const Channel& c, double tau) { return counterValue(task, c, tau); }, status);
  }
  const uint64_t wanted = wantedMeasurements(task, samples);
  double* out = shapeBuffer<double>(buffer, 1, wanted, status);
  if (!isOpen(status)) return 0;
  const uint32_t got = measure(
      task, lock, wanted, timeout, [&](uint64_t i, const Measurement& m) { out[i] = m.value; }, status);
  if (got < wanted) {
    LocalStatus own;
    buffer->table->resize(buffer, 1, got, &own);
  }
  return got;
}

template <class T>
uint32_t readCounterTicks(SimTask& task, std::unique_lock<std::mutex>& lock, zqgopher_IArrayBuffer* buffer,
                          bool byScan, int64_t samples, double timeout, zqerr_Status* status) {
  if (!counts(task.channels.front())) {
    const uint64_t wanted = wantedMeasurements(task, samples);
    T* out = shapeBuffer<T>(buffer, 1, wanted, status);
    if (!isOpen(status)) return 0;
    return measure(
        task, lock, wanted, timeout,
        [&](uint64_t i, const Measurement& m) { out[i] = static_cast<T>(m.value); }, status);
  }
  return readCounts<T>(
      task, lock, buffer, byScan, samples, timeout,
      [&](const Channel& c, double tau) { return static_cast<T>(counterTicks(task, c, tau)); }, status);
}
template uint32_t readCounterTicks<int16_t>(SimTask&, std::unique_lock<std::mutex>&, zqgopher_IArrayBuffer*,
                                            bool, int64_t, double, zqerr_Status*);
template uint32_t readCounterTicks<uint16_t>(SimTask&, std::unique_lock<std::mutex>&, zqgopher_IArrayBuffer*,
                                             bool, int64_t, double, zqerr_Status*);
template uint32_t readCounterTicks<int32_t>(SimTask&, std::unique_lock<std::mutex>&, zqgopher_IArrayBuffer*,
                                            bool, int64_t, double, zqerr_Status*);
template uint32_t readCounterTicks<uint32_t>(SimTask&, std::unique_lock<std::mutex>&, zqgopher_IArrayBuffer*,
                                             bool, int64_t, double, zqerr_Status*);

uint32_t readCounterScalar(SimTask& task, std::unique_lock<std::mutex>& lock, double timeout, double* value,
                           zqerr_Status* status) {
  if (counts(task.channels.front())) {
    const uint32_t got = readSamples(
        task, lock, 1, timeout,
        [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status*) {
          if (count) *value = counterValue(task, task.channels.front(), times.at(0));
          return true;
        },
        status);
    return got;
  }
  return measure(
      task, lock, 1, timeout, [&](uint64_t, const Measurement& m) { *value = m.value; }, status);
}

uint32_t readCounterTicksScalar(SimTask& task, std::unique_lock<std::mutex>& lock, double timeout,
                                uint32_t* value, zqerr_Status* status) {
  if (counts(task.channels.front())) {
    return readSamples(
        task, lock, 1, timeout,
        [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status*) {
          if (count) *value = counterTicks(task, task.channels.front(), times.at(0));
          return true;
        },
        status);
  }
  return measure(
      task, lock, 1, timeout,
      [&](uint64_t, const Measurement& m) { *value = static_cast<uint32_t>(m.value); }, status);
}

uint32_t readPairs(SimTask& task, PairKind kind, zqgopher_IArrayBuffer* buffer, int64_t samples,
                   double timeout, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kCI}, "counter pair read", status)) return 0;
  if (counts(task.channels.front())) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationNotSupportedForChannels,
             Items()
                 .text(usage::kOperation, "counter pair read")
                 .text(usage::kChannelName, task.channels.front().name));
    return 0;
  }
  const uint64_t wanted = wantedMeasurements(task, samples);
  void* out = shapeBuffer<uint8_t>(buffer, 1, wanted, status);
  if (!isOpen(status)) return 0;
  return measure(
      task, lock, wanted, timeout,
      [&](uint64_t i, const Measurement& m) {
        const double period = m.high + m.low;
        if (kind == PairKind::kFrequency) {
          static_cast<zqvorexPlugin_DutyCycleAndFrequencyF64*>(out)[i] = {m.high / period, 1.0 / period};
        } else if (kind == PairKind::kTime) {
          static_cast<zqvorexPlugin_HighAndLowTimesF64*>(out)[i] = {m.high, m.low};
        } else {
          static_cast<zqvorexPlugin_HighAndLowTicksU32*>(out)[i] = {
              static_cast<uint32_t>(std::llround(m.high * DeviceModel::kTimebase)),
              static_cast<uint32_t>(std::llround(m.low * DeviceModel::kTimebase))};
        }
      },
      status);
}

uint32_t readPairScalar(SimTask& task, PairKind kind, double timeout, void* pair, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kCI}, "counter pair read", status)) return 0;
  if (!pair) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  return measure(
      task, lock, 1, timeout,
      [&](uint64_t, const Measurement& m) {
        const double period = m.high + m.low;
        if (kind == PairKind::kFrequency) {
          *static_cast<zqvorexPlugin_DutyCycleAndFrequencyF64*>(pair) = {m.high / period, 1.0 / period};
        } else if (kind == PairKind::kTime) {
          *static_cast<zqvorexPlugin_HighAndLowTimesF64*>(pair) = {m.high, m.low};
        } else {
          *static_cast<zqvorexPlugin_HighAndLowTicksU32*>(pair) = {
              static_cast<uint32_t>(std::llround(m.high * DeviceModel::kTimebase)),
              static_cast<uint32_t>(std::llround(m.low * DeviceModel::kTimebase))};
        }
      },
      status);
}

uint32_t writePairs(SimTask& task, PairKind kind, const void* pairs, uint64_t count, bool autoStart,
                    zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kCO}, "counter write", status)) return 0;
  if (count == 0) return 0;
  if (!pairs) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  const int32_t wantedType = kind == PairKind::kFrequency ? kPulseFreq
                             : kind == PairKind::kTime    ? kPulseTime
                                                          : kPulseTicks;
  for (const Channel& channel : task.channels) {
    if (channel.type == wantedType) continue;
    SIM_FAIL(status, nZQMDEV::kErrorOperationNotSupportedForChannels,
             Items().text(usage::kOperation, "counter write").text(usage::kChannelName, channel.name));
    return 0;
  }
  // A pulse train takes the last setting each channel was given.
  for (size_t c = 0; c < task.channels.size(); ++c) {
    Channel& channel = task.channels[c];
    const uint64_t at = c * count + count - 1;
    Store next = channel.store;
    if (kind == PairKind::kFrequency) {
      const auto p = static_cast<const zqvorexPlugin_DutyCycleAndFrequencyF64*>(pairs)[at];
      next[Vorex_COPulseFreq] = Value::f64(p.frequency);
      next[Vorex_COPulseDutyCyc] = Value::f64(p.dutyCycle);
    } else if (kind == PairKind::kTime) {
      const auto p = static_cast<const zqvorexPlugin_HighAndLowTimesF64*>(pairs)[at];
      next[Vorex_COPulseHighTime] = Value::f64(p.highTime);
      next[Vorex_COPulseLowTime] = Value::f64(p.lowTime);
    } else {
      const auto p = static_cast<const zqvorexPlugin_HighAndLowTicksU32*>(pairs)[at];
      next[Vorex_COPulseHighTicks] = Value::u32(p.highTicks);
      next[Vorex_COPulseLowTicks] = Value::u32(p.lowTicks);
    }
    const Store previous = channel.store;
    channel.store = next;
    if (!checkCounterChannels(task, status)) {
      channel.store = previous;
      return 0;
    }
  }
  if (task.running) {
    changePulses(task, status);
  } else if (autoStart) {
    task.start(false, status);
  }
  return isOpen(status) ? static_cast<uint32_t>(count) : 0;
}

}  // namespace zqsim
