// The recording task double does what its header promises: it records what it is handed and
// answers with what it was told, as a plug-in would, through the boundary objects.
#include "recording_task.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "status/status.h"

namespace {

using zqtest::RecordedCall;
using zqtest::RecordingTask;

const std::vector<std::string> kNames{"Dev1/ai0", "Dev1/ai1"};

TEST(RecordingTask, RecordsEachArgumentWithItsInterfaceType) {
  struct Row {
    const char* label;
    void (*call)(RecordingTask&, const zqgopher::StringArrayView&, zqerr_Status*);
    const char* op;
    const char* arg;
    const char* type;
    const char* text;
  };
  const Row rows[] = {
      {"double", [](RecordingTask& t, auto& v, auto* s) { t.setChannelAttributeF64(v, 0x17DD, 0.1, s); },
       "setChannelAttributeF64", "value", "double", "0.1"},
      {"unsigned", [](RecordingTask& t, auto& v, auto* s) { t.setBufferAttributeSize(v, 1, 1ull << 40, s); },
       "setBufferAttributeSize", "value", "uint64_t", "1099511627776"},
      {"signed", [](RecordingTask& t, auto& v, auto* s) { t.setReadAttributeOffset(v, 1, -5, s); },
       "setReadAttributeOffset", "value", "int64_t", "-5"},
      {"bool", [](RecordingTask& t, auto&, auto* s) { t.controlTask(3, true, s); }, "controlTask", "flag", "bool",
       "true"},
      {"text", [](RecordingTask& t, auto& v, auto* s) { t.setChannelAttributeString(v, 1, "PFI0", s); },
       "setChannelAttributeString", "value", "const Text&", "PFI0"},
      {"list view", [](RecordingTask& t, auto& v, auto* s) { t.resetChannelAttributeF64(v, 1, s); },
       "resetChannelAttributeF64", "channels", "const zqgopher::StringArrayView&", "Dev1/ai0, Dev1/ai1"},
      {"struct by value",
       [](RecordingTask& t, auto&, auto* s) { t.configureTimeStartTrigger(zqvorexPlugin_AbsoluteTime{1, 2}, 0, s); },
       "configureTimeStartTrigger", "timestamp", "zqvorexPlugin_AbsoluteTime", "01000000000000000200000000000000"},
      {"sink", [](RecordingTask& t, auto& v, auto* s) { t.getChannelAttributeString(v, 1, nullptr, s); },
       "getChannelAttributeString", "value", "zqgopher_IString*", "null"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.label);
    auto task = RecordingTask::create();
    const zqgopher::StringArrayView view(kNames);
    zqerr::Status status;
    row.call(*task, view, &status);
    ASSERT_EQ(task->calls().size(), 1u);
    const RecordedCall& call = task->lastCall();
    EXPECT_EQ(call.op, row.op);
    ASSERT_NE(call.arg(row.arg), nullptr);
    EXPECT_EQ(call.arg(row.arg)->type, row.type);
    EXPECT_EQ(call.arg(row.arg)->text, row.text);
    EXPECT_EQ(call.arg("status"), nullptr);
  }
}

TEST(RecordingTask, AttributeOperationsKeepChannelsIdAndValueApart) {
  auto task = RecordingTask::create();
  const zqgopher::StringArrayView view(kNames);
  const char* items[] = {"PFI0", "PFI1"};
  zqgopher_ArrayView value{items, 2};
  zqerr::Status status;
  task->setTimingAttributeStringVtr(view, 0x0584, &value, &status);
  task->setTaskAttributeStringVtr(0x1273, &value, &status);
  const RecordedCall& first = task->calls()[0];
  EXPECT_EQ(first.channels, kNames);
  EXPECT_EQ(first.attributeId, 0x0584);
  EXPECT_EQ(std::get<std::vector<std::string>>(first.arg("value")->value), (std::vector<std::string>{"PFI0", "PFI1"}));
  EXPECT_EQ(task->calls()[1].channels, std::nullopt);
  EXPECT_EQ(task->calls()[1].attributeId, 0x1273);
}

TEST(RecordingTask, AnswersThroughResultSinksAndOutParameters) {
  auto task = RecordingTask::create();
  const zqgopher::StringArrayView view;
  zqerr::Status status;

  task->on("getChannelAttributeU32").value(7u);
  EXPECT_EQ(task->getChannelAttributeU32(view, 1, &status), 7u);

  std::string text;
  zqgopher::StringAdapter string(text);
  task->on("getChannelAttributeString").text("caf\xC3\xA9");
  task->getChannelAttributeString(view, 1, string.boundary(), &status);
  EXPECT_EQ(text, "caf\xC3\xA9");

  std::vector<std::string> names;
  zqgopher::ItemAdderAdapter<std::string> nameSink(names);
  task->on("getTaskAttributeStringVtr").strings({"a", "b"});
  task->getTaskAttributeStringVtr(1, nameSink.boundary(), &status);
  EXPECT_EQ(names, (std::vector<std::string>{"a", "b"}));

  std::vector<double> numbers;
  zqgopher::ItemAdderAdapter<double> numberSink(numbers);
  task->on("getChannelAttributeF64Vtr").numbers({1.5, -2});
  task->getChannelAttributeF64Vtr(view, 1, numberSink.boundary(), &status);
  EXPECT_EQ(numbers, (std::vector<double>{1.5, -2}));

  std::vector<int32_t> integers;
  zqgopher::ItemAdderAdapter<int32_t> integerSink(integers);
  task->on("getChannelAttributeI32Vtr").integers({10348});
  task->getChannelAttributeI32Vtr(view, 1, integerSink.boundary(), &status);
  EXPECT_EQ(integers, std::vector<int32_t>{10348});

  zqvorexPlugin_AbsoluteTime time{};
  task->on("getChannelAttributeAbsoluteTime").out(zqvorexPlugin_AbsoluteTime{5, -6});
  task->getChannelAttributeAbsoluteTime(view, 1, &time, &status);
  EXPECT_EQ(time.fraction, 5u);
  EXPECT_EQ(time.seconds, -6);

  bool late = false;
  task->on("waitForNextSampleClock").out(true);
  task->waitForNextSampleClock(1.0, &late, &status);
  EXPECT_TRUE(late);
  EXPECT_EQ(status.code, 0);
}

TEST(RecordingTask, StatusReportHookAndExceptionFollowTheReply) {
  auto task = RecordingTask::create();
  const zqgopher::StringArrayView view;
  task->onAny().status(200077);
  task->on("getChannelAttributeF64").value(2.5).status(-201003, [](zqerr_Status* s) { s->code = -201004; });
  task->on("resetChannelAttributeF64").throws(std::invalid_argument("threw"));
  int hooks = 0;
  task->on("setChannelAttributeF64").run([&](const RecordedCall& call, zqerr_Status*) {
    hooks += call.op == "setChannelAttributeF64" ? 1 : 0;
  });

  zqerr::Status any;
  task->getChannelAttributeU32(view, 1, &any);
  EXPECT_EQ(any.code, 200077);
  zqerr::Status own;
  EXPECT_EQ(task->getChannelAttributeF64(view, 1, &own), 2.5);
  EXPECT_EQ(own.code, -201004);
  zqerr::Status thrown;
  EXPECT_THROW(task->resetChannelAttributeF64(view, 1, &thrown), std::invalid_argument);
  zqerr::Status hooked;
  task->setChannelAttributeF64(view, 1, 1.0, &hooked);
  EXPECT_EQ(hooks, 1);
  EXPECT_EQ(hooked.code, 0);
  EXPECT_EQ(task->callCount("resetChannelAttributeF64"), 1u);

  task->clearReplies();
  zqerr::Status cleared;
  task->getChannelAttributeU32(view, 1, &cleared);
  EXPECT_EQ(cleared.code, 0);
}

TEST(RecordingTask, SharedReferenceLivesUntilExpiredAndNeverWithoutAnOwner) {
  auto task = RecordingTask::create();
  auto* asTask = static_cast<zqvorexRedir::ITask*>(task->handle());
  EXPECT_EQ(asTask->sharedFromThis().get(), asTask);
  task->expire();
  EXPECT_EQ(asTask->sharedFromThis(), nullptr);
  RecordingTask unowned;
  EXPECT_EQ(unowned.sharedFromThis(), nullptr);
  EXPECT_EQ(unowned.getName(), "MyTask");
}

}  // namespace
