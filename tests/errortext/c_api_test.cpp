// The error text functions as a C program meets them: through the public header and the shared
// library, on both systems.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "driver_installation.h"
#include "errortext_scenario.h"

namespace {

constexpr const char* kSubstitute =
    "Error code could not be found. Reinstalling the driver might fix the issue. Otherwise, contact Torvane "
    "technical support.";

const testing::Environment* const kInstallation =
    testing::AddGlobalTestEnvironment(new zqtest::DriverInstallation("errortext-c"));

// The static text of `code`, or with 0 the thread's last failure in full.
std::string text(int32 code) {
  std::vector<char> buffer(4096);
  EXPECT_EQ(code ? VorexGetErrorString(code, buffer.data(), static_cast<uInt32>(buffer.size()))
                 : VorexGetExtendedErrorInfo(buffer.data(), static_cast<uInt32>(buffer.size())),
            0);
  return buffer.data();
}

TEST(CApi, EveryCodeOfTheStatusTableHasItsOwnText) {
  EXPECT_GT(zqtestCountCodes(), 90);
  EXPECT_EQ(zqtestFirstCodeWithoutText(kSubstitute), 0);
}

TEST(CApi, AFailedCallIsToldByTheExtendedErrorInfo) {
  ASSERT_EQ(zqtestFailWithNullHandle(), -200230);
  const std::string described = text(-200230);
  EXPECT_EQ(described.rfind("A required pointer or handle was null.", 0), 0u) << described;
  EXPECT_EQ(text(0), described);
}

}  // namespace
