// The event objects a plug-in holds: references, kinds, and what fire hands to the action.
#include <gtest/gtest.h>

#include "boundary/event_adapters.h"

namespace {

int gActionsAlive = 0;

struct Fired {
  int times = 0;
  int64_t last = 0;
};

template <class Base>
class RecordingAction final : public Base {
 public:
  explicit RecordingAction(Fired* fired) : fired_(fired) { ++gActionsAlive; }
  ~RecordingAction() override { --gActionsAlive; }
  void fire(std::conditional_t<std::is_same_v<Base, zqgopher::EventDoneAction>, int32_t, uint32_t> value) noexcept
      override {
    ++fired_->times;
    fired_->last = value;
  }

 private:
  Fired* fired_;
};

TEST(EventAdapters, ReferencesAndKinds) {
  Fired fired;
  auto* adapter = zqgopher::EventSignalAdapter::make(new RecordingAction<zqgopher::EventSignalAction>(&fired));
  ASSERT_NE(adapter, nullptr);
  zqgopher_IEventSignal* event = adapter->boundary();
  EXPECT_EQ(event->table->addRef(event), 2u);
  EXPECT_EQ(reinterpret_cast<void*>(event->table->asBase(event)), reinterpret_cast<void*>(event));
  EXPECT_EQ(event->table->asSignal(event), event);
  EXPECT_EQ(event->table->asDone(event), nullptr);
  EXPECT_EQ(event->table->asEveryNSamples(event), nullptr);
  EXPECT_EQ(event->table->release(event), 1u);
  EXPECT_EQ(gActionsAlive, 1);
  EXPECT_EQ(event->table->release(event), 0u);
  EXPECT_EQ(gActionsAlive, 0) << "the last reference took the action along";
}

TEST(EventAdapters, FireHandsOverOnlyWithAGoodStatus) {
  Fired done, samples;
  auto* doneAdapter = zqgopher::EventDoneAdapter::make(new RecordingAction<zqgopher::EventDoneAction>(&done));
  auto* samplesAdapter =
      zqgopher::EventEveryNSamplesAdapter::make(new RecordingAction<zqgopher::EventEveryNSamplesAction>(&samples));
  zqgopher_IEventDone* doneEvent = doneAdapter->boundary();
  zqgopher_IEventEveryNSamples* samplesEvent = samplesAdapter->boundary();

  zqerr_Status good{0, 0, nullptr, nullptr};
  zqerr_Status bad{-1, 0, nullptr, nullptr};
  zqerr_Status ended{-200279, 0, nullptr, nullptr};
  doneEvent->table->fire(doneEvent, &ended, &good);
  doneEvent->table->fire(doneEvent, &ended, &bad);
  doneEvent->table->fire(doneEvent, nullptr, nullptr);  // no status counts as a good one
  EXPECT_EQ(done.times, 2);
  EXPECT_EQ(done.last, 0);
  samplesEvent->table->fire(samplesEvent, 3, 0, &good);
  samplesEvent->table->fire(samplesEvent, 9, 0, &bad);
  EXPECT_EQ(samples.times, 1);
  EXPECT_EQ(samples.last, 3);

  doneAdapter->releaseReference();
  samplesAdapter->releaseReference();
  EXPECT_EQ(gActionsAlive, 0);
}

}  // namespace
