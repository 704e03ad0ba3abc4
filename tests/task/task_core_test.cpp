#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "fake_debug_target.h"
#include "report_query.h"
#include "slot_plugin.h"
#include "zqvorex_status_codes.h"
#include "task_fixture.h"

namespace {

using zqgopher::StringArrayView;
using zqtest::callLog;
using zqvorexRedir::Task;

const std::vector<std::string> kTwoChannels{"Dev1/ai0", "Dev1/ai1"};
const std::vector<std::string> kNone{};

using zqtest::TaskOp;
constexpr int32_t kNoChannels = nZQMSTS::kErrorCanNotPerformOpWhenNoChansInTask;
constexpr int32_t kNoDevice = nZQMSTS::kErrorCanNotPerformOpWhenNoDevInTask;

struct UnboundCase {
  const char* name;
  TaskOp<Task> run;
  int32_t code;
  double result;
};

const std::vector<UnboundCase>& unboundCases() {
  static const std::vector<UnboundCase> kCases = {
      {"read", [](Task& t, zqerr_Status* s) { return t.readScaledVectorF64(1, nullptr, nullptr, 10, 1, nullptr, s); },
       kNoChannels, 0},
      {"raw write", [](Task& t, zqerr_Status* s) { return t.writeRawU8(1, nullptr, false, 1.0, nullptr, s); },
       kNoChannels, 0},
      {"controlTask", [](Task& t, zqerr_Status* s) { t.controlTask(0, false, s); }, kNoChannels, 0},
      {"channel get",
       [](Task& t, zqerr_Status* s) { return t.getChannelAttributeF64(StringArrayView(kTwoChannels), 6, s); },
       kNoChannels, 0},
      {"desired channel get",
       [](Task& t, zqerr_Status* s) { return t.getDesiredChannelAttributeI32(StringArrayView(kNone), 6, s); },
       kNoChannels, 0},
      {"calibration",
       [](Task& t, zqerr_Status* s) { t.performBridgeOffsetNullingCalibration(StringArrayView(kNone), false, s); },
       kNoChannels, 0},
      {"timing", [](Task& t, zqerr_Status* s) { t.configureSampleClockTiming("", 1000, 10280, 10123, 100, s); },
       kNoDevice, 0},
      {"device get", [](Task& t, zqerr_Status* s) { return t.getDeviceAttributeI32(StringArrayView(kNone), 6, s); },
       kNoDevice, 0},
      {"scaled write", [](Task& t, zqerr_Status* s) { return t.writeScaledScalarF64(1, true, 1.0, 2.0, nullptr, s); },
       kNoDevice, 0},
      {"saveTask", [](Task& t, zqerr_Status* s) { t.saveTask("a", "b", false, false, false, false, s); }, kNoDevice, 0},
      {"rollback", [](Task& t, zqerr_Status* s) { t.rollbackFailedChannelCreations("Dev1/ai0", s); }, kNoDevice, 0},
      {"isTaskDone", [](Task& t, zqerr_Status* s) { return t.isTaskDone(s); }, 0, 1},
      {"waitUntilTaskDone", [](Task& t, zqerr_Status* s) { t.waitUntilTaskDone(10.0, s); }, 0, 0},
      {"abortTask", [](Task& t, zqerr_Status* s) { t.abortTask(s); }, 0, 0},
      {"channel set, empty list",
       [](Task& t, zqerr_Status* s) { t.setChannelAttributeF64(StringArrayView(kNone), 6, 1.5, s); }, 0, 0},
      {"channel reset, empty list",
       [](Task& t, zqerr_Status* s) { t.resetChannelAttributeI32(StringArrayView(kNone), 6, s); }, 0, 0},
  };
  return kCases;
}

TEST(UnboundTask, EachFamilyGivesItsAnswerAndAsksForNoPlugin) {
  for (const UnboundCase& c : unboundCases()) {
    auto manager = std::make_shared<zqtest::CountingPluginManager>();
    auto task = zqtest::makeTask(manager);
    zqerr::Status status;
    EXPECT_EQ(c.run(*task, &status), c.result) << c.name;
    EXPECT_EQ(status.code, c.code) << c.name;
    if (c.code != 0) {
      EXPECT_EQ(zqtest::reportAt(status.report, {"file"}), "task") << c.name;
    }
    EXPECT_EQ(manager->requests, 0) << c.name;
    EXPECT_EQ(task->lockDepth(), 0) << c.name;
  }
}

TEST(UnboundTask, AFailedStatusOnEntryIsLeftAsItIs) {
  for (const UnboundCase& c : unboundCases()) {
    auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
    zqerr::Status status;
    status.code = -1;
    EXPECT_EQ(c.run(*task, &status), 0.0) << c.name;
    EXPECT_EQ(status.code, -1) << c.name;
    EXPECT_EQ(status.report, nullptr) << c.name;
  }
}

TEST(UnboundTask, ChannelSetWithNamesNamesTheFirstChannelAndTheTask) {
  auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>(), "Pressure");
  zqerr::Status status;
  task->setChannelAttributeF64(StringArrayView(kTwoChannels), 6, 1.5, &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorChanNotInTask);
  const char* r = status.report;
  EXPECT_EQ(zqtest::reportAt(r, {"error_constant"}), "nZQMSTS::kErrorChanNotInTask");
  EXPECT_EQ(zqtest::reportAt(r, {"translator_info", "ordered_data", "#0", "usage"}), "kUsageTypeChannelName");
  EXPECT_EQ(zqtest::reportAt(r, {"translator_info", "ordered_data", "#0", "value"}), "Dev1/ai0");
  EXPECT_EQ(zqtest::reportAt(r, {"translator_info", "ordered_data", "#1", "usage"}), "kUsageTypeTaskName");
  EXPECT_EQ(zqtest::reportAt(r, {"translator_info", "ordered_data", "#1", "value"}), "Pressure");
  EXPECT_EQ(zqtest::reportAt(r, {"translator_info", "ordered_data", "#2"}), zqtest::kAbsent);
}

