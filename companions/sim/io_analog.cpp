// Analog input reads and analog output writes.
#include <cmath>
#include <limits>

#include "counter_io.h"
#include "input_read.h"
#include "sim_values.h"
#include "task_io.h"

namespace zqsim {

namespace {

using namespace val;

bool byScan(const zqvorexPlugin_ReadLayout* layout) { return layout && layout->groupByScanNumber != 0; }

// The plans with what the inputs see now: an output may have been written since the start.
void refreshViews(SimTask& task) {
  for (size_t c = 0; c < task.run->plans.size(); ++c)
    task.run->plans[c].view = task.channels[c].device->input(task.channels[c].physical.front().index);
}

double recordingOrigin(const Run& run) {
  return run.timeline && run.timeline->ready() ? run.timeline->timeOf(0) : run.start;
}

template <class T>
uint32_t readCodes(SimTask& task, zqgopher_IArrayBuffer* buffer, bool scan, int64_t samples, double timeout,
                   zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kAI, kCI}, "binary read", status)) return 0;
  if (task.kind() == kCI) return readCounterTicks<T>(task, lock, buffer, scan, samples, timeout, status);
  const auto channels = static_cast<uint32_t>(task.channels.size());
  return readSamples(
      task, lock, samples, timeout,
      [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status* s) {
        T* out = shapeBuffer<T>(buffer, channels, count, s);
        if (!isOpen(s)) return false;
        if (!out) return true;
        refreshViews(task);
        const double origin = recordingOrigin(*task.run);
        const std::vector<AnalogPlan>& plans = task.run->plans;
        for (uint32_t c = 0; c < channels; ++c) {
          for (uint64_t k = 0; k < count; ++k) {
            const int16_t code =
                plans[c].scale.code(plans[c].scale.toUnits(plans[c].view.value(times.at(k), origin)));
            out[scan ? k * channels + c : c * count + k] = static_cast<T>(code);
          }
        }
        return true;
      },
      status);
}

// The output's scale: 16-bit codes over its range.
AnalogScale outputScale(const Channel& channel) {
  AnalogScale scale;
  const bool current = channel.type == kMeasCurrent;
  scale.low = current ? -DeviceModel::kOutputCurrentHigh : -DeviceModel::kOutputVoltageRange;
  scale.high = current ? DeviceModel::kOutputCurrentHigh : DeviceModel::kOutputVoltageRange;
  return scale;
}

// What the analog input wired to the output sees: a current output through the shunt.
double electricalOf(const Channel& channel, double value) {
  return channel.type == kMeasCurrent ? value * DeviceModel::kShuntOhms : value;
}

bool checkOutputValues(const SimTask& task, const double* data, uint64_t count, bool scan,
                       zqerr_Status* status) {
  const size_t channels = task.channels.size();
  for (size_t c = 0; c < channels; ++c) {
    const Channel& channel = task.channels[c];
    const double low = channel.f64(Vorex_AOMin);
    const double high = channel.f64(Vorex_AOMax);
    for (uint64_t k = 0; k < count; ++k) {
      const double v = data[scan ? k * channels + c : c * count + k];
      if (v >= low && v <= high) continue;
      SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
               Items()
                   .f64(usage::kValueRequested, v)
                   .f64(usage::kMinimum, low)
                   .f64(usage::kMaximum, high)
                   .text(usage::kChannelName, channel.name)
                   .u64("kUsageTypeSampleIndex", k));
      return false;
    }
  }
  return true;
}

// On-demand outputs change at once; the last sample of each channel stays.
void writeNow(SimTask& task, const double* data, uint64_t count, bool scan) {
  const size_t channels = task.channels.size();
  for (size_t c = 0; c < channels; ++c) {
    const Channel& channel = task.channels[c];
    const double v =
        outputScale(channel).quantize(data[scan ? (count - 1) * channels + c : c * count + count - 1]);
    channel.device->driveOutput(channel.physical.front().index, channel.device->now(),
                                std::make_shared<ConstantOutput>(electricalOf(channel, v)), task.id);
  }
}

std::shared_ptr<OutputStream> streamFor(SimTask& task, uint64_t count) {
  if (task.pendingStream && !task.pendingStream->everStarted()) return task.pendingStream;
  const bool regenerate = task.settingI32(Vorex_WriteRegenMode) != kDoNotAllowRegen;
  uint64_t capacity = task.outputBufferSize();
  if (task.buffer.count(Vorex_BufOutputBufSize) == 0) {
    const uint64_t perRate = task.rate() <= 10000 ? 10000 : task.rate() <= 1e6 ? 100000 : 1000000;
    capacity = regenerate || task.finite()
                   ? std::max<uint64_t>(count, task.finite() ? task.samplesPerChannel() : 0)
                   : std::max(count, perRate);
  }
  std::vector<double> before(task.channels.size(), 0.0);
  task.pendingStream = std::make_shared<OutputStream>(before, std::max<uint64_t>(capacity, 1), regenerate);
  return task.pendingStream;
}

