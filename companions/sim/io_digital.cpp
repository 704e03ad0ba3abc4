// Digital reads and writes: a line reads what drives it (a digital output's last write, a
// counter output or an exported signal on its PFI terminal), and a write drives the lines.
#include "input_read.h"
#include "sim_values.h"
#include "task_io.h"

namespace zqsim {

namespace {

using namespace val;

bool byScan(const zqvorexPlugin_ReadLayout* layout) { return layout && layout->groupByScanNumber != 0; }

std::vector<SignalPtr> lineSignals(const Channel& channel) {
  std::vector<SignalPtr> lines;
  for (const PhysicalName& p : channel.physical) lines.push_back(channel.device->line(p.index, p.line));
  return lines;
}

uint32_t channelValue(const Channel& channel, const std::vector<SignalPtr>& lines, double tau) {
  uint32_t value = 0;
  for (size_t i = 0; i < lines.size() && i < 32; ++i)
    if (lines[i]->level(tau)) value |= 1u << i;
  if (channel.flag(Vorex_DIInvertLines)) value ^= lines.size() >= 32 ? ~0u : (1u << lines.size()) - 1;
  return value;
}

void driveLines(SimTask& task, const Channel& channel, uint32_t value, double tau) {
  const bool invert = channel.flag(Vorex_DOInvertLines);
  for (size_t i = 0; i < channel.physical.size() && i < 32; ++i) {
    const bool level = ((value >> i) & 1u) != 0;
    channel.device->writeLine(channel.physical[i].index, channel.physical[i].line, level != invert, tau,
                              task.id);
  }
}

uint32_t writeValues(SimTask& task, const std::vector<uint32_t>& lastValues, bool autoStart,
                     zqerr_Status* status) {
  const bool started = startForAccess(task, autoStart, status);
  if (!isOpen(status)) return 0;
  const double now = task.device()->now();
  for (size_t c = 0; c < task.channels.size(); ++c) driveLines(task, task.channels[c], lastValues[c], now);
  finishAccess(task, started);
  return 1;
}

}  // namespace

template <class T>
uint32_t readPort(SimTask& task, zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                  int64_t samples, double timeout, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kDI}, "digital read", status)) return 0;
  const bool scan = byScan(layout);
  const auto channels = static_cast<uint32_t>(task.channels.size());
  return readSamples(
      task, lock, samples, timeout,
      [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status* s) {
        T* out = shapeBuffer<T>(buffer, channels, count, s);
        if (!isOpen(s)) return false;
        for (uint32_t c = 0; out && c < channels; ++c) {
          const std::vector<SignalPtr> lines = lineSignals(task.channels[c]);
          for (uint64_t k = 0; k < count; ++k)
            out[scan ? k * channels + c : c * count + k] =
                static_cast<T>(channelValue(task.channels[c], lines, times.at(k)));
        }
        return true;
      },
      status);
}
template uint32_t readPort<uint8_t>(SimTask&, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                    int64_t, double, zqerr_Status*);
template uint32_t readPort<uint16_t>(SimTask&, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                     int64_t, double, zqerr_Status*);
template uint32_t readPort<uint32_t>(SimTask&, zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                     int64_t, double, zqerr_Status*);

uint32_t readLines(SimTask& task, zqgopher_IArrayLineBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                   int64_t samples, double timeout, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kDI}, "line read", status)) return 0;
  if (!buffer) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  const bool scan = byScan(layout);
  std::vector<uint32_t> linesPerChannel;
  uint64_t bytesPerScan = 0;
  for (const Channel& channel : task.channels) {
    linesPerChannel.push_back(static_cast<uint32_t>(channel.physical.size()));
    bytesPerScan += channel.physical.size();
  }
  return readSamples(
      task, lock, samples, timeout,
      [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status* s) {
        const zqgopher_ArrayView view{linesPerChannel.data(), linesPerChannel.size()};
        buffer->table->resize(buffer, &view, count, s);
        if (!isOpen(s) || count == 0) return isOpen(s);
        auto* out = static_cast<uint8_t*>(buffer->table->getMutableData(buffer, 0, s));
        if (!out) return isOpen(s);
        uint64_t channelStart = 0;  // the channel's first line within a scan
        for (const Channel& channel : task.channels) {
          const std::vector<SignalPtr> lines = lineSignals(channel);
          const bool invert = channel.flag(Vorex_DIInvertLines);
          for (uint64_t k = 0; k < count; ++k) {
            for (size_t l = 0; l < lines.size(); ++l) {
              const uint64_t at =
                  scan ? k * bytesPerScan + channelStart + l : channelStart * count + k * lines.size() + l;
              out[at] = (lines[l]->level(times.at(k)) != invert) ? 1 : 0;
            }
          }
          channelStart += lines.size();
        }
        return true;
      },
      status);
}

