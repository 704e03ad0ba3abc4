// Every channel function against the recording task: the operation it reaches, every argument
// in order and width, the texts trimmed or as they stand, the arrays as views of the caller's
// memory, the one-terminal refusal, and a task that is not there.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include "../frame/last_error_probe.h"
#include "channel_cases.h"
#include "channels/channel_frame.h"
#include "recording_task.h"

namespace zqtest {
namespace {

constexpr double kLevels[] = {1.5, -2.25, 1e300};
constexpr int32_t kKinds[] = {10, -20, 70000};
constexpr uint32_t kArrayCount = 3;

bool isCount(const ChannelParam& p) { return p.countOf != nullptr; }
bool isArray(const ChannelParam& p) { return p.kind == ParamKind::kF64Array || p.kind == ParamKind::kI32Array; }

// Arguments that differ from each other and that a narrower type would change: doubles a float
// cannot hold, integers beyond 16 bits, a bool32 that is neither 0 nor 1. Texts carry blanks at
// both ends and one inside.
struct Arguments {
  explicit Arguments(const ChannelCase& c) : args(c.params.size()) {
    texts.reserve(c.params.size());
    for (size_t i = 0; i < c.params.size(); ++i) {
      const ChannelParam& p = c.params[i];
      ChannelArgs::Arg& arg = args[i];
      switch (p.kind) {
        case ParamKind::kText:
          texts.push_back(p.terminalAttribute ? " \tPFI" + std::to_string(i) + " \n"
                                              : " \t" + std::string(p.name) + " x\n");
          arg.text = texts.back().c_str();
          break;
        case ParamKind::kF64: arg.f64 = 0.1 * static_cast<double>(i + 1) + 1e-12; break;
        case ParamKind::kI32: arg.i32 = -100000 - static_cast<int32_t>(i); break;
        case ParamKind::kU32: arg.u32 = isCount(p) ? kArrayCount : 0xFFFF0000u + static_cast<uint32_t>(i); break;
        case ParamKind::kBool32: arg.u32 = 2 + static_cast<uint32_t>(i); break;
        case ParamKind::kF64Array: arg.f64s = kLevels; break;
        case ParamKind::kI32Array: arg.i32s = kKinds; break;
      }
    }
  }
  ChannelArgs args;
  std::vector<std::string> texts;
};

// What the operation must have received for the parameter at `index`.
void expectArrived(const ChannelParam& p, const ChannelArgs::Arg& given, const RecordedArg& got) {
  switch (p.kind) {
    case ParamKind::kText: {
      std::string text = given.text;
      if (p.trimmed || p.terminalAttribute) {
        text.erase(0, text.find_first_not_of(" \t\n"));
        text.erase(text.find_last_not_of(" \t\n") + 1);
      }
      EXPECT_EQ(got.type, "const Text&");
      EXPECT_EQ(got.text, text);
      break;
    }
    case ParamKind::kF64:
      EXPECT_EQ(got.type, "double");
      EXPECT_EQ(std::get<double>(got.value), given.f64);
      break;
    case ParamKind::kI32:
      EXPECT_EQ(got.type, "int32_t");
      EXPECT_EQ(std::get<int64_t>(got.value), given.i32);
      break;
    case ParamKind::kU32:
    case ParamKind::kBool32:
      EXPECT_EQ(got.type, "uint32_t");
      EXPECT_EQ(std::get<uint64_t>(got.value), given.u32);
      break;
    case ParamKind::kF64Array:
    case ParamKind::kI32Array:
      EXPECT_EQ(got.type, "const zqgopher_ArrayView*");
      EXPECT_EQ(got.text, "<" + std::to_string(kArrayCount) + " elements>");
      EXPECT_EQ(got.data, p.kind == ParamKind::kF64Array ? static_cast<const void*>(given.f64s)
                                                         : static_cast<const void*>(given.i32s));
      break;
  }
}

std::string caseName(const testing::TestParamInfo<ChannelCase>& info) { return info.param.function; }

std::vector<ChannelCase> casesWhere(bool (*wanted)(const ChannelParam&)) {
  std::vector<ChannelCase> out;
  for (const ChannelCase& c : channelCases())
    if (std::any_of(c.params.begin(), c.params.end(), wanted)) out.push_back(c);
  return out;
}

bool isTerminal(const ChannelParam& p) { return p.terminalAttribute != 0; }

class ChannelWalk : public testing::TestWithParam<ChannelCase> {
 protected:
  void SetUp() override { clearLastError(); }
  std::shared_ptr<RecordingTask> task = RecordingTask::create();
};

TEST_P(ChannelWalk, EveryArgumentReachesTheOperationInOrderAndWidth) {
  const ChannelCase& c = GetParam();
  Arguments arguments(c);
  ASSERT_EQ(c.call(task->handle(), arguments.args), 0);
  ASSERT_EQ(task->calls().size(), 1u);
  const RecordedCall& call = task->lastCall();
  EXPECT_EQ(call.op, c.operation);

  size_t at = 0;
  for (size_t i = 0; i < c.params.size(); ++i) {
    const ChannelParam& p = c.params[i];
    if (isCount(p)) continue;  // its array's view carries it
    ASSERT_LT(at, call.args.size());
    SCOPED_TRACE(p.name);
    // An untraced function keeps the API's names; the plug-in's may differ.
    if (c.traced) {
      EXPECT_EQ(call.args[at].name, p.name);
    }
    expectArrived(p, arguments.args[i], call.args[at]);
    ++at;
  }
  if (c.traced) {
    ASSERT_EQ(call.args.size(), at + 1) << "the result list follows the parameters";
    EXPECT_EQ(call.args[at].name, "createdChannels");
    EXPECT_EQ(call.args[at].text, "pointer");
  } else {
    EXPECT_EQ(call.args.size(), at);
  }
}

TEST_P(ChannelWalk, NullTextsArriveEmptyAndNullArraysOfNoElementsAsEmptyViews) {
  const ChannelCase& c = GetParam();
  Arguments arguments(c);
  for (size_t i = 0; i < c.params.size(); ++i) {
    ChannelArgs::Arg& arg = arguments.args[i];
    arg.text = nullptr;
    arg.f64s = nullptr;
    arg.i32s = nullptr;
    if (isCount(c.params[i])) arg.u32 = 0;
  }
  ASSERT_EQ(c.call(task->handle(), arguments.args), 0);
  for (const RecordedArg& arg : task->lastCall().args) {
    if (arg.type == "const Text&") {
      EXPECT_EQ(arg.text, "") << arg.name;
    }
    if (arg.type == "const zqgopher_ArrayView*") {
      EXPECT_EQ(arg.text, "") << arg.name;
      EXPECT_EQ(arg.data, nullptr) << arg.name;
    }
  }
}

TEST_P(ChannelWalk, ATaskThatIsNotThereIsReportedAndNothingIsCalled) {
  const ChannelCase& c = GetParam();
  Arguments arguments(c);
  EXPECT_EQ(c.call(nullptr, arguments.args), -200230);
  EXPECT_EQ(lastErrorCode(), -200230);
  task->expire();
  EXPECT_EQ(c.call(task->handle(), arguments.args), -50004);
  EXPECT_TRUE(task->calls().empty());
}

TEST_P(ChannelWalk, ThePluginsAnswerIsTheResult) {
  const ChannelCase& c = GetParam();
  Arguments arguments(c);
  task->on(c.operation).status(-200431);
  EXPECT_EQ(c.call(task->handle(), arguments.args), -200431);
  EXPECT_EQ(lastErrorCode(), -200431);
  task->on(c.operation).status(200010);
  EXPECT_EQ(c.call(task->handle(), arguments.args), 200010) << "a warning comes back as it is";
}

INSTANTIATE_TEST_SUITE_P(Functions, ChannelWalk, testing::ValuesIn(channelCases()), caseName);

class ChannelArrays : public ChannelWalk {};

TEST_P(ChannelArrays, ANullArrayWithElementsIsAnInvalidParameter) {
  const ChannelCase& c = GetParam();
  for (size_t nulled = 0; nulled < c.params.size(); ++nulled) {
    if (!isArray(c.params[nulled])) continue;
    SCOPED_TRACE(c.params[nulled].name);
    Arguments arguments(c);
    arguments.args[nulled].f64s = nullptr;
    arguments.args[nulled].i32s = nullptr;
    EXPECT_EQ(c.call(task->handle(), arguments.args), -52005);
    // The operation sees the failed status and returns at once.
    EXPECT_EQ(lastErrorCode(), -52005);
  }
}

INSTANTIATE_TEST_SUITE_P(Functions, ChannelArrays, testing::ValuesIn(casesWhere(isArray)), caseName);

class ChannelTerminals : public ChannelWalk {};

TEST_P(ChannelTerminals, MoreThanOneTerminalIsRefusedWithTheAttributeAndTheCount) {
  const ChannelCase& c = GetParam();
  Arguments arguments(c);
  const auto terminal = std::find_if(c.params.begin(), c.params.end(), isTerminal);
  arguments.args[static_cast<size_t>(terminal - c.params.begin())].text = " PFI0, PFI1 ";
  EXPECT_EQ(c.call(task->handle(), arguments.args), -200098);
  EXPECT_EQ(lastErrorItems(),
            itemList({usageItem("kUsageTypeAttributeIdentifier", terminal->terminalAttribute, "int32_t"),
                      usageItem("kUsageTypeRequestedNumberTerminals", 2, "uint32_t")}));
}

INSTANTIATE_TEST_SUITE_P(Functions, ChannelTerminals, testing::ValuesIn(casesWhere(isTerminal)), caseName);

TEST(ChannelTable, CoversEveryFunctionOnce) {
  std::vector<std::string> names;
  for (const ChannelCase& c : channelCases()) names.push_back(c.function);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
  EXPECT_EQ(names.size(), 78u) << "77 creation functions and VorexInternalDisableChannel";
}

TEST(DiscardedChannels, AreOneObjectWhoseOperationsChangeNothing) {
  zqgopher_IItemAdder* list = zqchannels::discardedChannels();
  ASSERT_EQ(list, zqchannels::discardedChannels());
  const char* names[] = {"ai0", nullptr};
  zqerr::Status status;
  list->table.strings->reserve(list, 5, &status);
  list->table.strings->add(list, "ai0", &status);
  list->table.strings->add(list, nullptr, &status);
  list->table.strings->addRange(list, names, 2, &status);
  list->table.strings->clear(list, &status);
  EXPECT_EQ(status.code, 0) << "what a plug-in reports there is dropped, not judged";
  EXPECT_EQ(status.report, nullptr);
}

}  // namespace
}  // namespace zqtest
