// The three operations that change logging keep a debug target told whether the task logs.
// Without a target they simply forward.
#include "task/task_frame.h"

namespace zqvorexRedir {

namespace {

inline constexpr int32_t kLoggingModeId = 11973;

}  // namespace

void Task::setReadAttributeI32Own(const zqgopher::StringArrayView& channels, int32_t id, int32_t value,
                                  zqerr_Status* status) {
  runFrame<void>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        auto forward = [&] { plugin.setReadAttributeI32(task, channels.boundary(), id, value, status); };
        if (id == kLoggingModeId)
          debug_.withLoggingNotice(value, status, forward);
        else
          forward();
      },
      [&] { failNoDevice(status); });
}

void Task::resetReadAttributeI32Own(const zqgopher::StringArrayView& channels, int32_t id, zqerr_Status* status) {
  runFrame<void>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        auto forward = [&] { plugin.resetReadAttributeI32(task, channels.boundary(), id, status); };
        // A reset ends logging, as the mode "off" does.
        if (id == kLoggingModeId)
          debug_.withLoggingNotice(kLoggingOff, status, forward);
        else
          forward();
      },
      [&] { failNoDevice(status); });
}

void Task::configureLoggingOwn(const Text& filePath, int32_t mode, const Text& groupName, int32_t operation,
                               zqerr_Status* status) {
  runFrame<void>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        debug_.withLoggingNotice(mode, status, [&] {
          plugin.configureLogging(task, filePath.c_str(), mode, groupName.c_str(), operation, status);
        });
      },
      [&] { failNoDevice(status); });
}

}  // namespace zqvorexRedir
