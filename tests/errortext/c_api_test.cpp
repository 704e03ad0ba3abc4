// The error text functions as a C program meets them: through the public header and the shared
// library, on both systems.
#include <gtest/gtest.h>

#include <sstream>
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

// A real failure on a named task: the static text, an empty line, then every item of the
// report as "Label: value" (the sizes), and the task's name.
TEST(CApi, AShortBufferForATaskNameIsToldWithEveryItem) {
  std::vector<char> buffer(4096);
  ASSERT_EQ(zqtestShortTaskNameBuffer("Short Buffer Task", buffer.data(), static_cast<uInt32>(buffer.size())),
            -200228);
  const std::string described = buffer.data();
  const std::string staticText = text(-200228);
  ASSERT_EQ(described.rfind(staticText + "\n\n", 0), 0u) << described;
  const std::string items = described.substr(staticText.size() + 2);
  EXPECT_NE(items.find("Task Name: Short Buffer Task"), std::string::npos) << items;
  size_t lines = 0;
  std::istringstream in(items);
  for (std::string line; std::getline(in, line);) {
    if (line.empty()) continue;  // the task's name stands apart from the report's items
    EXPECT_NE(line.find(": "), std::string::npos) << "not a \"Label: value\" item: " << line;
    ++lines;
  }
  EXPECT_EQ(lines, 3u) << items;
  EXPECT_NE(items.find("Buffer Length: 4"), std::string::npos) << items;
}

}  // namespace
