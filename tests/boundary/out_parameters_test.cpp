#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/out_parameters.h"
#include "platform/platform.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::copyArrayOut;
using zqgopher::copyStringListOut;
using zqgopher::copyStringOut;
using zqgopher::copyStringToCaller;
using zqtest::usageItem;

constexpr size_t kBuffer = 16;

std::string tooSmallItems(int32_t needed, uint32_t given) {
  return "[" + usageItem("kUsageTypeReqBufSizeInBytes", std::to_string(needed), "int32_t") + "," +
         usageItem("kUsageTypeBufferLength", std::to_string(given), "uint32_t") + "]";
}

struct StringCase {
  const char* name;
  std::string text;
  bool nullBuffer;
  uint32_t bufferSize;
  int32_t result;
  bool sizeQuery;
  std::string buffer;  // the 16 bytes afterwards, '#' untouched
  int32_t code;
};

class StringOut : public testing::TestWithParam<StringCase> {};

TEST_P(StringOut, SizeQueryCopyOrRefusal) {
  const StringCase& c = GetParam();
  std::string buffer(kBuffer, '#');
  bool sizeQuery = false;
  zqerr::Status status;
  const int32_t result = copyStringOut(c.text, c.nullBuffer ? nullptr : buffer.data(), c.bufferSize, sizeQuery, &status);
  EXPECT_EQ(result, c.result);
  EXPECT_EQ(sizeQuery, c.sizeQuery);
  EXPECT_EQ(buffer, c.buffer);
  EXPECT_EQ(status.code, c.code);
  if (c.code == 0) {
    EXPECT_EQ(status.report, nullptr);
    return;
  }
  EXPECT_EQ(zqtest::member(status, "error_constant"), R"("nZQMSTS::kErrorBufferTooSmallForString")");
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/OutParameters")");
  EXPECT_EQ(zqtest::member(status, "translator"), R"("qxlator_zqvorex")");
  EXPECT_EQ(zqtest::items(status), tooSmallItems(static_cast<int32_t>(c.text.size() + 1), c.bufferSize));
}

const std::string kUntouched(kBuffer, '#');

INSTANTIATE_TEST_SUITE_P(
    OutParameters, StringOut,
    testing::Values(
        StringCase{"NullBufferIsASizeQuery", "Dev1/ai0", true, 0, 9, true, kUntouched, 0},
        StringCase{"NullBufferWithASize", "Dev1/ai0", true, 12, 9, true, kUntouched, 0},
        StringCase{"SizeZeroIsASizeQuery", "Dev1/ai0", false, 0, 9, true, kUntouched, 0},
        StringCase{"EmptyTextQueriesZero", "", true, 0, 0, true, kUntouched, 0},
        StringCase{"Roomy", "Dev1/ai0", false, 12, 0, false, std::string("Dev1/ai0\0#######", 16), 0},
        StringCase{"ExactlyLengthPlusOne", "Dev1/ai0", false, 9, 0, false, std::string("Dev1/ai0\0#######", 16), 0},
        StringCase{"ExactlyTheLength", "Dev1/ai0", false, 8, 0, false, kUntouched,
                   nZQMSTS::kErrorBufferTooSmallForString},
        StringCase{"OneByte", "Dev1/ai0", false, 1, 0, false, kUntouched, nZQMSTS::kErrorBufferTooSmallForString},
        StringCase{"EmptyTextInOneByte", "", false, 1, 0, false, std::string("\0###############", 16), 0}),
    [](const auto& info) { return info.param.name; });

TEST(OutParameters, TheInnerRoutineAddsNoItems) {
  char buffer[4];
  bool sizeQuery = false;
  zqerr::Status status;
  EXPECT_EQ(copyStringToCaller("Dev1/ai0", buffer, sizeof buffer, sizeQuery, &status), 0);
  EXPECT_EQ(status.code, nZQMSTS::kErrorBufferTooSmallForString);
  EXPECT_EQ(zqtest::items(status), "<none>");
}

TEST(OutParameters, AShortBufferReplacesAWarning) {
  char buffer[4];
  bool sizeQuery = false;
  zqerr::Status status;
  status.code = 200;
  copyStringOut("Dev1/ai0", buffer, sizeof buffer, sizeQuery, &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorBufferTooSmallForString);
  EXPECT_EQ(zqtest::items(status), tooSmallItems(9, 4));
}

