// The registrations list: when a task's record and a thread's window go, and a stop's wait for
// the callbacks in flight. Who owns a task, the stopping marks and the retired actions are seen
// end to end, in tests/lifecycle's scenarios.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "events/task_events_list.h"
#include "events/thread_window.h"
#include "platform/library_entry.h"

namespace {

using nZQCAI100::CTaskEventsList;
using nZQCAI100::Delivery;
using nZQCAI100::TaskHandle;

TaskHandle handle(uintptr_t n) { return reinterpret_cast<TaskHandle>(n); }
nZQCAI100::EventCallback callback(uintptr_t n) { return reinterpret_cast<nZQCAI100::EventCallback>(n); }

// The window class exists from the library's attach on; a program of the core makes it here.
class EventsList : public testing::Test {
 protected:
  static void SetUpTestSuite() { zqentry::processAttach(nullptr); }
  CTaskEventsList list;
};

TEST_F(EventsList, ARecordGoesWithItsLastSlotAndASignalWithoutSlotKeepsOne) {
  list.addRegistration(handle(2), 12999, callback(1));  // no slot: a record with nothing in it
  EXPECT_EQ(list.getRegistrationState(handle(2)), 1);
  list.removeRegistration(handle(2), 12999);
  EXPECT_EQ(list.getRegistrationState(handle(2)), 0) << "all seven slots are empty";
  list.addRegistration(handle(2), 12487, callback(1));
  list.addRegistration(handle(2), 12494, callback(2));
  list.removeRegistration(handle(2), 12487);
  EXPECT_EQ(list.getRegistrationState(handle(2)), 1);
  list.removeRegistration(handle(2), 12494);
  EXPECT_EQ(list.getRegistrationState(handle(2)), 0);
}

TEST_F(EventsList, TheThreadsLastRegistrationTakesItsWindowAway) {
  std::thread([&] {
    ASSERT_NE(nZQCAI100::ensureEventWindow(), nullptr);
    list.addRegistration(handle(3), 12521, callback(1));
    list.addRegistration(handle(4), 12521, callback(1));
    list.removeRegistration(handle(3), 12521);
    EXPECT_NE(nZQCAI100::currentEventWindow(), nullptr) << "the thread still owns task 4";
    list.removeRegistration(handle(4), 12521);
    EXPECT_EQ(nZQCAI100::currentEventWindow(), nullptr);
    EXPECT_NE(nZQCAI100::ensureEventWindow(), nullptr) << "a later registration makes a new one";
    nZQCAI100::destroyThreadEventWindow();
  }).join();
}

TEST_F(EventsList, AStopWaitsForACallbackRunningElsewhereButNotForItsOwn) {
  Delivery own;
  ASSERT_TRUE(list.beginDelivery(handle(7), own));
  list.awaitDeliveries(handle(7));  // a callback that stops its own task
  list.endDelivery(own);

  std::atomic<bool> inside{false}, release{false}, awaited{false};
  std::thread callbackThread([&] {
    Delivery delivery;
    ASSERT_TRUE(list.beginDelivery(handle(7), delivery));
    inside = true;
    while (!release) std::this_thread::yield();
    EXPECT_FALSE(awaited) << "the stop returned while the callback still ran";
    list.endDelivery(delivery);
  });
  while (!inside) std::this_thread::yield();
  std::thread stopper([&] {
    list.awaitDeliveries(handle(8));  // another task's callback does not hold this one
    list.awaitDeliveries(handle(7));
    awaited = true;
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(20));
  release = true;
  callbackThread.join();
  stopper.join();
  EXPECT_TRUE(awaited);
}

// The end-to-end clear only shows a missed retire when a plug-in fires in the clear's window,
// which it may not; this is the check that always sees it.
class CountingAction final : public zqgopher::RefCountedAction {};

TEST_F(EventsList, AClearRetiresTheActionsOfItsTaskOnly) {
  auto* mine = new CountingAction;
  auto* other = new CountingAction;
  list.enlist(handle(9), mine);
  list.enlist(handle(10), other);
  list.retireActions(handle(9));
  EXPECT_TRUE(mine->retired());
  EXPECT_FALSE(other->retired());
  list.delist(handle(10), other);
  list.retireActions(handle(10));
  EXPECT_FALSE(other->retired()) << "a delisted action is no longer the list's";
  list.delist(handle(9), mine);
  mine->release();
  other->release();
}

}  // namespace