uint32_t writeBuffered(SimTask& task, std::unique_lock<std::mutex>& lock, const double* data, uint64_t count,
                       bool scan, bool autoStart, double timeout, zqerr_Status* status) {
  std::shared_ptr<OutputStream> stream =
      task.running && task.run && task.run->stream ? task.run->stream : streamFor(task, count);
  uint64_t written = 0;
  const int outcome = task.waitFor(
      lock, timeout,
      [&] {
        if (written < count) written += stream->write(data, count, written, scan, task.device()->now());
        return written >= count || (task.run && task.run->error != 0);
      },
      [&] {
        // Room comes when the generation takes the oldest sample still to be generated.
        const uint64_t pending = stream->written();
        return pending >= stream->capacity() ? task.progressTime(pending - stream->capacity() + 1)
                                             : std::numeric_limits<double>::quiet_NaN();
      });
  if (task.reportRunError(status)) return static_cast<uint32_t>(written);
  if (outcome < 0) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationAborted, Items().text(usage::kTaskName, task.name));
  } else if (written < count) {
    SIM_FAIL(status, nZQMDEV::kErrorWriteTimeout,
             Items()
                 .f64(usage::kTimeout, timeout)
                 .u64(usage::kSamplesWritten, written)
                 .u64(usage::kBufferSize, stream->capacity()));
  }
  if (autoStart && !task.running && isOpen(status)) task.start(false, status);
  task.changed.notify_all();
  return static_cast<uint32_t>(written);
}

uint32_t writeValues(SimTask& task, std::unique_lock<std::mutex>& lock, const double* data, uint64_t count,
                     bool scan, bool autoStart, double timeout, zqerr_Status* status) {
  if (!checkOutputValues(task, data, count, scan, status)) return 0;
  if (task.settingI32(Vorex_SampTimingType) != kOnDemand)
    return writeBuffered(task, lock, data, count, scan, autoStart, timeout, status);
  const bool started = startForAccess(task, autoStart, status);
  if (!isOpen(status)) return 0;
  if (count > 0) writeNow(task, data, count, scan);
  finishAccess(task, started);
  return static_cast<uint32_t>(count);
}

}  // namespace

uint32_t readScaled(SimTask& task, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                    int64_t samples, double timeout, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kAI, kCI}, "scaled read", status)) return 0;
  const bool scan = byScan(layout);
  if (task.kind() == kCI) return readCounterScaled(task, lock, buffer, scan, samples, timeout, status);
  const auto channels = static_cast<uint32_t>(task.channels.size());
  return readSamples(
      task, lock, samples, timeout,
      [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status* s) {
        double* out = shapeBuffer<double>(buffer, channels, count, s);
        if (!isOpen(s)) return false;
        if (!out) return true;
        refreshViews(task);
        computeScaled(task.run->plans, times, count, recordingOrigin(*task.run), out, scan);
        return true;
      },
      status);
}

uint32_t readScaledScalar(SimTask& task, double timeout, double* value, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kAI, kCI}, "scalar read", status)) return 0;
  if (!value) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  if (task.channels.size() != 1) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationNotSupportedForChannels,
             Items()
                 .text(usage::kOperation, "scalar read")
                 .u32("kUsageTypeNumberOfChannelsInTask", static_cast<uint32_t>(task.channels.size())));
    return 0;
  }
  if (task.kind() == kCI) return readCounterScalar(task, lock, timeout, value, status);
  return readSamples(
             task, lock, 1, timeout,
             [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status*) {
               if (count == 0) return true;
               refreshViews(task);
               *value = scaledSample(task.run->plans[0], times.at(0), recordingOrigin(*task.run));
               return true;
             },
             status) != 0;
}

template <class T>
uint32_t readBinary(SimTask& task, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                    int64_t samples, double timeout, zqerr_Status* status) {
  return readCodes<T>(task, buffer, byScan(layout), samples, timeout, status);
}
template uint32_t readBinary<int16_t>(SimTask&, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                      int64_t, double, zqerr_Status*);
template uint32_t readBinary<uint16_t>(SimTask&, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                       int64_t, double, zqerr_Status*);
template uint32_t readBinary<int32_t>(SimTask&, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                      int64_t, double, zqerr_Status*);
template uint32_t readBinary<uint32_t>(SimTask&, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                       int64_t, double, zqerr_Status*);

