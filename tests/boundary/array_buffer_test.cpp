#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <type_traits>

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/report_writer.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::ArrayBufferAdapter;
using zqgopher::ArrayBufferWriteAdapter;
using zqtest::usageItem;

struct Shape {
  uint32_t numChannels;
  uint64_t numSampsPerChan;
  uint64_t totalElements;
};

Shape shapeOf(const zqgopher_ArrayBufferReadFields& f) { return {f.numChannels, f.numSampsPerChan, f.totalElements}; }
bool operator==(const Shape& a, const Shape& b) {
  return a.numChannels == b.numChannels && a.numSampsPerChan == b.numSampsPerChan && a.totalElements == b.totalElements;
}
std::ostream& operator<<(std::ostream& os, const Shape& s) {
  return os << s.numChannels << "x" << s.numSampsPerChan << "=" << s.totalElements;
}

// The object stays usable with the status set; every later entry sees that status.
template <class Adapter, class... Shape>
void expectNullDataRefused(Shape... shape) {
  zqerr::Status status;
  Adapter adapter(nullptr, shape..., &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/ArrayBufferAdapter")");
  zqgopher_IArrayBuffer* b = adapter.boundary();
  EXPECT_TRUE(b->table->isEmpty(b, &status));
  EXPECT_EQ(b->table->getNumChannels(b, &status), 0u);
  EXPECT_EQ(b->table->getData(b, 0, &status), nullptr);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
}

TEST(ArrayBufferAdapter, NullDataIsRefusedByEveryConstructor) {
  expectNullDataRefused<ArrayBufferAdapter>(uint64_t{4});
  expectNullDataRefused<ArrayBufferAdapter>(1u, uint64_t{4});
  expectNullDataRefused<ArrayBufferWriteAdapter>(1u, uint64_t{4});
  expectNullDataRefused<zqgopher::ScalarArrayBufferAdapter>(uint64_t{4});
}

TEST(ArrayBufferAdapter, CapabilitiesAndExtension) {
  double samples[2];
  zqerr::Status status;
  ArrayBufferAdapter read(samples, 2, &status);
  ArrayBufferWriteAdapter write(samples, 1, 2, &status);
  EXPECT_EQ(read.kTable.getCapabilities(read.boundary()), 40u);
  EXPECT_EQ(write.kTable.getCapabilities(write.boundary()), 0u);
  read.extension = 7;
  write.extension = 9;
  EXPECT_EQ(read.kTable.getCapabilities(read.boundary()), 41u);
  EXPECT_EQ(write.kTable.getCapabilities(write.boundary()), 1u);
  EXPECT_EQ(read.kTable.getExtension(read.boundary()), 7u);
  EXPECT_EQ(read.kTable.getMutableExtension(read.boundary()), 7u);
  EXPECT_EQ(write.kTable.getExtension(write.boundary()), 9u);
  EXPECT_EQ(write.kTable.getMutableExtension(write.boundary()), 9u);
}

struct ChannelCase {
  const char* name;
  uint32_t numChannels;
  uint32_t channel;
  bool refused;
};

class ChannelTest : public testing::TestWithParam<ChannelCase> {};

TEST_P(ChannelTest, SampleCountOfAChannel) {
  const ChannelCase& c = GetParam();
  double samples[30];
  zqerr::Status status;
  ArrayBufferAdapter read(samples, c.numChannels, 10, &status);
  ArrayBufferWriteAdapter write(samples, c.numChannels, 10, &status);
  for (zqgopher_IArrayBuffer* b : {read.boundary(), write.boundary()}) {
    zqerr::Status own;
    const uint64_t samps = b->table->getNumSampsPerChan(b, c.channel, &own);
    EXPECT_EQ(samps, c.refused ? 0u : 10u);
    EXPECT_EQ(own.code, c.refused ? zqpalerr_badSelector : 0);
  }
}

INSTANTIATE_TEST_SUITE_P(ArrayBufferAdapter, ChannelTest,
                         testing::Values(ChannelCase{"First", 3, 0, false}, ChannelCase{"Last", 3, 2, false},
                                         ChannelCase{"PastTheEnd", 3, 3, true},
                                         ChannelCase{"FarPastTheEnd", 3, 0xFFFFFFFF, true},
                                         ChannelCase{"NoChannelsAcceptsAny", 0, 5, false}),
                         [](const auto& info) { return info.param.name; });

TEST(ArrayBufferAdapter, OnlyChannelZeroHasData) {
  double samples[4];
  zqerr::Status status;
  ArrayBufferAdapter read(samples, 2, 2, &status);
  ArrayBufferWriteAdapter write(samples, 2, 2, &status);
  for (zqgopher_IArrayBuffer* b : {read.boundary(), write.boundary()}) {
    zqerr::Status own;
    EXPECT_EQ(b->table->getData(b, 0, &own), samples);
    EXPECT_EQ(b->table->getData(b, 1, &own), nullptr) << "even with two channels";
    EXPECT_EQ(own.code, zqpalerr_badSelector);
  }
  zqerr::Status own;
  EXPECT_EQ(read.kTable.getMutableData(read.boundary(), 0, &own), samples) << "the caller's own array";
  EXPECT_EQ(read.kTable.getMutableData(read.boundary(), 1, &own), nullptr);
  EXPECT_EQ(own.code, zqpalerr_badSelector);
}

