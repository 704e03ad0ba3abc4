#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "fake_debug_target.h"
#include "slot_plugin.h"
#include "task_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::callLog;
using zqvorexRedir::Task;

constexpr uint32_t kPluginCount = 7;  // what every sample slot answers
constexpr unsigned char kPluginFill = 0x5A;

// A slot for any read or write: it fills a scalar out-value with kPluginFill and answers kPluginCount.
template <class Fn>
struct SampleSlot;
template <class... A>
struct SampleSlot<uint32_t (*)(zqvorexPlugin_Task_undefined*, A...)> {
  static uint32_t call(zqvorexPlugin_Task_undefined* task, A... args) {
    auto all = std::tie(args...);
    auto& value = std::get<sizeof...(A) - 3>(all);  // the argument before `reserved`
    using Value = std::remove_reference_t<decltype(value)>;
    if constexpr (std::is_pointer_v<Value>) {
      using Pointee = std::remove_pointer_t<Value>;
      if constexpr (!std::is_void_v<Pointee> && !std::is_const_v<Pointee>)
        if (value) std::memset(value, kPluginFill, sizeof(Pointee));
    }
    zqtest::recordSlotCall("samples:" + zqtest::slotHandleText(task), std::get<sizeof...(A) - 1>(all));
    return kPluginCount;
  }
};

enum class Shape { array, lines, scalar, scalarLines };

// The caller's side of one call: its arrays, its layout and its scalar out-values.
struct Io {
  alignas(8) unsigned char arrayData[64] = {};
  unsigned char lineData[16] = {};
  zqerr::Status adapterStatus;
  zqgopher::ArrayBufferAdapter array{arrayData, 4, &adapterStatus};
  zqgopher::ArrayLineBufferAdapter lines{lineData, 4, nullptr, 0, &adapterStatus};
  zqvorexPlugin_ReadLayout layout{1, 0};
  double f64 = 0;
  uint8_t u8 = 0;
  uint32_t u32 = 0;
  zqvorexPlugin_DutyCycleAndFrequencyF64 dutyCycleAndFrequency{};
  zqvorexPlugin_HighAndLowTicksU32 ticks{};
  zqvorexPlugin_VoltageAndCurrentF64 power{};
};

std::vector<unsigned char> filled(size_t bytes) { return std::vector<unsigned char>(bytes, kPluginFill); }
template <class T>
std::vector<unsigned char> bytesOf(const T& value) {
  const auto* bytes = reinterpret_cast<const unsigned char*>(&value);
  return {bytes, bytes + sizeof(T)};
}

struct MirrorCase {
  const char* op;
  uint32_t formatCode;
  const char* cacheOp;
  Shape shape;
  std::vector<unsigned char> firstElement;  // scalars: what the target must see of the value
  bool withLayout;
  int32_t unboundCode;
  void (*bind)(zqvorexRedir::Plugin&);
  uint32_t (*run)(Task&, Io&, zqerr_Status*);
};

