// The adapters sit on the read and write path: building and using them must not allocate,
// apart from the line counts of a line buffer. Counted by replacing the global allocator of
// this test program (allocation_counter.cpp).
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "allocation_counter.h"
#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"
#include "boundary/out_parameters.h"
#include "c_plugin.h"
#include "status/status.h"

namespace {

// Under a memory checker the checker's allocator stands in for ours and nothing is counted.
class Allocation : public testing::Test {
 protected:
  void SetUp() override {
    const long before = zqtest::allocationCount();
    ::operator delete(::operator new(1));  // a call, not a new-expression: never elided
    if (zqtest::allocationCount() == before) GTEST_SKIP() << "allocations are not counted here";
  }
};

// Allocations made by `body`.
template <class Body>
long allocationsOf(Body&& body) {
  const long before = zqtest::allocationCount();
  body();
  return zqtest::allocationCount() - before;
}

TEST_F(Allocation, ReadAndWriteAdaptersAllocateNothing) {
  std::vector<double> samples(64);
  const long count = allocationsOf([&] {
    zqerr::Status status;
    zqgopher::ArrayBufferAdapter read(samples.data(), samples.size(), &status);
    cplug_readRamp(read.boundary(), 4, 16, &status);
    zqgopher::ArrayBufferWriteAdapter write(samples.data(), 4, 16, &status);
    EXPECT_GT(cplug_sumSamples(write.boundary(), &status), 0.0);
    zqgopher::ArrayViewAdapter<double> view(samples.data(), samples.size(), &status);
    EXPECT_EQ(status.code, 0);
  });
  EXPECT_EQ(count, 0);
}

TEST_F(Allocation, LineBufferAllocatesOnlyWhenItsCountsGrow) {
  std::vector<uint8_t> bytes(64);
  zqerr::Status status;
  zqgopher::ArrayLineBufferAdapter lines(bytes.data(), bytes.size(), nullptr, 0, &status);
  const uint32_t four[] = {2, 2, 2, 2};
  EXPECT_EQ(allocationsOf([&] { cplug_readLines(lines.boundary(), four, 4, 2, &status); }), 1);
  EXPECT_EQ(allocationsOf([&] { cplug_readLines(lines.boundary(), four, 3, 4, &status); }), 0);
  EXPECT_EQ(status.code, 0);
}

TEST_F(Allocation, AsciiTextAndArraysGoOutWithoutAllocating) {
  const std::string text = "Dev1/ai0";
  const std::vector<double> values{1.0, 2.0};
  char buffer[16];
  double out[2];
  const long count = allocationsOf([&] {
    zqerr::Status status;
    bool sizeQuery = false;
    EXPECT_EQ(zqgopher::copyStringOut(text, nullptr, 0, sizeQuery, &status), 9);
    EXPECT_EQ(zqgopher::copyStringOut(text, buffer, sizeof buffer, sizeQuery, &status), 0);
    EXPECT_EQ(zqgopher::copyArrayOut(values, out, 2, &status), 0);
  });
  EXPECT_EQ(count, 0);
}

}  // namespace
