// Strings and numbers that the recording task hands to the frames through these proxies are
// read back in tests/frame; here what those never reach: the reserve, a failed add, a null
// target and a failed status.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/proxies.h"
#include "c_plugin.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::ItemAdderProxy;
using zqgopher::StringProxy;
using Names = std::vector<std::string>;

TEST(StringProxy, AssignsTheBytesAndTheirLength) {
  cplug_TextSink sink;
  cplug_initTextSink(&sink);
  zqerr::Status status;
  const std::string text("Dev1/\xC3\xA9\0tail", 11);
  StringProxy(&sink.base).set(text, &status);
  EXPECT_EQ(sink.assignCalls, 1);
  EXPECT_EQ(sink.length, 11u) << "the length, not the zero-terminated prefix";
  EXPECT_EQ(std::string(sink.text, sink.length), text);
  EXPECT_EQ(status.code, 0);
}

TEST(StringProxy, ANullTargetIsRefused) {
  zqerr::Status status;
  StringProxy(nullptr).set("x", &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/StringProxy")");
}

struct AdderCase {
  const char* name;
  Names items;
  int failAt;
  const char* calls;
  int32_t code;
};

class AddList : public testing::TestWithParam<AdderCase> {};

TEST_P(AddList, ReservesOnceThenAddsUntilAFailure) {
  const AdderCase& c = GetParam();
  cplug_RecordingAdder adder;
  cplug_initRecordingAdder(&adder, c.failAt, -12345);
  zqerr::Status status;
  ItemAdderProxy(&adder.base).add(c.items, &status);
  EXPECT_STREQ(adder.calls, c.calls);
  EXPECT_EQ(status.code, c.code);
}

INSTANTIATE_TEST_SUITE_P(
    ItemAdderProxy, AddList,
    testing::Values(AdderCase{"Three", {"a", "b", "c"}, 0, "reserve(3) add(a) add(b) add(c)", 0},
                    AdderCase{"EmptyIsNotTouched", {}, 0, "", 0},
                    AdderCase{"StopsAtTheFirstFailure", {"a", "b", "c"}, 2, "reserve(3) add(a) add(b)", -12345},
                    AdderCase{"FailureOnTheLast", {"a", "b"}, 2, "reserve(2) add(a) add(b)", -12345}),
    [](const auto& info) { return info.param.name; });

TEST(ItemAdderProxy, ANullTargetIsRefusedEvenForAnEmptyList) {
  for (const Names& names : {Names{}, Names{"a"}}) {
    zqerr::Status status;
    ItemAdderProxy(nullptr).add(names, &status);
    EXPECT_EQ(status.code, zqapalerr_invalidParameter);
    EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/ItemAdderProxy")");
  }
}

TEST(Proxies, NothingOnAFailedStatus) {
  cplug_TextSink sink;
  cplug_initTextSink(&sink);
  cplug_RecordingAdder adder;
  cplug_initRecordingAdder(&adder, 0, 0);
  zqerr::Status status;
  zqtest::fail(&status);
  StringProxy(&sink.base).set("x", &status);
  StringProxy(nullptr).set("x", &status);
  ItemAdderProxy(&adder.base).add(Names{"a"}, &status);
  ItemAdderProxy(nullptr).add(Names{"a"}, &status);
  EXPECT_EQ(sink.assignCalls, 0);
  EXPECT_STREQ(adder.calls, "");
  EXPECT_EQ(status.code, -1);
}

}  // namespace