class BoundTask : public ::testing::Test {
 protected:
  std::shared_ptr<Task> task = zqtest::makeBoundTask();
};

TEST_F(BoundTask, OperationsReachThePluginWithTheTaskHandleAndConvertedArguments) {
  zqerr::Status status;
  EXPECT_EQ(task->getChannelAttributeF64(StringArrayView(kTwoChannels), 6, &status), 2.5);
  task->setChannelAttributeF64(StringArrayView(kNone), 7, 0.5, &status);
  task->saveTask("Saved", "Me", true, false, true, false, &status);
  EXPECT_EQ(task->isTaskDone(&status), 0u);
  task->abortTask(&status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(callLog(), (std::vector<std::string>{"getChannelAttributeF64:task:Dev1/ai0,Dev1/ai1:6",
                                                 "setChannelAttributeF64:task::7:0.500000",
                                                 "saveTask:task:Saved:Me:1:0:1:0", "isTaskDone:task", "abortTask:task"}));
  EXPECT_EQ(task->lockDepth(), 0);
}

TEST_F(BoundTask, AnOperationThePluginLacksIsRefusedByTheTable) {
  zqerr::Status status;
  task->configureSampleClockTiming("", 1000, 10280, 10123, 100, &status);
  EXPECT_LT(status.code, 0);
  EXPECT_NE(status.code, kNoDevice);
  EXPECT_TRUE(callLog().empty());
}

struct ReleaseCase {
  uint32_t bits;
  bool targetGoes;
  bool serverGoes;
};

TEST(TaskLock, DeferredReleaseHappensAtTheLastUnlockWithoutTheMutex) {
  const ReleaseCase cases[] = {
      {zqvorexRedir::kReleaseDebugTarget, true, false},
      {zqvorexRedir::kReleaseDebugServer, false, true},
      {zqvorexRedir::kReleaseDebugTarget | zqvorexRedir::kReleaseDebugServer, true, true},
  };
  for (const ReleaseCase& c : cases) {
    auto task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
    std::vector<std::string> destroyed;
    std::vector<int32_t> depthAtDestruction;
    bool watching = true;
    Task* raw = task.get();
    auto note = [&](const char* what) {
      if (!watching) return;
      destroyed.push_back(what);
      depthAtDestruction.push_back(raw->lockDepth());
    };
    task->setDebugTarget(std::make_shared<zqtest::FakeDebugTarget>([&] { note("target"); }));
    task->setDebugServer(std::make_shared<zqtest::FakeDebugServer>([&] { note("server"); }));
    task->lock();
    task->lock();
    task->requestDeferredRelease(c.bits);
    task->unlock();
    EXPECT_TRUE(destroyed.empty()) << c.bits;
    task->unlock();
    std::vector<std::string> expected;
    if (c.serverGoes) expected.push_back("server");
    if (c.targetGoes) expected.push_back("target");
    EXPECT_EQ(destroyed, expected) << c.bits;
    for (int32_t depth : depthAtDestruction) EXPECT_EQ(depth, 0) << c.bits;
    // A second round releases nothing more: the bits were cleared.
    destroyed.clear();
    task->lock();
    task->unlock();
    EXPECT_TRUE(destroyed.empty()) << c.bits;
    zqerr::Status failed;
    failed.code = -1;
    task->lock(&failed);
    EXPECT_EQ(task->lockDepth(), 0) << "a failed status takes no lock";
    watching = false;
    task.reset();
  }
}

}  // namespace
