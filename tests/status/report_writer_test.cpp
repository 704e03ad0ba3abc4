#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "report_items.h"
#include "status/report_reader.h"
#include "status/report_writer.h"
#include "test_sites.h"
#include "zqvorex_status_codes.h"

namespace {

using namespace zqerr;
using json::ParsedValue;
using zqtest::items;

TEST(ReportWriter, AnotherTranslatorsReportIsLeftAlone) {
  Status s;
  ZQ_TEST_FAIL(&s, -1, "f", 1);
  writeString(rootWriter(&s), "translator", "mdbg");
  std::string before = s.report;
  EXPECT_FALSE(openOrderedData(&s, kTranslatorZqvorex));
  EXPECT_EQ(before, s.report);
  EXPECT_TRUE(openTranslatorInfo(&s, "mdbg"));
}

TEST(ReportWriter, InvalidReportDropsTheElaboration) {
  Status s;
  ZQ_TEST_FAIL(&s, -1, "f", 1);
  std::memcpy(s.report, "{\"a\":", 5);  // no longer closed
  EXPECT_FALSE(openOrderedData(&s, kTranslatorZqvorex));
  EXPECT_EQ(s.code, -1);
}

TEST(ReportWriter, CommaPlacementInBothModes) {
  Status s;
  ReportWriter root = rootWriter(&s);
  ReportWriter inside = writeArray(root, "list");
  --inside.cursor;
  ReportWriter first = writeInt32(inside, nullptr, 1);
  writeInt32(first, nullptr, 2);
  EXPECT_STREQ(s.report, R"({"list":[1,2]})");
  // A cursor on an opening character prepends, with the comma last.
  char* open = std::strchr(s.report, '[');
  writeInt32(ReportWriter{open, &growStatusReport, &s}, nullptr, 0);
  EXPECT_STREQ(s.report, R"({"list":[0,1,2]})");
  writeInt32(ReportWriter{s.report, &growStatusReport, &s}, "head", 9);
  EXPECT_STREQ(s.report, R"({"head":9,"list":[0,1,2]})");
}

TEST(ReportWriter, EmptyContainerWithWhitespaceTakesNoComma) {
  Status s;
  ReportWriter root = rootWriter(&s);
  ASSERT_TRUE(root);
  writeRaw(root, "a", "[ \t]");
  char* close = std::strchr(s.report, ']');
  writeInt32(ReportWriter{close, &growStatusReport, &s}, nullptr, 3);
  EXPECT_STREQ(s.report, "{\"a\":[ \t3]}");
}

TEST(ReportWriter, GrowthFrom512To1024KeepsTheItemAtItsOffset) {
  Status s;
  ZQ_TEST_FAIL(&s, -1, "f", 1);
  ReportWriter w = openOrderedData(&s, kTranslatorZqvorex);
  ASSERT_TRUE(w);
  // Fill to just below the limit, then write an item that does not fit.
  std::string filler(512 - std::strlen(s.report) - 120, 'x');
  w = addItem(w, usage::kUsageTypeInvalidString, filler);
  ASSERT_EQ(s.capacity, 512u);
  size_t offset = static_cast<size_t>(w.cursor - s.report);
  w = addItem(w, usage::kUsageTypeChannelName, std::string(60, 'y'));
  ASSERT_TRUE(w);
  EXPECT_EQ(s.capacity, 1024u);
  EXPECT_EQ(std::string(s.report + offset, 2), ",{");
  EXPECT_EQ(std::string(s.report + offset + 1).rfind(R"({"type":"usage","usage":"kUsageTypeChannelName")", 0), 0u);
  EXPECT_NE(json::endOfValue(s.report), nullptr);
}

TEST(ReportWriter, EscapesRoundTripThroughDecode) {
  const std::string texts[] = {"plain", "quote\" back\\slash", "ctl\b\t\n\f\r", std::string("nul\x01\x1f\x7f", 6),
                               "utf8 \xC3\x9F \xE6\x97\xA5"};
  for (const std::string& text : texts) {
    Status s;
    ASSERT_TRUE(writeString(rootWriter(&s), text.c_str(), text));
    const char* value = json::findKey(s.report, text);
    ASSERT_NE(value, nullptr) << s.report;
    ParsedValue v;
    ASSERT_TRUE(json::parseValue(value, &v));
    std::string decoded;
    ASSERT_TRUE(json::decodeString(v.begin + 1, v.length - 2, &decoded));
    EXPECT_EQ(decoded, text);
  }
}

// Attribute usages carry a comment; string lists and 64-bit values keep their types.
TEST(ReportWriter, AttributeCommentStringListAndUint64) {
  Status s;
  ZQ_TEST_FAIL(&s, -1, "f", 1);
  const std::string_view devices[] = {"Dev1", "Dev2"};
  ReportWriter w = openOrderedData(&s, kTranslatorZqvorex);
  w = addItem(w, usage::kUsageTypeAttributeId, int32_t{0x7FFFFFF0});
  w = addItem(w, usage::kUsageTypeParamNum, int32_t{2});
  w = addItem(w, usage::kUsageTypeSuggestedDevices, devices, 2);
  w = addItem(w, usage::kUsageTypeReqBufSizeInSamps, uint64_t{1} << 40);
  ASSERT_TRUE(w);
  EXPECT_EQ(items(s),
            R"([{"type":"usage","usage":"kUsageTypeAttributeId","value":2147483632,"value_type":"int32_t",)"
            R"("comment":"Not Available"},{"type":"usage","usage":"kUsageTypeParamNum","value":2,)"
            R"("value_type":"int32_t"},)"
            R"({"type":"usage","usage":"kUsageTypeSuggestedDevices","value":["Dev1","Dev2"],"value_type":"string"},)"
            R"({"type":"usage","usage":"kUsageTypeReqBufSizeInSamps","value":1099511627776,"value_type":"uint64_t"}])");
}

// A storage that refuses to grow: elaboration is dropped, the code stays.
bool fixedStorage(zqerr_Status* s, uint32_t size) {
  static char buffer[64];
  if (size == 0) {
    s->report = nullptr;
    s->capacity = 0;
    return true;
  }
  if (size > sizeof buffer) return false;
  if (!s->report) {
    std::memset(buffer, 0, sizeof buffer);
    buffer[sizeof buffer - 1] = 'J';
    std::strcpy(buffer, "{}");
    s->report = buffer;
    s->capacity = sizeof buffer;
  }
  return true;
}

TEST(ReportWriter, FailedGrowthDropsTheRestButKeepsTheCode) {
  zqerr_Status s{0, 0, &fixedStorage, nullptr};
  EXPECT_TRUE(zqerr::setWithLocation(&s, -5, ZQ_TEST_SITE("a-rather-long-file-name-for-a-small-buffer", 1, c)));
  EXPECT_EQ(s.code, -5);
  EXPECT_NE(json::endOfValue(s.report), nullptr) << s.report;
  EXPECT_FALSE(addItem(openOrderedData(&s, kTranslatorZqvorex), usage::kUsageTypeTaskName, "t"));
  fixedStorage(&s, 0);
}

}  // namespace
