// The trace records of the two traced error text functions in the real ZqSpyLog tool; the
// internal ones leave no record.
#include <gtest/gtest.h>

#include <string>

#include "driver_installation.h"
#include "spy_client.h"
#include "zqcai_rd_mbcs.h"

namespace zqtest {
namespace {

const testing::Environment* const kInstallation =
    testing::AddGlobalTestEnvironment(new DriverInstallation("errortext-traced"));

class TracedErrorText : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
  }
  SpyClient spy;
};

TEST_F(TracedErrorText, ASizeQueryHasOnlyTheSize) {
  const int32_t size = VorexGetErrorString(-200230, nullptr, 0);
  ASSERT_GT(size, 1);
  EXPECT_EQ(spy.line(), "VorexGetErrorString params(3): errorCode@0:75[4,4]=-200230 errorString@1:93[8,8]=NULL"
                        " bufferSize@2:71[4,4]=0; returns(1): size@0:75[4,4]=" +
                            std::to_string(size) + " ok");
}

TEST_F(TracedErrorText, TheTextAsWrittenAndTheResult) {
  char buffer[8];
  EXPECT_EQ(VorexGetErrorString(-200230, buffer, sizeof buffer), 200026);
  EXPECT_EQ(spy.line(), "VorexGetErrorString params(3): errorCode@0:75[4,4]=-200230 errorString@1:89[8,8]=" +
                            pointerText(buffer) +
                            " bufferSize@2:71[4,4]=8; returns(2): errorString@0:79[1,7]=\"A requi\""
                            " retval@1:75[4,4]=200026 ok");
  char last[4];
  EXPECT_EQ(VorexGetExtendedErrorInfo(last, sizeof last), 0);
  EXPECT_EQ(spy.line(), "VorexGetExtendedErrorInfo params(2): errorString@0:89[8,8]=" + pointerText(last) +
                            " bufferSize@1:71[4,4]=4; returns(2): errorString@0:79[1,0]=\"\" retval@1:75[4,4]=0 ok");
}

TEST_F(TracedErrorText, TheInternalFunctionsAreNotTraced) {
  char buffer[64];
  const uint64_t before = spy.counters().lines;
  VorexInternalGetLocalizedErrorString(0, -200230, buffer, sizeof buffer);
  VorexInternalGetLastErrorFormattedText(0, 0, 7, buffer, sizeof buffer);
  VorexInternalGetLastErrorDescription(0, 0, buffer, sizeof buffer);
  EXPECT_EQ(spy.counters().lines, before);
}

}  // namespace
}  // namespace zqtest
