// The text accessor shapes against the recording task: size queries, short buffers, the
// stripping of Set values, the terminal check, lists, and text in the system code page.
#include "frame/string_frame.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "last_error_probe.h"
#include "platform/platform.h"
#include "recording_task.h"
#include "zqvorex_status_codes.h"

namespace {

using namespace zqframe;
using zqtest::itemList;
using zqtest::RecordingTask;
using zqtest::usageItem;
using zqvorexRedir::ITask;

constexpr AccessorInfo kCustomScaleName{"VorexGetAICustomScaleName", 0x17E0, "channel", 10};
constexpr AccessorInfo kTaskName{"VorexGetTaskName", 0x1276, nullptr, 11};
constexpr AccessorInfo kTaskChannels{"VorexGetTaskChannels", 0x1273, nullptr, 12};
constexpr AccessorInfo kStrainChans{"VorexGetAIRosetteStrainGageStrainChans", 0x2FFB, "channel", 13};
constexpr AccessorInfo kSetCustomScaleName{"VorexSetAICustomScaleName", 0x17E0, "channel", 20};
constexpr AccessorInfo kSampClkSrc{"VorexSetSampClkSrc", 0x1852, nullptr, 21};
constexpr AccessorInfo kStartTrigTerm{"VorexSetExportedStartTrigOutputTerm", 0x0584, nullptr, 22};

using GetText = int32_t (*)(TaskHandle, const char*, char*, uint32_t);
using SetText = int32_t (*)(TaskHandle, const char*, const char*);

int32_t getCustomScaleName(TaskHandle t, const char* c, char* d, uint32_t n) {
  return getString<&ITask::getChannelAttributeString>(kCustomScaleName, t, c, d, n);
}
int32_t getTaskName(TaskHandle t, const char*, char* d, uint32_t n) {
  return getString<&ITask::getTaskAttributeString>(kTaskName, t, nullptr, d, n);
}
int32_t getTaskChannels(TaskHandle t, const char*, char* d, uint32_t n) {
  return getStringList<&ITask::getTaskAttributeStringVtr>(kTaskChannels, t, nullptr, d, n);
}
int32_t getStrainChans(TaskHandle t, const char* c, char* d, uint32_t n) {
  return getStringList<&ITask::getChannelAttributeStringVtr>(kStrainChans, t, c, d, n);
}
int32_t setCustomScaleName(TaskHandle t, const char* c, const char* d) {
  return setString<&ITask::setChannelAttributeString>(kSetCustomScaleName, t, c, d);
}
int32_t setSampClkSrc(TaskHandle t, const char*, const char* d) {
  return setTerminal<&ITask::setTimingAttributeString>(kSampClkSrc, t, nullptr, d);
}
int32_t setStartTrigTerm(TaskHandle t, const char*, const char* d) {
  return setStringList<&ITask::setTimingAttributeStringVtr>(kStartTrigTerm, t, nullptr, d);
}

std::vector<std::string> splitList(const std::string& joined) {
  std::vector<std::string> items;
  for (size_t start = 0; !joined.empty();) {
    size_t comma = joined.find(", ", start);
    items.push_back(joined.substr(start, comma - start));
    if (comma == std::string::npos) break;
    start = comma + 2;
  }
  return items;
}

// One Get shape: the accessor, the operation it must reach, and whether the plug-in answers
// with a list that the frame joins with ", ".
struct GetShape {
  const char* label;
  GetText get;
  const char* op;
  bool list;
};

void program(RecordingTask& task, const GetShape& shape, const std::string& value) {
  if (shape.list)
    task.on(shape.op).strings(splitList(value));
  else
    task.on(shape.op).text(value);
}

const GetShape kGetShapes[] = {
    {"ChannelString", getCustomScaleName, "getChannelAttributeString", false},
    {"TaskString", getTaskName, "getTaskAttributeString", false},
    {"TaskList", getTaskChannels, "getTaskAttributeStringVtr", true},
    {"ChannelList", getStrainChans, "getChannelAttributeStringVtr", true},
};

enum class Handle { kLive, kNull, kExpired };
constexpr int32_t kSize = 1;  // the expected return is the size query's answer

struct GetCase {
  const char* label;
  const char* value;  // the plug-in's value; list shapes get it split at ", "
  Handle handle;
  bool withBuffer;
  int64_t bufferSize;  // -1: the value's length plus one, -2: its length
  int32_t pluginCode;
  int32_t expected;  // kSize or the code
  bool written;
  bool shortBufferItems;
};

const GetCase kGetCases[] = {
    {"SizeQueryWithNullBuffer", "Dev1/ai0, Dev1/ai1", Handle::kLive, false, 0, 0, kSize, false, false},
    {"SizeQueryWithNullBufferAndASize", "Dev1/ai0, Dev1/ai1", Handle::kLive, false, 40, 0, kSize, false, false},
    {"SizeQueryWithSizeZero", "Dev1/ai0, Dev1/ai1", Handle::kLive, true, 0, 0, kSize, false, false},
    {"SizeQueryOfAnEmptyValue", "", Handle::kLive, false, 0, 0, kSize, false, false},
    {"EmptyValueIntoSizeZero", "", Handle::kLive, true, 0, 0, kSize, false, false},
    {"SizeQueryKeepsNoWarning", "Dev1/ai0", Handle::kLive, false, 0, 200077, kSize, false, false},
    {"ExactlyLengthPlusOne", "Dev1/ai0, Dev1/ai1", Handle::kLive, true, -1, 0, 0, true, false},
    {"OneByteShort", "Dev1/ai0, Dev1/ai1", Handle::kLive, true, -2, 0, nZQMSTS::kErrorBufferTooSmallForString, false, true},
    {"EmptyValueIntoABuffer", "", Handle::kLive, true, 64, 0, 0, true, false},
    {"PluginWarningKeepsTheValue", "Dev1/ai0", Handle::kLive, true, 64, 200077, 200077, true, false},
    {"PluginErrorWritesNothing", "Dev1/ai0", Handle::kLive, true, 64, -201003, -201003, false, false},
    {"NullHandle", "Dev1/ai0", Handle::kNull, true, 64, 0, -200230, false, false},
    {"NullHandleIsNoSizeQuery", "Dev1/ai0", Handle::kNull, false, 0, 0, -200230, false, false},
    {"ExpiredTask", "Dev1/ai0", Handle::kExpired, true, 64, 0, zqpalerr_badPointer, false, false},
};

class TextGet : public testing::TestWithParam<std::tuple<GetShape, GetCase>> {};

TEST_P(TextGet, AnswersAsTheCaseSays) {
  const auto& [shape, c] = GetParam();
  auto task = RecordingTask::create();
  program(*task, shape, c.value);
  if (c.pluginCode != 0) task->on(shape.op).status(c.pluginCode);
  if (c.handle == Handle::kExpired) task->expire();
  zqtest::clearLastError();

  const std::string value = c.value;
  const int64_t size = c.bufferSize == -1 ? static_cast<int64_t>(value.size()) + 1
                       : c.bufferSize == -2 ? static_cast<int64_t>(value.size())
                                            : c.bufferSize;
  const std::string untouched(64, 'x');
  std::string buffer = untouched;
  const int32_t result = shape.get(c.handle == Handle::kNull ? nullptr : task->handle(), "Dev1/ai0",
                                   c.withBuffer ? buffer.data() : nullptr, static_cast<uint32_t>(size));

  const int32_t expected =
      c.expected == kSize ? (value.empty() ? 0 : static_cast<int32_t>(value.size()) + 1) : c.expected;
  EXPECT_EQ(result, expected);
  if (c.written) {
    EXPECT_EQ(std::string(buffer.c_str()), value);
  } else {
    EXPECT_EQ(buffer, untouched);
  }
  EXPECT_EQ(task->callCount(shape.op), c.handle == Handle::kLive ? 1u : 0u);
  EXPECT_EQ(zqtest::lastErrorCode(), expected < 0 ? expected : 0);
  if (c.shortBufferItems) {
    EXPECT_EQ(zqtest::lastErrorItems(),
              itemList({usageItem("kUsageTypeReqBufSizeInBytes", static_cast<int64_t>(value.size()) + 1, "int32_t"),
                        usageItem("kUsageTypeBufferLength", size, "uint32_t")}));
  }
}

std::string caseName(const testing::TestParamInfo<TextGet::ParamType>& info) {
  return std::string(std::get<0>(info.param).label) + "_" + std::get<1>(info.param).label;
}

INSTANTIATE_TEST_SUITE_P(Shapes, TextGet, testing::Combine(testing::ValuesIn(kGetShapes), testing::ValuesIn(kGetCases)),
                         caseName);

// A null or empty channel argument is the empty list (the accessor walks pass a list to every
// accessor of the catalogue).
TEST(TextGetOperation, NoChannelIsTheEmptyList) {
  struct Row {
    GetText get;
    const char* op;
    const char* channel;
    int32_t id;
  };
  const Row rows[] = {
      {getCustomScaleName, "getChannelAttributeString", nullptr, 0x17E0},
      {getStrainChans, "getChannelAttributeStringVtr", "", 0x2FFB},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.op);
    auto task = RecordingTask::create();
    char buffer[32];
    EXPECT_EQ(row.get(task->handle(), row.channel, buffer, sizeof buffer), 0);
    ASSERT_EQ(task->calls().size(), 1u);
    EXPECT_EQ(task->lastCall().op, row.op);
    EXPECT_EQ(task->lastCall().channels, std::vector<std::string>{});
    EXPECT_EQ(task->lastCall().attributeId, row.id);
  }
}

