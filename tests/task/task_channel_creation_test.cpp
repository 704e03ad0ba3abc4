#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report_query.h"
#include "slot_plugin.h"
#include "task_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::callLog;
using zqvorexRedir::NameSet;
using zqvorexRedir::Task;

class ChannelCreation : public zqtest::SelectingTaskTest {
 protected:
  std::shared_ptr<Task> make(uint32_t kind, bool deviceTask = false) {
    return SelectingTaskTest::make("T", {.taskKind = kind, .isDeviceTask = deviceTask});
  }
  void create(const std::string& channels, zqerr_Status* status) {
    task->createAIVoltageChannel(channels, "", -1, -10, 10, 10348, "", nullptr, status);
  }
};

TEST_F(ChannelCreation, TheFirstChannelBindsThePluginAndASecondOnTheSameDeviceDoesNotSelectAgain) {
  zqerr::Status status;
  create("Dev1/ai0", &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(selector->asked, std::vector<std::string>{"devices:Dev1;ctx"});
  EXPECT_EQ(callLog(), (std::vector<std::string>{"createContext:ctx", "createTask:context:T:::4",
                                                 "createAIVoltageChannel:task:Dev1/ai0"}));
  create("Dev1/ai1", &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(selector->asked.size(), 1u);
  EXPECT_EQ(callLog().back(), "createAIVoltageChannel:task:Dev1/ai1");
  EXPECT_EQ(task->lockDepth(), 0);
}

TEST_F(ChannelCreation, ANewDeviceGoesThroughTheSelectorWithAllDevices) {
  zqerr::Status status;
  create("Dev1/ai0", &status);
  create("/Dev2/ai0", &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(selector->asked, (std::vector<std::string>{"devices:Dev1;ctx", "devices:Dev1;Dev2;ctx"}));
  EXPECT_EQ(task->deviceNames(), (NameSet{"Dev1", "Dev2"}));
  EXPECT_EQ(task->physicalChannels(), (NameSet{"Dev1/ai0", "Dev2/ai0"}));
}

TEST_F(ChannelCreation, ASelectorErrorLeavesTheTaskUnbound) {
  selector->error = nZQMSTS::kErrorInvalidDeviceID;
  zqerr::Status status;
  create("Dev1/ai0", &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorInvalidDeviceID);
  EXPECT_TRUE(task->deviceNames().empty());
  EXPECT_EQ(manager->requests, 0);
  EXPECT_TRUE(callLog().empty());
}

struct BadListCase {
  const char* list;
  int32_t code;
  const char* constant;
};

TEST_F(ChannelCreation, BadPhysicalChannelsStopBeforeAnySelection) {
  const BadListCase cases[] = {
      {"", nZQMSTS::kErrorPhysicalChannelNotSpecified, "nZQMSTS::kErrorPhysicalChannelNotSpecified"},
      {"Dev1", nZQMSTS::kErrorChannelDeviceNotFound, "(-201237)"},
      {"Dev1/", nZQMSTS::kErrorChannelDeviceNotFound, "(-201237)"},
      {"/ai0", nZQMSTS::kErrorChannelDeviceNotFound, "(-201237)"},
      {"Dev1/ai0, Dev1", nZQMSTS::kErrorChannelDeviceNotFound, "(-201237)"},
  };
  for (const BadListCase& c : cases) {
    task = make(zqvorexRedir::kTaskKindCreated);
    selector->asked.clear();
    zqerr::Status status;
    create(c.list, &status);
    EXPECT_EQ(status.code, c.code) << c.list;
    EXPECT_EQ(zqtest::reportAt(status.report, {"error_constant"}), c.constant) << c.list;
    EXPECT_TRUE(selector->asked.empty()) << c.list;
    EXPECT_TRUE(task->deviceNames().empty()) << c.list;
  }
}

TEST_F(ChannelCreation, APlatformTaskSelectsNothing) {
  task = make(zqvorexRedir::kTaskKindPlatform);
  zqerr::Status status;
  create("Dev1/ai0", &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorCanNotPerformOpWhenNoDevInTask);
  EXPECT_TRUE(selector->asked.empty());
}

TEST_F(ChannelCreation, AnOpenDebugSessionSkipsSelectionAndRefuses) {
  zqerr::Status status;
  task->setTaskAttributeBool(12705, 1, &status);
  create("Dev1/ai0", &status);
  EXPECT_EQ(status.code, nZQMESL::kInternalErrorDebugConfigurationNotCommitted);
  EXPECT_TRUE(selector->asked.empty());
}

struct GlobalCase {
  const char* name;
  bool deviceTask;
  const char* channels;
  int32_t code;
};

TEST_F(ChannelCreation, GlobalChannelsWithoutAPluginAnswerByTheKindOfTask) {
  const GlobalCase cases[] = {
      {"nothing to add", false, "", 0},
      {"device task", true, "", nZQMSTS::kErrorFunctionNotSupportedForDeviceTasks},
      {"names but no plug-in", false, "Global0", zqpalerr_softwareFault},
  };
  selector->pluginName = "";
  selector->answerDevices.clear();
  selector->answerChannels.clear();
  for (const GlobalCase& c : cases) {
    task = make(zqvorexRedir::kTaskKindCreated, c.deviceTask);
    zqerr::Status status;
    task->addChannelsToTask(c.channels, &status);
    EXPECT_EQ(status.code, c.code) << c.name;
    EXPECT_EQ(manager->requests, 0) << c.name;
  }
}

TEST_F(ChannelCreation, GlobalChannelsBindTheTaskWithTheDevicesTheSelectorFound) {
  selector->answerDevices = {"Dev3"};
  selector->answerChannels = {"Dev3/ai0"};
  zqerr::Status status;
  task->addChannelsToTask("Global0", &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(selector->asked, std::vector<std::string>{"task:|Global0:ctx"});
  EXPECT_EQ(task->deviceNames(), (NameSet{"Dev3"}));
  EXPECT_EQ(callLog(), (std::vector<std::string>{"createContext:ctx", "createTask:context:T:::4",
                                                 "addChannelsToTask:task:Global0"}));
  // A failure afterwards takes the devices of that attempt back, and only those.
  selector->answerDevices = {"Dev4"};
  zqtest::failSlotCalls("addChannelsToTask", -200489);
  zqerr::Status failed;
  task->addChannelsToTask("Global1", &failed);
  EXPECT_EQ(failed.code, -200489);
  EXPECT_EQ(task->deviceNames(), (NameSet{"Dev3"}));
  EXPECT_TRUE(task->hasPluginTask());
}

struct RollbackCase {
  const char* name;
  std::vector<std::string> devicesLeft;
  bool pluginStays;
};

TEST_F(ChannelCreation, RollbackRebuildsTheDevicesFromThePluginAndUnbindsWhenNoneIsLeft) {
  const RollbackCase cases[] = {{"one device left", {"Dev1"}, true}, {"none left", {}, false}};
  for (const RollbackCase& c : cases) {
    task = make(zqvorexRedir::kTaskKindCreated);
    zqerr::Status status;
    create("Dev1/ai0", &status);
    create("Dev2/ai0", &status);
    ASSERT_EQ(task->deviceNames(), (NameSet{"Dev1", "Dev2"}));
    zqtest::slotTaskContents().devices = c.devicesLeft;
    zqtest::slotTaskContents().physicalNames = {{"Voltage", "Dev1/ai0,Dev1/ai1"}};
    callLog().clear();
    task->rollbackFailedChannelCreations("Dev2/ai0", &status);
    EXPECT_EQ(status.code, 0) << c.name;
    EXPECT_EQ(task->deviceNames(), NameSet(c.devicesLeft.begin(), c.devicesLeft.end())) << c.name;
    EXPECT_EQ(task->hasPluginTask(), c.pluginStays) << c.name;
    const NameSet physical = c.pluginStays ? NameSet{"Dev1/ai0", "Dev1/ai1"} : NameSet{};
    EXPECT_EQ(task->physicalChannels(), physical) << c.name;
    std::vector<std::string> expected{"rollbackFailedChannelCreations:task:Dev2/ai0", "getTaskAttributeStringVtr:task:8974"};
    if (c.pluginStays) {
      expected.push_back("getTaskAttributeStringVtr:task:4723");
      expected.push_back("getChannelAttributeString:task:Voltage:6389");
    } else {
      expected.push_back("destroyTask:task");
      expected.push_back("destroyContext:context");
    }
    EXPECT_EQ(callLog(), expected) << c.name;
    EXPECT_EQ(task->lockDepth(), 0) << c.name;
  }
}

}  // namespace
