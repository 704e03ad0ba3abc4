// Event objects handed to the plug-in: what only an event object of the test's own, made like
// the library's (a table of functions and a reference count), can see. Callbacks from a running
// task are driven through the public interface in sim_e2e.
#include <gtest/gtest.h>

#include <atomic>

#include "sim_support.h"
#include "zqvorex_status_codes.h"

namespace zqtest::sim {
namespace {

constexpr int32_t kAcquired = 12580;
constexpr int32_t kTransferred = 12581;

// The object the plug-in sees: its table first, as the boundary wants it. These tasks never
// start, so nothing fires.
struct TestEvent {
  const zqgopher_IEventEveryNSamplesTable* table;
  std::atomic<uint32_t> references{1};

  static TestEvent& of(zqgopher_IEventEveryNSamples* self) { return *reinterpret_cast<TestEvent*>(self); }
  zqgopher_IEventEveryNSamples* boundary() { return reinterpret_cast<zqgopher_IEventEveryNSamples*>(this); }
};

const zqgopher_IEventEveryNSamplesTable kEveryTable = {
    [](zqgopher_IEventEveryNSamples* s) { return ++TestEvent::of(s).references; },
    [](zqgopher_IEventEveryNSamples* s) { return --TestEvent::of(s).references; },
    [](zqgopher_IEventEveryNSamples* s) { return reinterpret_cast<zqgopher_IEventBase*>(s); },
    [](zqgopher_IEventEveryNSamples* s) { return s; },
    [](zqgopher_IEventEveryNSamples*) -> zqgopher_IEventDone* { return nullptr; },
    [](zqgopher_IEventEveryNSamples*) -> zqgopher_IEventSignal* { return nullptr; },
    [](zqgopher_IEventEveryNSamples*, uint32_t, uint32_t, zqerr_Status*) {}};

// A refused event is not kept; a kept one is held until it is unregistered or its task goes.
TEST(Events, ThePlugInHoldsAReferenceExactlyWhileItKeepsTheEvent) {
  TestEvent event{&kEveryTable};
  auto task = clockedVoltage("references", "SimDev1/ai5", 1000, Vorex_Val_ContSamps, 1000);
  zqerr::Status refused;
  task->registerEveryNSamplesEvent(kTransferred, 100, true, event.boundary(), &refused);
  EXPECT_EQ(refused.code, nZQMDEV::kErrorEventNotSupported) << "no samples leave an input task's buffer";
  EXPECT_EQ(event.references.load(), 1u);
  zqerr::Status status;
  const auto token = task->registerEveryNSamplesEvent(kAcquired, 100, true, event.boundary(), &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(event.references.load(), 2u);
  task->unregisterEvent(token, &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(event.references.load(), 1u);
  task->registerEveryNSamplesEvent(kAcquired, 100, true, event.boundary(), &status);
  EXPECT_EQ(event.references.load(), 2u);
  task.reset();
  EXPECT_EQ(event.references.load(), 1u) << "the task's end lets the event go";
}

}  // namespace
}  // namespace zqtest::sim
