// What an event object runs: the application's callback and how it gets there. Without the
// synchronous option the callback runs at once on the plug-in's thread; with it, a message goes
// to the registering thread's window and the callback runs when that message is handled.
#pragma once

#include <cstdint>

#include <memory>

#include "boundary/event_adapters.h"
#include "events/task_events_list.h"
#include "platform/platform.h"
#include "zqcai_rd_mbcs.h"

namespace nZQCAI100 {

// The fields every action shares, as the registration sets them.
struct ActionTarget {
  TaskHandle task = nullptr;
  void* callbackData = nullptr;
  bool direct = false;
  bool option30 = false;  // bit 30 of the options; kept, read by nothing
  zqplatform::EventWindow window = nullptr;
  std::shared_ptr<ICTaskEventsList> list;  // where the action is enlisted under its task
};

// What every action holds besides its fields: its place in the events list's roll of actions,
// and the window it may post to, both let go when the action ends.
class ActionEnrolment {
 public:
  ActionEnrolment(const ActionTarget& target, zqgopher::RefCountedAction* action);
  ~ActionEnrolment();
  ActionEnrolment(const ActionEnrolment&) = delete;
  ActionEnrolment& operator=(const ActionEnrolment&) = delete;

 private:
  std::shared_ptr<ICTaskEventsList> list_;
  TaskHandle task_;
  zqgopher::RefCountedAction* action_;
  zqplatform::EventWindow window_;
};

class CcaiDoneEventAction final : public zqgopher::EventDoneAction {
 public:
  CcaiDoneEventAction(const ActionTarget& target, VorexDoneEventCallbackPtr callback);
  void fire(int32_t taskStatusCode) noexcept override;
  // Runs the callback now, on this thread, unless the task is stopping or gone: false then.
  bool deliver(ICTaskEventsList& list, int32_t taskStatusCode) noexcept;

  TaskHandle task;
  VorexDoneEventCallbackPtr callback;
  void* callbackData;
  bool direct;
  bool option30;
  zqplatform::EventWindow window;

 private:
  ActionEnrolment enrolment_;
};

class CcaiEveryNSamplesEventAction final : public zqgopher::EventEveryNSamplesAction {
 public:
  CcaiEveryNSamplesEventAction(const ActionTarget& target, uint32_t eventType,
                               VorexEveryNSamplesEventCallbackPtr callback, uint32_t nSamples);
  void fire(uint32_t count) noexcept override;
  bool deliver(ICTaskEventsList& list) noexcept;

  TaskHandle task;
  uint32_t eventType;
  VorexEveryNSamplesEventCallbackPtr callback;
  void* callbackData;
  bool direct;
  bool option30;
  uint32_t nSamples;
  zqplatform::EventWindow window;

 private:
  ActionEnrolment enrolment_;
};

class CcaiSignalEventAction final : public zqgopher::EventSignalAction {
 public:
  CcaiSignalEventAction(const ActionTarget& target, uint32_t signalId, VorexSignalEventCallbackPtr callback);
  void fire(uint32_t count) noexcept override;
  bool deliver(ICTaskEventsList& list) noexcept;

  TaskHandle task;
  uint32_t eventType;  // the signal id
  VorexSignalEventCallbackPtr callback;
  void* callbackData;
  bool direct;
  bool option30;
  zqplatform::EventWindow window;

 private:
  ActionEnrolment enrolment_;
};

// The registering thread's window procedure for the event messages; false for any other.
bool handleEventMessage(uint32_t message, uintptr_t wParam, intptr_t lParam) noexcept;
// A message that will never be handled: lets go of the action it holds.
void dropEventMessage(uint32_t message, uintptr_t wParam, intptr_t lParam) noexcept;

}  // namespace nZQCAI100
