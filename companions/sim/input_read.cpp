#include "input_read.h"

#include <cmath>

#include "sim_values.h"

namespace zqsim {

namespace {

constexpr uint32_t kMostPerRead = 0x7FFFFFFF;

// What a read of `requested` samples asks for, given what exists; false with the status set
// when it cannot be.
bool wanted(const SimTask& task, const Run& run, int64_t requested, uint64_t available, uint64_t* want,
            zqerr_Status* status) {
  const bool finite = run.timeline->config().finite;
  const uint64_t total = run.timeline->config().samples;
  if (requested < 0) {
    const bool allAvailable = task.settingI32(Vorex_ReadReadAllAvailSamp) != 0;
    *want =
        finite && !allAvailable ? total - std::min(total, run.readPosition) : available - run.readPosition;
  } else {
    *want = static_cast<uint64_t>(requested);
  }
  if (finite && run.readPosition + *want > total) {
    SIM_FAIL(status, nZQMDEV::kErrorReadBeyondEnd,
             Items()
                 .u64(usage::kRequestedSamples, *want)
                 .u64(usage::kReadPosition, run.readPosition)
                 .u64(usage::kAvailableSamples, total - std::min(total, run.readPosition)));
    return false;
  }
  if (*want > kMostPerRead) *want = kMostPerRead;
  return true;
}

}  // namespace

bool requireKind(const SimTask& task, std::initializer_list<int32_t> kinds, const char* operation,
                 zqerr_Status* status) {
  if (!isOpen(status)) return false;
  if (task.channels.empty()) {
    SIM_FAIL(status, nZQMSTS::kErrorCanNotPerformOpWhenNoChansInTask,
             Items().text(usage::kTaskName, task.name));
    return false;
  }
  for (int32_t kind : kinds)
    if (task.kind() == kind) return true;
  SIM_FAIL(status, nZQMDEV::kErrorOperationNotSupportedForChannels,
           Items().text(usage::kOperation, operation).text(usage::kTaskName, task.name));
  return false;
}

bool startForAccess(SimTask& task, bool allowed, zqerr_Status* status) {
  if (!isOpen(status) || task.running) return false;
  if (!allowed) {
    SIM_FAIL(status, nZQMDEV::kErrorTaskNotRunning, Items().text(usage::kTaskName, task.name));
    return false;
  }
  return task.start(true, status);
}

void finishAccess(SimTask& task, bool started) {
  if (!task.running || !task.run) return;
  const Run& run = *task.run;
  const bool complete = run.onDemand || (run.timeline && run.timeline->config().finite &&
                                         run.readPosition >= run.timeline->config().samples);
  if ((started || run.implicit) && complete) task.stop();
}

SampleTimes deliveredTimes(const Run& run, uint64_t first) {
  SampleTimes times;
  if (!run.timeline) {
    times.start = run.start;
    times.rate = 1e12;  // on demand: all samples of the call at one moment
    return times;
  }
  times.start = run.timeline->origin();
  times.rate = run.timeline->config().rate;
  times.first = run.timeline->firstTick() + first;
  return times;
}

uint32_t readSamples(SimTask& task, std::unique_lock<std::mutex>& lock, int64_t requested, double timeout,
                     const FillFn& fill, zqerr_Status* status) {
  if (!isOpen(status)) return 0;
  const bool started = startForAccess(task, task.settingI32(Vorex_ReadAutoStart) != 0, status);
  if (!isOpen(status)) return 0;
  std::shared_ptr<Run> run = task.run;
  task.update();
  if (task.reportRunError(status)) return 0;
  if (run->onDemand || !run->timeline) {
    // Software timing: each sample is taken when the read asks for it.
    const uint64_t count = requested < 0 ? 1 : static_cast<uint64_t>(requested);
    SampleTimes now;
    now.start = task.device()->now();
    now.rate = 1e12;
    const bool ok = fill(0, now, count, status);
    finishAccess(task, started);
    return ok ? static_cast<uint32_t>(count) : 0;
  }
  uint64_t want = 0;
  if (!wanted(task, *run, requested, task.progress(), &want, status)) return 0;
  if (run->overwrite && run->bufferSize > 0) {
    // Overwriting: what the buffer no longer holds is gone, by the caller's choice.
    const uint64_t acquired = task.progress();
    if (acquired > run->readPosition + run->bufferSize) run->readPosition = acquired - run->bufferSize;
  }
  const int outcome = task.waitFor(
      lock, timeout, [&] { return run->error != 0 || task.progress() >= run->readPosition + want; },
      [&] { return task.progressTime(run->readPosition + want); });
  if (task.run != run) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationAborted, Items().text(usage::kTaskName, task.name));
    return 0;
  }
  if (outcome < 0) {
    SIM_FAIL(status, nZQMDEV::kErrorOperationAborted, Items().text(usage::kTaskName, task.name));
    return 0;
  }
  if (task.reportRunError(status)) return 0;
  const uint64_t available = task.progress();
  const uint64_t got = std::min(want, available - std::min(available, run->readPosition));
  const uint64_t first = run->readPosition;
  if (got > 0 || want == 0) {
    if (!fill(first, deliveredTimes(*run, first), got, status)) return 0;
  }
  run->readPosition += got;
  if (outcome == 0 && got < want) {
    SIM_FAIL(status, nZQMDEV::kErrorReadTimeout,
             Items()
                 .f64(usage::kTimeout, timeout)
                 .u64(usage::kRequestedSamples, want)
                 .u64(usage::kAvailableSamples, got));
  }
  task.changed.notify_all();
  finishAccess(task, started);
  return static_cast<uint32_t>(got);
}

uint64_t writeCount(const zqgopher_IArrayBuffer* buffer, uint32_t channels, zqerr_Status* status) {
  if (!buffer) {
    SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
    return 0;
  }
  const uint32_t given = buffer->table->getNumChannels(buffer, status);
  const uint64_t count = given == 0 ? 0 : buffer->table->getNumSampsPerChan(buffer, 0, status);
  if (isOpen(status) && given != channels && count != 0) {
    SIM_FAIL(status, nZQMSTS::kErrorMismatchedInputArraySizes,
             Items()
                 .u32("kUsageTypeNumberOfChannelsInTask", channels)
                 .u32("kUsageTypeNumberOfChannelsGiven", given));
    return 0;
  }
  return count;
}

}  // namespace zqsim
