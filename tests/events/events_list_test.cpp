// The registrations list: when a task's record and a thread's window go. Who owns a task, the
// stopping marks, the callbacks in flight and the retired actions are seen end to end, in
// tests/lifecycle (the scenarios) and tests/reentry.
#include <gtest/gtest.h>

#include <thread>

#include "events/task_events_list.h"
#include "events/thread_window.h"
#include "platform/library_entry.h"

namespace {

using nZQCAI100::CTaskEventsList;
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

}  // namespace
