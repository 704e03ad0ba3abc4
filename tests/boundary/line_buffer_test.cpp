#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::ArrayLineBufferAdapter;
using zqgopher::ArrayLineBufferWriteAdapter;
using zqgopher::ArrayViewAdapter;
using zqtest::usageItem;
using Lines = std::vector<uint32_t>;

Lines linesOf(const zqgopher_ArrayLineBufferFields& f) {
  return Lines(f.linesPerChannel.data, f.linesPerChannel.data + f.linesPerChannel.size);
}

// Lines given at construction set the shape only when they fit the capacity.
TEST(ArrayLineBufferAdapter, LinesGivenAtConstructionSetTheShape) {
  uint8_t bytes[20];
  Lines lines{2, 3};
  ArrayViewAdapter<uint32_t> view(lines);
  for (uint64_t capacity : {20, 19}) {
    SCOPED_TRACE(capacity);
    zqerr::Status status;
    ArrayLineBufferAdapter adapter(bytes, capacity, &view, 4, &status);
    EXPECT_EQ(status.code, capacity == 20 ? 0 : zqpalerr_badCount);
    EXPECT_EQ(adapter.numChannels, capacity == 20 ? 2u : 0u);
    if (capacity == 19) continue;
    EXPECT_EQ(adapter.numSampsPerChan, 4u);
    EXPECT_EQ(adapter.totalElements, 20u);
    EXPECT_EQ(linesOf(adapter), lines);
  }
}

TEST(ArrayLineBufferAdapter, NullDataIsRefusedByBothForms) {
  for (int form = 0; form < 2; ++form) {
    zqerr::Status status;
    if (form == 0) ArrayLineBufferAdapter adapter(nullptr, 4, nullptr, 1, &status);
    else ArrayLineBufferWriteAdapter adapter(nullptr, 4, nullptr, 1, &status);
    EXPECT_EQ(status.code, zqapalerr_invalidParameter) << form;
    EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/ArrayLineBufferAdapter")");
  }
}

struct ResizeCase {
  const char* name;
  Lines lines;
  uint64_t numSampsPerChan;
  uint32_t channels;  // expected, with capacity 16 and the shape {1 line} x 16 before
  uint64_t samps;
  uint64_t total;
  Lines stored;
  int32_t code;
  uint64_t reportedTotal;
};

class LineResize : public testing::TestWithParam<ResizeCase> {};

TEST_P(LineResize, WithinTheCapacityOnly) {
  const ResizeCase& c = GetParam();
  uint8_t bytes[16];
  Lines before{1};
  ArrayViewAdapter<uint32_t> first(before);
  zqerr::Status status;
  ArrayLineBufferAdapter adapter(bytes, 16, &first, 16, &status);
  ASSERT_EQ(status.code, 0);
  ArrayViewAdapter<uint32_t> view(c.lines);
  zqgopher_IArrayLineBuffer* b = adapter.boundary();
  b->table->resize(b, &view, c.numSampsPerChan, &status);
  EXPECT_EQ(status.code, c.code);
  EXPECT_EQ(adapter.numChannels, c.channels);
  EXPECT_EQ(adapter.numSampsPerChan, c.samps);
  EXPECT_EQ(adapter.totalElements, c.total);
  EXPECT_EQ(linesOf(adapter), c.stored);
  if (c.code == 0) return;
  EXPECT_EQ(zqtest::member(status, "error_constant"), R"("zqpalerr_badCount")");
  EXPECT_EQ(zqtest::items(status),
            "[" + usageItem("kUsageTypeBufferLength", "16", "uint64_t") + "," +
                usageItem("kUsageTypeReqBufSizeInSamps", std::to_string(c.reportedTotal), "uint64_t") + "]");
}

INSTANTIATE_TEST_SUITE_P(
    ArrayLineBufferAdapter, LineResize,
    testing::Values(ResizeCase{"ExactlyTheCapacity", {8}, 2, 1, 2, 16, {8}, 0, 0},
                    ResizeCase{"MixedLines", {1, 8, 7}, 1, 3, 1, 16, {1, 8, 7}, 0, 0},
                    ResizeCase{"EmptyView", {}, 5, 0, 0, 0, {}, 0, 0},
                    ResizeCase{"NoSamples", {4, 4}, 0, 0, 0, 0, {}, 0, 0},
                    ResizeCase{"OneElementMore", {17}, 1, 1, 16, 16, {1}, zqpalerr_badCount, 17},
                    ResizeCase{"SumBeyondTheCapacity", {8, 1}, 2, 1, 16, 16, {1}, zqpalerr_badCount, 18},
                    ResizeCase{"SumBeyond64Bits", {0xFFFFFFFF, 0xFFFFFFFF}, UINT64_MAX / 2, 1, 16, 16, {1},
                               zqpalerr_badCount, UINT64_MAX}),
    [](const auto& info) { return info.param.name; });

