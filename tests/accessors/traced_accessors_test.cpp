// Every accessor traces under its own name, and names its list parameter as its attribute
// wants it: "channel", "deviceNames" for the Ex twins of the timing attributes, "lines" for the
// watchdog expiration states, none without a list. A forwarder leaves its Ex twin's record.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "case_helpers.h"
#include "spy_client.h"

namespace {

using namespace zqtest;

class TracedAccessors : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
  }

  // The record of the call just made starts with the traced name, and its second parameter
  // is the list when the accessor has one.
  void expectRecord(const char* verb, const CaseInfo& info) {
    const std::string line = spy.line();
    const std::string head = "Vorex" + std::string(verb) + info.traced + " params(";
    EXPECT_EQ(line.substr(0, head.size()), head) << line;
    // A forwarder's record is its Ex twin's, with the device list it added.
    const bool forwarder = std::string_view(info.traced) != info.name;
    std::string second = *info.channelParam ? info.channelParam : (verb[0] == 'R' ? "" : "data");
    if (forwarder) second = "deviceNames";
    if (second.empty())
      EXPECT_NE(line.find(" params(1): taskHandle@0:"), std::string::npos) << line;
    else
      EXPECT_NE(line.find(" " + second + "@1:"), std::string::npos) << line;
    ++records;
  }

  template <class Case, class Get, class Set>
  void walk(std::span<const Case> cases, Get get, Set set) {
    for (const Case& c : cases) {
      if (c.get) {
        get(c);
        expectRecord("Get", c.info);
      }
      if (c.set) {
        set(c);
        expectRecord("Set", c.info);
      }
      if (c.reset) {
        c.reset(task->handle(), "Dev1");
        expectRecord("Reset", c.info);
      }
    }
  }

  template <class T>
  void walkScalars(std::span<const ScalarCase<T>> cases) {
    walk(
        cases, [&](const ScalarCase<T>& c) { T data{}; c.get(task->handle(), "Dev1", &data); },
        [&](const ScalarCase<T>& c) { c.set(task->handle(), "Dev1", T{}); });
  }
  void walkTexts(std::span<const TextCase> cases) {
    walk(
        cases, [&](const TextCase& c) { char data[8]; c.get(task->handle(), "Dev1", data, sizeof data); },
        [&](const TextCase& c) { c.set(task->handle(), "Dev1", "PFI0"); });
  }
  template <class T>
  void walkArrays(std::span<const ArrayCase<T>> cases) {
    walk(
        cases, [&](const ArrayCase<T>& c) { T data[2]; c.get(task->handle(), "Dev1", data, 2); },
        [&](const ArrayCase<T>& c) { const T data[1] = {}; c.set(task->handle(), "Dev1", data, 1); });
  }

  SpyClient spy;
  std::shared_ptr<RecordingTask> task = RecordingTask::create();
  int records = 0;
};

TEST_F(TracedAccessors, EveryAccessorUnderItsNameWithItsListParameter) {
  walkScalars(casesI32());
  walkScalars(casesU32());
  walkScalars(casesU32Size());
  walkScalars(casesU64());
  walkScalars(casesF64());
  walkScalars(casesBool());
  walkTexts(casesString());
  walkTexts(casesStringList());
  walkArrays(casesF64Array());
  walkArrays(casesI32Array());
  EXPECT_EQ(records, 944 + 826 + 828 + 4 + 3);
}

}  // namespace