uint32_t readPortScalar(SimTask& task, double timeout, uint32_t* value, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kDI}, "digital read", status)) return 0;
  if (!value) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  return readSamples(
      task, lock, 1, timeout,
      [&](uint64_t, const SampleTimes& times, uint64_t count, zqerr_Status*) {
        const Channel& channel = task.channels.front();
        if (count) *value = channelValue(channel, lineSignals(channel), times.at(0));
        return true;
      },
      status);
}

template <class T>
uint32_t writePort(SimTask& task, const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                   bool autoStart, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kDO}, "digital write", status)) return 0;
  const auto channels = static_cast<uint32_t>(task.channels.size());
  const uint64_t count = writeCount(buffer, channels, status);
  if (!isOpen(status) || count == 0) return 0;
  const auto* data = static_cast<const T*>(buffer->table->getData(buffer, 0, status));
  if (!isOpen(status)) return 0;
  const bool scan = byScan(layout);
  std::vector<uint32_t> last(channels);
  for (uint32_t c = 0; c < channels; ++c)
    last[c] = static_cast<uint32_t>(data[scan ? (count - 1) * channels + c : c * count + count - 1]);
  return writeValues(task, last, autoStart, status) ? static_cast<uint32_t>(count) : 0;
}
template uint32_t writePort<uint8_t>(SimTask&, const zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                     bool, zqerr_Status*);
template uint32_t writePort<uint16_t>(SimTask&, const zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                      bool, zqerr_Status*);
template uint32_t writePort<uint32_t>(SimTask&, const zqgopher_IArrayBuffer*, const zqvorexPlugin_ReadLayout*,
                                      bool, zqerr_Status*);

uint32_t writeLines(SimTask& task, const zqgopher_IArrayLineBuffer* buffer,
                    const zqvorexPlugin_ReadLayout* layout, bool autoStart, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kDO}, "line write", status)) return 0;
  if (!buffer) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  const uint32_t given = buffer->table->getNumChannels(buffer, status);
  const uint64_t count = given ? buffer->table->getNumSampsPerChan(buffer, 0, status) : 0;
  if (!isOpen(status) || count == 0) return 0;
  const auto* data = static_cast<const uint8_t*>(buffer->table->getData(buffer, 0, status));
  if (!isOpen(status)) return 0;
  const bool scan = byScan(layout);
  uint64_t bytesPerScan = 0;
  for (const Channel& channel : task.channels) bytesPerScan += channel.physical.size();
  std::vector<uint32_t> last;
  uint64_t channelStart = 0;
  for (const Channel& channel : task.channels) {
    uint32_t value = 0;
    const uint64_t k = count - 1;
    for (size_t l = 0; l < channel.physical.size() && l < 32; ++l) {
      const uint64_t at =
          scan ? k * bytesPerScan + channelStart + l : channelStart * count + k * channel.physical.size() + l;
      if (data[at]) value |= 1u << l;
    }
    last.push_back(value);
    channelStart += channel.physical.size();
  }
  return writeValues(task, last, autoStart, status) ? static_cast<uint32_t>(count) : 0;
}

uint32_t writePortScalar(SimTask& task, bool autoStart, uint32_t value, zqerr_Status* status) {
  std::unique_lock<std::mutex> lock(task.mutex);
  if (!requireKind(task, {kDO}, "digital write", status)) return 0;
  return writeValues(task, std::vector<uint32_t>(task.channels.size(), value), autoStart, status);
}

}  // namespace zqsim
