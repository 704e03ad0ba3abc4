#include "events/task_events_list.h"

#include <algorithm>
#include <mutex>

#include "events/event_ids.h"
#include "events/thread_window.h"

namespace nZQCAI100 {

namespace {

// The slot of an event id, or the end for an id without one.
size_t slotOf(int32_t eventId) {
  return static_cast<size_t>(std::find(kEventSlots.begin(), kEventSlots.end(), eventId) - kEventSlots.begin());
}

}  // namespace

CTaskEventsList::CTaskEventsList() { deliveries_.next = deliveries_.previous = &deliveries_; }

int32_t CTaskEventsList::getRegistrationState(TaskHandle task) {
  if (!task) return 0;
  std::lock_guard<zqplatform::SlimLock> held(registrationsLock_);
  auto found = registrations_.find(task);
  if (found == registrations_.end()) return 0;
  return found->second.threadId == zqplatform::eventThreadId() ? 1 : -1;
}

void CTaskEventsList::addRegistration(TaskHandle task, int32_t eventId, EventCallback callback) {
  if (!task) return;
  std::lock_guard<zqplatform::SlimLock> held(registrationsLock_);
  auto [record, made] = registrations_.try_emplace(task);
  if (made) record->second.threadId = zqplatform::eventThreadId();
  size_t slot = slotOf(eventId);
  if (slot < kEventSlots.size()) record->second.callbacks[slot] = callback;
}

void CTaskEventsList::removeRegistration(TaskHandle task, int32_t eventId) {
  if (!task) return;
  {
    std::lock_guard<zqplatform::SlimLock> held(registrationsLock_);
    auto found = registrations_.find(task);
    if (found != registrations_.end()) {
      size_t slot = slotOf(eventId);
      if (slot < kEventSlots.size()) found->second.callbacks[slot] = nullptr;
      const auto& callbacks = found->second.callbacks;
      if (std::all_of(callbacks.begin(), callbacks.end(), [](EventCallback c) { return c == nullptr; }))
        registrations_.erase(found);
    }
  }
  // The last registration of the thread takes its window, and what is queued there, away.
  if (!anyRecordOfThread(zqplatform::eventThreadId())) destroyThreadEventWindow();
}

bool CTaskEventsList::anyRecordOfThread(uint32_t threadId) {
  std::lock_guard<zqplatform::SlimLock> held(registrationsLock_);
  return std::any_of(registrations_.begin(), registrations_.end(),
                     [threadId](const auto& entry) { return entry.second.threadId == threadId; });
}

void CTaskEventsList::flush(TaskHandle task) {
  if (!task || getRegistrationState(task) == 0) return;
  zqplatform::postEventMessage(currentEventWindow(), kMessageFlush, reinterpret_cast<uintptr_t>(task), 0);
}

void CTaskEventsList::forgetTask(TaskHandle task) {
  if (!task) return;
  std::lock_guard<zqplatform::SlimLock> held(registrationsLock_);
  registrations_.erase(task);
}

void CTaskEventsList::markStopping(TaskHandle task) {
  if (!task) return;
  std::lock_guard<zqplatform::SlimLock> held(markedLock_);
  markedTasks_.insert(task);
}

void CTaskEventsList::clearMark(TaskHandle task) {
  if (!task) return;
  std::lock_guard<zqplatform::SlimLock> held(markedLock_);
  markedTasks_.erase(task);
}

bool CTaskEventsList::isMarked(TaskHandle task) {
  std::lock_guard<zqplatform::SlimLock> held(markedLock_);
  return markedTasks_.count(task) != 0;
}

bool CTaskEventsList::beginDelivery(TaskHandle task, Delivery& delivery) {
  std::lock_guard<zqplatform::SlimLock> held(markedLock_);
  if (markedTasks_.count(task) != 0) return false;
  delivery.task = task;
  delivery.thread = zqplatform::currentThreadId();
  delivery.next = &deliveries_;
  delivery.previous = deliveries_.previous;
  deliveries_.previous->next = &delivery;
  deliveries_.previous = &delivery;
  return true;
}

void CTaskEventsList::endDelivery(Delivery& delivery) {
  bool awaited;
  {
    std::lock_guard<zqplatform::SlimLock> held(markedLock_);
    delivery.previous->next = delivery.next;
    delivery.next->previous = delivery.previous;
    awaited = awaiting_ != 0;
  }
  if (awaited) delivered_.notify_all();  // a stop or clear waits: rare, so the common end is cheap
}

bool CTaskEventsList::deliveringElsewhere(TaskHandle task, uint32_t thread) const {
  for (const Delivery* d = deliveries_.next; d != &deliveries_; d = d->next)
    if (d->task == task && d->thread != thread) return true;
  return false;
}

void CTaskEventsList::awaitDeliveries(TaskHandle task) {
  const uint32_t self = zqplatform::currentThreadId();
  std::unique_lock<zqplatform::SlimLock> held(markedLock_);
  ++awaiting_;
  delivered_.wait(held, [&] { return !deliveringElsewhere(task, self); });
  --awaiting_;
}

}  // namespace nZQCAI100

namespace nZQCAI100 {

void CTaskEventsList::enlist(TaskHandle task, zqgopher::RefCountedAction* action) {
  std::lock_guard<zqplatform::SlimLock> held(actionsLock_);
  actions_.emplace(task, action);
}

void CTaskEventsList::delist(TaskHandle task, zqgopher::RefCountedAction* action) {
  std::lock_guard<zqplatform::SlimLock> held(actionsLock_);
  auto [first, last] = actions_.equal_range(task);
  for (auto it = first; it != last; ++it) {
    if (it->second == action) {
      actions_.erase(it);
      return;
    }
  }
}

void CTaskEventsList::retireActions(TaskHandle task) {
  std::lock_guard<zqplatform::SlimLock> held(actionsLock_);
  auto [first, last] = actions_.equal_range(task);
  for (auto it = first; it != last; ++it) it->second->retire();
}

}  // namespace nZQCAI100
