// The library's objects driven by a plug-in written in C (c_plugin.c), through the published
// tables only: what the plug-in does must land in the caller's own memory.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "c_plugin.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using namespace zqgopher;

// A read within the array fills it in place; one beyond it is refused and writes nothing.
TEST(CPlugin, ReadFillsTheCallersArrayInPlace) {
  for (uint64_t samps : {3, 5}) {
    std::vector<double> samples(8, -1.0);
    zqerr::Status status;
    ArrayBufferAdapter adapter(samples.data(), samples.size(), &status);
    cplug_readRamp(adapter.boundary(), 2, samps, &status);  // 2 x 5 is more than 8
    EXPECT_EQ(status.code, samps == 3 ? 0 : nZQMSTS100::kErrorReadBufferTooSmall);
    const std::vector<double> ramp{0.0, 0.5, 1.0, 1.5, 2.0, 2.5, -1.0, -1.0};
    EXPECT_EQ(samples, samps == 3 ? ramp : std::vector<double>(8, -1.0));
  }
}

TEST(CPlugin, WriteReadsTheCallersArray) {
  const double samples[6] = {1, 2, 3, 4, 5, 6};
  zqerr::Status status;
  ArrayBufferWriteAdapter adapter(samples, 2, 3, &status);
  EXPECT_EQ(cplug_sumSamples(adapter.boundary(), &status), 21.0);
  ArrayBufferWriteAdapter firstHalf(samples, 1, 3, &status);
  EXPECT_EQ(cplug_sumSamples(firstHalf.boundary(), &status), 6.0);
  EXPECT_EQ(status.code, 0);
}

TEST(CPlugin, DigitalReadWritesLinesInPlace) {
  std::vector<uint8_t> bytes(12, 0xEE);
  zqerr::Status status;
  ArrayLineBufferAdapter adapter(bytes.data(), bytes.size(), nullptr, 0, &status);
  const uint32_t lines[] = {2, 3};
  cplug_readLines(adapter.boundary(), lines, 2, 2, &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(bytes, (std::vector<uint8_t>{0, 1, 10, 11, 100, 101, 102, 110, 111, 112, 0xEE, 0xEE}));
}

TEST(CPlugin, ListsOfEveryElementType) {
  std::vector<std::string> names;
  std::vector<double> reals;
  std::vector<int32_t> integers{99};
  ItemAdderAdapter<std::string> n(names);
  ItemAdderAdapter<double> r(reals);
  ItemAdderAdapter<int32_t> i(integers);
  zqerr::Status status;
  cplug_addNames(n.boundary(), &status);
  cplug_addReals(r.boundary(), &status);
  cplug_addIntegers(i.boundary(), &status);
  EXPECT_EQ(names, (std::vector<std::string>{"ai0", "ai1", "ai2"}));
  EXPECT_EQ(reals, (std::vector<double>{0.5, 1.5, 2.5}));
  EXPECT_EQ(integers, (std::vector<int32_t>{-1, 7, 42}));
  EXPECT_EQ(status.code, 0);
}

TEST(CPlugin, ViewsOfNamesAndNumbers) {
  std::vector<std::string> names{"Dev1/ai0", "Dev1/ai1"};
  StringArrayView view(names);
  char joined[64];
  EXPECT_EQ(cplug_joinNames(&view, joined, sizeof joined), 17u);
  EXPECT_STREQ(joined, "Dev1/ai0|Dev1/ai1");
  StringArrayView none;
  EXPECT_EQ(cplug_joinNames(&none, joined, sizeof joined), 0u);

  const std::vector<double> coefficients{0.5, 0.25, 2.0};
  ArrayViewAdapter<double> reals(coefficients);
  EXPECT_EQ(cplug_sumReals(&reals), 2.75);
}

}  // namespace
