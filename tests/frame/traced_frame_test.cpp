// The records the accessor frames leave in the real ZqSpyLog tool.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "frame/array_frame.h"
#include "frame/scalar_frame.h"
#include "frame/string_frame.h"
#include "traced_task.h"

namespace {

using namespace zqframe;
using zqtest::pointerText;
using zqtest::RecordingTask;
using zqvorexRedir::ITask;

constexpr AccessorInfo kAIMax{"VorexGetAIMax", 0x17DD, "channel", 100};
constexpr AccessorInfo kSetAIMax{"VorexSetAIMax", 0x17DD, "channel", 101};
constexpr AccessorInfo kReadOffset{"VorexGetReadOffset", 0x190B, nullptr, 400};
constexpr AccessorInfo kSetTermCfg{"VorexSetAITermCfg", 0x1097, "channel", 402};
constexpr AccessorInfo kCustomScaleName{"VorexGetAICustomScaleName", 0x17E0, "channel", 10};
constexpr AccessorInfo kSampClkSrc{"VorexSetSampClkSrc", 0x1852, nullptr, 21};
constexpr AccessorInfo kPolyCoeff{"VorexGetAIChanCalPolyForwardCoeff", 0x229F, "channel", 30};
constexpr AccessorInfo kSetPolyCoeff{"VorexSetAIChanCalPolyForwardCoeff", 0x229F, "channel", 31};

int32_t getAIMax(RecordingTask& task, const char* channel, double* data) {
  return getScalar<ClassF64, &ITask::getChannelAttributeF64>(kAIMax, task.handle(), channel, data);
}
int32_t getCustomScaleName(RecordingTask& task, char* data, uint32_t size) {
  return getString<&ITask::getChannelAttributeString>(kCustomScaleName, task.handle(), "ai0", data, size);
}

class TracedFrame : public zqtest::TracedTask {
 protected:
  // The part of the line after the handle's record, which shows an address.
  std::string afterHandle() {
    const std::string line = spy.line();
    const std::string handleRecord = "taskHandle@0:93[8,8]=" + pointerText(task->handle());
    const size_t at = line.find(handleRecord);
    return at == std::string::npos ? "<no handle record> " + line : line.substr(at + handleRecord.size());
  }
};

TEST_F(TracedFrame, NullChannelIsAPointerAndEmptyTextHasLengthZero) {
  double x = 0;
  getAIMax(*task, nullptr, &x);
  EXPECT_EQ(afterHandle(), " channel@1:93[8,8]=NULL data@2:91[8,8]=" + pointerText(&x) +
                               "; returns(2): *data@0:19[8,8]=0 retval@1:75[4,4]=0 ok");
  getAIMax(*task, "", &x);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,0]=\"\" data@2:91[8,8]=" + pointerText(&x) +
                               "; returns(2): *data@0:19[8,8]=0 retval@1:75[4,4]=0 ok");
}

TEST_F(TracedFrame, FailedGetWithNullDataHasOnlyTheReturnValue) {
  getAIMax(*task, "", nullptr);
  EXPECT_EQ(afterHandle(),
            " channel@1:79[1,0]=\"\" data@2:91[8,8]=NULL; returns(1): retval@0:75[4,4]=-200604 failed");
}

// An enumeration is the pair of attribute id and value: element 4, total 8, as a parameter of
// Set and as "*data" of Get.
TEST_F(TracedFrame, EnumerationValuesArePairs) {
  setScalar<ClassI32, &ITask::setChannelAttributeI32>(kSetTermCfg, task->handle(), "ai0", 10083);
  EXPECT_EQ(afterHandle(),
            " channel@1:79[1,3]=\"ai0\" data@2:103[4,8]={0x1097,10083}; returns(1): retval@0:75[4,4]=0 ok");

  task->on("getReadAttributeI32").status(-89000);
  task->on("getReadAttributeOffset").value(int64_t{10348});
  int32_t x = 0;
  getScalarWithFallback<ClassI32, &ITask::getReadAttributeI32, &ITask::getReadAttributeOffset>(kReadOffset,
                                                                                               task->handle(), &x);
  EXPECT_EQ(afterHandle(), " data@1:86[8,8]=" + pointerText(&x) +
                               "; returns(2): *data@0:103[4,8]={0x190b,10348} retval@1:75[4,4]=0 ok");
}

TEST_F(TracedFrame, SetRecordsTheValueAndOnlyTheReturnValue) {
  setScalar<ClassF64, &ITask::setChannelAttributeF64>(kSetAIMax, task->handle(), "ai0", 1.5);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:19[8,8]=1.5; returns(1): retval@0:75[4,4]=0 ok");
}

// A size query has the single record "size" at index 0, whatever the buffer pointer was.
TEST_F(TracedFrame, StringSizeQueryHasOnlyTheSize) {
  task->on("getChannelAttributeString").text("Dev1/ai0");
  getCustomScaleName(*task, nullptr, 0);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:93[8,8]=NULL bufferSize@3:71[4,4]=0;"
                           " returns(1): size@0:75[4,4]=9 ok");
  char buffer[16];
  getCustomScaleName(*task, buffer, 0);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:89[8,8]=" + pointerText(buffer) +
                               " bufferSize@3:71[4,4]=0; returns(1): size@0:75[4,4]=9 ok");
}