TEST(TextGetOperation, BadChannelListStopsBeforeThePlugin) {
  auto task = RecordingTask::create();
  std::string buffer(16, 'x');
  EXPECT_EQ(getCustomScaleName(task->handle(), "ai0:", buffer.data(), 16), zqwombat::kErrorInvalidRange);
  EXPECT_EQ(buffer, std::string(16, 'x'));
  EXPECT_TRUE(task->calls().empty());
}

TEST(TextGetOperation, ExceptionInTheOperationBecomesAStatus) {
  auto task = RecordingTask::create();
  task->on("getChannelAttributeString").throws(std::runtime_error("plug-in threw"));
  std::string buffer(8, 'x');
  EXPECT_EQ(getCustomScaleName(task->handle(), "", buffer.data(), 8), zqpalerr_softwareFault);
  EXPECT_EQ(buffer, std::string(8, 'x'));
}

// --- Set -----------------------------------------------------------------------------------

// One Set shape: the accessor and the operation it must reach.
struct SetShape {
  SetText set;
  const char* op;
};

const SetShape kString{setCustomScaleName, "setChannelAttributeString"};
const SetShape kTerminal{setSampClkSrc, "setTimingAttributeString"};
const SetShape kList{setStartTrigTerm, "setTimingAttributeStringVtr"};

