#include "events/event_actions.h"

#include "events/event_ids.h"
#include "globals/shared_globals.h"

namespace nZQCAI100 {

namespace {

std::shared_ptr<ICTaskEventsList> eventsList() noexcept {
  zqerr::Status local;
  try {
    return getTaskEventsList(&local);
  } catch (...) {
    return nullptr;
  }
}

// Runs `callback` as a delivery of the task's event; false, and nothing runs, when the task is
// stopping or gone.
template <class Callback>
bool deliverIfWanted(ICTaskEventsList& list, const zqgopher::RefCountedAction& action, TaskHandle task,
                     Callback&& callback) noexcept {
  if (action.retired()) return false;
  Delivery delivery;
  if (!list.beginDelivery(task, delivery)) return false;
  callback();
  list.endDelivery(delivery);
  return true;
}

// Queues `message` for the registering thread with a reference to the action, which the
// handling of the message, or its dropping, lets go.
template <class Action>
void post(Action& action, uint32_t message, intptr_t value) {
  action.hold();
  if (!zqplatform::postEventMessage(action.window, message, reinterpret_cast<uintptr_t>(&action), value))
    action.release();
}

// `count` occurrences, the mark looked at before each (a direct delivery looks at it when it
// begins).
template <class Action>
void fireRepeatedly(Action& action, uint32_t message, uint32_t count) noexcept {
  if (count == 0 || action.retired()) return;
  auto list = eventsList();
  if (!list) return;
  for (uint32_t i = 0; i < count; ++i) {
    if (action.direct) {
      if (!action.deliver(*list)) return;
    } else {
      if (list->isMarked(action.task)) return;
      post(action, message, static_cast<intptr_t>(action.eventType));
    }
  }
}

// The done event's status becomes the thread's last error for the time of the callback.
void recordDoneStatus(TaskHandle handle, int32_t code) noexcept {
  zqerr::Status done;
  done.code = code;
  zqerr::Status lookup;
  std::shared_ptr<zqvorexRedir::ITask> task;
  try {
    if (auto pool = getTaskPool(&lookup)) task = pool->getTask(handle, &lookup);
  } catch (...) {
  }
  LastErrorRecorder<zqvorexRedir::ITask> recorder(&done, task.get(), nullptr);
}

}  // namespace

ActionEnrolment::ActionEnrolment(const ActionTarget& target, zqgopher::RefCountedAction* action)
    : list_(target.list), task_(target.task), action_(action), window_(target.window) {
  zqplatform::holdEventWindow(window_);
  if (list_) list_->enlist(task_, action_);
}

ActionEnrolment::~ActionEnrolment() {
  if (list_) list_->delist(task_, action_);
  zqplatform::releaseEventWindow(window_);
}

CcaiDoneEventAction::CcaiDoneEventAction(const ActionTarget& target, VorexDoneEventCallbackPtr callback)
    : task(target.task),
      callback(callback),
      callbackData(target.callbackData),
      direct(target.direct),
      option30(target.option30),
      window(target.window),
      enrolment_(target, this) {}

void CcaiDoneEventAction::fire(int32_t taskStatusCode) noexcept {
  if (retired()) return;
  auto list = eventsList();
  if (!list) return;
  if (direct)
    deliver(*list, taskStatusCode);
  else if (!list->isMarked(task))
    post(*this, kMessageDone, taskStatusCode);
}

bool CcaiDoneEventAction::deliver(ICTaskEventsList& list, int32_t taskStatusCode) noexcept {
  return deliverIfWanted(list, *this, task, [&] {
    recordDoneStatus(task, taskStatusCode);
    if (callback) callback(task, taskStatusCode, callbackData);
  });
}

CcaiEveryNSamplesEventAction::CcaiEveryNSamplesEventAction(const ActionTarget& target, uint32_t eventType,
                                                           VorexEveryNSamplesEventCallbackPtr callback,
                                                           uint32_t nSamples)
    : task(target.task),
      eventType(eventType),
      callback(callback),
      callbackData(target.callbackData),
      direct(target.direct),
      option30(target.option30),
      nSamples(nSamples),
      window(target.window),
      enrolment_(target, this) {}

void CcaiEveryNSamplesEventAction::fire(uint32_t count) noexcept { fireRepeatedly(*this, kMessageEveryNSamples, count); }

bool CcaiEveryNSamplesEventAction::deliver(ICTaskEventsList& list) noexcept {
  return deliverIfWanted(list, *this, task, [&] {
    if (callback) callback(task, static_cast<int32>(eventType), nSamples, callbackData);
  });
}

CcaiSignalEventAction::CcaiSignalEventAction(const ActionTarget& target, uint32_t signalId,
                                             VorexSignalEventCallbackPtr callback)
    : task(target.task),
      eventType(signalId),
      callback(callback),
      callbackData(target.callbackData),
      direct(target.direct),
      option30(target.option30),
      window(target.window),
      enrolment_(target, this) {}

void CcaiSignalEventAction::fire(uint32_t count) noexcept { fireRepeatedly(*this, kMessageSignal, count); }

bool CcaiSignalEventAction::deliver(ICTaskEventsList& list) noexcept {
  return deliverIfWanted(list, *this, task, [&] {
    if (callback) callback(task, static_cast<int32>(eventType), callbackData);
  });
}

namespace {

// A queued event's action: its callback runs when the task still wants it, and the message's
// reference goes in any case.
template <class Action, class... Value>
void handleQueued(uintptr_t wParam, Value... value) noexcept {
  auto* action = reinterpret_cast<Action*>(wParam);
  if (auto list = eventsList()) action->deliver(*list, value...);
  action->release();
}

}  // namespace

bool handleEventMessage(uint32_t message, uintptr_t wParam, intptr_t lParam) noexcept {
  switch (message) {
    case kMessageDestroy:
      return true;
    case kMessageDone:
      handleQueued<CcaiDoneEventAction>(wParam, static_cast<int32_t>(lParam));
      return true;
    case kMessageEveryNSamples:
      handleQueued<CcaiEveryNSamplesEventAction>(wParam);
      return true;
    case kMessageSignal:
      handleQueued<CcaiSignalEventAction>(wParam);
      return true;
    case kMessageFlush:
      if (auto list = eventsList()) list->clearMark(reinterpret_cast<TaskHandle>(wParam));
      return true;
    default:
      return false;
  }
}

void dropEventMessage(uint32_t message, uintptr_t wParam, intptr_t) noexcept {
  switch (message) {
    case kMessageDone: reinterpret_cast<CcaiDoneEventAction*>(wParam)->release(); break;
    case kMessageEveryNSamples: reinterpret_cast<CcaiEveryNSamplesEventAction*>(wParam)->release(); break;
    case kMessageSignal: reinterpret_cast<CcaiSignalEventAction*>(wParam)->release(); break;
    default: break;
  }
}

}  // namespace nZQCAI100
