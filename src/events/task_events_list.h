// Which thread owns which task's synchronous registrations, which tasks are stopping, and which
// callbacks are running: the process-wide table that event delivery and the stop and clear
// paths consult.
#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <set>

#include "boundary/event_adapters.h"
#include "platform/platform.h"

namespace nZQCAI100 {

using TaskHandle = void*;
using EventCallback = void*;  // the application's callback, kept only to know a slot is taken

// A callback on its way: linked while it runs, so that a stop or clear can wait for it.
struct Delivery {
  TaskHandle task = nullptr;
  uint32_t thread = 0;
  Delivery* next = nullptr;
  Delivery* previous = nullptr;
};

class ICTaskEventsList {
 public:
  virtual ~ICTaskEventsList() = default;
  // 0 without a record; 1 when the calling thread owns the task's registrations; -1 otherwise.
  virtual int32_t getRegistrationState(TaskHandle task) = 0;
  virtual void addRegistration(TaskHandle task, int32_t eventId, EventCallback callback) = 0;
  virtual void removeRegistration(TaskHandle task, int32_t eventId) = 0;
  // The sentinel behind everything queued for the calling thread, when the task has a record.
  virtual void flush(TaskHandle task) = 0;
  virtual void forgetTask(TaskHandle task) = 0;
  virtual void markStopping(TaskHandle task) = 0;
  virtual void clearMark(TaskHandle task) = 0;
  virtual bool isMarked(TaskHandle task) = 0;
  // False when the task is marked; else the callback counts as running until endDelivery.
  virtual bool beginDelivery(TaskHandle task, Delivery& delivery) = 0;
  virtual void endDelivery(Delivery& delivery) = 0;
  // Returns once no callback of the task runs on another thread than the caller's.
  virtual void awaitDeliveries(TaskHandle task) = 0;
  // The actions of each task, so that a clear can retire them all; an action leaves the list
  // when it ends.
  virtual void enlist(TaskHandle task, zqgopher::RefCountedAction* action) = 0;
  virtual void delist(TaskHandle task, zqgopher::RefCountedAction* action) = 0;
  virtual void retireActions(TaskHandle task) = 0;
};

// One slot for each event that the registrations list knows, in this order.
inline constexpr std::array<int32_t, 7> kEventSlots{12521, 12580, 12581, 12530, 12487, 12511, 12494};

struct TaskEventRecord {
  uint32_t threadId = 0;
  std::array<EventCallback, kEventSlots.size()> callbacks{};
};

class CTaskEventsList final : public ICTaskEventsList {
 public:
  CTaskEventsList();
  int32_t getRegistrationState(TaskHandle task) override;
  void addRegistration(TaskHandle task, int32_t eventId, EventCallback callback) override;
  void removeRegistration(TaskHandle task, int32_t eventId) override;
  void flush(TaskHandle task) override;
  void forgetTask(TaskHandle task) override;
  void markStopping(TaskHandle task) override;
  void clearMark(TaskHandle task) override;
  bool isMarked(TaskHandle task) override;
  bool beginDelivery(TaskHandle task, Delivery& delivery) override;
  void endDelivery(Delivery& delivery) override;
  void awaitDeliveries(TaskHandle task) override;
  void enlist(TaskHandle task, zqgopher::RefCountedAction* action) override;
  void delist(TaskHandle task, zqgopher::RefCountedAction* action) override;
  void retireActions(TaskHandle task) override;

 private:
  bool anyRecordOfThread(uint32_t threadId);
  bool deliveringElsewhere(TaskHandle task, uint32_t thread) const;

  std::set<TaskHandle> markedTasks_;
  zqplatform::SlimLock markedLock_;
  std::map<TaskHandle, TaskEventRecord> registrations_;
  zqplatform::SlimLock registrationsLock_;
  Delivery deliveries_;  // sentinel of the running callbacks, guarded by markedLock_
  uint32_t awaiting_ = 0;  // stops and clears waiting for them, guarded by markedLock_
  std::condition_variable_any delivered_;
  std::multimap<TaskHandle, zqgopher::RefCountedAction*> actions_;
  zqplatform::SlimLock actionsLock_;
};

}  // namespace nZQCAI100
