// The simulated device behind zqtestDrive: its contexts and tasks, the switches and counters a
// test uses, and the log of births and ends. Everything a plug-in operation touches of a task
// is guarded by the task's own mutex, because abortTask may run beside another operation.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "drive_switches.h"
#include "zqvorex_plugin.h"

namespace zqtestdrive {

struct Channel {
  std::string name;
  std::string physical;  // "<device>/<channel>"
};

struct DriveContext {
  std::string name;
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
  std::vector<uint64_t> liveTokens;
};

inline DriveTask* asTask(zqvorexPlugin_Task_undefined* task) { return reinterpret_cast<DriveTask*>(task); }

// The first error wins, and an error replaces a warning: the status rule every plug-in follows.
void fail(zqerr_Status* status, int32_t code);
inline bool isOpen(const zqerr_Status* status) { return status && status->code >= 0; }

void count(int32_t counter, int64_t delta = 1);
int64_t counterValue(int32_t counter);

// Appends one line to the file named by ZQTEST_DRIVE_LOG; nothing without it.
void writeLog(const std::string& line);

int32_t channelFailCode();
void setChannelFailCode(int32_t code);
bool readsBlockFor(const std::string& taskName);
void setBlockReads(const std::string& taskName, bool on);
// The gauge of reads waiting for an abort.
void noteBlockedRead(int delta);
bool awaitBlockedReads(uint32_t count, uint32_t limitMs);

}  // namespace zqtestdrive