TEST(ArrayBufferAdapter, LostDataPointerIsABadPointer) {
  double samples[4];
  zqerr::Status status;
  ArrayBufferAdapter read(samples, 4, &status);
  read.data = nullptr;
  zqgopher_IArrayBuffer* b = read.boundary();
  EXPECT_EQ(b->table->getData(b, 1, &status), nullptr);
  EXPECT_EQ(status.code, zqpalerr_badPointer) << "the pointer is tested before the channel";
  zqerr::Status clear;
  b->table->clear(b, &clear);
  EXPECT_EQ(clear.code, zqpalerr_badPointer);
  EXPECT_EQ(shapeOf(read), (Shape{1, 4, 4}));
  zqerr::Status mut;
  EXPECT_EQ(b->table->getMutableData(b, 0, &mut), nullptr);
  EXPECT_EQ(mut.code, zqpalerr_badPointer);
}

struct ResizeCase {
  const char* name;
  uint32_t numChannels;
  uint64_t numSampsPerChan;
  Shape expected;  // with capacity 12, from the shape 1x12
  int32_t code;
  uint64_t reportedTotal;
};

class ArrayResize : public testing::TestWithParam<ResizeCase> {};

TEST_P(ArrayResize, WithinTheCapacityOnly) {
  const ResizeCase& c = GetParam();
  double samples[12];
  zqerr::Status status;
  ArrayBufferAdapter read(samples, 12, &status);
  zqgopher_IArrayBuffer* b = read.boundary();
  b->table->resize(b, c.numChannels, c.numSampsPerChan, &status);
  EXPECT_EQ(status.code, c.code);
  EXPECT_EQ(shapeOf(read), c.expected);
  EXPECT_EQ(read.capacity, 12u) << "fixed at construction";
  if (c.code == 0) {
    EXPECT_EQ(status.report, nullptr);
    EXPECT_EQ(b->table->isEmpty(b, &status), c.expected.totalElements == 0);
    return;
  }
  EXPECT_EQ(zqtest::member(status, "error_constant"), R"("nZQMSTS100::kErrorReadBufferTooSmall")");
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/ArrayBufferAdapter")");
  EXPECT_EQ(zqtest::items(status),
            "[" + usageItem("kUsageTypeBufferLength", "12", "uint64_t") + "," +
                usageItem("kUsageTypeReqBufSizeInSamps", std::to_string(c.reportedTotal), "uint64_t") + "]");
}

INSTANTIATE_TEST_SUITE_P(
    ArrayBufferAdapter, ArrayResize,
    testing::Values(ResizeCase{"NoChannelsMeansNoSamples", 0, 100, {0, 0, 0}, 0, 0},
                    ResizeCase{"NoSamplesMeansNoChannels", 5, 0, {0, 0, 0}, 0, 0},
                    ResizeCase{"ExactlyTheCapacity", 3, 4, {3, 4, 12}, 0, 0},
                    ResizeCase{"OneElementMore", 1, 13, {1, 12, 12}, nZQMSTS100::kErrorReadBufferTooSmall, 13},
                    ResizeCase{"ManyChannels", 0xFFFFFFFF, 2, {1, 12, 12}, nZQMSTS100::kErrorReadBufferTooSmall,
                               0x1FFFFFFFEull},
                    ResizeCase{"ProductBeyond64Bits", 0xFFFFFFFF, 0x100000001ull, {1, 12, 12},
                               nZQMSTS100::kErrorReadBufferTooSmall, UINT64_MAX}),
    [](const auto& info) { return info.param.name; });

TEST(ArrayBufferAdapter, ClearEmptiesTheShapeButNotTheCapacity) {
  double samples[6];
  zqerr::Status status;
  ArrayBufferAdapter read(samples, 2, 3, &status);
  zqgopher_IArrayBuffer* b = read.boundary();
  b->table->clear(b, &status);
  EXPECT_EQ(shapeOf(read), (Shape{0, 0, 0}));
  EXPECT_TRUE(b->table->isEmpty(b, &status));
  b->table->resize(b, 1, 6, &status);
  EXPECT_EQ(shapeOf(read), (Shape{1, 6, 6}));
  EXPECT_EQ(status.code, 0);
}

TEST(ArrayBufferAdapter, IsEmptyTable) {
  double samples[4];
  struct Case {
    uint32_t channels;
    uint64_t samps;
    int32_t code;
    bool empty;
  };
  for (const Case& c : {Case{1, 4, 0, false}, Case{0, 4, 0, true}, Case{1, 0, 0, true}, Case{1, 4, -1, true},
                        Case{1, 4, 3, false}}) {
    zqerr::Status status;
    ArrayBufferWriteAdapter write(samples, c.channels, c.samps, &status);
    status.code = c.code;
    EXPECT_EQ(write.kTable.isEmpty(write.boundary(), &status), c.empty) << c.channels << " " << c.samps << " " << c.code;
  }
}

