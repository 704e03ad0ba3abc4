// Attributes of class Task: the task answers its name and the debug session record itself,
// before the check of an uncommitted session so that a session can be configured at all; the
// rest goes to the plug-in, and a task without a plug-in task answers the two ids it knows.
#include "status/error_sites.h"
#include "task/task_frame.h"

namespace zqvorexRedir {

namespace {

inline constexpr int32_t kTaskNameId = 4726;
// Two ids without a catalogue name that a task without a plug-in answers with fixed values.
inline constexpr int32_t kUnboundAnswerOneId = 12697;
inline constexpr int32_t kUnboundAnswerZeroId = 12698;

// The result of an operation without one.
struct NoResult {};

bool isSessionText(int32_t id) { return id == kDebugText1Id || id == kDebugText2Id; }
bool isSessionList(int32_t id) { return id == kDebugList1Id || id == kDebugList2Id; }
bool isSessionValue(int32_t id) { return id == kDebugValue1Id || id == kDebugValue2Id; }

}  // namespace

template <class R, class Local, class Call, class Absent>
R Task::runTaskAttribute(zqerr_Status* status, Local&& local, Call&& call, Absent&& absent) {
  if (!zqerr::isOpen(status)) return R();
  try {
    checkControl(true, status);
    FrameLock held(*this);
    R result{};
    if (local(result)) return result;
    if (refusedBySession(status)) return R();
    if (hasPluginParts()) return call(*plugin_, pluginTask_.get());
    return absent();
  } catch (...) {
    zqerr::convertCurrentException(status);
    return R();
  }
}

void Task::failNotInTaskContext(zqerr_Status* status) const {
  ZQ_FAIL(status, kTaskAttributeNotSupportedInTaskContext);
}

uint32_t Task::getTaskAttributeBoolOwn(int32_t id, zqerr_Status* status) {
  return runTaskAttribute<uint32_t>(
      status, [&](uint32_t& value) { return debugAttributes_.getBool(id, value); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { return plugin.getTaskAttributeBool(task, id, status); },
      [&]() -> uint32_t {
        failNotInTaskContext(status);
        return 0;
      });
}

int32_t Task::getTaskAttributeI32Own(int32_t id, zqerr_Status* status) {
  return runTaskAttribute<int32_t>(
      status,
      [&](int32_t& value) {
        uint32_t stored = 0;
        if (!debugAttributes_.getU32(id, stored)) return false;
        value = static_cast<int32_t>(stored);
        return true;
      },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { return plugin.getTaskAttributeI32(task, id, status); },
      [&]() -> int32_t {
        if (id == kUnboundAnswerOneId) return 1;
        if (id == kUnboundAnswerZeroId) return 0;
        failNotInTaskContext(status);
        return 0;
      });
}

uint32_t Task::getTaskAttributeU32Own(int32_t id, zqerr_Status* status) {
  return runTaskAttribute<uint32_t>(
      status, [](uint32_t&) { return false; },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { return plugin.getTaskAttributeU32(task, id, status); },
      [&]() -> uint32_t {
        failNotInTaskContext(status);
        return 0;
      });
}

void Task::getTaskAttributeStringOwn(int32_t id, zqgopher_IString* value, zqerr_Status* status) {
  runTaskAttribute<NoResult>(
      status,
      [&](NoResult&) {
        if (id != kTaskNameId) return debugAttributes_.getString(id, value, status);
        if (!value)
          ZQ_FAIL(status, kTaskInvalidParameter);
        else
          value->table->assign(value, name_.data(), name_.size(), status);
        return true;
      },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.getTaskAttributeString(task, id, value, status);
        return NoResult{};
      },
      [&]() {
        failNotInTaskContext(status);
        return NoResult{};
      });
}

void Task::getTaskAttributeStringVtrOwn(int32_t id, zqgopher_IItemAdder* value, zqerr_Status* status) {
  runTaskAttribute<NoResult>(
      status, [&](NoResult&) { return debugAttributes_.getStringVtr(id, value, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.getTaskAttributeStringVtr(task, id, value, status);
        return NoResult{};
      },
      [&]() {
        failNotInTaskContext(status);
        return NoResult{};
      });
}

// The sets and resets share one shape: the record's rule, else the plug-in, else refusal.
#define ZQ_TASK_ATTRIBUTE_CHANGE(local, forward)                                                   \
  runTaskAttribute<NoResult>(                                                                      \
      status, [&](NoResult&) { return local; },                                                    \
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {                                    \
        forward;                                                                                   \
        return NoResult{};                                                                         \
      },                                                                                           \
      [&]() {                                                                                      \
        failNotInTaskContext(status);                                                              \
        return NoResult{};                                                                         \
      })

void Task::setTaskAttributeBoolOwn(int32_t id, uint32_t value, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(debugAttributes_.setBool(id, value, status),
                           plugin.setTaskAttributeBool(task, id, value, status));
}

void Task::setTaskAttributeI32Own(int32_t id, int32_t value, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(debugAttributes_.setU32(id, static_cast<uint32_t>(value), status),
                           plugin.setTaskAttributeI32(task, id, value, status));
}

void Task::setTaskAttributeStringOwn(int32_t id, const Text& value, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(debugAttributes_.setString(id, value.c_str(), status),
                           plugin.setTaskAttributeString(task, id, value.c_str(), status));
}

void Task::setTaskAttributeStringVtrOwn(int32_t id, const zqgopher_ArrayView* value, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(debugAttributes_.setStringVtr(id, value, status),
                           plugin.setTaskAttributeStringVtr(task, id, value, status));
}

void Task::resetTaskAttributeBoolOwn(int32_t id, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(id == kDebugSessionId && debugAttributes_.reset(id, status),
                           plugin.resetTaskAttributeBool(task, id, status));
}

void Task::resetTaskAttributeI32Own(int32_t id, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(isSessionValue(id) && debugAttributes_.reset(id, status),
                           plugin.resetTaskAttributeI32(task, id, status));
}

void Task::resetTaskAttributeStringOwn(int32_t id, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(isSessionText(id) && debugAttributes_.reset(id, status),
                           plugin.resetTaskAttributeString(task, id, status));
}

void Task::resetTaskAttributeStringVtrOwn(int32_t id, zqerr_Status* status) {
  ZQ_TASK_ATTRIBUTE_CHANGE(isSessionList(id) && debugAttributes_.reset(id, status),
                           plugin.resetTaskAttributeStringVtr(task, id, status));
}

#undef ZQ_TASK_ATTRIBUTE_CHANGE

}  // namespace zqvorexRedir
