// What the tests over the real plug-in library zqtestDrive share: a store in which the device
// class of Dev1, Dev2 and Dev3 names that plug-in, tasks over the real plug-in manager and
// selector, the library's test switches, and its log.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "drive_switches.h"
#include "plugin/plugin_manager.h"
#include "selection/plugin_selector.h"
#include "status/status.h"
#include "task/task.h"

namespace zqtest {

inline constexpr const char* kDrivePlugin = "zqtestDrive";
inline constexpr int32_t kTaskDevicesId = 0x230E;
// The local host: the store the selector reads is the local one.
inline constexpr const char* kContextName = "127.0.0.1";

// Makes the store with the zqstorage tool on first use and makes it the local store.
void useDriveStore();
// The folder of this program, where the plug-in library lies.
std::string binFolder();

// The real plug-in manager, with a count of the plug-ins asked of it.
class CountingManager final : public zqvorexRedir::IPluginManager {
 public:
  CountingManager() : real_(binFolder()) {}
  std::shared_ptr<zqvorexRedir::Plugin> getPlugin(std::string_view name, zqerr_Status* status) override {
    ++requests;
    return real_.getPlugin(name, status);
  }
  std::shared_ptr<zqvorexRedir::Plugin> getPluginFromPath(std::string_view path,
                                                          zqerr_Status* status) override {
    ++requests;
    return real_.getPluginFromPath(path, status);
  }
  void clear() override { real_.clear(); }
  std::atomic<int> requests{0};

 private:
  zqvorexRedir::PluginManager real_;
};

// A selector over the companion storage library, shared by every task of the program.
std::shared_ptr<zqvorexRedir::IPluginSelector> driveSelector();

std::shared_ptr<zqvorexRedir::Task> makeDriveTask(std::shared_ptr<zqvorexRedir::IPluginManager> manager,
                                                  std::string name);

// createAIVoltageChannel; gives the status code.
int32_t addChannel(zqvorexRedir::ITask& task, const std::string& physical);
std::vector<std::string> taskDevices(zqvorexRedir::ITask& task, int32_t* code);

struct ReadResult {
  int32_t code = 0;
  uint32_t samples = 0;
  std::vector<double> data;
};
// readScaledVectorF64 of `samples` per channel into an array of `capacity` elements.
ReadResult readF64(zqvorexRedir::ITask& task, int64_t samples, uint64_t capacity);
// Whether `result` holds what the plug-in writes for `channels` channels, grouped by channel.
bool holdsPluginData(const ReadResult& result, uint32_t channels);

// The library's test switches, found by name; the library stays loaded while this lives.
class DriveSwitches {
 public:
  DriveSwitches();
  ~DriveSwitches();
  DriveSwitches(const DriveSwitches&) = delete;
  DriveSwitches& operator=(const DriveSwitches&) = delete;
  bool loaded() const { return counter_ != nullptr; }

  void blockReads(const std::string& taskName, bool on) const { blockReads_(taskName.c_str(), on ? 1 : 0); }
  int64_t counter(int32_t which) const { return counter_(which); }

 private:
  void* library_ = nullptr;
  zqtestDrive_testSetBlockReads_fn blockReads_ = nullptr;
  zqtestDrive_testCounter_fn counter_ = nullptr;
};

// Threads stuck on a lock cannot be joined: reports "deadlock" naming what hung and ends the
// program.
[[noreturn]] void failDeadlocked(const char* what);

// The log the library writes (ZQTEST_DRIVE_LOG), set up by main: one per program, since the
// programs of this folder run at the same time in one working folder.
const std::string& driveLog();
void clearDriveLog();
std::vector<std::string> driveLogLines();

inline bool logHas(const std::string& line) {
  const auto lines = driveLogLines();
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

// The fixture of the tests over zqtestDrive: the store, an empty log, and a real plug-in
// manager that counts what it is asked.
class TaskDrive : public testing::Test {
 protected:
  void SetUp() override {
    useDriveStore();
    clearDriveLog();
  }
  std::shared_ptr<CountingManager> manager_ = std::make_shared<CountingManager>();
};

}  // namespace zqtest