// A resize of either kind of buffer to one channel of two samples (of two lines).
template <class Buffer>
void resizeSome(Buffer* b, zqerr_Status* status) {
  if constexpr (std::is_same_v<Buffer, zqgopher_IArrayLineBuffer>) {
    const uint32_t two = 2;
    const zqgopher::ArrayViewAdapter<uint32_t> view(two);
    b->table->resize(b, &view, 2, status);
  } else {
    b->table->resize(b, 1, 2, status);
  }
}

template <class Buffer>
void expectEveryEntryANoOp(Buffer* b) {
  const auto& t = *b->table;
  zqerr::Status status;
  zqtest::fail(&status, -3);
  EXPECT_TRUE(t.isEmpty(b, &status));
  EXPECT_EQ(t.getNumChannels(b, &status), 0u);
  EXPECT_EQ(t.getNumSampsPerChan(b, 0, &status), 0u);
  EXPECT_EQ(t.getData(b, 0, &status), nullptr);
  t.reserved1(b, &status);
  t.reserved2(b, &status);
  t.clear(b, &status);
  resizeSome(b, &status);
  EXPECT_EQ(t.getMutableData(b, 0, &status), nullptr);
  t.reserved3(b, &status);
  t.reserved4(b, &status);
  if constexpr (std::is_same_v<Buffer, zqgopher_IArrayLineBuffer>) {
    EXPECT_EQ(t.getNumLines(b, 0, &status), 0u);
    EXPECT_EQ(t.getUniformNumLines(b, &status), 0u);
    EXPECT_EQ(t.getNumLinesOfChannel(b, 0, &status), 0u);
  }
  EXPECT_EQ(status.code, -3);
  EXPECT_EQ(status.report, nullptr);
}

// Clear, resize and the mutable data are each refused with zqapalerr_featureUnsupported.
template <class Buffer>
void expectChangesRefused(Buffer* b) {
  zqerr::Status clear, resize, mut;
  b->table->clear(b, &clear);
  resizeSome(b, &resize);
  EXPECT_EQ(b->table->getMutableData(b, 0, &mut), nullptr);
  for (const zqerr::Status* s : {&clear, &resize, &mut}) {
    EXPECT_EQ(s->code, zqapalerr_featureUnsupported);
    EXPECT_EQ(zqtest::member(*s, "error_constant"), R"("zqapalerr_featureUnsupported")");
  }
}

TEST(BufferAdapters, EveryEntryIsANoOpOnAFailedStatus) {
  double samples[4] = {1, 2, 3, 4};
  uint8_t bytes[8];
  const uint32_t two = 2;
  zqgopher::ArrayViewAdapter<uint32_t> lines(two);
  zqerr::Status ok;
  ArrayBufferAdapter read(samples, 2, 2, &ok);
  ArrayBufferWriteAdapter write(samples, 2, 2, &ok);
  zqgopher::ArrayLineBufferAdapter readLines(bytes, 8, &lines, 4, &ok);
  zqgopher::ArrayLineBufferWriteAdapter writeLines(bytes, 8, &lines, 4, &ok);
  expectEveryEntryANoOp(read.boundary());
  expectEveryEntryANoOp(write.boundary());
  expectEveryEntryANoOp(readLines.boundary());
  expectEveryEntryANoOp(writeLines.boundary());
  EXPECT_EQ(shapeOf(read), (Shape{2, 2, 4}));
  EXPECT_EQ(readLines.numChannels, 1u);
  EXPECT_EQ(readLines.totalElements, 8u);
}

// The shape set at construction stays.
TEST(BufferAdapters, TheWriteFormsRefuseChanges) {
  const double samples[4] = {1, 2, 3, 4};
  const uint8_t bytes[4] = {1, 0, 1, 0};
  const uint32_t four = 4;
  zqgopher::ArrayViewAdapter<uint32_t> lines(four);
  zqerr::Status status;
  ArrayBufferWriteAdapter write(samples, 1, 4, &status);
  zqgopher::ArrayLineBufferWriteAdapter writeLines(bytes, 4, &lines, 1, &status);
  ASSERT_EQ(status.code, 0);
  EXPECT_EQ(writeLines.boundary()->table->getData(writeLines.boundary(), 0, &status), bytes);
  expectChangesRefused(write.boundary());
  expectChangesRefused(writeLines.boundary());
  EXPECT_EQ(write.numChannels, 1u);
  EXPECT_EQ(write.totalElements, 4u);
  EXPECT_EQ(writeLines.numChannels, 1u);
  EXPECT_EQ(writeLines.totalElements, 4u);
}

}  // namespace
