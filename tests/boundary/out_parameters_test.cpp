#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/out_parameters.h"
#include "platform/platform.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::copyArrayOut;
using zqgopher::copyStringListOut;
using zqgopher::copyStringOut;
using zqtest::usageItem;

constexpr size_t kBuffer = 16;

std::string tooSmallItems(int32_t needed, uint32_t given) {
  return "[" + usageItem("kUsageTypeReqBufSizeInBytes", std::to_string(needed), "int32_t") + "," +
         usageItem("kUsageTypeBufferLength", std::to_string(given), "uint32_t") + "]";
}

// Sizes, copies, lists and short buffers are read back through the text and array accessors
// (tests/frame), with the exact items of a short buffer; here what those never reach: the
// refusal's site after a warning, a failed status, characters the page lacks and a text beyond
// the stack.
TEST(OutParameters, AShortBufferReplacesAWarning) {
  char buffer[4];
  bool sizeQuery = false;
  zqerr::Status status;
  status.code = 200;
  copyStringOut("Dev1/ai0", buffer, sizeof buffer, sizeQuery, &status);
  EXPECT_EQ(status.code, nZQMSTS::kErrorBufferTooSmallForString);
  EXPECT_EQ(zqtest::member(status, "error_constant"), R"("nZQMSTS::kErrorBufferTooSmallForString")");
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/OutParameters")");
  EXPECT_EQ(zqtest::member(status, "translator"), R"("qxlator_zqvorex")");
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
  double untouched[1] = {7};
  EXPECT_EQ(copyArrayOut(std::vector<double>{1.0}, untouched, 1, &status), 0);
  EXPECT_EQ(copyArrayOut(std::vector<double>{1.0}, static_cast<double*>(nullptr), 0, &status), 0);
  EXPECT_EQ(untouched[0], 7.0);
  EXPECT_FALSE(sizeQuery);
  EXPECT_EQ(buffer, std::string(kBuffer, '#'));
  EXPECT_EQ(status.code, -5);
  EXPECT_EQ(status.report, nullptr);
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

TEST(OutParameters, AShortArrayNamesItsSite) {
  double data[2] = {-1.0, -1.0};
  zqerr::Status status;
  EXPECT_EQ(copyArrayOut(std::vector<double>{1.5, 2.5, 3.5}, data, 2, &status), 0);
  EXPECT_EQ(data[0], -1.0);
  EXPECT_EQ(status.code, nZQMSTS100::kErrorArrayTooSmallForValue);
  EXPECT_EQ(zqtest::member(status, "error_constant"), "\"(-200234)\"");
}

}  // namespace
