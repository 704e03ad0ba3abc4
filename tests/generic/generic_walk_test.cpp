// Every id of every generic entry, walked from the catalogue's own tables: the variadic entry
// and its FromParmInfo twin reach the same task operation with the same id, list and value as
// the named accessor, and hand back the same value; the refused ids give -200231 and -200236,
// and every other id of the catalogue -200233, each with the id as the report's one item.
#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "../frame/last_error_probe.h"
#include "generic_cases.h"
#include "recording_task.h"

namespace zqtest {
namespace {

constexpr const char* kList = " Dev1/ai0 ,Dev1/ai1";

// What a plug-in answers a Get of this type with; distinct values so that a wrong accessor shows.
void answerFor(ValueType type, RecordingTask& task) {
  Reply& reply = task.onAny();
  switch (type) {
    case ValueType::kF64: reply.value(2.75); break;
    case ValueType::kI32: reply.value(int32_t{-123456}); break;
    case ValueType::kString: reply.text("Dev1/PFI3"); break;
    case ValueType::kStringList: reply.strings({"Dev1/ai0", "Dev1/ai1"}); break;
    case ValueType::kF64Array: reply.numbers({0.5, 8}); break;
    case ValueType::kI32Array: reply.integers({10322, -1}); break;
    case ValueType::kTime: reply.out(zqvorexPlugin_AbsoluteTime{0x8000000000000000ull, 3700000000}); break;
    case ValueType::kU64: reply.value(uint64_t{0x1C0000003ull}); break;
    default: reply.value(uint64_t{3000000007u}); break;
  }
}

// One call on a fresh task: its code, what it handed back and what the task saw.
struct Outcome {
  int32 code = 0;
  Outputs out{};
  std::vector<RecordedCall> calls;
};

template <class Call>
Outcome run(ValueType type, Call&& call) {
  auto task = RecordingTask::create();
  answerFor(type, *task);
  Outcome outcome;
  std::memset(&outcome.out, 0, sizeof outcome.out);
  outcome.code = call(task->handle(), outcome.out);
  outcome.calls = task->calls();
  return outcome;
}

std::string describe(const std::vector<RecordedCall>& calls) {
  std::string text;
  for (const RecordedCall& call : calls) {
    text += call.op + "(";
    for (const RecordedArg& arg : call.args) text += arg.name + ":" + arg.type + "=" + arg.text + " ";
    text += ") ";
  }
  return text;
}

void expectSame(const Outcome& named, const Outcome& generic, const char* how) {
  SCOPED_TRACE(how);
  EXPECT_EQ(generic.code, named.code);
  EXPECT_EQ(describe(generic.calls), describe(named.calls));
  EXPECT_EQ(std::memcmp(&generic.out, &named.out, sizeof named.out), 0) << "the value handed back differs";
}

TEST(GenericEntries, EveryIdReachesItsNamedAccessor) {
  const Inputs in;
  size_t walked = 0;
  for (const GenericCase& c : genericCases()) {
    SCOPED_TRACE(std::string(c.entry) + " " + c.name);
    const char* list = c.takesList ? kList : "";
    // The device-list entries pass their list to the Ex accessors; a blank one would fall back.
    if (std::string_view(c.entry).find("AttributeEx") != std::string_view::npos) list = "Dev1";
    const Outcome named = run(c.type, [&](TaskHandle t, Outputs& out) { return c.named(t, list, in, out); });
    ASSERT_EQ(named.code, 0) << describe(named.calls);
    if (std::string_view(c.name) != "TaskName") {
      ASSERT_FALSE(named.calls.empty());
    }
    expectSame(named, run(c.type, [&](TaskHandle t, Outputs& out) { return c.variadic(t, list, c.id, in, out); }),
               "variadic");
    expectSame(named, run(c.type, [&](TaskHandle t, Outputs& out) { return c.twin(t, list, c.id, in, out); }),
               "FromParmInfo");
    ++walked;
  }
  // The ids of the catalogue's generic entries (Get, Set, Reset) summed over the classes.
  EXPECT_EQ(walked, 958u + 833u + 832u);
}

// The report of a refusal names the id, as an int32 without the attribute's name.
std::string idItem(int32 id) { return itemList({usageItem("kUsageTypeAttributeIdentifier", id, "int32_t")}); }

TEST(GenericEntries, TheRefusedIdsAreRefusedByName) {
  const Inputs in;
  for (const RefusedCase& c : refusedCases()) {
    SCOPED_TRACE(std::string(c.entry) + " " + c.name);
    auto task = RecordingTask::create();
    Outputs out{};
    clearLastError();
    EXPECT_EQ(c.call(task->handle(), kList, c.id, in, out), c.verb == GenericVerb::kSet ? -200231 : -200236);
    EXPECT_EQ(lastErrorCode(), c.verb == GenericVerb::kSet ? -200231 : -200236);
    EXPECT_EQ(lastErrorItems(), idItem(c.id));
    EXPECT_TRUE(task->calls().empty());
  }
  EXPECT_EQ(refusedCases().size(), 79u + 80u);
}

// The ids an entry takes or refuses by name; any other gives -200233.
std::set<int32> handledBy(const BareEntry& entry) {
  std::set<int32> ids;
  for (const GenericCase& c : genericCases())
    if (std::string_view(c.entry) == entry.entry && c.verb == entry.verb) ids.insert(c.id);
  for (const RefusedCase& c : refusedCases())
    if (std::string_view(c.entry) == entry.entry && c.verb == entry.verb) ids.insert(c.id);
  return ids;
}

TEST(GenericEntries, EveryOtherIdIsNotValid) {
  std::vector<int32> ids(catalogueIds().begin(), catalogueIds().end());
  for (int32 extra : {-1, 0, 1, 0x7FFFFFFF, INT32_MIN}) ids.push_back(extra);
  const Inputs in;
  auto task = RecordingTask::create();
  size_t answered = 0;
  for (const BareEntry& entry : bareEntries()) {
    SCOPED_TRACE(entry.entry);
    const std::set<int32> handled = handledBy(entry);
    EXPECT_FALSE(handled.empty());
    for (int32 id : ids) {
      if (handled.count(id)) continue;
      SCOPED_TRACE(id);
      Outputs out{};
      clearLastError();
      // A device list that is not blank keeps the plain Timing ids out of the Ex entries.
      ASSERT_EQ(entry.call(task->handle(), "Dev1", id, in, out), -200233);
      ASSERT_EQ(lastErrorItems(), idItem(id));
      ++answered;
    }
  }
  EXPECT_TRUE(task->calls().empty()) << describe(task->calls());
  EXPECT_GT(answered, 30u * catalogueIds().size());
}

// A bad handle: an id the entry takes goes on to the accessor, which reports the handle; any
// other id keeps the handle's code, without the id.
TEST(GenericEntries, ABadHandleWinsOverAnUnknownId) {
  float64 value = 5;  // AIMax is a float64: a failure zeroes all of it
  clearLastError();
  EXPECT_EQ(VorexGetChanAttribute(nullptr, "", Vorex_AIMax, &value), -200230);
  clearLastError();
  EXPECT_EQ(VorexGetChanAttribute(nullptr, "", 0x7FFFFFFF, &value), -200230);
  EXPECT_EQ(lastErrorCode(), -200230);
  EXPECT_EQ(lastErrorItems(), "<none>");
  EXPECT_EQ(VorexSetBufferAttribute(nullptr, Vorex_BufInputOnbrdBufSize, 5u), -200230);
}

}  // namespace
}  // namespace zqtest
