// One element of a task's lists by number: counts and lists from the task, the refusals with
// their report items, and the string copy to the caller.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "../frame/last_error_probe.h"
#include "recording_task.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

using NthFn = int32 (*)(TaskHandle, uInt32, char[], int32);

struct NthCase {
  const char* what;
  NthFn function;
  const char* countOp;  // null: the count is the list's size
  const char* listOp;
  int32_t indexCode;
  const char* countUsage;
};

const NthCase kFunctions[] = {
    {"channel", VorexGetNthTaskChannel, "getTaskAttributeU32", "getTaskAttributeStringVtr", -200570,
     "kUsageTypeNumberOfChannelsInTask"},
    {"read_channel", VorexGetNthTaskReadChannel, "getReadAttributeU32", "getReadAttributeStringVtr", -200570,
     "kUsageTypeNumberOfChannelsInTask"},
    {"device", VorexGetNthTaskDevice, nullptr, "getTaskAttributeStringVtr", -201128,
     "kUsageTypeNumberOfDevicesInTask"},
};

class NthElement : public testing::TestWithParam<NthCase> {
 protected:
  void SetUp() override {
    if (GetParam().countOp) task->on(GetParam().countOp).value(uint32_t{3});
    task->on(GetParam().listOp).strings({"first", "second", "third"});
    clearLastError();
  }
  std::shared_ptr<RecordingTask> task = std::make_shared<RecordingTask>();
};

TEST_P(NthElement, IndexFromOneToTheCount) {
  char buffer[16];
  for (uint32_t index : {1u, 3u}) {
    ASSERT_EQ(GetParam().function(task->handle(), index, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, index == 1 ? "first" : "third");
  }
  EXPECT_EQ(GetParam().function(task->handle(), 2, nullptr, 0), static_cast<int32_t>(std::strlen("second")) + 1);
  EXPECT_EQ(GetParam().function(task->handle(), 2, buffer, -5), static_cast<int32_t>(std::strlen("second")) + 1)
      << "a negative size asks for the size too";
  std::memset(buffer, 'x', sizeof buffer);
  EXPECT_EQ(GetParam().function(task->handle(), 2, buffer, 6), -200228);
  EXPECT_EQ(buffer[0], 'x') << "a short buffer stays untouched";
}

TEST_P(NthElement, AnIndexOutsideTheListIsRefusedWithTheIndexAndTheCount) {
  char buffer[16];
  for (uint32_t index : {0u, 4u}) {
    clearLastError();
    EXPECT_EQ(GetParam().function(task->handle(), index, buffer, sizeof buffer), GetParam().indexCode);
    EXPECT_EQ(lastErrorItems(), itemList({usageItem("kUsageTypeRequestedIndex", index, "uint32_t"),
                                          usageItem(GetParam().countUsage, 3, "uint32_t")}));
  }
}

TEST_P(NthElement, AListShorterThanItsCountIsAnInvalidParameter) {
  if (!GetParam().countOp) GTEST_SKIP() << "the device list is its own count";
  task->on(GetParam().countOp).value(uint32_t{5});
  char buffer[16];
  EXPECT_EQ(GetParam().function(task->handle(), 5, buffer, sizeof buffer), -52005);
}

INSTANTIATE_TEST_SUITE_P(Functions, NthElement, testing::ValuesIn(kFunctions),
                         [](const testing::TestParamInfo<NthCase>& info) { return std::string(info.param.what); });

}  // namespace
}  // namespace zqtest
