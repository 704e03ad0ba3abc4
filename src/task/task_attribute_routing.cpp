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

// `local(result)` answers when it returns true; `call` forwards; `absent` answers without a
// plug-in task.
template <class R, class Local, class Call, class Absent>
R Task::runTaskAttribute(zqerr_Status* status, Local&& local, Call&& call, Absent&& absent) {
  if (!zqerr::isOpen(status)) return R();
  try {
    debug_.checkControl(true, status);
    FrameLock held(*this);
    R result{};
    if (local(result)) return result;
    if (debug_.refusesOperation(status)) return R();
    if (plugin_.bound()) return call(*plugin_.plugin(), plugin_.task());
    return absent();
  } catch (...) {
    zqerr::convertCurrentException(status);
    return R();
  }
}

// The sets and resets share one shape: the record's rule (`local()` is true when it took the
// id), else the plug-in, else refusal.
template <class Local, class Forward>
void Task::changeTaskAttribute(zqerr_Status* status, Local&& local, Forward&& forward) {
  runTaskAttribute<NoResult>(
      status, [&](NoResult&) { return local(); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        forward(plugin, task);
        return NoResult{};
      },
      [&] {
        failNotInTaskContext(status);
        return NoResult{};
      });
}

void Task::failNotInTaskContext(zqerr_Status* status) const {
  ZQ_FAIL(status, kTaskAttributeNotSupportedInTaskContext);
}

uint32_t Task::getTaskAttributeBoolOwn(int32_t id, zqerr_Status* status) {
  return runTaskAttribute<uint32_t>(
      status, [&](uint32_t& value) { return debug_.attributes().getBool(id, value); },
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
        if (!debug_.attributes().getU32(id, stored)) return false;
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
        if (id != kTaskNameId) return debug_.attributes().getString(id, value, status);
        const Text& name = identity_.name;
        if (!value)
          ZQ_FAIL(status, kTaskInvalidParameter);
        else
          value->table->assign(value, name.data(), name.size(), status);
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
      status, [&](NoResult&) { return debug_.attributes().getStringVtr(id, value, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.getTaskAttributeStringVtr(task, id, value, status);
        return NoResult{};
      },
      [&]() {
        failNotInTaskContext(status);
        return NoResult{};
      });
}

void Task::setTaskAttributeBoolOwn(int32_t id, uint32_t value, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return debug_.attributes().setBool(id, value, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { plugin.setTaskAttributeBool(task, id, value, status); });
}

void Task::setTaskAttributeI32Own(int32_t id, int32_t value, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return debug_.attributes().setU32(id, static_cast<uint32_t>(value), status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { plugin.setTaskAttributeI32(task, id, value, status); });
}

void Task::setTaskAttributeStringOwn(int32_t id, const Text& value, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return debug_.attributes().setString(id, value.c_str(), status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.setTaskAttributeString(task, id, value.c_str(), status);
      });
}

void Task::setTaskAttributeStringVtrOwn(int32_t id, const zqgopher_ArrayView* value, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return debug_.attributes().setStringVtr(id, value, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.setTaskAttributeStringVtr(task, id, value, status);
      });
}

void Task::resetTaskAttributeBoolOwn(int32_t id, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return id == kDebugSessionId && debug_.attributes().reset(id, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { plugin.resetTaskAttributeBool(task, id, status); });
}

void Task::resetTaskAttributeI32Own(int32_t id, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return isSessionValue(id) && debug_.attributes().reset(id, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { plugin.resetTaskAttributeI32(task, id, status); });
}

void Task::resetTaskAttributeStringOwn(int32_t id, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return isSessionText(id) && debug_.attributes().reset(id, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { plugin.resetTaskAttributeString(task, id, status); });
}

void Task::resetTaskAttributeStringVtrOwn(int32_t id, zqerr_Status* status) {
  changeTaskAttribute(
      status, [&] { return isSessionList(id) && debug_.attributes().reset(id, status); },
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) { plugin.resetTaskAttributeStringVtr(task, id, status); });
}

}  // namespace zqvorexRedir