TEST(OutParameters, NothingHappensOnAFailedStatus) {
  std::string buffer(kBuffer, '#');
  bool sizeQuery = false;
  zqerr::Status status;
  zqtest::fail(&status, -5);
  EXPECT_EQ(copyStringOut("abc", buffer.data(), kBuffer, sizeQuery, &status), 0);
  EXPECT_EQ(copyStringOut("abc", nullptr, 0, sizeQuery, &status), 0);
  EXPECT_EQ(copyStringListOut({"a"}, nullptr, 0, sizeQuery, &status), 0);
  EXPECT_EQ(copyStringListOut({}, buffer.data(), kBuffer, sizeQuery, &status), 0);
  EXPECT_FALSE(sizeQuery);
  EXPECT_EQ(buffer, kUntouched);
  EXPECT_EQ(status.code, -5);
  EXPECT_EQ(status.report, nullptr);
}

// Sizes count the bytes of the system code page: "Grüße" is 7 bytes of UTF-8, 5 of code
// page 1252. The Linux test run sets its system code page to 1252.
TEST(OutParameters, SizesCountTheCodePageBytes) {
  const uint32_t page = zqplatform::systemCodePage();
  if (page != 1252 && page != 65001) GTEST_SKIP() << "system code page " << page;
  const bool utf8 = page == 65001;
  const std::string text = "Gr\xC3\xBC\xC3\x9F" "e";
  bool sizeQuery = false;
  zqerr::Status status;
  EXPECT_EQ(copyStringOut(text, nullptr, 0, sizeQuery, &status), utf8 ? 8 : 6);

  std::string buffer(kBuffer, '#');
  EXPECT_EQ(copyStringOut(text, buffer.data(), 6, sizeQuery, &status), 0);
  if (utf8) {
    EXPECT_EQ(status.code, nZQMSTS::kErrorBufferTooSmallForString);
    EXPECT_EQ(zqtest::items(status), tooSmallItems(8, 6));
    return;
  }
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(buffer, std::string("Gr\xFC\xDF" "e\0##########", 16));
}

TEST(OutParameters, UnmappableCharactersTakeTheDefaultCharacter) {
  if (zqplatform::systemCodePage() != 1252) GTEST_SKIP() << "needs code page 1252";
  const std::string text = "\xE6\x97\xA5\xE6\x9C\xAC!";  // two CJK characters and "!"
  std::string buffer(kBuffer, '#');
  bool sizeQuery = false;
  zqerr::Status status;
  EXPECT_EQ(copyStringOut(text, nullptr, 0, sizeQuery, &status), 4);
  EXPECT_EQ(copyStringOut(text, buffer.data(), 4, sizeQuery, &status), 0);
  EXPECT_EQ(buffer, std::string("?" "?!\0############", 16));
  EXPECT_EQ(status.code, 0);
}

TEST(OutParameters, LongTextIsMeasuredBeyondTheStackBuffer) {
  if (zqplatform::systemCodePage() != 1252) GTEST_SKIP() << "needs code page 1252";
  std::string text;
  for (int i = 0; i < 3000; ++i) text += "\xC3\xA9";  // 3000 characters, 6000 bytes of UTF-8
  std::string buffer(3001, '#');
  bool sizeQuery = false;
  zqerr::Status status;
  EXPECT_EQ(copyStringOut(text, nullptr, 0, sizeQuery, &status), 3001);
  EXPECT_EQ(copyStringOut(text, buffer.data(), 3001, sizeQuery, &status), 0);
  EXPECT_EQ(buffer, std::string(3000, '\xE9') + '\0');
}

struct ListCase {
  const char* name;
  std::vector<std::string> items;
  bool nullBuffer;
  uint32_t bufferSize;
  int32_t result;
  bool sizeQuery;
  std::string buffer;
  int32_t code;
  int32_t needed = 0;  // reported for a short buffer
};

class ListOut : public testing::TestWithParam<ListCase> {};

TEST_P(ListOut, JoinedWithCommaAndSpace) {
  const ListCase& c = GetParam();
  std::string buffer(kBuffer, '#');
  bool sizeQuery = false;
  zqerr::Status status;
  const int32_t result =
      copyStringListOut(c.items, c.nullBuffer ? nullptr : buffer.data(), c.bufferSize, sizeQuery, &status);
  EXPECT_EQ(result, c.result);
  EXPECT_EQ(sizeQuery, c.sizeQuery);
  EXPECT_EQ(buffer, c.buffer);
  EXPECT_EQ(status.code, c.code);
  if (c.code != 0) {
    EXPECT_EQ(zqtest::items(status), tooSmallItems(c.needed, c.bufferSize));
  }
}

