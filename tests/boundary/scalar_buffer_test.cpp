#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::ArrayViewAdapter;
using zqgopher::ScalarArrayBufferAdapter;
using zqgopher::ScalarArrayLineBufferAdapter;

TEST(ScalarArrayBufferAdapter, ShapeOfNElements) {
  double value[4];
  zqerr::Status status;
  ScalarArrayBufferAdapter four(value, 4, &status);
  EXPECT_EQ(four.kind, 1u) << "the kind this library builds";
  EXPECT_EQ(four.buffer.numChannels, 1u);
  EXPECT_EQ(four.buffer.numSampsPerChan, 4u);
  EXPECT_EQ(four.buffer.capacity, 4u);
  ScalarArrayBufferAdapter none(value, 0, &status);
  EXPECT_EQ(none.buffer.numChannels, 0u);
  EXPECT_EQ(none.buffer.capacity, 0u);
  EXPECT_TRUE(none.kTable.isEmpty(none.boundary(), &status));
  EXPECT_EQ(status.code, 0);
}

TEST(ScalarArrayBufferAdapter, CapabilitiesFollowTheKind) {
  double value[2];
  struct Case {
    uint32_t kind;
    uint64_t extension;
    uint32_t capabilities;
  };
  for (const Case& c : {Case{0, 0, 8}, Case{1, 0, 32}, Case{2, 0, 0}, Case{0, 5, 9}, Case{1, 5, 33}, Case{7, 5, 1}}) {
    zqerr::Status status;
    ScalarArrayBufferAdapter adapter(value, 2, &status, c.kind);
    adapter.buffer.extension = c.extension;
    EXPECT_EQ(adapter.kTable.getCapabilities(adapter.boundary()), c.capabilities) << c.kind << " " << c.extension;
  }
}

TEST(ScalarArrayBufferAdapter, SampleCountOnlyOfChannelZeroForKnownKinds) {
  double value[2];
  struct Case {
    uint32_t kind;
    uint32_t channel;
    int32_t code;
  };
  // Kind 2 has no constraint of its own: the array's channel test, with one channel.
  for (const Case& c : {Case{0, 0, 0}, Case{0, 1, zqpalerr_badSelector}, Case{1, 0, 0},
                        Case{1, 1, zqpalerr_badSelector}, Case{2, 0, 0}, Case{2, 1, zqpalerr_badSelector}}) {
    zqerr::Status status;
    ScalarArrayBufferAdapter adapter(value, 2, &status, c.kind);
    const uint64_t samps = adapter.kTable.getNumSampsPerChan(adapter.boundary(), c.channel, &status);
    EXPECT_EQ(status.code, c.code) << c.kind << " " << c.channel;
    EXPECT_EQ(samps, c.code ? 0u : 2u);
  }
}

struct ScalarResize {
  const char* name;
  uint32_t kind;
  uint32_t numChannels;
  uint64_t numSampsPerChan;
  int32_t code;
};

class ScalarResizeTest : public testing::TestWithParam<ScalarResize> {};

TEST_P(ScalarResizeTest, ConstraintBeforeCapacity) {
  const ScalarResize& c = GetParam();
  double value[4];
  zqerr::Status status;
  ScalarArrayBufferAdapter adapter(value, 4, &status, c.kind);
  adapter.kTable.resize(adapter.boundary(), c.numChannels, c.numSampsPerChan, &status);
  EXPECT_EQ(status.code, c.code);
  if (c.code == 0) {
    const bool none = c.numChannels == 0 || c.numSampsPerChan == 0;
    EXPECT_EQ(adapter.buffer.numChannels, none ? 0u : c.numChannels);
    EXPECT_EQ(adapter.buffer.totalElements, none ? 0u : c.numChannels * c.numSampsPerChan);
  } else {
    EXPECT_EQ(adapter.buffer.numChannels, 1u) << "shape kept";
    EXPECT_EQ(adapter.buffer.numSampsPerChan, 4u);
  }
}

INSTANTIATE_TEST_SUITE_P(
    ScalarArrayBufferAdapter, ScalarResizeTest,
    testing::Values(ScalarResize{"OneChannelAllSamples", 1, 1, 4, 0},
                    ScalarResize{"OneChannelTwoChannels", 1, 2, 1, zqpalerr_badCount},
                    ScalarResize{"OneChannelTooManySamples", 1, 1, 5, nZQMSTS100::kErrorReadBufferTooSmall},
                    ScalarResize{"OneSampleManyChannels", 0, 4, 1, 0},
                    ScalarResize{"OneSampleTwoSamples", 0, 1, 2, zqpalerr_badCount},
                    ScalarResize{"OneSampleTooManyChannels", 0, 5, 1, nZQMSTS100::kErrorReadBufferTooSmall},
                    ScalarResize{"ZeroChannelsIsEmptyNotRefused", 1, 0, 9, 0},
                    ScalarResize{"FreeKindOnlyCapacity", 2, 2, 2, 0},
                    ScalarResize{"FreeKindBeyondCapacity", 2, 2, 3, nZQMSTS100::kErrorReadBufferTooSmall}),
    [](const auto& info) { return info.param.name; });

