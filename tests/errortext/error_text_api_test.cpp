// The error text functions against an installed driver: every code of the status table has its
// English text, the buffer protocol, and the thread's last failure told in full, its report's
// items and the task's name included, with and without debug display.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "driver_installation.h"
#include "errortext/error_text.h"
#include "frame/string_frame.h"
#include "lasterror/last_error.h"
#include "recording_task.h"
#include "status/error_sites.h"
#include "zqcai_rd_mbcs.h"

namespace {

using zqerrortext::kSubstituteText;

const testing::Environment* const kInstallation =
    testing::AddGlobalTestEnvironment(new zqtest::DriverInstallation("errortext"));

std::string codeText(int32_t code) {
  std::vector<char> text(4096);
  EXPECT_EQ(VorexGetErrorString(code, text.data(), static_cast<uInt32>(text.size())), 0);
  return text.data();
}

std::string lastError() {
  std::vector<char> text(4096);
  EXPECT_EQ(VorexGetExtendedErrorInfo(text.data(), static_cast<uInt32>(text.size())), 0);
  return text.data();
}

std::string formatted(uInt32 flags) {
  std::vector<char> text(4096);
  EXPECT_EQ(VorexInternalGetLastErrorFormattedText(0, 0, flags, text.data(), static_cast<uInt32>(text.size())), 0);
  return text.data();
}

// VorexGetTaskName's frame on a task named "Pressure Log", into a buffer of 4 bytes: -200228,
// with the size needed and the buffer's length in the report and the task's name in the record.
int32_t taskNameIntoShortBuffer() {
  auto task = zqtest::RecordingTask::create("Pressure Log");
  task->on("getTaskAttributeString").text("Pressure Log");
  constexpr zqframe::AccessorInfo kTaskName{"VorexGetTaskName", 0x1276, nullptr, 11};
  char buffer[4];
  return zqframe::getString<&zqvorexRedir::ITask::getTaskAttributeString>(kTaskName, task->handle(), nullptr, buffer,
                                                                          sizeof buffer);
}

// A failing call that knows only the name the caller gave for the task.
void failWithTaskNameText(const char* name) {
  zqerr::Status status;
  nZQCAI100::LastErrorRecorder<zqvorexRedir::ITask> recorder(&status, nullptr, name);
  ZQ_FAIL(&status, kGlobalsNullHandle);
}

TEST(ErrorString, AnUnknownCodeGetsTheSubstituteAndCodeZeroNothing) {
  EXPECT_EQ(codeText(-123456), kSubstituteText);
  EXPECT_EQ(codeText(0), "");
  EXPECT_EQ(VorexGetErrorString(0, nullptr, 0), 0);
  EXPECT_EQ(VorexInternalGetLocalizedErrorString(2, -200228, nullptr, 0), VorexGetErrorString(-200228, nullptr, 0))
      << "a language without texts gets the English ones";
}

// One error text function with a buffer and its size; the rest of its arguments fixed.
struct TextFunction {
  const char* name;
  int32_t (*call)(char* buffer, uInt32 size);
};

const TextFunction kFunctions[] = {
    {"GetErrorString", [](char* b, uInt32 n) { return VorexGetErrorString(-200228, b, n); }},
    {"GetLocalizedErrorString", [](char* b, uInt32 n) { return VorexInternalGetLocalizedErrorString(1, -200230, b, n); }},
    {"GetExtendedErrorInfo", [](char* b, uInt32 n) { return VorexGetExtendedErrorInfo(b, n); }},
    {"GetLastErrorFormattedText", [](char* b, uInt32 n) { return VorexInternalGetLastErrorFormattedText(0, 0, 7, b, n); }},
    {"GetLastErrorDescription", [](char* b, uInt32 n) { return VorexInternalGetLastErrorDescription(0, 0, b, n); }},
};

class BufferProtocol : public testing::TestWithParam<TextFunction> {};

TEST_P(BufferProtocol, SizeQueryExactFitAndOneByteShort) {
  ASSERT_EQ(taskNameIntoShortBuffer(), nZQMSTS::kErrorBufferTooSmallForString);
  const TextFunction& f = GetParam();
  const int32_t size = f.call(nullptr, 100);
  ASSERT_GT(size, 1);
  EXPECT_EQ(f.call(nullptr, 0), size);
  std::vector<char> exact(static_cast<size_t>(size), 'z');
  EXPECT_EQ(f.call(exact.data(), static_cast<uInt32>(size)), 0);
  const std::string whole(exact.data());
  EXPECT_EQ(whole.size() + 1, static_cast<size_t>(size));
  std::vector<char> shorter(static_cast<size_t>(size), 'z');
  EXPECT_EQ(f.call(shorter.data(), static_cast<uInt32>(size - 1)), nZQMSTS::kWarningStringTruncatedToFitBuffer);
  EXPECT_EQ(std::string(shorter.data()), whole.substr(0, whole.size() - 1));
  EXPECT_EQ(shorter[static_cast<size_t>(size - 1)], 'z') << "nothing is written past the size given";
  EXPECT_EQ(f.call(exact.data(), static_cast<uInt32>(size)), 0) << "the warning replaced nothing";
  EXPECT_EQ(std::string(exact.data()), whole);
}

INSTANTIATE_TEST_SUITE_P(Functions, BufferProtocol, testing::ValuesIn(kFunctions),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(ExtendedErrorInfo, TellsTheFailureWithEveryItemOfItsReportAndTheTasksName) {
  ASSERT_EQ(taskNameIntoShortBuffer(), nZQMSTS::kErrorBufferTooSmallForString);
  const std::string expected = codeText(-200228) +
                               "\n\nRequired Buffer Size in Bytes: 13"
                               "\nBuffer Length: 4"
                               "\n"
                               "\nTask Name: Pressure Log";
  EXPECT_EQ(lastError(), expected);
  EXPECT_EQ(lastError(), expected) << "reading does not clear";
  EXPECT_EQ(codeText(-200230).empty(), false);
  EXPECT_EQ(lastError(), expected) << "a succeeding call leaves the failure";
}

TEST(ExtendedErrorInfo, ATaskNameGivenAsTextAloneIsAnItemOfItsOwn) {
  failWithTaskNameText("Pressure Log");
  EXPECT_EQ(lastError(), codeText(-200230) + "\n\nTask Name: Pressure Log");
  failWithTaskNameText(nullptr);
  EXPECT_EQ(lastError(), codeText(-200230)) << "a later failure without task name has none";
}

TEST(ExtendedErrorInfo, AThreadThatNeverFailedHasNoTextAndGetsNoRecord) {
  std::string text = "unset";
  int32_t result = -1;
  bool recordMade = true;
  std::thread([&] {
    char buffer[64] = "stale";
    result = VorexGetExtendedErrorInfo(buffer, sizeof buffer);
    text = buffer;
    recordMade = nZQCAI100::tlsManager().getThreadRecord() != nullptr;
  }).join();
  EXPECT_EQ(result, 0);
  EXPECT_EQ(text, "");
  EXPECT_FALSE(recordMade);
}

class DebugDisplay : public testing::Test {
 protected:
  void TearDown() override { zqtest::DriverInstallation::setDebugDisplay(std::nullopt); }

  const std::string debugLines_ =
      "\nFile: globals\nLine: 120\nConstant: nZQMSTS::kErrorNULLPtrForC_Api\nComponent: zqcai_rd_mbcs";
};

TEST_F(DebugDisplay, AnyValueOfEnableErrorSrcDisplayAddsWhereTheFailureWasRaised) {
  failWithTaskNameText("Pressure Log");
  const std::string plain = lastError();
  zqtest::DriverInstallation::setDebugDisplay("");
  EXPECT_EQ(lastError(), plain + "\n" + debugLines_);
  zqtest::DriverInstallation::setDebugDisplay(std::string(1100, 'x'));
  EXPECT_EQ(lastError(), plain) << "a value too long for the buffer is not read, so it does not count";
  zqtest::DriverInstallation::setDebugDisplay("0");
  EXPECT_EQ(lastError(), plain + "\n" + debugLines_) << "its content is not looked at";
}

TEST_F(DebugDisplay, TheFormattedTextTakesTheSectionsItIsAskedFor) {
  failWithTaskNameText(nullptr);
  const std::string described = codeText(-200230);
  EXPECT_EQ(formatted(1), described);
  EXPECT_EQ(formatted(1 | 0x10), described) << "flags beyond the three low bits are ignored";
  EXPECT_EQ(formatted(3), described);
  EXPECT_EQ(formatted(7), described + "\n\n" + debugLines_);
  EXPECT_EQ(formatted(4), debugLines_.substr(1));
}

TEST(LastErrorDescription, IsTheTranslatorsOwnJson) {
  ASSERT_EQ(taskNameIntoShortBuffer(), nZQMSTS::kErrorBufferTooSmallForString);
  std::vector<char> text(4096);
  ASSERT_EQ(VorexInternalGetLastErrorDescription(0, 0, text.data(), static_cast<uInt32>(text.size())), 0);
  EXPECT_EQ(std::string(text.data()).rfind(R"({"dynamic":[{"key":"Required Buffer Size in Bytes","value":"13"},)", 0),
            0u)
      << text.data();
  failWithTaskNameText(nullptr);
  ASSERT_EQ(VorexInternalGetLastErrorDescription(0, 0, text.data(), static_cast<uInt32>(text.size())), 0);
  EXPECT_EQ(std::string(text.data()).rfind(R"({"dynamic":[],"debug":[{"key":"File","value":"globals"},)", 0), 0u)
      << "a report without translator is read as the driver's own: " << text.data();
}

}  // namespace
