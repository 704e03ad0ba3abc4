#include "device.h"

#include <cmath>

#include "platform.h"
#include "sim_device_settings.h"
#include "sim_status.h"
#include "storage_link.h"
#include "text_util.h"

namespace zqsim {

namespace {

constexpr size_t kKeptSpans = 256;
constexpr int32_t kPropertyMissing = -201266;

struct Registry {
  std::mutex mutex;
  std::map<std::string, std::shared_ptr<Device>> devices;
};

// Never destroyed: tasks abandoned at process exit may still use their devices.
Registry& registry() {
  static auto* r = new Registry;
  return *r;
}

double speedFromEnvironment() {
  const auto speed = parseReal(platform::environmentText(settings::kSpeedVariable));
  return speed && *speed > 0 && std::isfinite(*speed) ? *speed : 0;
}

template <class Span>
void keepRecent(std::vector<Span>& spans) {
  if (spans.size() > kKeptSpans)
    spans.erase(spans.begin(), spans.begin() + static_cast<std::ptrdiff_t>(spans.size() - kKeptSpans));
}

// The PFI terminal of a line, when it has one.
bool pfiOfLine(uint32_t port, uint32_t line, uint32_t* pfi) {
  if (port < DeviceModel::kFirstPfiPort) return false;
  *pfi = (port - DeviceModel::kFirstPfiPort) * DeviceModel::kLinesPerPort + line;
  return *pfi < DeviceModel::kPfiTerminals;
}

}  // namespace

double InputView::value(double tau, double origin) const {
  for (auto it = drives.rbegin(); it != drives.rend(); ++it) {
    if (it->from <= tau && tau < it->to) {
      return it->source->value(tau) + wave.noise(tau);
    }
  }
  return wave.at(tau, origin);
}

void InputView::fill(const SampleTimes& times, uint64_t count, double origin, double* out,
                     size_t stride) const {
  if (drives.empty()) {
    wave.fill(times, count, origin, out, stride);
    return;
  }
  for (uint64_t k = 0; k < count; ++k) out[k * stride] = value(times.at(k), origin);
}

Device::Device(std::string name, double speed) : name_(std::move(name)), clock_(speed) {
  for (auto& port : lines_)
    for (auto& line : port) line = std::make_shared<LevelHistory>(false);
}

std::shared_ptr<Device> Device::find(std::string_view name, zqerr_Status* status) {
  if (!isOpen(status)) return nullptr;
  Registry& r = registry();
  std::lock_guard<std::mutex> guard(r.mutex);
  const std::string key = lower(name);
  if (auto found = r.devices.find(key); found != r.devices.end()) return found->second;
  double speed = 1;
  bool known = true;
  Settings settings = readSettings(std::string(name), &speed, &known);
  if (!known) {
    SIM_FAIL(status, nZQMSTS::kErrorInvalidDeviceID, Items().text(usage::kDevice, name));
    return nullptr;
  }
  if (const double forced = speedFromEnvironment(); forced > 0) speed = forced;
  auto device = std::make_shared<Device>(std::string(name), speed);
  device->settings_ = std::move(settings);
  r.devices[key] = device;
  return device;
}

void Device::forgetAll() {
  Registry& r = registry();
  std::lock_guard<std::mutex> guard(r.mutex);
  r.devices.clear();
}

Device::Settings Device::readSettings(const std::string& name, double* speed, bool* found) {
  Settings s;
  for (uint32_t ai = 0; ai < DeviceModel::kAnalogInputs; ++ai) s.signals[ai] = defaultSignal(ai);
  LocalStatus status;
  const StorageLink* link = storageLink(&status);
  // Without the storage library every device has the default signals: the plug-in still runs.
  if (!link) return s;
  StoreReader store(*link, ZQVOREX_STORAGE_LOCAL_URL, &status);
  zqvorexStorage_ObjectID id{};
  link->getObjectIDForNameInNamespace(store.lock(), ZQVOREX_STORAGE_CLASS_DEVICE, name.c_str(), &id, &status);
  if (status.code == -200220 || status.code == -201233) {
    *found = false;
    return s;
  }
  if (status.code < 0) return s;
  s.changeNumber = link->getLastChangeNumber(store.lock(), &status);
  for (uint32_t ai = 0; ai < DeviceModel::kAnalogInputs; ++ai) {
    LocalStatus own;
    TextOut text;
    link->getObjectStringProperty(store.lock(), &id, settings::kSignalFirst + ai, text.boundary(), &own);
    if (own.code == kPropertyMissing) continue;
    std::string error;
    const auto signal = own.code < 0 ? std::nullopt : parseSignalSetting(text.text, &error);
    if (!signal) {
      s.errors[ai] = own.code < 0 ? "the setting cannot be read from the store" : error;
      continue;
    }
    s.signals[ai] = *signal;
    if (signal->kind == WaveKind::kFile) {
      s.recordings[ai] = loadRecording(*signal, &error);
      if (!s.recordings[ai]) s.errors[ai] = signal->path + ": " + error;
    }
  }
  LocalStatus own;
  const double stored = link->getObjectF64Property(store.lock(), &id, settings::kSpeed, &own);
  if (own.code == 0 && stored > 0 && std::isfinite(stored)) *speed = stored;
  LocalStatus seedStatus;
  const uint64_t seed = link->getObjectU64Property(store.lock(), &id, settings::kSeed, &seedStatus);
  if (seedStatus.code == 0) s.seed = seed;
  return s;
}

void Device::refresh() {
  {
    std::lock_guard<std::mutex> guard(mutex_);
    const auto now = std::chrono::steady_clock::now();
    if (now - lastRefresh_ < std::chrono::milliseconds(500)) return;
    lastRefresh_ = now;
  }
  LocalStatus status;
  const StorageLink* link = storageLink(&status);
  if (!link) return;
  uint64_t changeNumber = 0;
  {
    StoreReader store(*link, ZQVOREX_STORAGE_LOCAL_URL, &status);
    changeNumber = link->getLastChangeNumber(store.lock(), &status);
  }
  {
    std::lock_guard<std::mutex> guard(mutex_);
    if (status.code < 0 || changeNumber == settings_.changeNumber) return;
  }
  double speed = 1;
  bool found = true;
  Settings fresh = readSettings(name_, &speed, &found);
  if (!found) return;
  std::lock_guard<std::mutex> guard(mutex_);
  settings_ = std::move(fresh);
}

InputView Device::input(uint32_t channel) const {
  std::lock_guard<std::mutex> guard(mutex_);
  InputView view;
  view.wave = Waveform(settings_.signals[channel], channel, settings_.seed, settings_.recordings[channel]);
  view.error = settings_.errors[channel];
  if (channel < DeviceModel::kAnalogOutputs) view.drives = outputs_[channel];
  return view;
}

bool Device::reserve(const std::string& resource, uint64_t owner, const std::string& ownerName,
                     std::string* holder) {
  std::lock_guard<std::mutex> guard(mutex_);
  auto [it, added] = reservations_.try_emplace(resource, owner, ownerName);
  if (added || it->second.first == owner) return true;
  *holder = it->second.second;
  return false;
}

void Device::release(uint64_t owner) {
  std::lock_guard<std::mutex> guard(mutex_);
  for (auto it = reservations_.begin(); it != reservations_.end();) {
    it = it->second.first == owner ? reservations_.erase(it) : std::next(it);
  }
}

void Device::driveOutput(uint32_t channel, double from, std::shared_ptr<const OutputSource> source,
                         uint64_t owner) {
  std::lock_guard<std::mutex> guard(mutex_);
  auto& spans = outputs_.at(channel);
  for (AnalogSpan& span : spans)
    if (span.to > from) span.to = std::max(span.from, from);
  spans.push_back(AnalogSpan{from, kForever, std::move(source), owner});
  keepRecent(spans);
}

void Device::writeLine(uint32_t port, uint32_t line, bool level, double tau, uint64_t owner) {
  std::lock_guard<std::mutex> guard(mutex_);
  lines_.at(port).at(line) = lines_[port][line]->with(tau, level);
  lineOwners_[port][line] = owner;
}

void Device::driveSignal(const std::string& key, double from, SignalPtr source, uint64_t owner) {
  std::lock_guard<std::mutex> guard(mutex_);
  auto& spans = signals_[key];
  for (DriveSpan& span : spans)
    if (span.to > from) span.to = std::max(span.from, from);
  spans.push_back(DriveSpan{from, kForever, std::move(source), owner});
  keepRecent(spans);
}

void Device::endSignals(uint64_t owner, double at) {
  std::lock_guard<std::mutex> guard(mutex_);
  for (auto& [key, spans] : signals_)
    for (DriveSpan& span : spans)
      if (span.owner == owner && span.to > at) span.to = std::max(span.from, at);
}

void Device::endDrives(uint64_t owner, double at) {
  std::lock_guard<std::mutex> guard(mutex_);
  for (auto& spans : outputs_)
    for (AnalogSpan& span : spans)
      if (span.owner == owner && span.to > at) span.to = std::max(span.from, at);
  for (auto& [key, spans] : signals_)
    for (DriveSpan& span : spans)
      if (span.owner == owner && span.to > at) span.to = std::max(span.from, at);
  for (uint32_t port = 0; port < DeviceModel::kPorts; ++port) {
    for (uint32_t line = 0; line < DeviceModel::kLinesPerPort; ++line) {
      if (lineOwners_[port][line] != owner) continue;
      lines_[port][line] = lines_[port][line]->with(at, false);
      lineOwners_[port][line] = 0;
    }
  }
}

SignalPtr Device::signalLocked(const std::string& key, SignalPtr fallback) const {
  const auto found = signals_.find(key);
  if (found == signals_.end() || found->second.empty()) return fallback ? fallback : lowSignal();
  return std::make_shared<DrivenSignal>(found->second, std::move(fallback));
}

SignalPtr Device::lineLocked(uint32_t port, uint32_t line) const {
  uint32_t pfi = 0;
  if (!pfiOfLine(port, line, &pfi)) return lines_[port][line];
  return signalLocked("pfi" + std::to_string(pfi), lines_[port][line]);
}

SignalPtr Device::line(uint32_t port, uint32_t line) const {
  std::lock_guard<std::mutex> guard(mutex_);
  return lineLocked(port, line);
}

SignalPtr Device::terminal(const Terminal& terminal) const {
  std::lock_guard<std::mutex> guard(mutex_);
  if (terminal.isPfi) {
    const uint32_t port = DeviceModel::kFirstPfiPort + terminal.pfi / DeviceModel::kLinesPerPort;
    return lineLocked(port, terminal.pfi % DeviceModel::kLinesPerPort);
  }
  // Internal signals: those of the subsystems and the counters' outputs.
  static constexpr const char* kKnown[] = {"ai/sampleclock",  "ai/starttrigger", "ai/referencetrigger",
                                           "ao/sampleclock",  "ao/starttrigger", "di/sampleclock",
                                           "di/starttrigger", "do/sampleclock",  "do/starttrigger"};
  bool known = false;
  for (const char* name : kKnown) known = known || terminal.signal == name;
  for (uint32_t c = 0; c < DeviceModel::kCounters; ++c)
    known = known || terminal.signal == counterOutputSignal(c);
  if (!known) return nullptr;
  return signalLocked(terminal.signal, nullptr);
}

}  // namespace zqsim