uint32_t readBinaryScalar(SimTask& task, double timeout, uint32_t* value, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kCI}, "counter read", status)) return 0;
  if (!value) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  return readCounterTicksScalar(task, lock, timeout, value, status);
}

uint32_t readRaw(SimTask& task, zqgopher_IArrayBuffer* buffer, int64_t samples, double timeout,
                 uint32_t* bytesPerSample, zqerr_Status* status) {
  if (bytesPerSample) *bytesPerSample = 2;
  if (!buffer) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  // The bytes of the codes, interleaved by scan, as the converter delivers them.
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kAI}, "raw read", status)) return 0;
  const auto channels = static_cast<uint32_t>(task.channels.size());
  return readSamples(
      task, lock, samples, timeout,
      [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status* s) {
        auto* out = shapeBuffer<uint8_t>(buffer, 1, count * channels * 2, s);
        if (!isOpen(s)) return false;
        if (!out) return true;
        refreshViews(task);
        const double origin = recordingOrigin(*task.run);
        for (uint64_t k = 0; k < count; ++k) {
          for (uint32_t c = 0; c < channels; ++c) {
            const AnalogPlan& p = task.run->plans[c];
            const auto code =
                static_cast<uint16_t>(p.scale.code(p.scale.toUnits(p.view.value(times.at(k), origin))));
            out[(k * channels + c) * 2] = static_cast<uint8_t>(code & 0xFF);
            out[(k * channels + c) * 2 + 1] = static_cast<uint8_t>(code >> 8);
          }
        }
        return true;
      },
      status);
}

uint32_t writeScaled(SimTask& task, const zqgopher_IArrayBuffer* buffer,
                     const zqvorexPlugin_ReadLayout* layout, bool autoStart, double timeout,
                     zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kAO}, "analog write", status)) return 0;
  const uint64_t count = writeCount(buffer, static_cast<uint32_t>(task.channels.size()), status);
  if (!isOpen(status)) return 0;
  const auto* data = count ? static_cast<const double*>(buffer->table->getData(buffer, 0, status)) : nullptr;
  if (!isOpen(status)) return 0;
  return writeValues(task, lock, data, count, byScan(layout), autoStart, timeout, status);
}

uint32_t writeScaledScalar(SimTask& task, bool autoStart, double timeout, double value,
                           zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kAO}, "analog write", status)) return 0;
  if (task.channels.size() != 1) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationNotSupportedForChannels,
             Items()
                 .text(usage::kOperation, "scalar write")
                 .u32("kUsageTypeNumberOfChannelsInTask", static_cast<uint32_t>(task.channels.size())));
    return 0;
  }
  return writeValues(task, lock, &value, 1, false, autoStart, timeout, status);
}

template <class T>
uint32_t writeBinary(SimTask& task, const zqgopher_IArrayBuffer* buffer,
                     const zqvorexPlugin_ReadLayout* layout, bool autoStart, double timeout,
                     zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kAO}, "binary write", status)) return 0;
  const auto channels = static_cast<uint32_t>(task.channels.size());
  const uint64_t count = writeCount(buffer, channels, status);
  if (!isOpen(status)) return 0;
  const auto* codes = count ? static_cast<const T*>(buffer->table->getData(buffer, 0, status)) : nullptr;
  if (!isOpen(status)) return 0;
  std::vector<double> values(count * channels);
  const bool scan = byScan(layout);
  for (uint32_t c = 0; c < channels; ++c) {
    const AnalogScale scale = outputScale(task.channels[c]);
    for (uint64_t k = 0; k < count; ++k) {
      const size_t at = scan ? k * channels + c : c * count + k;
      const auto code =
          static_cast<int16_t>(std::clamp<int64_t>(static_cast<int64_t>(codes[at]), -32768, 32767));
      values[at] = scale.fromCode(code);
    }
  }
  return writeValues(task, lock, values.data(), count, scan, autoStart, timeout, status);
}
template uint32_t writeBinary<int16_t>(SimTask&, const zqgopher_IArrayBuffer*,
                                       const zqvorexPlugin_ReadLayout*, bool, double, zqerr_Status*);
template uint32_t writeBinary<int32_t>(SimTask&, const zqgopher_IArrayBuffer*,
                                       const zqvorexPlugin_ReadLayout*, bool, double, zqerr_Status*);

}  // namespace zqsim
