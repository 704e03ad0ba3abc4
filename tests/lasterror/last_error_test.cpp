// The calling thread's last failure: what a recorder keeps of a call, and when a record ends.
#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include "lasterror/last_error.h"
#include "platform/library_entry.h"
#include "status/report_reader.h"
#include "test_sites.h"

namespace {

using nZQCAI100::LastErrorRecorder;
using nZQCAI100::tlsManager;

struct NamedTask {
  std::string name;
  const std::string& getName() const { return name; }
};

// One exported call as the recorder sees it: its final code, its site, and the task it knew.
struct Call {
  int32_t code;
  const char* task;      // the task's name, or null
  const char* nameText;  // the caller's name text, or null
};

void end(const Call& call) {
  zqerr::Status status;
  if (call.code != 0) zqerr::setWithLocation(&status, call.code, ZQ_TEST_SITE("recorder", 7, constant));
  NamedTask task{call.task ? call.task : ""};
  LastErrorRecorder<NamedTask> recorder(&status, call.task ? &task : nullptr, call.nameText);
}

struct Sequence {
  const char* what;
  std::vector<Call> calls;
  int32_t code;  // what the thread's record holds afterwards
  const char* taskName;
};

class LastError : public testing::TestWithParam<Sequence> {};

TEST_P(LastError, HoldsTheLastFailureWhole) {
  std::thread([&] {
    for (const Call& call : GetParam().calls) end(call);
    const nZQCAI100::ExtendedErrorInfo* record = tlsManager().getThreadRecord();
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->status.code, GetParam().code);
    EXPECT_EQ(record->taskName, GetParam().taskName);
    const char* file = record->status.report ? zqerr::json::findKey(record->status.report, "file") : nullptr;
    EXPECT_NE(file, nullptr) << "the report came along";
  }).join();
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, LastError,
    testing::Values(Sequence{"task before name text", {{-200089, "Task", "Text"}}, -200089, "Task"},
                    Sequence{"warning after failure", {{-200088, "A", nullptr}, {200026, "B", nullptr}}, -200088, "A"},
                    // The caller's name text is in the system code page; run under page 1252.
                    Sequence{"name text from the code page", {{-200089, nullptr, "M\xFC" "ller"}}, -200089,
                             "M\xC3\xBC" "ller"}),
    [](const testing::TestParamInfo<Sequence>& info) {
      std::string name = info.param.what;
      for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
      return name;
    });

TEST(LastErrorThreads, SuccessesAndWarningsMakeNoRecord) {
  std::thread([] {
    end({0, "Fine", nullptr});
    end({200026, "Warned", nullptr});
    EXPECT_EQ(tlsManager().getThreadRecord(), nullptr);
  }).join();
}

}  // namespace