TEST(ScalarArrayLineBufferAdapter, ShapeOfNElements) {
  uint8_t lines[3];
  zqerr::Status status;
  ScalarArrayLineBufferAdapter adapter(lines, 3, &status);
  EXPECT_EQ(adapter.kind, 1u);
  EXPECT_EQ(adapter.buffer.numChannels, 1u);
  EXPECT_EQ(adapter.buffer.totalElements, 3u);
  EXPECT_EQ(adapter.buffer.capacity, 3u);
  zqgopher_IArrayLineBuffer* b = adapter.boundary();
  EXPECT_EQ(b->table->getNumSampsPerChan(b, 0, &status), 1u);
  EXPECT_EQ(b->table->getNumLines(b, 0, &status), 3u);
  EXPECT_EQ(b->table->getUniformNumLines(b, &status), 0xFFFFFFFFu);
  EXPECT_EQ(b->table->getNumLinesOfChannel(b, 0, &status), 0xFFFFFFFFu);
  EXPECT_EQ(status.code, 0);
  ScalarArrayLineBufferAdapter none(lines, 0, &status);
  EXPECT_EQ(none.buffer.numChannels, 0u);
  EXPECT_EQ(none.kTable.getNumSampsPerChan(none.boundary(), 0, &status), 0u);
  EXPECT_EQ(none.kTable.getNumLines(none.boundary(), 0, &status), 0u);
}

TEST(ScalarArrayLineBufferAdapter, CapabilitiesFollowTheKind) {
  uint8_t lines[2];
  struct Case {
    uint32_t kind;
    uint64_t extension;
    uint32_t capabilities;
  };
  for (const Case& c : {Case{0, 0, 8}, Case{1, 0, 16}, Case{3, 0, 0}, Case{1, 1, 17}}) {
    zqerr::Status status;
    ScalarArrayLineBufferAdapter adapter(lines, 2, &status, c.kind);
    adapter.buffer.extension = c.extension;
    EXPECT_EQ(adapter.kTable.getCapabilities(adapter.boundary()), c.capabilities) << c.kind;
  }
}

TEST(ScalarArrayLineBufferAdapter, LineCountByKind) {
  uint8_t lines[3];
  struct Case {
    uint32_t kind;
    uint32_t channel;
    uint32_t lines;
    int32_t code;
  };
  // Kind 0: one line in each of up to n channels; kind 1: n lines of channel 0.
  for (const Case& c : {Case{1, 0, 3, 0}, Case{1, 1, 0, zqpalerr_badSelector}, Case{0, 0, 1, 0}, Case{0, 2, 1, 0},
                        Case{0, 3, 0, zqpalerr_badSelector}, Case{5, 9, 1, 0}}) {
    zqerr::Status status;
    ScalarArrayLineBufferAdapter adapter(lines, 3, &status, c.kind);
    EXPECT_EQ(adapter.kTable.getNumLines(adapter.boundary(), c.channel, &status), c.lines) << c.kind << " " << c.channel;
    EXPECT_EQ(status.code, c.code) << c.kind << " " << c.channel;
  }
}

struct LineResize {
  const char* name;
  uint32_t kind;
  std::vector<uint32_t> lines;
  uint64_t numSampsPerChan;
  int32_t code;
  uint64_t total;  // afterwards; 4 when refused
};

class LineResizeTest : public testing::TestWithParam<LineResize> {};

TEST_P(LineResizeTest, OneSampleWithinTheKind) {
  const LineResize& c = GetParam();
  uint8_t bytes[4];
  zqerr::Status status;
  ScalarArrayLineBufferAdapter adapter(bytes, 4, &status, c.kind);
  ArrayViewAdapter<uint32_t> view(c.lines);
  adapter.kTable.resize(adapter.boundary(), &view, c.numSampsPerChan, &status);
  EXPECT_EQ(status.code, c.code);
  EXPECT_EQ(adapter.buffer.totalElements, c.total);
  EXPECT_EQ(zqtest::items(status), "<none>");
}

INSTANTIATE_TEST_SUITE_P(
    ScalarArrayLineBufferAdapter, LineResizeTest,
    testing::Values(LineResize{"LinesOfOneChannel", 1, {4}, 1, 0, 4},
                    LineResize{"TwoSamples", 1, {2}, 2, zqpalerr_badCount, 4},
                    LineResize{"TwoChannelsOfKindOne", 1, {1, 1}, 1, zqpalerr_badCount, 4},
                    LineResize{"LinesBeyondCapacity", 1, {5}, 1, zqpalerr_badCount, 4},
                    LineResize{"OneLineOfFourChannels", 0, {1, 1, 1, 1}, 1, 0, 4},
                    LineResize{"TwoLinesOfKindZero", 0, {2}, 1, zqpalerr_badCount, 4},
                    LineResize{"ChannelsBeyondCapacity", 0, {1, 1, 1, 1, 1}, 1, zqpalerr_badCount, 4},
                    LineResize{"NoSamples", 1, {3}, 0, 0, 0},
                    LineResize{"NoChannels", 1, {}, 1, 0, 0}),
    [](const auto& info) { return info.param.name; });

TEST(ScalarArrayLineBufferAdapter, ResizeRefusesANullView) {
  uint8_t bytes[1];
  zqerr::Status status;
  ScalarArrayLineBufferAdapter adapter(bytes, 1, &status);
  adapter.kTable.resize(adapter.boundary(), nullptr, 1, &status);
  EXPECT_EQ(status.code, zqpalerr_badPointer);
}

}  // namespace
