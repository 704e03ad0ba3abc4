// What the accessor tests expect of a case, worked out from the catalogue's words alone.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "accessor_cases.h"
#include "recording_task.h"

namespace zqtest {

// The list every test passes, and the names the task must see for it.
inline constexpr const char* kListText = " Dev1/ai0 ,Dev1/ai1";
inline const std::vector<std::string> kListNames{"Dev1/ai0", "Dev1/ai1"};

struct Verb {
  char letter;
  const char* name;
};
inline constexpr Verb kVerbs[] = {{'G', "Get"}, {'S', "Set"}, {'R', "Reset"}};

// The operation suffix of a catalogue type.
inline std::string operationSuffix(std::string_view type) {
  static const std::pair<std::string_view, const char*> kSuffixes[] = {
      {"I32", "I32"},       {"U32", "U32"},           {"U32Size", "Size"},     {"U64", "U64"},
      {"F64", "F64"},       {"Bool", "Bool"},         {"String", "String"},    {"StringList", "StringVtr"},
      {"F64Array", "F64Vtr"}, {"I32Array", "I32Vtr"}};
  for (const auto& [name, suffix] : kSuffixes)
    if (name == type) return suffix;
  ADD_FAILURE() << "no operation suffix for type " << type;
  return "?";
}

// "getChannelAttributeF64" for a Get of Op Channel and type F64.
inline std::string operationFor(std::string_view verb, const CaseInfo& info) {
  std::string op(verb);
  op[0] = static_cast<char>(op[0] - 'A' + 'a');
  return op + info.op + "Attribute" + operationSuffix(info.type);
}

inline std::string functionName(std::string_view verb, const CaseInfo& info) {
  return "Vorex" + std::string(verb) + info.name;
}

// The accessors that try the wide operation when the narrow one answers -89000.
inline bool fallsBack(const CaseInfo& info) {
  static constexpr std::string_view kNames[] = {"ReadOffset", "WriteOffset", "LoggingFileWriteSize",
                                                "ReadAvailSampPerChan", "WriteSpaceAvail"};
  for (std::string_view name : kNames)
    if (name == info.name) return true;
  return false;
}

// The call the accessor made: exactly one, of `op`, with the case's id and list.
inline void expectOneCall(const RecordingTask& task, const std::string& op, const CaseInfo& info) {
  ASSERT_EQ(task.calls().size(), 1u);
  const RecordedCall& call = task.lastCall();
  EXPECT_EQ(call.op, op);
  EXPECT_EQ(call.attributeId, info.id);
  if (std::string_view(info.op) == "Task") {
    EXPECT_FALSE(call.channels.has_value()) << "a task operation takes no list";
  } else {
    const std::vector<std::string> none;
    EXPECT_EQ(call.channels, *info.channelParam ? kListNames : none);
  }
}

// The trace record of the accessor call just made: the traced name, and as the second parameter
// the list as the attribute names it ("channel", "deviceNames" for the Ex twins of the timing
// attributes and for a forwarder, which leaves its twin's record, "lines" for the watchdog
// expiration states), or without a list the value, or for a Reset nothing.
void expectRecord(const char* verb, const CaseInfo& info);

// The catalogue's words for every case of every table.
std::vector<CaseInfo> allCases();

// The value the last call passed, or null when there was none.
inline const RecordedArg* sentValue(const RecordingTask& task) {
  return task.calls().empty() ? nullptr : task.lastCall().arg("value");
}

// Walks a table: the Get, Set and Reset of every case that has them, each on a fresh task, then
// the one call it made and its trace record. `get` answers and checks a Get, `set` makes a Set
// and checks what it passed.
template <class Case, class Get, class Set>
void walkCases(std::span<const Case> cases, Get&& get, Set&& set) {
  ASSERT_FALSE(cases.empty());
  auto task = RecordingTask::create();
  for (const Case& c : cases) {
    SCOPED_TRACE(c.info.name);
    for (const Verb& verb : kVerbs) {
      task->clearCalls();
      task->clearReplies();
      const std::string op = operationFor(verb.name, c.info);
      if (verb.letter == 'G' && c.get) get(*task, c, op);
      else if (verb.letter == 'S' && c.set) set(*task, c);
      else if (verb.letter == 'R' && c.reset) EXPECT_EQ(c.reset(task->handle(), kListText), 0);
      else continue;
      expectOneCall(*task, op, c.info);
      expectRecord(verb.name, c.info);
    }
  }
}

}  // namespace zqtest
