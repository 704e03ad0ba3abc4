#include "task.h"

#include <algorithm>
#include <set>

#include "attribute_table.h"
#include "run_setup.h"
#include "sim_values.h"
#include "text_util.h"

namespace zqsim {

namespace {

std::atomic<uint64_t> nextTaskId{1};

}  // namespace

SimTask::SimTask(std::string taskName, std::shared_ptr<Context> taskContext)
    : id(nextTaskId++), name(std::move(taskName)), context(std::move(taskContext)) {}

SimTask::~SimTask() = default;

void SimTask::close() {
  std::vector<Registration> gone;
  {
    std::lock_guard<std::mutex> guard(mutex);
    if (running) stop();
    unreserve();
    gone.swap(registrations);
    closing = true;
    std::set<Device*> seen;
    for (const Channel& channel : channels) {
      if (!seen.insert(channel.device.get()).second) continue;
      channel.device->endDrives(id, channel.device->now());
      channel.device->release(id);
    }
    ++abortGeneration;
  }
  changed.notify_all();
  pump.finish();
  for (const Registration& r : gone) releaseReference(r.object);
}

Channel* SimTask::findChannel(const std::string& channelName) {
  for (Channel& channel : channels)
    if (iequals(channel.name, channelName)) return &channel;
  return nullptr;
}

std::vector<std::string> SimTask::channelNames() const {
  std::vector<std::string> names;
  for (const Channel& channel : channels) names.push_back(channel.name);
  return names;
}

std::vector<std::string> SimTask::deviceNames() const {
  std::vector<std::string> names;
  for (const Channel& channel : channels) {
    const std::string& device = channel.device->name();
    if (std::none_of(names.begin(), names.end(), [&](const std::string& n) { return iequals(n, device); }))
      names.push_back(device);
  }
  return names;
}

Store& SimTask::storeFor(int32_t attributeId) {
  const AttrDef* d = findAttribute(attributeId);
  switch (d ? d->scope : Scope::kTiming) {
    case Scope::kRead:
      return read;
    case Scope::kWrite:
      return write;
    case Scope::kBuffer:
      return buffer;
    default:
      return timing;
  }
}

Value SimTask::setting(int32_t attributeId) const {
  const AttrDef* d = findAttribute(attributeId);
  for (const Store* store : {&timing, &read, &write, &buffer}) {
    const auto it = store->find(attributeId);
    if (it != store->end()) return it->second;
  }
  Value v;
  v.type = d ? d->type : AttrType::kI32;
  if (!d) return v;
  if (d->type == AttrType::kF64) {
    v.real = d->initial;
  } else if (d->type != AttrType::kString && d->type != AttrType::kStrings) {
    v.integer = static_cast<int64_t>(d->initial);
  }
  return v;
}

void SimTask::invalidate() {
  if (state == TaskState::kRunning) return;
  if (state == TaskState::kReserved || state == TaskState::kCommitted) unreserve();
  state = TaskState::kUnverified;
}

bool SimTask::clocked() const {
  const int32_t type = settingI32(Vorex_SampTimingType);
  return type == val::kSampClk || type == val::kImplicit || type == val::kChangeDetection;
}

bool SimTask::finite() const { return settingI32(Vorex_SampQuantSampMode) == val::kFiniteSamps; }

uint64_t SimTask::samplesPerChannel() const { return settingU64(Vorex_SampQuantSampPerChan); }

double SimTask::rate() const { return settingF64(Vorex_SampClkRate); }

uint64_t SimTask::inputBufferSize() const {
  const auto it = buffer.find(Vorex_BufInputBufSize);
  if (it != buffer.end()) return it->second.asU64();
  if (!clocked()) return 0;
  if (finite()) return samplesPerChannel();
  // A continuous acquisition gets a buffer by its rate, or what it asked for when that is more.
  const double r = rate();
  const uint64_t byRate = r <= 100 ? 1000 : r <= 10000 ? 10000 : r <= 1e6 ? 100000 : 1000000;
  return std::max(byRate, samplesPerChannel());
}

uint64_t SimTask::outputBufferSize() const {
  const auto it = buffer.find(Vorex_BufOutputBufSize);
  if (it != buffer.end()) return it->second.asU64();
  if (run && run->stream) return run->stream->capacity();
  return 0;
}

uint64_t SimTask::progress() const {
  if (!run) return 0;
  const std::shared_ptr<Device> dev = device();
  const double now = std::min(dev ? dev->now() : 0.0, std::min(run->errorTime, run->stopTime));
  if (run->stream) return run->stream->generated(now);
  if (run->pulses) return run->pulses->pulsesIn(run->start, now);
  if (run->timeline) return run->timeline->availableAt(now);
  return 0;
}

double SimTask::progressTime(uint64_t count) const {
  if (!run || !run->timeline) return std::numeric_limits<double>::quiet_NaN();
  return run->timeline->timeWhenAvailable(count);
}

bool SimTask::done() const {
  if (!running || !run) return true;
  if (run->error != 0) return true;
  const std::shared_ptr<Device> dev = device();
  const double now = dev ? dev->now() : 0;
  if (run->pulses) return now >= run->pulses->finish();
  if (!run->timeline || !run->timeline->config().finite) return false;
  const double finish = run->timeline->finishTime();
  return !std::isnan(finish) && now >= finish;
}

bool SimTask::reportRunError(zqerr_Status* status) const {
  if (!run || run->error == 0) return false;
  fail(status, Code{run->error, run->errorConstant}, "run", 0, run->errorItems);
  return true;
}

void SimTask::update() {
  if (!running || !run || run->error != 0) return;
  if (run->timeline) run->timeline->advance();
  const std::shared_ptr<Device> dev = device();
  const double now = dev->now();
  if (run->bufferSize > 0 && !run->overwrite && run->timeline) {
    const uint64_t acquired = run->timeline->availableAt(now);
    if (acquired > run->readPosition + run->bufferSize) {
      run->error = nZQMDEV::kErrorReadOverrun;
      run->errorConstant = "nZQMDEV::kErrorReadOverrun";
      run->errorTime = run->timeline->timeOf(run->readPosition + run->bufferSize);
      run->errorItems = Items()
                            .u64(usage::kBufferSize, run->bufferSize)
                            .u64(usage::kReadPosition, run->readPosition)
                            .u64(usage::kAvailableSamples, run->readPosition + run->bufferSize + 1);
    }
  }
  if (run->stream) {
    const double underflow = run->stream->underflowTime();
    if (!std::isnan(underflow) && underflow <= now) {
      run->error = nZQMDEV::kErrorOutputUnderflow;
      run->errorConstant = "nZQMDEV::kErrorOutputUnderflow";
      run->errorTime = underflow;
      run->errorItems = Items()
                            .u64(usage::kSamplesWritten, run->stream->written())
                            .u64(usage::kSamplesGenerated, run->stream->written())
                            .u64(usage::kBufferSize, run->stream->capacity());
      run->stream->stop(underflow);
    }
  }
  if (run->error != 0) {
    // The failure ends the run at its moment: no signal of it goes on.
    dev->endSignals(id, run->errorTime);
    changed.notify_all();
  }
}

bool SimTask::verify(zqerr_Status* status) {
  if (!isOpen(status)) return false;
  if (state != TaskState::kUnverified) return true;
  if (channels.empty()) {
    SIM_FAIL(status, nZQMSTS::kErrorCanNotPerformOpWhenNoChansInTask, Items().text(usage::kTaskName, name));
    return false;
  }
  if (!verifyConfiguration(*this, status)) return false;
  state = TaskState::kVerified;
  return true;
}

bool SimTask::reserve(zqerr_Status* status) {
  if (!verify(status)) return false;
  if (state >= TaskState::kReserved) return true;
  for (const Channel& channel : channels) {
    const std::string resource = channel.resource();
    const bool timed =
        clocked() || channel.kind == val::kAI || channel.kind == val::kCI || channel.kind == val::kCO;
    if (!timed) continue;
    std::string holder;
    if (!channel.device->reserve(resource, id, name, &holder)) {
      for (const Channel& taken : channels) taken.device->release(id);
      SIM_FAIL(status, nZQMDEV::kErrorResourceReserved,
               Items()
                   .text(usage::kResource, resource)
                   .text(usage::kDevice, channel.device->name())
                   .text(usage::kOtherTask, holder)
                   .text(usage::kTaskName, name));
      return false;
    }
  }
  state = TaskState::kReserved;
  return true;
}

void SimTask::unreserve() {
  for (const Channel& channel : channels) channel.device->release(id);
  if (state == TaskState::kReserved || state == TaskState::kCommitted) state = TaskState::kVerified;
}

bool SimTask::start(bool implicit, zqerr_Status* status) {
  if (!isOpen(status)) return false;
  if (running) return true;
  if (const auto dev = device()) dev->refresh();
  if (state == TaskState::kVerified || state == TaskState::kUnverified) {
    // Settings of the store may have changed what the channels see.
    state = TaskState::kUnverified;
  }
  const TaskState before = std::max(state, TaskState::kVerified);
  if (!reserve(status)) return false;
  auto fresh = std::make_shared<Run>();
  fresh->id = ++runCount;
  fresh->implicit = implicit;
  if (!setUpRun(*this, *fresh, status)) {
    if (before < TaskState::kReserved) unreserve();
    return false;
  }
  stateBeforeStart = before;
  run = std::move(fresh);
  running = true;
  state = TaskState::kRunning;
  publishSignals(*this);
  changed.notify_all();
  if (!registrations.empty()) pump.ensureRunning(shared_from_this());
  return true;
}

void SimTask::stop() {
  if (!running) return;
  const std::shared_ptr<Device> dev = device();
  const double now = dev->now();
  run->stopTime = std::min(run->stopTime, now);
  if (run->stream) run->stream->stop(now);
  dev->endSignals(id, std::min(now, run->errorTime));
  running = false;
  state = stateBeforeStart;
  if (state < TaskState::kReserved) unreserve();
  changed.notify_all();
}

}  // namespace zqsim