struct SetCase {
  const char* label;
  SetShape shape;
  Handle handle;
  const char* input;
  int32_t expected;
  const char* passed;  // the value the operation received, as text; null when not called
  int32_t terminals;   // the count in the nZQMSTS100::kErrorMoreThanOneTerminal report, 0 for none
};

const SetCase kSetCases[] = {
    {"StringStripsAllSixWhiteSpaces", kString, Handle::kLive, "\t\r\n\f\v a b \v\f\n\r\t", 0, "a b", 0},
    {"StringNullIsEmpty", kString, Handle::kLive, nullptr, 0, "", 0},
    {"StringKeepsCommas", kString, Handle::kLive, "PFI0, PFI1", 0, "PFI0, PFI1", 0},
    {"StringNullHandle", kString, Handle::kNull, "x", -200230, nullptr, 0},
    {"TerminalNullIsEmpty", kTerminal, Handle::kLive, nullptr, 0, "", 0},
    {"TerminalPassesTheTextNotTheName", kTerminal, Handle::kLive, "PFI0 , ", 0, "PFI0 ,", 0},
    {"TwoTerminals", kTerminal, Handle::kLive, "PFI0,PFI1", nZQMSTS100::kErrorMoreThanOneTerminal, nullptr, 2},
    {"TerminalRange", kTerminal, Handle::kLive, "PFI0:2", nZQMSTS100::kErrorMoreThanOneTerminal, nullptr, 3},
    {"TerminalListError", kTerminal, Handle::kLive, "PFI0:", zqwombat::kErrorInvalidRange, nullptr, 0},
    {"TerminalNullHandleWins", kTerminal, Handle::kNull, "PFI0,PFI1", -200230, nullptr, 0},
    {"ListSplitsAndStrips", kList, Handle::kLive, " a, b ,c ", 0, "a, b, c", 0},
    {"ListExpandsRanges", kList, Handle::kLive, "ai0:2", 0, "ai0, ai1, ai2", 0},
    {"ListNullIsEmpty", kList, Handle::kLive, nullptr, 0, "", 0},
    {"ListOfCommasIsEmpty", kList, Handle::kLive, ",,,", 0, "", 0},
    {"ListError", kList, Handle::kLive, ":3", zqwombat::kErrorInvalidRange, nullptr, 0},
    {"ListExpiredTask", kList, Handle::kExpired, "a", zqpalerr_badPointer, nullptr, 0},
};

class TextSet : public testing::TestWithParam<SetCase> {};

