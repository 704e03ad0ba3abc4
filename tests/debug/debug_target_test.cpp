// A target on the companion server: what the task tells it, what it hands over, and what the
// server does to the task through the callbacks.
#include <gtest/gtest.h>

#include <thread>

#include "binding/dynload.h"
#include "binding/load_library.h"
#include "boundary/array_buffer_adapter.h"
#include "debug/debug_proxies.h"
#include "debug/debug_server_factory.h"
#include "debugserver_test.h"
#include "stand_in_task.h"

namespace zqvorexRedir {
namespace {

using Names = std::vector<std::string>;

// The companion's test-only exports, looked up in the same loaded library.
struct TestHooks {
  TestHooks() {
    zqerr::Status status;
    library = zqdynlib_load("zqvorexDebugServer", &status);
    setFlags = hook<zqvorexDebugServer_testOnly_setFlags_fn>("setFlags", &status);
    abortTask = hook<zqvorexDebugServer_testOnly_abortTask_fn>("abortTask", &status);
    targetFlags = hook<zqvorexDebugServer_testOnly_targetFlags_fn>("targetFlags", &status);
    batchCount = hook<zqvorexDebugServer_testOnly_batchCount_fn>("batchCount", &status);
    batch = hook<zqvorexDebugServer_testOnly_batch_fn>("batch", &status);
    ok = status.code == 0;
  }
  template <class Fn>
  Fn hook(const char* name, zqerr_Status* status) {
    const std::string symbol = std::string("zqvorexDebugServer_testOnly_") + name;
    return reinterpret_cast<Fn>(zqdynlib_getSymbol(library, symbol.c_str(), status));
  }
  ~TestHooks() {
    if (library) zqplatform::freeLibrary(library);
  }
  TestHooks(const TestHooks&) = delete;
  TestHooks& operator=(const TestHooks&) = delete;
  zqplatform::LibraryHandle library = nullptr;
  zqvorexDebugServer_testOnly_setFlags_fn setFlags = nullptr;
  zqvorexDebugServer_testOnly_abortTask_fn abortTask = nullptr;
  zqvorexDebugServer_testOnly_targetFlags_fn targetFlags = nullptr;
  zqvorexDebugServer_testOnly_batchCount_fn batchCount = nullptr;
  zqvorexDebugServer_testOnly_batch_fn batch = nullptr;
  bool ok = false;
};

class DebugTargetTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(hooks_.ok);
    server_ = factory_->createDebugServer(2, "", &status_);
    ASSERT_TRUE(server_);
    target_ = server_->createDebugTarget("watched", task_.callbacks.boundary(), &status_);
    ASSERT_TRUE(target_);
    ASSERT_EQ(status_.code, 0);
  }
  zqvorexDebugServer_Target* handle() { return static_cast<DebugTargetProxy&>(*target_).handle(); }

  TestHooks hooks_;
  std::shared_ptr<DebugServerFactory> factory_ = std::make_shared<DebugServerFactory>("zqvorexDebugServer");
  zqtest::StandInTask task_;
  zqerr::Status status_;
  std::shared_ptr<IDebugServer> server_;
  std::shared_ptr<IDebugTarget> target_;
};

TEST_F(DebugTargetTest, ReceivesWhatTheTaskHolds) {
  auto* pluginTask = reinterpret_cast<zqvorexPlugin_Task_undefined*>(&task_);
  target_->setPluginName("zqvorexSim", &status_);
  target_->setPluginTask(pluginTask, &status_);
  target_->addDevices(zqgopher::StringArrayView(Names{"Dev2", "Dev1"}), &status_);
  target_->addPhysicalChannels(zqgopher::StringArrayView(Names{"Dev1/ai0", "Dev1/ai1", "Dev2/ai0"}),
                               &status_);
  target_->removePhysicalChannels(zqgopher::StringArrayView(Names{"Dev1/ai1"}), &status_);
  ASSERT_EQ(status_.code, 0);

  std::string text = "stale";
  target_->getTaskName(text, &status_);
  EXPECT_EQ(text, "watched");
  target_->getPluginName(text, &status_);
  EXPECT_EQ(text, "zqvorexSim");
  EXPECT_EQ(target_->getPluginTask(&status_), pluginTask);
  Names list{"stale"};
  target_->getDevices(list, &status_);
  EXPECT_EQ(list, (Names{"Dev1", "Dev2"}));
  target_->getPhysicalChannels(list, &status_);
  EXPECT_EQ(list, (Names{"Dev1/ai0", "Dev2/ai0"}));
  target_->setDevices(zqgopher::StringArrayView(Names{"Dev3"}), &status_);
  target_->getDevices(list, &status_);
  EXPECT_EQ(list, (Names{"Dev3"}));
  EXPECT_EQ(status_.code, 0);
}

TEST_F(DebugTargetTest, SwitchesReachTheServer) {
  struct Case {
    void (IDebugTarget::*op)(bool, zqerr_Status*);
    uint32_t bit;
  } cases[] = {{&IDebugTarget::setEventsEnabled, ZQDEBUGSERVER_TEST_EVENTS},
               {&IDebugTarget::setTimingSourcesEnabled, ZQDEBUGSERVER_TEST_TIMING_SOURCES},
               {&IDebugTarget::setLoggingEnabled, ZQDEBUGSERVER_TEST_LOGGING},
               {&IDebugTarget::revokeControl, ZQDEBUGSERVER_TEST_REVOKED}};
  for (const Case& c : cases) {
    ((*target_).*c.op)(true, &status_);
    EXPECT_EQ(hooks_.targetFlags(handle()), c.bit) << c.bit;
    ((*target_).*c.op)(false, &status_);
    EXPECT_EQ(hooks_.targetFlags(handle()), 0u) << c.bit;
  }
  EXPECT_EQ(status_.code, 0);
}