#define MIRROR_CASE(op, format, cacheOp, shape, first, withLayout, unbound, arguments)                    \
  MirrorCase {                                                                                            \
#op, format, #cacheOp, shape, first, withLayout, unbound,                                               \
        [](zqvorexRedir::Plugin& p) { zqtest::bindSlot(p, #op, &SampleSlot<zqvorexPlugin_##op##_fn>::call); }, \
        [](Task& t, [[maybe_unused]] Io& io, zqerr_Status* s) { return t.op arguments; } \
  }

constexpr int32_t kNoChans = nZQMSTS::kErrorCanNotPerformOpWhenNoChansInTask;
constexpr int32_t kNoDev = nZQMSTS::kErrorCanNotPerformOpWhenNoDevInTask;

#define READ_ARRAY (3, io.array.boundary(), &io.layout, 4, 1.0, nullptr, s)
#define READ_LINES (3, io.lines.boundary(), &io.layout, 4, 1.0, nullptr, s)
#define WRITE_ARRAY (3, io.array.boundary(), &io.layout, true, 1.0, nullptr, s)
#define WRITE_LINES (3, io.lines.boundary(), &io.layout, true, 1.0, nullptr, s)
#define READ_SCALAR(value) (3, 1.0, &io.value, nullptr, s)
#define WRITE_SCALAR(...) (3, true, 1.0, __VA_ARGS__, nullptr, s)
#define READ_RAW (3, io.array.boundary(), 4, 1.0, &io.u32, nullptr, s)
#define WRITE_RAW (3, io.array.boundary(), true, 1.0, nullptr, s)

std::vector<MirrorCase> mirrorCases() {
  const auto A = Shape::array, L = Shape::lines, S = Shape::scalar, SL = Shape::scalarLines;
  const std::vector<unsigned char> none;
  return {
      MIRROR_CASE(readScaledScalarF64, 16111, cacheSamplesF64, S, filled(8), false, kNoChans, READ_SCALAR(f64)),
      MIRROR_CASE(readScaledVectorF64, 16111, cacheSamplesF64, A, none, true, kNoChans, READ_ARRAY),
      MIRROR_CASE(writeScaledScalarF64, 16111, cacheSamplesF64, S, bytesOf(2.5), false, kNoDev, WRITE_SCALAR(2.5)),
      MIRROR_CASE(readPortScalarU8, 16112, cacheSamplesU8, S, filled(1), false, kNoChans, READ_SCALAR(u8)),
      MIRROR_CASE(writePortVectorU8, 16112, cacheSamplesU8, A, none, true, kNoDev, WRITE_ARRAY),
      MIRROR_CASE(readPortVectorU16, 16113, cacheSamplesU16, A, none, true, kNoChans, READ_ARRAY),
      MIRROR_CASE(writePortScalarU16, 16113, cacheSamplesU16, S, bytesOf(uint16_t(0x1234)), false, kNoDev,
                  WRITE_SCALAR(uint16_t(0x1234))),
      MIRROR_CASE(readPortScalarU32, 16114, cacheSamplesU32, S, filled(4), false, kNoChans, READ_SCALAR(u32)),
      MIRROR_CASE(writePortVectorU32, 16114, cacheSamplesU32, A, none, true, kNoDev, WRITE_ARRAY),
      MIRROR_CASE(readBinaryVectorU16, 16115, cacheSamplesU16, A, none, true, kNoChans, READ_ARRAY),
      MIRROR_CASE(readBinaryVectorI16, 16116, cacheSamplesI16, A, none, true, kNoChans, READ_ARRAY),
      MIRROR_CASE(readBinaryVectorU32, 16117, cacheSamplesU32, A, none, true, kNoChans, READ_ARRAY),
      MIRROR_CASE(readBinaryVectorI32, 16118, cacheSamplesI32, A, none, true, kNoChans, READ_ARRAY),
      MIRROR_CASE(readScalarCounterDutyCycleAndFrequencyF64, 16121, cacheSamplesCounterDutyCycleAndFrequencyF64, S,
                  filled(16), false, kNoChans, READ_SCALAR(dutyCycleAndFrequency)),
      MIRROR_CASE(writeVectorCounterDutyCycleAndFrequencyF64, 16121, cacheSamplesCounterDutyCycleAndFrequencyF64, A,
                  none, true, kNoDev, WRITE_ARRAY),
      MIRROR_CASE(writeScalarCounterHighAndLowTimesF64, 16122, cacheSamplesCounterHighAndLowTimesF64, S,
                  bytesOf(zqvorexPlugin_HighAndLowTimesF64{0.25, 0.75}), false, kNoDev,
                  WRITE_SCALAR(zqvorexPlugin_HighAndLowTimesF64{0.25, 0.75})),
      MIRROR_CASE(readVectorCounterHighAndLowTimesF64, 16122, cacheSamplesCounterHighAndLowTimesF64, A, none, true,
                  kNoChans, READ_ARRAY),
      MIRROR_CASE(readScalarCounterHighAndLowTicksU32, 16123, cacheSamplesCounterHighAndLowTicksU32, S, filled(8),
                  false, kNoChans, READ_SCALAR(ticks)),
      MIRROR_CASE(writeVectorCounterHighAndLowTicksU32, 16123, cacheSamplesCounterHighAndLowTicksU32, A, none, true,
                  kNoDev, WRITE_ARRAY),
      MIRROR_CASE(readLineScalarU8, 16124, cacheSamplesLineU8, SL, filled(1), false, kNoChans, READ_SCALAR(u8)),
      MIRROR_CASE(writeLineScalarU8, 16124, cacheSamplesLineU8, SL, bytesOf(uint8_t(0xA5)), false, kNoDev,
                  WRITE_SCALAR(uint8_t(0xA5))),
      MIRROR_CASE(readLineVectorU8, 16124, cacheSamplesLineU8, L, none, true, kNoChans, READ_LINES),
      MIRROR_CASE(writeLineVectorU8, 16124, cacheSamplesLineU8, L, none, true, kNoDev, WRITE_LINES),
      MIRROR_CASE(writeDigitalWaveformVectorU8, 16125, cacheSamplesLineU8, L, none, true, kNoDev, WRITE_LINES),
      MIRROR_CASE(readScalarPowerVoltageAndCurrentF64, 15504, cacheSamplesPowerVoltageAndCurrentF64, S, filled(16),
                  false, kNoChans, READ_SCALAR(power)),
      MIRROR_CASE(readVectorPowerVoltageAndCurrentF64, 15504, cacheSamplesPowerVoltageAndCurrentF64, A, none, true,
                  kNoChans, READ_ARRAY),
      MIRROR_CASE(readVectorPowerVoltageAndCurrentI16, 15505, cacheSamplesPowerVoltageAndCurrentI16, A, none, true,
                  kNoChans, READ_ARRAY),
      MIRROR_CASE(readRawI8, 0, cacheSamplesI8, A, none, false, kNoChans, READ_RAW),
      MIRROR_CASE(writeRawI16, 0, cacheSamplesI16, A, none, false, kNoChans, WRITE_RAW),
  };
}

struct Mirrored {
  std::shared_ptr<Task> task = zqtest::makeTask(std::make_shared<zqtest::CountingPluginManager>());
  std::shared_ptr<zqtest::FakeDebugTarget> target = std::make_shared<zqtest::FakeDebugTarget>();

  Mirrored(const MirrorCase& c, bool bound, bool withTarget, int32_t cacheSamples) {
    zqtest::clearSlotFailures();
    if (bound) {
      auto plugin = zqtest::makeSlotPlugin();
      c.bind(*plugin);
      zqtest::bindTask(*task, plugin, zqtest::slotContextHandle(), zqtest::slotTaskHandle());
    }
    if (withTarget) task->setDebugTarget(target);
    task->targetFlags().cacheSamples.store(cacheSamples);
    // Whatever the target reports about its cache is its own affair.
    target->cacheFailure = -50150;
    callLog().clear();
  }
};

void expectBuffer(const MirrorCase& c, const zqtest::CachedSamples& seen, Io& io) {
  switch (c.shape) {
    case Shape::array:
      EXPECT_EQ(seen.buffer, io.array.boundary()) << c.op;
      break;
    case Shape::lines:
      EXPECT_EQ(seen.buffer, io.lines.boundary()) << c.op;
      break;
    case Shape::scalar:
      EXPECT_EQ(seen.capabilities, 32u) << c.op << ": one channel of several samples";
      EXPECT_EQ(seen.sampsPerChan, 1u) << c.op;
      EXPECT_EQ(seen.firstElement, c.firstElement) << c.op;
      break;
    case Shape::scalarLines:
      EXPECT_EQ(seen.capabilities, 16u) << c.op << ": one channel of several lines";
      EXPECT_EQ(seen.sampsPerChan, 1u) << c.op;
      EXPECT_EQ(seen.firstElement, c.firstElement) << c.op;
      break;
  }
}

TEST(SampleMirroring, ATargetThatCachesSamplesIsShownEachReadAndWrite) {
  for (const MirrorCase& c : mirrorCases()) {
    for (int32_t pluginCode : {0, -200279}) {
      Mirrored m(c, true, true, 1);
      Io io;
      zqtest::failNextSlotCall(pluginCode);
      zqerr::Status status;
      EXPECT_EQ(c.run(*m.task, io, &status), kPluginCount) << c.op;
      EXPECT_EQ(status.code, pluginCode) << c.op;
      EXPECT_EQ(callLog(), std::vector<std::string>{"samples:task"}) << c.op;
      ASSERT_EQ(m.target->cached.size(), 1u) << c.op;
      const zqtest::CachedSamples& seen = m.target->cached[0];
      EXPECT_EQ(seen.op, c.cacheOp) << c.op;
      EXPECT_EQ(seen.formatCode, c.formatCode) << c.op;
      EXPECT_EQ(seen.channelKind, 3u) << c.op;
      EXPECT_EQ(seen.count, kPluginCount) << c.op;
      EXPECT_EQ(seen.callerStatus, &status) << c.op;
      EXPECT_EQ(seen.callerCode, pluginCode) << c.op << ": the target sees the plug-in's outcome";
      EXPECT_EQ(seen.layout, c.withLayout ? &io.layout : nullptr) << c.op;
      expectBuffer(c, seen, io);
    }
  }
}

TEST(SampleMirroring, NothingIsShownWithoutATargetThatAsksOrWithoutAPluginCall) {
  struct Setting {
    const char* name;
    bool bound;
    bool withTarget;
    int32_t cacheSamples;
    int32_t entryCode;
  };
  const Setting settings[] = {{"target not caching", true, true, 0, 0},
                              {"no target", true, false, 1, 0},
                              {"unbound: answers by family", false, true, 1, 0},
                              {"failed status on entry", true, true, 1, -1}};
  for (const MirrorCase& c : mirrorCases()) {
    for (const Setting& setting : settings) {
      SCOPED_TRACE(std::string(c.op) + ", " + setting.name);
      Mirrored m(c, setting.bound, setting.withTarget, setting.cacheSamples);
      Io io;
      zqerr::Status status;
      status.code = setting.entryCode;
      const bool reaches = setting.bound && setting.entryCode == 0;
      EXPECT_EQ(c.run(*m.task, io, &status), reaches ? kPluginCount : 0u);
      EXPECT_EQ(status.code, setting.bound ? setting.entryCode : c.unboundCode);
      EXPECT_EQ(callLog(), reaches ? std::vector<std::string>{"samples:task"} : std::vector<std::string>{});
      EXPECT_TRUE(m.target->calls.empty());
    }
  }
}

}  // namespace