TEST(ArrayLineBufferAdapter, ResizeRefusesABadView) {
  uint8_t bytes[4];
  const uint32_t one = 1;
  struct Case {
    const char* name;
    const zqgopher_ArrayView* view;
    int32_t code;
  };
  const zqgopher_ArrayView nullData{nullptr, 2};
  const zqgopher_ArrayView tooMany{&one, 0x100000000ull};
  for (const Case& c : {Case{"null view", nullptr, zqpalerr_badPointer},
                        Case{"null data with a count", &nullData, zqpalerr_badPointer},
                        Case{"more than 2^32-1 channels", &tooMany, zqpalerr_badCount}}) {
    zqerr::Status status;
    ArrayLineBufferAdapter adapter(bytes, 4, nullptr, 0, &status);
    adapter.kTable.resize(adapter.boundary(), c.view, 1, &status);
    EXPECT_EQ(status.code, c.code) << c.name;
    EXPECT_EQ(zqtest::items(status), "<none>") << c.name;
    EXPECT_EQ(adapter.totalElements, 4u) << c.name;
  }
}

TEST(ArrayLineBufferAdapter, LineCountsByChannel) {
  uint8_t bytes[32];
  Lines lines{3, 1, 4};
  ArrayViewAdapter<uint32_t> view(lines);
  zqerr::Status status;
  ArrayLineBufferAdapter adapter(bytes, 32, &view, 2, &status);
  zqgopher_IArrayLineBuffer* b = adapter.boundary();
  for (uint32_t c = 0; c < 3; ++c) EXPECT_EQ(b->table->getNumLines(b, c, &status), lines[c]);
  EXPECT_EQ(b->table->getNumSampsPerChan(b, 2, &status), 2u);
  EXPECT_EQ(b->table->getMutableData(b, 0, &status), bytes) << "the caller's own array";
  EXPECT_EQ(status.code, 0);
  zqerr::Status beyond;
  EXPECT_EQ(b->table->getNumLines(b, 3, &beyond), 0u);
  EXPECT_EQ(beyond.code, zqpalerr_badSelector);
  zqerr::Status samps;
  EXPECT_EQ(b->table->getNumSampsPerChan(b, 3, &samps), 0u);
  EXPECT_EQ(samps.code, zqpalerr_badSelector);
  zqerr::Status data;
  EXPECT_EQ(b->table->getData(b, 1, &data), nullptr);
  EXPECT_EQ(data.code, zqpalerr_badSelector);
}

TEST(ArrayLineBufferAdapter, LinesModeZeroReportsNoUniformCount) {
  uint8_t bytes[32];
  Lines lines{3, 5, 4};
  ArrayViewAdapter<uint32_t> view(lines);
  zqerr::Status status;
  ArrayLineBufferAdapter adapter(bytes, 32, &view, 1, &status);
  zqgopher_IArrayLineBuffer* b = adapter.boundary();
  EXPECT_EQ(b->table->getUniformNumLines(b, &status), 0xFFFFFFFFu);
  EXPECT_EQ(b->table->getNumLinesOfChannel(b, 1, &status), 0xFFFFFFFFu);
  // The other modes are a plug-in's; the operations still answer them.
  adapter.linesMode = 1;
  EXPECT_EQ(b->table->getUniformNumLines(b, &status), 5u);
  EXPECT_EQ(b->table->getNumLinesOfChannel(b, 1, &status), 0xFFFFFFFFu);
  adapter.linesMode = 2;
  EXPECT_EQ(b->table->getNumLinesOfChannel(b, 1, &status), 5u);
  EXPECT_EQ(b->table->getUniformNumLines(b, &status), 0xFFFFFFFFu);
  EXPECT_EQ(status.code, 0);
}

TEST(ArrayLineBufferAdapter, CapabilitiesAndExtension) {
  uint8_t bytes[4];
  zqerr::Status status;
  ArrayLineBufferAdapter read(bytes, 4, nullptr, 1, &status);
  ArrayLineBufferWriteAdapter write(bytes, 4, nullptr, 1, &status);
  EXPECT_EQ(read.base.table->getCapabilities(read.boundary()), 24u);
  EXPECT_EQ(write.base.table->getCapabilities(write.boundary()), 0u);
  read.extension = 3;
  write.extension = 3;
  EXPECT_EQ(read.base.table->getCapabilities(read.boundary()), 25u);
  EXPECT_EQ(write.base.table->getCapabilities(write.boundary()), 1u);
  EXPECT_EQ(read.base.table->getExtension(read.boundary()), 3u);
  EXPECT_EQ(write.base.table->getMutableExtension(write.boundary()), 3u);
}

TEST(ArrayLineBufferAdapter, ClearEmptiesShapeAndLines) {
  uint8_t bytes[8];
  Lines lines{2, 2};
  ArrayViewAdapter<uint32_t> view(lines);
  zqerr::Status status;
  ArrayLineBufferAdapter adapter(bytes, 8, &view, 2, &status);
  zqgopher_IArrayLineBuffer* b = adapter.boundary();
  b->table->clear(b, &status);
  EXPECT_EQ(adapter.numChannels, 0u);
  EXPECT_EQ(adapter.numSampsPerChan, 0u);
  EXPECT_EQ(adapter.totalElements, 0u);
  EXPECT_TRUE(linesOf(adapter).empty());
  EXPECT_EQ(b->table->getNumLines(b, 0, &status), 0u) << "0 when there are no counts";
  EXPECT_EQ(status.code, 0);
  adapter.data = nullptr;
  b->table->clear(b, &status);
  EXPECT_EQ(status.code, zqpalerr_badPointer);
}

}  // namespace
