// The simulated device behind zqtestDrive: its contexts and tasks, the switches and counters a
// test uses, and the log of births and ends. Everything a plug-in operation touches of a task
// is guarded by the task's own mutex, because abortTask may run beside another operation.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <type_traits>
#include <vector>

#include "drive_switches.h"
#include "zqvorex_plugin.h"

// Fail the build when an export's type differs from the plug-in table's or the switch's.
#define ZQTEST_DRIVE_OPERATION(op) static_assert(std::is_same_v<decltype(&zqtestDrive_##op), zqvorexPlugin_##op##_fn>)
#define ZQTEST_DRIVE_SWITCH(name) static_assert(std::is_same_v<decltype(&zqtestDrive_##name), zqtestDrive_##name##_fn>)

namespace zqtestdrive {

struct Channel {
  std::string name;
  std::string physical;  // "<device>/<channel>"
};

struct DriveContext {
  std::string name;
};

// An event object the application registered, held with a reference of the plug-in's.
struct DriveEvent {
  uint64_t token = 0;
  int32_t eventId = 0;  // 12576 done, 12580 and 12581 every N samples, 12575 signal
  void* object = nullptr;
};

struct DriveTask {
  std::string name;
  DriveContext* context = nullptr;
  std::mutex mutex;
  std::condition_variable aborted;
  std::vector<Channel> channels;
  std::map<int32_t, int32_t> i32Values;
  uint64_t abortGeneration = 0;
  uint64_t nextToken = 1;
  std::vector<DriveEvent> events;
};

inline DriveTask* asTask(zqvorexPlugin_Task_undefined* task) { return reinterpret_cast<DriveTask*>(task); }

// The first error wins, and an error replaces a warning: the status rule every plug-in follows.
void fail(zqerr_Status* status, int32_t code);
inline bool isOpen(const zqerr_Status* status) { return status && status->code >= 0; }

void count(int32_t counter, int64_t delta = 1);
int64_t counterValue(int32_t counter);

// Appends one line to the file named by ZQTEST_DRIVE_LOG; nothing without it.
void writeLog(const std::string& line);

// Live tasks, for the test switches that fire a task's events by its name.
void enterTask(DriveTask* task);
void leaveTask(DriveTask* task);
// The events of `eventId` (0: of any id) of the named task (empty name: of every live task),
// each with a reference taken. `found` tells whether the named task lives.
std::vector<DriveEvent> takeEvents(const std::string& taskName, int32_t eventId, bool* found = nullptr);
// Runs `work` on each live task of that name, under the list's lock.
void forEachTaskNamed(const std::string& taskName, void (*work)(DriveTask& task));
// Takes an event object's reference back.
void releaseEvent(const DriveEvent& event);
// Fires `event` `count` times (done: once, with `code`).
void fireEvent(const DriveEvent& event, uint32_t count, int32_t code);

bool readsBlockFor(const std::string& taskName);
void setBlockReads(const std::string& taskName, bool on);
// The gauge of reads waiting for an abort.
void noteBlockedRead(int delta);
bool awaitBlockedReads(uint32_t count, uint32_t limitMs);

}  // namespace zqtestdrive
