// The three operations that change logging keep a debug target told whether the task logs.
// Without a target they simply forward.
#include "task/task_frame.h"

namespace zqvorexRedir {

namespace {

inline constexpr int32_t kLoggingModeId = 11973;
inline constexpr int32_t kLoggingOff = 10231;
inline constexpr int32_t kLoggingLog = 15842;
inline constexpr int32_t kLoggingLogAndRead = 15844;

}  // namespace

template <class Call>
void Task::withLoggingNotice(int32_t mode, zqerr_Status* status, Call&& call) {
  if (!debugTarget_) {
    call();
    return;
  }
  const bool before = loggingActive_;
  if (mode == kLoggingOff && loggingActive_) {
    debugTarget_->setLoggingEnabled(false, status);
    loggingActive_ = false;
  } else if ((mode == kLoggingLog || mode == kLoggingLogAndRead) && !loggingActive_) {
    debugTarget_->setLoggingEnabled(true, status);
    loggingActive_ = true;
  }
  call();
  if (loggingActive_ == before || zqerr::isOpen(status)) return;
  loggingActive_ = before;
  zqerr::Status local;
  debugTarget_->setLoggingEnabled(before, &local);
  zqerr::adopt(status, &local);
}

void Task::setReadAttributeI32Own(const zqgopher::StringArrayView& channels, int32_t id, int32_t value,
                                  zqerr_Status* status) {
  runFrame<void>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        auto forward = [&] { plugin.setReadAttributeI32(task, channels.boundary(), id, value, status); };
        if (id == kLoggingModeId)
          withLoggingNotice(value, status, forward);
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
          withLoggingNotice(kLoggingOff, status, forward);
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
        withLoggingNotice(mode, status, [&] {
          plugin.configureLogging(task, filePath.c_str(), mode, groupName.c_str(), operation, status);
        });
      },
      [&] { failNoDevice(status); });
}

}  // namespace zqvorexRedir