TEST_F(DebugTargetTest, FailedStatusForwardsNothing) {
  zqerr::Status failed;
  failed.code = -1;
  target_->setPluginName("ignored", &failed);
  target_->setEventsEnabled(true, &failed);
  std::string text;
  target_->getPluginName(text, &status_);
  EXPECT_EQ(text, "");
  EXPECT_EQ(hooks_.targetFlags(handle()), 0u);
}

TEST_F(DebugTargetTest, HandsOverSamples) {
  double samples[2][3] = {{1.5, 2.5, 3.5}, {-1, -2, -3}};
  zqgopher::ArrayBufferAdapter buffer(samples, 2, 3, &status_);
  zqvorexPlugin_ReadLayout layout{0, 0};
  zqerr::Status caller;
  caller.code = 7;
  target_->cacheSamplesF64(4, 16111, buffer.boundary(), &layout, &status_, &caller, 3);
  ASSERT_EQ(status_.code, 0);
  ASSERT_EQ(hooks_.batchCount(handle()), 1u);
  zqvorexDebugServer_TestBatch record{};
  double kept[6] = {};
  ASSERT_TRUE(hooks_.batch(handle(), 0, &record, kept, sizeof kept));
  EXPECT_EQ(record.operation, 0u);
  EXPECT_EQ(record.channelKind, 4u);
  EXPECT_EQ(record.formatCode, 16111u);
  EXPECT_EQ(record.callerCode, 7);
  EXPECT_EQ(record.count, 3u);
  EXPECT_EQ(record.byteCount, sizeof kept);
  EXPECT_EQ(kept[0], 1.5);
  EXPECT_EQ(kept[5], -3);
  target_->clearCachedSamples(0, &status_);
  EXPECT_EQ(hooks_.batchCount(handle()), 0u);
}

TEST_F(DebugTargetTest, CallbacksLockTheTaskAndStoreTheFlags) {
  struct Case {
    bool controlCheckPending;
    bool cacheSamples;
  } cases[] = {{true, false}, {false, true}, {true, true}, {false, false}};
  int round = 0;
  for (const Case& c : cases) {
    ++round;
    hooks_.setFlags(handle(), c.controlCheckPending, c.cacheSamples, &status_);
    ASSERT_EQ(status_.code, 0);
    EXPECT_EQ(task_.locks, round);
    EXPECT_EQ(task_.unlocks, round);
    EXPECT_NE(task_.lockedBy, std::this_thread::get_id());
    EXPECT_EQ(task_.flags.controlCheckPending.load(), c.controlCheckPending ? 1 : 0);
    EXPECT_EQ(task_.flags.cacheSamples.load(), c.cacheSamples ? 1 : 0);
  }
  hooks_.abortTask(handle(), &status_);
  EXPECT_EQ(task_.aborts, 1);
}

TEST_F(DebugTargetTest, CompanionExportsEveryOperation) {
  for (const char* name : DebugServerApi::kNames) {
    zqerr::Status status;
    std::string symbol = std::string(kDebugServerPrefix) + name;
    EXPECT_NE(zqdynlib_getSymbol(hooks_.library, symbol.c_str(), &status), nullptr) << symbol;
  }
}

TEST(TargetCallbacksTest, StoresOnlyWithACleanStatus) {
  struct Case {
    int32_t code;
    int32_t stored;
  } cases[] = {{0, 1}, {5, 1}, {-1, 0}};
  for (const Case& c : cases) {
    zqtest::StandInTask task;
    const zqvorexDebugServer_Callbacks* callbacks = task.callbacks.boundary();
    zqerr::Status status;
    status.code = c.code;
    callbacks->table->setControlCheckPending(callbacks, true, &status);
    callbacks->table->setCacheSamples(callbacks, true, &status);
    callbacks->table->lockTask(callbacks, &status);
    EXPECT_EQ(task.flags.controlCheckPending.load(), c.stored) << c.code;
    EXPECT_EQ(task.flags.cacheSamples.load(), c.stored) << c.code;
    EXPECT_EQ(task.locks, c.stored) << c.code;
    if (task.locks) callbacks->table->unlockTask(callbacks, &status);
    EXPECT_EQ(task.unlocks, task.locks);
  }
}

class NotAProxy : public IDebugServer {
 public:
  uint32_t getMaxPrivilegeLevel(zqerr_Status*) override { return 0; }
  void getPipeName(std::string&, zqerr_Status*) override {}
  std::shared_ptr<IDebugTarget> createDebugTarget(const std::string&, const zqvorexDebugServer_Callbacks*,
                                                  zqerr_Status*) override {
    return {};
  }
};

TEST(DebugTargetFactoryTest, OtherServerGivesNoTarget) {
  auto factory = std::make_shared<DebugServerFactory>("zqvorexDebugServer");
  NotAProxy server;
  zqtest::StandInTask task;
  zqerr::Status status;
  EXPECT_FALSE(factory->createDebugTarget(server, "t", task.callbacks.boundary(), &status));
  EXPECT_EQ(status.code, 0);
}

}  // namespace
}  // namespace zqvorexRedir
