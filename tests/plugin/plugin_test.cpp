#include "test_sites.h"
#include "plugin/plugin.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "fake_plugin.h"
#include "operation_list.h"
#include "report_query.h"
#include "status/report_reader.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqvorexRedir::Plugin;

constexpr int32_t kNotSupported = nZQMSTS::kErrorFunctionNotSupportedForDevice;

// The report of an unbound operation, as "constant|debug|symbol".
std::string unboundReport(const zqerr_Status& status) {
  using zqtest::reportAt;
  return reportAt(status.report, {"error_constant"}) + "|" + reportAt(status.report, {"zqdynlib_debug", "debug"}) +
         "|" + reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"});
}

std::string expectedReport(const std::string& op) {
  return "nZQMSTS::kErrorFunctionNotSupportedForDevice|failed to get symbol|" + op;
}

// Calls a forwarder with every argument zero but the status; true when its result is zero.
template <class Result, class... Params>
bool callWithZeros(Plugin& plugin, Result (Plugin::*op)(Params...), zqerr_Status* status) {
  std::tuple<Params...> args{};
  std::get<sizeof...(Params) - 1>(args) = status;
  if constexpr (std::is_void_v<Result>) {
    std::apply([&](Params... a) { (plugin.*op)(a...); }, args);
    return true;
  } else {
    return std::apply([&](Params... a) { return (plugin.*op)(a...); }, args) == Result{};
  }
}

struct Operation {
  const char* name;
  bool (*call)(Plugin&, zqerr_Status*);
  bool (Plugin::*has)() const;
};

