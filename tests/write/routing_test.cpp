// Every write reaches its own plug-in operation with its channel kind, autoStart as a byte and
// the layout; a non-null reserved or a null handle stops it before the plug-in.
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
