// The trace records of the task, event and handle-utility functions in the real ZqSpyLog tool:
// parameter names, type codes, named values, out-parameters, and the nested calls of the
// start and stop wrappers.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "recording_task.h"
#include "spy_client.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

class Traced : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
  }
  std::string handleRecord() const { return "taskHandle@0:93[8,8]=" + pointerText(task->handle()); }
  // The parameters of the last call, up to its returns.
  std::string params(uint32_t back = 0) const {
    std::string line = spy.line(back);
    return line.substr(0, line.find("; returns"));
  }

  SpyClient spy;
  std::shared_ptr<RecordingTask> task = std::make_shared<RecordingTask>();
};

TEST_F(Traced, ControlWithTheActionsName) {
  VorexTaskControl(task->handle(), Vorex_Val_Task_Abort);
  EXPECT_EQ(spy.line(), "VorexTaskControl params(2): " + handleRecord() +
                            " action@1:79[1,20]=\"Vorex_Val_Task_Abort\"; returns(1): retval@0:75[4,4]=0 ok");
  EXPECT_EQ(task->callCount("abortTask"), 1u);
  EXPECT_EQ(task->callCount("controlTask"), 0u);
  VorexTaskControl(task->handle(), 9);
  EXPECT_EQ(params(), "VorexTaskControl params(2): " + handleRecord() + " action@1:75[4,4]=9");
}

TEST_F(Traced, StartAndStopAreCallsOfTheirOwnAroundTheControl) {
  VorexStopTask(task->handle());
  EXPECT_EQ(spy.line(), "VorexStopTask params(1): " + handleRecord() + "; returns(1): retval@0:75[4,4]=0 ok");
  EXPECT_EQ(params(1), "VorexTaskControl params(2): " + handleRecord() + " action@1:79[1,19]=\"Vorex_Val_Task_Stop\"");
  VorexStartTask(task->handle());
  EXPECT_EQ(params(1), "VorexTaskControl params(2): " + handleRecord() + " action@1:79[1,20]=\"Vorex_Val_Task_Start\"");
}

TEST_F(Traced, WaitAndDone) {
  VorexWaitUntilTaskDone(task->handle(), -1.0);
  EXPECT_EQ(params(), "VorexWaitUntilTaskDone params(2): " + handleRecord() +
                          " timeout@1:79[1,24]=\"Vorex_Val_WaitInfinitely\"");
  task->on("isTaskDone").value(uint32_t{1});
  bool32 done = 0;
  VorexIsTaskDone(task->handle(), &done);
  EXPECT_EQ(spy.line(), "VorexIsTaskDone params(2): " + handleRecord() + " isTaskDone@1:22[8,8]=" +
                            pointerText(&done) + "; returns(2): *isTaskDone@0:21[4,4]=1 retval@1:75[4,4]=0 ok");
}

TEST_F(Traced, ACreationWithoutAnOutPointer) {
  VorexCreateTask("Flow", nullptr);
  EXPECT_EQ(spy.line(), "VorexCreateTask params(2): taskName@0:79[1,4]=\"Flow\" taskHandle@1:93[8,8]=NULL;"
                        " returns(2): *taskHandle@0:93[8,8]=NULL retval@1:75[4,4]=-200604 failed");
}

int32 onSamples(TaskHandle, int32, uInt32, void*) { return 0; }

TEST_F(Traced, RegistrationNamesItsTypeAndSignal) {
  int data = 0;
  VorexRegisterEveryNSamplesEvent(task->handle(), 2, 100, 1, onSamples, &data);
  EXPECT_EQ(params(), "VorexRegisterEveryNSamplesEvent params(6): " + handleRecord() +
                          " everyNsamplesEventType@1:79[1,33]=\"Vorex_Val_Transferred_From_Buffer\""
                          " nSamples@2:71[4,4]=100 options@3:71[4,4]=1 callbackFunction@4:82[8,8]=" +
                          pointerText(reinterpret_cast<void*>(&onSamples)) + " callbackData@5:93[8,8]=" +
                          pointerText(&data));
  EXPECT_NE(spy.line().find("returns(2): *callbackData@0:93[8,8]=" + pointerText(&data)), std::string::npos);
  VorexRegisterSignalEvent(task->handle(), 12494, 0, nullptr, nullptr);
  EXPECT_EQ(params(), "VorexRegisterSignalEvent params(5): " + handleRecord() +
                          " signalID@1:79[1,28]=\"Vorex_Val_CounterOutputEvent\" options@2:71[4,4]=0"
                          " callbackFunction@3:82[8,8]=NULL callbackData@4:93[8,8]=NULL");
}

TEST_F(Traced, NthElementAndItsSizeQuery) {
  task->on("getTaskAttributeU32").value(uint32_t{2});
  task->on("getTaskAttributeStringVtr").strings({"Volts", "Amps"});
  char buffer[8];
  VorexGetNthTaskChannel(task->handle(), 2, buffer, sizeof buffer);
  EXPECT_EQ(spy.line(), "VorexGetNthTaskChannel params(4): " + handleRecord() +
                            " index@1:71[4,4]=2 buffer@2:89[8,8]=" + pointerText(buffer) +
                            " bufferSize@3:75[4,4]=8; returns(2): buffer@0:79[1,4]=\"Amps\" retval@1:75[4,4]=0 ok");
  VorexGetNthTaskChannel(task->handle(), 2, nullptr, 0);
  EXPECT_EQ(spy.line(), "VorexGetNthTaskChannel params(4): " + handleRecord() +
                            " index@1:71[4,4]=2 buffer@2:93[8,8]=NULL bufferSize@3:75[4,4]=0;"
                            " returns(1): size@0:75[4,4]=5 ok");
}

}  // namespace
}  // namespace zqtest
