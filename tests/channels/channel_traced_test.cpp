// The trace record of every channel function, read back from the real ZqSpyLog tool: parameter
// names and type codes in order, texts, enumerations as pairs of their attribute id and value,
// the named values of terminalConfig and lineGrouping, arrays twice and their counts not at all.
#include <gtest/gtest.h>

#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <string>
#include <vector>

#include "channel_cases.h"
#include "traced_task.h"

namespace zqtest {
namespace {

constexpr double kLevels[] = {0.5, -1.25};
constexpr int32_t kKinds[] = {7, -8};

std::string number(double value) {
  char text[32];
  const auto result = std::to_chars(text, text + sizeof text, value);
  return std::string(text, result.ptr);
}

std::string hex(uint32_t value) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%" PRIx32, value);
  return text;
}

std::string record(const std::string& name, size_t index, int32_t code, const std::string& sizes,
                   const std::string& value) {
  return " " + name + "@" + std::to_string(index) + ":" + std::to_string(code) + "[" + sizes + "]=" + value;
}

std::string textRecord(const std::string& name, size_t index, const std::string& text) {
  return record(name, index, 79, "1," + std::to_string(text.size()), "\"" + text + "\"");
}

// The literal the trace shows for a value of a named set, or "".
std::string literal(const char* set, int32_t value) {
  const std::string name = set ? set : "";
  if (name == "TerminalConfig" && value == -1) return "Vorex_Val_Cfg_Default";
  if (name == "LineGrouping" && value == 0) return "Vorex_Val_ChanPerLine";
  if (name == "LineGrouping" && value == 1) return "Vorex_Val_ChanForAllLines";
  return "";
}

class ChannelTrace : public TracedTask, public testing::WithParamInterface<ChannelCase> {
 protected:
  // Calls the function with `integers` for every int32 parameter and returns the expected
  // parameter records after "taskHandle".
  std::string callWith(int32_t integers) {
    const ChannelCase& c = GetParam();
    ChannelArgs args(c.params.size());
    std::vector<std::string> texts;
    texts.reserve(c.params.size());
    std::string expected;
    size_t index = 1;
    for (size_t i = 0; i < c.params.size(); ++i) {
      const ChannelParam& p = c.params[i];
      ChannelArgs::Arg& arg = args[i];
      switch (p.kind) {
        case ParamKind::kText:
          texts.push_back(std::string(p.name) + "0");
          arg.text = texts.back().c_str();
          expected += textRecord(p.name, index++, texts.back());
          break;
        case ParamKind::kF64:
          arg.f64 = 0.25 + static_cast<double>(i);
          expected += record(p.name, index++, 81, "8,8", number(arg.f64));
          break;
        case ParamKind::kI32:
          arg.i32 = integers;
          if (!literal(p.named, integers).empty())
            expected += textRecord(p.name, index++, literal(p.named, integers));
          else if (p.enumAttribute)
            expected += record(p.name, index++, 103, "4,8",
                               "{" + hex(static_cast<uint32_t>(p.enumAttribute)) + "," + std::to_string(integers) + "}");
          else
            expected += record(p.name, index++, 75, "4,4", std::to_string(integers));
          break;
        case ParamKind::kU32:
          arg.u32 = p.countOf ? 2 : 40000 + static_cast<uint32_t>(i);
          if (!p.countOf) expected += record(p.name, index++, 71, "4,4", std::to_string(arg.u32));
          break;
        case ParamKind::kBool32:
          arg.u32 = 1;
          expected += record(p.name, index++, 21, "4,4", "1");
          break;
        case ParamKind::kF64Array:
          arg.f64s = kLevels;
          expected += record(p.name, index++, 20, "8,8", pointerText(kLevels));
          expected += record(p.name, index++, 20, "8,16", "[0.5, -1.25]");
          break;
        case ParamKind::kI32Array:
          arg.i32s = kKinds;
          expected += record(p.name, index++, 102, "8,8", pointerText(kKinds));
          expected += record(p.name, index++, 102, "8,16", "[7, -8]");
          break;
      }
    }
    EXPECT_EQ(c.call(task->handle(), args), 0);
    return head(c.function, static_cast<int>(index)) + expected + "; returns(1): retval@0:75[4,4]=0 ok";
  }
};

// -1, 0 and 1 are the reserved values that terminalConfig and lineGrouping show by name.
TEST_P(ChannelTrace, NamesTypesAndValuesInOrder) {
  if (!GetParam().traced) GTEST_SKIP() << "a function without a trace record";
  for (int32_t value : {12345, -1, 0, 1}) {
    const std::string expected = callWith(value);
    EXPECT_EQ(spy.line(), expected) << value;
  }
}

INSTANTIATE_TEST_SUITE_P(Functions, ChannelTrace, testing::ValuesIn(channelCases()),
                         [](const testing::TestParamInfo<ChannelCase>& info) { return info.param.function; });

class ChannelTraceUntraced : public TracedTask {};

TEST_F(ChannelTraceUntraced, DisablingAChannelLeavesNoRecord) {
  VorexTaskControl(task->handle(), 9);
  const std::string before = spy.line();
  EXPECT_EQ(VorexInternalDisableChannel(task->handle(), "ai0"), 0);
  EXPECT_EQ(spy.line(), before);
  EXPECT_EQ(task->lastCall().op, "rollbackFailedChannelCreations");
}

}  // namespace
}  // namespace zqtest