const std::vector<Operation>& everyOperation() {
  static const std::vector<Operation> operations = {
#define ZQ_PLUGIN_OPERATION(index, Op, op, ...) \
  {#op, [](Plugin& p, zqerr_Status* s) { return callWithZeros(p, &Plugin::op, s); }, &Plugin::has##Op},
#include "plugin/plugin_operations.inc"
#undef ZQ_PLUGIN_OPERATION
  };
  return operations;
}

TEST(PluginTable, NamesFollowTheTableInOrder) {
  ASSERT_EQ(std::size(zqtest::kOperationList), Plugin::kOperationCount);
  for (size_t i = 0; i < Plugin::kOperationCount; ++i) {
    EXPECT_STREQ(Plugin::kNames[i], zqtest::kOperationList[i]) << "at " << i;
    EXPECT_STREQ(everyOperation()[i].name, zqtest::kOperationList[i]) << "forwarder at " << i;
  }
}

TEST(PluginTable, EveryUnboundOperationIsNotSupportedUnderItsOwnName) {
  Plugin plugin;
  for (const Operation& op : everyOperation()) {
    zqerr::Status status;
    EXPECT_FALSE((plugin.*op.has)()) << op.name;
    EXPECT_TRUE(op.call(plugin, &status)) << op.name << " returned non-zero";
    EXPECT_EQ(status.code, kNotSupported) << op.name;
    EXPECT_EQ(unboundReport(status), expectedReport(op.name));
  }
}

// Without a status nothing is reported; an earlier error stays; a warning gives way.
TEST(PluginTable, UnboundOperationFollowsTheStatusOnEntry) {
  Plugin plugin;
  for (const Operation& op : everyOperation()) EXPECT_TRUE(op.call(plugin, nullptr)) << op.name;
  zqerr::Status failed;
  ZQ_TEST_FAIL(&failed, -200088, "task", 12);
  plugin.abortTask(nullptr, &failed);
  EXPECT_EQ(failed.code, -200088);
  EXPECT_EQ(zqerr::json::findKey(failed.report, "zqdynlib_debug"), nullptr);
  zqerr::Status warned;
  ZQ_TEST_FAIL(&warned, 200010, "task", 12);
  plugin.createContext("ctx", &warned);
  EXPECT_EQ(warned.code, kNotSupported);
  EXPECT_EQ(unboundReport(warned), expectedReport("createContext"));
}

// Filling one slot makes exactly the test of that name answer true.
TEST(PluginTable, EachSlotBelongsToTheOperationOfItsName) {
  static int marker;
  const auto& operations = everyOperation();
  for (size_t i = 0; i < Plugin::kOperationCount; ++i) {
    Plugin plugin;
    plugin.setSlot(i, &marker);
    ASSERT_EQ(plugin.slot(i), &marker);
    for (size_t j = 0; j < operations.size(); ++j)
      ASSERT_EQ((plugin.*operations[j].has)(), i == j) << "slot " << Plugin::kNames[i] << ", test " << operations[j].name;
  }
}

TEST(PluginTable, SlotsOutsideTheTableAreIgnored) {
  static int marker;
  Plugin plugin;
  plugin.setSlot(Plugin::kOperationCount, &marker);
  EXPECT_EQ(plugin.slot(Plugin::kOperationCount), nullptr);
  for (const Operation& op : everyOperation()) EXPECT_FALSE((plugin.*op.has)()) << op.name;
}

void* address(const char* op) {
  static const std::pair<const char*, void*> kFakes[] = {
      {"readScaledVectorF64", reinterpret_cast<void*>(&fake_readScaledVectorF64)},
      {"configureTimeStartTrigger", reinterpret_cast<void*>(&fake_configureTimeStartTrigger)},
      {"registerDoneEvent", reinterpret_cast<void*>(&fake_registerDoneEvent)},
  };
  for (const auto& [name, fn] : kFakes)
    if (std::string(name) == op) return fn;
  return nullptr;
}

// A plug-in with only the C fakes bound, as the binding would leave it.
void bindFakes(Plugin* plugin) {
  for (size_t i = 0; i < Plugin::kOperationCount; ++i) plugin->setSlot(i, address(Plugin::kNames[i]));
}

auto* taskHandle() { return reinterpret_cast<zqvorexPlugin_Task_undefined*>(&fake_taskObject); }

struct BoundCase {
  const char* op;
  // Calls the forwarder and checks its result and what the plug-in received.
  std::function<void(Plugin&, zqerr_Status*)> callAndCheck;
};

const BoundCase kBoundCases[] = {
    {"readScaledVectorF64",
     [](Plugin& p, zqerr_Status* s) {
       zqvorexPlugin_ReadLayout layout{1, 0};
       auto* buffer = reinterpret_cast<zqgopher_IArrayBuffer*>(0x2000);
       EXPECT_EQ(p.readScaledVectorF64(taskHandle(), 10100, buffer, &layout, -1, 10.5, nullptr, s), FAKE_READ_COUNT);
       EXPECT_EQ(fake_last.pointers[1], buffer);
       EXPECT_EQ(fake_last.pointers[2], &layout);
       EXPECT_EQ(fake_last.pointers[3], nullptr);
       EXPECT_EQ(fake_last.integers[0], 10100);
       EXPECT_EQ(fake_last.integers[1], -1);
       EXPECT_EQ(fake_last.reals[0], 10.5);
     }},
    {"configureTimeStartTrigger",
     [](Plugin& p, zqerr_Status* s) {
       p.configureTimeStartTrigger(taskHandle(), {0x8000000000000000ull, 3786825600}, 10317, s);
       EXPECT_EQ(fake_last.time.fraction, 0x8000000000000000ull);
       EXPECT_EQ(fake_last.time.seconds, 3786825600);
       EXPECT_EQ(fake_last.integers[0], 10317);
     }},
    {"registerDoneEvent",
     [](Plugin& p, zqerr_Status* s) {
       auto* event = reinterpret_cast<zqgopher_IEventDone*>(0x3000);
       EXPECT_EQ(p.registerDoneEvent(taskHandle(), false, event, s), FAKE_EVENT_TOKEN);
       EXPECT_EQ(fake_last.pointers[1], event);
       EXPECT_FALSE(fake_last.flag);
     }},
};

class BoundOperation : public testing::TestWithParam<BoundCase> {};

// Called once with a status and once without: the plug-in gets the status as it is.
TEST_P(BoundOperation, IsCalledWithItsArgumentsAndItsResultReturned) {
  Plugin plugin;
  bindFakes(&plugin);
  zqerr::Status status;
  for (zqerr_Status* given : {static_cast<zqerr_Status*>(&status), static_cast<zqerr_Status*>(nullptr)}) {
    fake_last = {};
    fake_last.status = reinterpret_cast<zqerr_Status*>(&fake_last);
    GetParam().callAndCheck(plugin, given);
    EXPECT_STREQ(fake_last.op, GetParam().op);
    EXPECT_EQ(fake_last.status, given);
  }
  EXPECT_EQ(status.code, 0);
}

INSTANTIATE_TEST_SUITE_P(Fakes, BoundOperation, testing::ValuesIn(kBoundCases),
                         [](const testing::TestParamInfo<BoundCase>& info) { return std::string(info.param.op); });

}  // namespace
