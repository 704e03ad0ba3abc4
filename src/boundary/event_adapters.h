// The event objects a plug-in holds and fires: zqgopher_IEventDone, zqgopher_IEventEveryNSamples
// and zqgopher_IEventSignal. Unlike the other boundary objects they outlive the call that hands
// them over, so they are reference counted; each holds a reference to the action it runs.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "zqgopher_boundary.h"

namespace zqgopher {

// What an event object runs when the plug-in fires it. Its references are counted by hand: the
// event object holds one, and every message queued for a registering thread another, so that
// an action stays alive while a message naming it waits in a queue. An action of a cleared task
// is retired: whatever the plug-in still fires, it never runs again.
class RefCountedAction {
 public:
  RefCountedAction() = default;
  RefCountedAction(const RefCountedAction&) = delete;
  RefCountedAction& operator=(const RefCountedAction&) = delete;

  void hold() noexcept { references_.fetch_add(1, std::memory_order_relaxed); }
  void release() noexcept {
    if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }
  void retire() noexcept { retired_.store(true, std::memory_order_release); }
  bool retired() const noexcept { return retired_.load(std::memory_order_acquire); }

 protected:
  virtual ~RefCountedAction() = default;

 private:
  std::atomic<uint32_t> references_{1};
  std::atomic<bool> retired_{false};
};

// The part of every event object in front of the plug-in's pointer: the destruction table and
// the reference count, laid out as zqgopher_EventAdapterFields.
struct BaseRefCountedTable {
  void (*destroy)(zqgopher_EventAdapterFields* self);
};

// One event object: `Interface` is the C interface the plug-in calls, `Action` what it runs.
template <class Interface, class Table, class Action>
class EventAdapter : public zqgopher_EventAdapterFields {
 public:
  // Takes over one reference of `action`. The object starts with one reference of its own.
  static EventAdapter* make(Action* action) noexcept;
  EventAdapter(const EventAdapter&) = delete;
  EventAdapter& operator=(const EventAdapter&) = delete;

  Interface* boundary() noexcept { return reinterpret_cast<Interface*>(&interfaceTable); }
  // The field holds the action as its common base, whatever the kind.
  Action* eventAction() const noexcept { return static_cast<Action*>(static_cast<RefCountedAction*>(action)); }
  uint32_t addReference() noexcept { return count().fetch_add(1, std::memory_order_relaxed) + 1; }
  uint32_t releaseReference() noexcept;

  static EventAdapter* of(const void* boundary) noexcept {
    return reinterpret_cast<EventAdapter*>(
        reinterpret_cast<char*>(const_cast<void*>(boundary)) - offsetof(zqgopher_EventAdapterFields, interfaceTable));
  }
  static const Table kTable;

 private:
  EventAdapter() noexcept = default;
  ~EventAdapter() = default;
  std::atomic_ref<uint32_t> count() noexcept { return std::atomic_ref<uint32_t>(referenceCount); }
  static void destroy(zqgopher_EventAdapterFields* self) noexcept;
  static const BaseRefCountedTable kBaseTable;
};

// The three kinds and their actions. Each action's fire runs on the plug-in's thread.
class EventDoneAction : public RefCountedAction {
 public:
  virtual void fire(int32_t taskStatusCode) noexcept = 0;
};
class EventEveryNSamplesAction : public RefCountedAction {
 public:
  virtual void fire(uint32_t count) noexcept = 0;
};
class EventSignalAction : public RefCountedAction {
 public:
  virtual void fire(uint32_t count) noexcept = 0;
};

using EventDoneAdapter = EventAdapter<zqgopher_IEventDone, zqgopher_IEventDoneTable, EventDoneAction>;
using EventEveryNSamplesAdapter =
    EventAdapter<zqgopher_IEventEveryNSamples, zqgopher_IEventEveryNSamplesTable, EventEveryNSamplesAction>;
using EventSignalAdapter = EventAdapter<zqgopher_IEventSignal, zqgopher_IEventSignalTable, EventSignalAction>;

}  // namespace zqgopher
