// The library-wide state of zqtestDrive. The objects below are made when the library loads and
// go when it unloads, in reverse order: the marker last made writes "unload" first, while the
// log's lock still exists.
#include "drive_state.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <set>

namespace zqtestdrive {

namespace {

std::mutex logMutex;

struct Switches {
  std::mutex mutex;
  std::condition_variable changed;
  std::set<std::string> blockingTasks;
  uint32_t blockedReads = 0;
  std::array<std::atomic<int64_t>, zqtestDrive_counterCount> counters{};
};
Switches switches;

std::mutex tasksMutex;
std::set<DriveTask*> liveTasks;

struct LoadMarker {
  LoadMarker() { writeLog("load"); }
  ~LoadMarker() { writeLog("unload"); }
  LoadMarker(const LoadMarker&) = delete;
  LoadMarker& operator=(const LoadMarker&) = delete;
};
LoadMarker loadMarker;

}  // namespace

void fail(zqerr_Status* status, int32_t code) {
  if (status && status->code >= 0) status->code = code;
}

void count(int32_t counter, int64_t delta) { switches.counters.at(static_cast<size_t>(counter)) += delta; }

int64_t counterValue(int32_t counter) {
  if (counter < 0 || counter >= zqtestDrive_counterCount) return -1;
  return switches.counters[static_cast<size_t>(counter)].load();
}

void writeLog(const std::string& line) {
  std::lock_guard<std::mutex> guard(logMutex);
  const char* path = std::getenv("ZQTEST_DRIVE_LOG");
  if (!path || !path[0]) return;
  if (std::FILE* file = std::fopen(path, "ab")) {
    std::fputs((line + "\n").c_str(), file);
    std::fclose(file);
  }
}

void enterTask(DriveTask* task) {
  std::lock_guard<std::mutex> guard(tasksMutex);
  liveTasks.insert(task);
}

void leaveTask(DriveTask* task) {
  std::lock_guard<std::mutex> guard(tasksMutex);
  liveTasks.erase(task);
}

void forEachTaskNamed(const std::string& taskName, void (*work)(DriveTask& task)) {
  std::lock_guard<std::mutex> guard(tasksMutex);
  for (DriveTask* task : liveTasks)
    if (task->name == taskName) work(*task);
}

std::vector<DriveEvent> takeEvents(const std::string& taskName, int32_t eventId, bool* found) {
  std::vector<DriveEvent> taken;
  std::lock_guard<std::mutex> guard(tasksMutex);
  for (DriveTask* task : liveTasks) {
    if (!taskName.empty() && task->name != taskName) continue;
    if (found) *found = true;
    std::lock_guard<std::mutex> held(task->mutex);
    for (const DriveEvent& event : task->events) {
      if (eventId != 0 && event.eventId != eventId) continue;
      auto* base = static_cast<zqgopher_IEventBase*>(event.object);
      base->table->addRef(base);
      count(zqtestDrive_eventRefs);
      taken.push_back(event);
    }
  }
  return taken;
}


bool readsBlockFor(const std::string& taskName) {
  std::lock_guard<std::mutex> guard(switches.mutex);
  return switches.blockingTasks.count(taskName) != 0;
}

void setBlockReads(const std::string& taskName, bool on) {
  std::lock_guard<std::mutex> guard(switches.mutex);
  if (on) {
    switches.blockingTasks.insert(taskName);
  } else {
    switches.blockingTasks.erase(taskName);
  }
}

void noteBlockedRead(int delta) {
  {
    std::lock_guard<std::mutex> guard(switches.mutex);
    switches.blockedReads = static_cast<uint32_t>(static_cast<int>(switches.blockedReads) + delta);
  }
  switches.changed.notify_all();
}

bool awaitBlockedReads(uint32_t count, uint32_t limitMs) {
  std::unique_lock<std::mutex> guard(switches.mutex);
  return switches.changed.wait_for(guard, std::chrono::milliseconds(limitMs),
                                   [&] { return switches.blockedReads >= count; });
}

}  // namespace zqtestdrive