INSTANTIATE_TEST_SUITE_P(
    OutParameters, ListOut,
    testing::Values(
        ListCase{"EmptyListWithABufferWritesEmptyText", {}, false, 8, 0, false, std::string("\0###############", 16), 0},
        ListCase{"EmptyListWithoutABuffer", {}, true, 0, 0, true, kUntouched, 0},
        ListCase{"EmptyListWithSizeZero", {}, false, 0, 0, true, kUntouched, 0},
        ListCase{"SizeQuery", {"Dev1", "Dev2", "X"}, true, 0, 14, true, kUntouched, 0},
        ListCase{"OneItem", {"Dev1"}, false, 16, 0, false, std::string("Dev1\0###########", 16), 0},
        ListCase{"Joined", {"Dev1", "Dev2", "X"}, false, 14, 0, false, std::string("Dev1, Dev2, X\0##", 16), 0},
        ListCase{"OneByteShort", {"Dev1", "Dev2", "X"}, false, 13, 0, false, kUntouched,
                 nZQMSTS::kErrorBufferTooSmallForString, 14}),
    [](const auto& info) { return info.param.name; });

struct ArrayCase {
  const char* name;
  std::vector<double> items;
  bool nullData;
  uint32_t arraySize;
  int32_t result;
  std::vector<double> after;  // the caller's 4 elements, -1 untouched
  int32_t code;
};

class ArrayOut : public testing::TestWithParam<ArrayCase> {};

TEST_P(ArrayOut, SizeQueryCopyOrRefusal) {
  const ArrayCase& c = GetParam();
  std::vector<double> data(4, -1.0);
  zqerr::Status status;
  EXPECT_EQ(copyArrayOut(c.items, c.nullData ? nullptr : data.data(), c.arraySize, &status), c.result);
  EXPECT_EQ(data, c.after);
  EXPECT_EQ(status.code, c.code);
  if (c.code == 0) return;
  EXPECT_EQ(zqtest::member(status, "error_constant"), "\"(-200234)\"");
  EXPECT_EQ(zqtest::items(status),
            "[" + usageItem("kUsageTypeBufferLength", std::to_string(c.arraySize), "uint32_t") + "," +
                usageItem("kUsageTypeReqBufSizeInSamps", std::to_string(c.items.size()), "uint32_t") + "]");
}

const std::vector<double> kUntouchedArray(4, -1.0);

INSTANTIATE_TEST_SUITE_P(
    OutParameters, ArrayOut,
    testing::Values(ArrayCase{"NullIsASizeQuery", {1.5, 2.5, 3.5}, true, 0, 3, kUntouchedArray, 0},
                    ArrayCase{"NullWithASize", {1.5, 2.5, 3.5}, true, 4, 3, kUntouchedArray, 0},
                    ArrayCase{"SizeZeroIsASizeQuery", {1.5, 2.5, 3.5}, false, 0, 3, kUntouchedArray, 0},
                    ArrayCase{"EmptyQueriesZero", {}, true, 0, 0, kUntouchedArray, 0},
                    ArrayCase{"Exactly", {1.5, 2.5, 3.5}, false, 3, 0, {1.5, 2.5, 3.5, -1.0}, 0},
                    ArrayCase{"Roomy", {1.5, 2.5}, false, 4, 0, {1.5, 2.5, -1.0, -1.0}, 0},
                    ArrayCase{"EmptyIntoAnArray", {}, false, 4, 0, kUntouchedArray, 0},
                    ArrayCase{"OneShort", {1.5, 2.5, 3.5}, false, 2, 0, kUntouchedArray, nZQMSTS100::kErrorArrayTooSmallForValue}),
    [](const auto& info) { return info.param.name; });

TEST(OutParameters, IntegerArraysToo) {
  const std::vector<int32_t> items{-1, 10, 20};
  int32_t data[3] = {};
  zqerr::Status status;
  EXPECT_EQ(copyArrayOut(items, data, 3, &status), 0);
  EXPECT_EQ(std::vector<int32_t>(data, data + 3), items);
  EXPECT_EQ(copyArrayOut(items, static_cast<int32_t*>(nullptr), 0, &status), 3);
  zqtest::fail(&status);
  int32_t untouched[3] = {7, 7, 7};
  EXPECT_EQ(copyArrayOut(items, untouched, 3, &status), 0);
  EXPECT_EQ(copyArrayOut(items, static_cast<int32_t*>(nullptr), 0, &status), 0);
  EXPECT_EQ(untouched[0], 7);
}

}  // namespace
