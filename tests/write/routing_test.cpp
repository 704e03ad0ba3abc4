// Every write reaches its own plug-in operation with its channel kind, autoStart as a byte and
// the layout; a non-null reserved, a null handle or a failed check stops it before the plug-in.
#include "write_fixture.h"

namespace zqtest {
namespace {

using Routing = WriteTest;

TEST_F(Routing, EveryWriteReachesItsOperationWithKindAutoStartAndLayout) {
  channels(2, 1, 2);
  struct Variant {
    int32_t autoStart;
    int32_t layout;
    uint64_t autoStartSeen;
    int64_t layoutSeen;
  };
  const Variant variants[] = {{2, 5, 1, 1}, {0, 0, 0, 0}, {-1, 1, 1, 1}};
  for (const WriteRoute& r : kWrites) {
    for (const Variant& v : variants) {
      SCOPED_TRACE(std::string(r.name) + " autoStart " + std::to_string(v.autoStart));
      task->clearCalls();
      task->seen = {};
      EXPECT_EQ(r.call({handle, 2, v.autoStart, v.layout}), 0);
      ASSERT_EQ(callsOf(r.op), 1u);
      EXPECT_EQ(unsignedArg(r.op, "channelKind"), r.kind);
      EXPECT_EQ(unsignedArg(r.op, "autoStart"), v.autoStartSeen);
      EXPECT_EQ(std::get<double>(last(r.op).arg("timeout")->value), 1.0);
      if (r.shape != WriteShape::kRaw && r.shape != WriteShape::kScalar) {
        EXPECT_EQ(task->seen.layout, v.layoutSeen);
      }
    }
  }
}

TEST_F(Routing, ANonNullReservedOrANullHandleStopsEveryWriteBeforeTheTask) {
  channels(2, 1, 2);
  for (const WriteRoute& r : kWrites) {
    SCOPED_TRACE(r.name);
    task->clearCalls();
    clearLastError();
    EXPECT_EQ(r.call({.handle = handle, .autoStart = 1, .reserved = &reservedWord}), -200492);
    EXPECT_TRUE(task->calls().empty()) << task->calls().front().op;
    ASSERT_NE(lastError(), nullptr);
    EXPECT_EQ(lastError()->status.code, -200492);
    EXPECT_EQ(r.call({.handle = nullptr, .autoStart = 1}), -200230);
  }
}

// The checks before the plug-in, in the order in which they are made: the first failure stops
// the write with its one item, and the count written is 0.
TEST_F(Routing, AFailedCheckStopsTheWriteBeforeTheTaskWithItsItem) {
  channels(2, 1, 2);
  using enum WriteShape;
  struct Check {
    const char* what;
    std::vector<WriteShape> shapes;
    int32_t n;
    bool nullFirst, nullSecond;
    int32_t code;
    const char* usage;  // null: no item, and the task may have been asked for its attributes
    const char* value;
  };
  const Check checks[] = {
      {"null array with a count", {kVector, kLines, kPair}, 4, true, false, -200230, "kUsageTypeParamNum", "6"},
      {"null array with a count", {kRaw}, 2, true, false, -200230, "kUsageTypeParamNum", "5"},
      {"second array null", {kPair}, 2, false, true, -200230, "kUsageTypeParamNum", "7"},
      {"both null: the first is named", {kPair}, 2, true, true, -200230, "kUsageTypeParamNum", "6"},
      {"null array comes first", {kVector, kLines}, -1, true, false, -200230, "kUsageTypeParamNum", "6"},
      {"negative count", {kVector, kLines, kPair, kRaw}, -1, false, false, -200622, "kUsageTypeNumSampsToWrite",
       "-1"},
      {"very negative count", {kVector, kLines}, -5000, false, false, -200622, "kUsageTypeNumSampsToWrite",
       "-5000"},
      {"null array, count 0", {kRaw}, 0, true, false, -52005, nullptr, nullptr},
  };
  for (const Check& k : checks) {
    for (const WriteRoute& c : writesOf(k.shapes)) {
      SCOPED_TRACE(std::string(c.name) + ": " + k.what);
      task->clearCalls();
      clearLastError();
      int32_t written = -7;
      EXPECT_EQ(c.call({handle, k.n, 0, 0, k.nullFirst, k.nullSecond, &written}), k.code);
      EXPECT_EQ(callsOf(c.op), 0u);
      EXPECT_EQ(written, 0);
      if (!k.usage) continue;
      EXPECT_TRUE(task->calls().empty());
      EXPECT_EQ(lastErrorItem(0, "usage"), k.usage);
      EXPECT_EQ(lastErrorItem(0, "value"), k.value);
      EXPECT_EQ(lastErrorItem(0, "value_type"), "int32_t");
      EXPECT_EQ(lastErrorItem(1, "usage"), kAbsent);  // one item: the first failure stays alone
    }
  }
}

TEST_F(Routing, APlugInFailureComesBackUnchangedWithItsCount) {
  channels(2, 1, 2);
  for (const WriteRoute& r : kWrites) {
    SCOPED_TRACE(r.name);
    task->clearReplies();
    task->writeAttributes[kWriteNumChans] = 2;
    task->on(r.op).status(-89120).value(uint32_t{1});
    EXPECT_EQ(r.call({.handle = handle, .autoStart = 1}), -89120);
  }
}

}  // namespace
}  // namespace zqtest
