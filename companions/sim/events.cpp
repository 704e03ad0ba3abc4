#include "events.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

#include "sim_status.h"
#include "sim_values.h"
#include "task.h"

namespace zqsim {

namespace {

using namespace val;
using Clock = std::chrono::steady_clock;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
// Signals of every sample are told in batches at most this often (wall-clock seconds).
constexpr double kSignalBatch = 0.002;
// How often a failure that may come at any moment is looked for (wall-clock seconds).
constexpr double kFailurePoll = 0.02;

double earliest(double a, double b) {
  if (std::isnan(a)) return b;
  if (std::isnan(b)) return a;
  return std::min(a, b);
}

uint32_t clampCount(uint64_t n) { return static_cast<uint32_t>(std::min<uint64_t>(n, 0xFFFFFFFFu)); }

// Collects what is due and returns the device time of the next look (NaN: soon, infinite:
// when woken).
double collect(SimTask& task, std::vector<Firing>& firings) {
  if (!task.running || !task.run || task.registrations.empty()) return kForever;
  task.update();
  const Run& run = *task.run;
  const double now = task.device()->now();
  const double speed = task.device()->clock().speed();
  double next = kForever;
  for (Registration& r : task.registrations) {
    if (r.run != run.id) {
      r.run = run.id;
      r.fired = 0;
      r.doneFired = false;
    }
    if (r.eventId == kEventDone) {
      if (!r.doneFired && task.done()) {
        r.doneFired = true;
        firings.push_back(Firing{r.object, r.eventId, 1, run.error});
      } else if (!r.doneFired) {
        next = earliest(next, run.pulses     ? run.pulses->finish()
                              : run.timeline ? run.timeline->finishTime()
                                             : kNaN);
        next = std::min(next, now + kFailurePoll * speed);
      }
      continue;
    }
    if (r.eventId == kEventSignal) {
      // Sample clock ticks and counter pulses alike: what the run has made so far.
      const uint64_t occurred = task.progress();
      if (occurred > r.fired) {
        firings.push_back(Firing{r.object, r.eventId, clampCount(occurred - r.fired), 0});
        r.fired = occurred;
      }
      next =
          std::min(next, std::max(earliest(task.progressTime(r.fired + 1), now), now + kSignalBatch * speed));
      continue;
    }
    const uint64_t multiples = task.progress() / r.samples;
    if (multiples > r.fired) {
      firings.push_back(Firing{r.object, r.eventId, clampCount(multiples - r.fired), 0});
      r.fired = multiples;
    }
    next = earliest(next, task.progressTime((r.fired + 1) * r.samples));
  }
  return next;
}

void pump(std::shared_ptr<SimTask> task) {
  std::unique_lock<std::mutex> lock(task->mutex);
  while (!task->closing) {
    std::vector<Firing> firings;
    const double next = collect(*task, firings);
    if (!firings.empty()) {
      for (const Firing& f : firings) addReference(f.object);
      // Every-N events go before done, as the samples came before the end.
      std::stable_sort(firings.begin(), firings.end(), [](const Firing& a, const Firing& b) {
        return a.eventId != kEventDone && b.eventId == kEventDone;
      });
      lock.unlock();
      for (const Firing& f : firings) fire(f);
      for (const Firing& f : firings) releaseReference(f.object);
      lock.lock();
      continue;
    }
    if (std::isinf(next) && next > 0) {
      task->changed.wait(lock);
      continue;
    }
    const std::shared_ptr<Device> device = task->device();
    Clock::time_point until = Clock::now() + std::chrono::milliseconds(2);
    if (!std::isnan(next) && device)
      until = std::max(until - std::chrono::milliseconds(2), device->clock().wallAt(next));
    until = std::min(until, Clock::now() + std::chrono::milliseconds(200));
    task->changed.wait_until(lock, until);
  }
}

}  // namespace

void addReference(zqgopher_IEventBase* object) {
  if (object) object->table->addRef(object);
}

void releaseReference(zqgopher_IEventBase* object) {
  if (object) object->table->release(object);
}

void fire(const Firing& f) {
  LocalStatus status;
  if (f.eventId == kEventDone) {
    auto* done = reinterpret_cast<zqgopher_IEventDone*>(f.object);
    const zqerr_Status taskStatus{f.code, 0, nullptr, nullptr};
    done->table->fire(done, &taskStatus, &status);
  } else if (f.eventId == kEventSignal) {
    auto* signal = reinterpret_cast<zqgopher_IEventSignal*>(f.object);
    signal->table->fire(signal, f.count, &status);
  } else {
    auto* every = reinterpret_cast<zqgopher_IEventEveryNSamples*>(f.object);
    every->table->fire(every, f.count, 0, &status);
  }
}

EventPump::~EventPump() {
  if (thread_.joinable()) thread_.detach();
}

void EventPump::ensureRunning(const std::shared_ptr<SimTask>& task) {
  if (!thread_.joinable()) thread_ = std::thread(pump, task);
}

void EventPump::finish() {
  if (!thread_.joinable()) return;
  if (onPumpThread()) {
    thread_.detach();
  } else {
    thread_.join();
  }
}

}  // namespace zqsim