TEST_P(TextSet, PassesTheValueAsTheCaseSays) {
  const SetCase& c = GetParam();
  auto task = RecordingTask::create();
  if (c.handle == Handle::kExpired) task->expire();
  zqtest::clearLastError();

  EXPECT_EQ(c.shape.set(c.handle == Handle::kNull ? nullptr : task->handle(), nullptr, c.input), c.expected);
  if (c.passed) {
    ASSERT_EQ(task->callCount(c.shape.op), 1u);
    EXPECT_EQ(task->lastCall().text("value"), c.passed);
  } else {
    EXPECT_TRUE(task->calls().empty());
  }
  if (c.terminals != 0) {
    EXPECT_EQ(zqtest::lastErrorItems(),
              itemList({usageItem("kUsageTypeAttributeIdentifier", 0x1852, "int32_t", "SampClkSrc"),
                        usageItem("kUsageTypeRequestedNumberTerminals", c.terminals, "uint32_t")}));
  }
}

INSTANTIATE_TEST_SUITE_P(Shapes, TextSet, testing::ValuesIn(kSetCases),
                         [](const testing::TestParamInfo<SetCase>& info) { return std::string(info.param.label); });

TEST(TextSetOperation, ChannelListAndPluginAnswerReachTheCaller) {
  auto task = RecordingTask::create();
  task->on("setChannelAttributeString").status(200077);
  EXPECT_EQ(setCustomScaleName(task->handle(), "Dev1/ai0:1", "scale"), 200077);
  ASSERT_EQ(task->calls().size(), 1u);
  EXPECT_EQ(task->lastCall().channels, (std::vector<std::string>{"Dev1/ai0", "Dev1/ai1"}));
  EXPECT_EQ(task->lastCall().attributeId, 0x17E0);
  EXPECT_EQ(task->lastCall().arg("value")->type, "const Text&");
}

// --- text in the system code page ----------------------------------------------------------

struct PageText {
  uint32_t page;
  const char* system;  // a name as the caller holds it
  const char* utf8;    // the same name inside
};

const PageText kPageTexts[] = {
    {65001, "caf\xC3\xA9", "caf\xC3\xA9"},
    {1252, "caf\xE9", "caf\xC3\xA9"},
    {932, "\x83\x41\x83\x43", "\xE3\x82\xA2\xE3\x82\xA4"},
};

// The cases of the system code page this process runs under (ZQCAI_CODE_PAGE on Linux).
std::vector<PageText> casesOfThisPage() {
  std::vector<PageText> cases;
  for (const PageText& text : kPageTexts)
    if (text.page == zqplatform::systemCodePage()) cases.push_back(text);
  return cases;
}

TEST(CodePage, ChannelAndValueArriveAsUtf8) {
  const auto cases = casesOfThisPage();
  if (cases.empty()) GTEST_SKIP() << "no sample text for code page " << zqplatform::systemCodePage();
  for (const PageText& text : cases) {
    auto task = RecordingTask::create();
    const std::string channel = std::string("Dev1/") + text.system + ", x";
    EXPECT_EQ(setCustomScaleName(task->handle(), channel.c_str(), text.system), 0);
    ASSERT_EQ(task->calls().size(), 1u);
    EXPECT_EQ(task->lastCall().channels, (std::vector<std::string>{std::string("Dev1/") + text.utf8, "x"}));
    EXPECT_EQ(task->lastCall().text("value"), text.utf8);
  }
}

TEST(CodePage, GetGivesTheSystemTextAndCountsItsBytes) {
  const auto cases = casesOfThisPage();
  if (cases.empty()) GTEST_SKIP() << "no sample text for code page " << zqplatform::systemCodePage();
  for (const PageText& text : cases) {
    auto task = RecordingTask::create();
    task->on("getChannelAttributeString").text(text.utf8);
    task->on("getTaskAttributeStringVtr").strings({text.utf8, text.utf8});
    const std::string system = text.system;
    char buffer[32];
    EXPECT_EQ(getCustomScaleName(task->handle(), "", nullptr, 0), static_cast<int32_t>(system.size()) + 1);
    EXPECT_EQ(getCustomScaleName(task->handle(), "", buffer, static_cast<uint32_t>(system.size())), nZQMSTS::kErrorBufferTooSmallForString);
    EXPECT_EQ(getCustomScaleName(task->handle(), "", buffer, static_cast<uint32_t>(system.size()) + 1), 0);
    EXPECT_EQ(std::string(buffer), system);
    EXPECT_EQ(getTaskChannels(task->handle(), nullptr, buffer, sizeof buffer), 0);
    EXPECT_EQ(std::string(buffer), system + ", " + system);
  }
}

}  // namespace