TEST_F(TracedFrame, StringGetRecordsTheTextAndTheResult) {
  task->on("getChannelAttributeString").text("Dev1/ai0");
  char buffer[16];
  getCustomScaleName(*task, buffer, sizeof buffer);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:89[8,8]=" + pointerText(buffer) +
                               " bufferSize@3:71[4,4]=16; returns(2): data@0:79[1,8]=\"Dev1/ai0\""
                               " retval@1:75[4,4]=0 ok");
  // A failed Get never wrote the buffer: only what it held up to its size is shown.
  char shortBuffer[4] = {'a', 'b', 'c', 'd'};
  getCustomScaleName(*task, shortBuffer, sizeof shortBuffer);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:89[8,8]=" + pointerText(shortBuffer) +
                               " bufferSize@3:71[4,4]=4; returns(2): data@0:79[1,4]=\"abcd\""
                               " retval@1:75[4,4]=-200228 failed");
}

TEST_F(TracedFrame, StringSetRecordsTheCallersText) {
  setTerminal<&ITask::setTimingAttributeString>(kSampClkSrc, task->handle(), nullptr, " PFI0 ");
  EXPECT_EQ(afterHandle(), " data@1:79[1,6]=\" PFI0 \"; returns(1): retval@0:75[4,4]=0 ok");
  setTerminal<&ITask::setTimingAttributeString>(kSampClkSrc, task->handle(), nullptr, nullptr);
  EXPECT_EQ(afterHandle(), " data@1:93[8,8]=NULL; returns(1): retval@0:75[4,4]=0 ok");
}

TEST_F(TracedFrame, ArrayGetRecordsThePointerAndTheElements) {
  task->on("getChannelAttributeF64Vtr").numbers({1.5, 2.5});
  double array[4] = {};
  getArray<double, &ITask::getChannelAttributeF64Vtr>(kPolyCoeff, task->handle(), "ai0", array, 4);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:20[8,8]=" + pointerText(array) +
                               " arraySizeInElements@3:71[4,4]=4; returns(2): data@0:20[8,16]=[1.5, 2.5]"
                               " retval@1:75[4,4]=0 ok");
  // Nothing was copied into an array that was too short.
  getArray<double, &ITask::getChannelAttributeF64Vtr>(kPolyCoeff, task->handle(), "ai0", array, 1);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:20[8,8]=" + pointerText(array) +
                               " arraySizeInElements@3:71[4,4]=1; returns(2): data@0:20[8,0]=[]"
                               " retval@1:75[4,4]=-200234 failed");
  getArray<double, &ITask::getChannelAttributeF64Vtr>(kPolyCoeff, task->handle(), "ai0", nullptr, 0);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:20[8,8]=NULL arraySizeInElements@3:71[4,4]=0;"
                           " returns(1): size@0:75[4,4]=2 ok");
}

TEST_F(TracedFrame, ArraySetRecordsThePointerThenTheContent) {
  const double values[2] = {1.5, -3};
  setArray<double, &ITask::setChannelAttributeF64Vtr>(kSetPolyCoeff, task->handle(), "ai0", values, 2);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:20[8,8]=" + pointerText(values) +
                               " data@3:20[8,16]=[1.5, -3] arraySizeInElements@4:71[4,4]=2;"
                               " returns(1): retval@0:75[4,4]=0 ok");
  setArray<double, &ITask::setChannelAttributeF64Vtr>(kSetPolyCoeff, task->handle(), "ai0", nullptr, 2);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:20[8,8]=NULL data@3:93[8,8]=NULL"
                           " arraySizeInElements@4:71[4,4]=2; returns(1): retval@0:75[4,4]=-52005 failed");
}

// An exception inside the guarded block becomes the call's status, with the usual returns.
TEST_F(TracedFrame, ExceptionInTheOperationEndsWithItsStatus) {
  task->on("getChannelAttributeF64").throws(std::runtime_error("plug-in threw"));
  double x = 1;
  getAIMax(*task, "ai0", &x);
  EXPECT_EQ(afterHandle(), " channel@1:79[1,3]=\"ai0\" data@2:91[8,8]=" + pointerText(&x) +
                               "; returns(2): *data@0:19[8,8]=0 retval@1:75[4,4]=-50150 failed");
}

// An exception that unwinds through the frame itself (here from the task's shared-reference
// operation) still closes the record: the guard ends it with no return records.
TEST_F(TracedFrame, ExceptionUnwindingTheFrameEndsTheRecordWithNoReturns) {
  class ThrowingTask : public RecordingTask {
   public:
    using RecordingTask::sharedFromThis;
    std::shared_ptr<zqvorexRedir::ITask> sharedFromThis() override { throw std::runtime_error("no reference"); }
  };
  auto throwing = std::make_shared<ThrowingTask>();
  double x = 1;
  EXPECT_THROW(getAIMax(*throwing, "ai0", &x), std::runtime_error);
  EXPECT_EQ(spy.line(), "VorexGetAIMax params(3): taskHandle@0:93[8,8]=" + pointerText(throwing->handle()) +
                            " channel@1:79[1,3]=\"ai0\" data@2:91[8,8]=" + pointerText(&x) + "; returns(0):");
}

}  // namespace
