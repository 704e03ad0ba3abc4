#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "test_sites.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqerr::Status;

// Every byte behind the terminator is 0 up to the sentinel in the last byte.
void expectBufferForm(const zqerr_Status& s) {
  ASSERT_NE(s.report, nullptr);
  size_t n = std::strlen(s.report);
  ASSERT_LT(n + 1, s.capacity);
  for (size_t i = n; i + 1 < s.capacity; ++i) ASSERT_EQ(s.report[i], '\0') << "at " << i;
  EXPECT_EQ(s.report[s.capacity - 1], 'J');
}

struct RuleCase {
  int32_t present;
  int32_t next;
  bool replaced;
};

class ReplacementRule : public testing::TestWithParam<RuleCase> {};

TEST_P(ReplacementRule, FirstErrorWins) {
  const RuleCase& c = GetParam();
  Status s;
  if (c.present != 0) zqerr::setWithLocation(&s, c.present, ZQ_TEST_SITE("first", 1, first));
  bool changed = zqerr::setWithLocation(&s, c.next, ZQ_TEST_SITE("second", 2, second));
  EXPECT_EQ(changed, c.replaced);
  EXPECT_EQ(s.code, c.replaced ? c.next : c.present);
  if (s.code != 0) {
    // A replacing code rebuilds the report: nothing of the first site stays.
    const std::string report = s.report;
    EXPECT_NE(report.find(c.replaced ? R"("file":"second")" : R"("file":"first")"), std::string::npos) << report;
    EXPECT_EQ(report.find(c.replaced ? "first" : "second"), std::string::npos) << report;
  } else {
    EXPECT_EQ(s.report, nullptr) << "a fresh status stays without report on a zero code";
  }
}

INSTANTIATE_TEST_SUITE_P(Table, ReplacementRule,
                         testing::Values(RuleCase{0, 0, false}, RuleCase{0, 5, true}, RuleCase{0, -5, true},
                                         RuleCase{5, -7, true}, RuleCase{5, 9, false}, RuleCase{5, 0, false},
                                         RuleCase{5, 5, false}, RuleCase{-5, -7, false}, RuleCase{-5, 9, false},
                                         RuleCase{-5, 0, false}));

TEST(Status, SetWithLocationWritesTheSiteInOrder) {
  Status s;
  ASSERT_TRUE(ZQ_TEST_FAIL(&s, nZQMSTS100::kErrorNULLPtr, "APIImplementation", 4711));
  EXPECT_EQ(s.code, -200604);
  EXPECT_STREQ(s.report,
               R"({"error_constant":"nZQMSTS100::kErrorNULLPtr","file":"APIImplementation","line":4711,)"
               R"("component":"zqcai_rd_mbcs"})");
  expectBufferForm(s);
  EXPECT_EQ(s.capacity, 512u);
}

TEST(Status, SetPlainOmitsTheConstant) {
  Status s;
  zqerr::SourceLocation site{"TaskPool", 12, nullptr, "err"};
  ASSERT_TRUE(zqerr::setPlain(&s, -200088, site));
  EXPECT_STREQ(s.report, R"({"file":"TaskPool","line":12})");
}

TEST(Status, GrowReportSizes) {
  Status s;
  EXPECT_TRUE(zqerr::growReport(&s, 1));
  EXPECT_EQ(s.capacity, 512u);
  EXPECT_STREQ(s.report, "{}");
  expectBufferForm(s);
  EXPECT_TRUE(zqerr::growReport(&s, 300));
  EXPECT_EQ(s.capacity, 512u);
  EXPECT_TRUE(zqerr::growReport(&s, 513));
  EXPECT_EQ(s.capacity, 1024u);
  expectBufferForm(s);
  EXPECT_FALSE(zqerr::growReport(&s, 0x80000000u));
  EXPECT_EQ(s.capacity, 1024u);
  EXPECT_TRUE(zqerr::growReport(&s, 0));
  EXPECT_EQ(s.report, nullptr);
  EXPECT_EQ(s.capacity, 0u);
}

bool otherStorage(zqerr_Status* s, uint32_t size) {
  if (size == 0) {
    std::free(s->report);
    s->report = nullptr;
    s->capacity = 0;
    return true;
  }
  if (size <= s->capacity) return true;
  char* p = static_cast<char*>(std::calloc(size, 1));
  if (!p) return false;
  std::strcpy(p, s->report ? s->report : "{}");
  p[size - 1] = 'J';
  std::free(s->report);
  s->report = p;
  s->capacity = size;
  return true;
}

TEST(Status, AdoptCopiesThroughTheDestinationsStorageWhenTheyDiffer) {
  Status source;
  ZQ_TEST_FAIL(&source, -50, "src", 3);
  zqerr_Status destination{0, 0, &otherStorage, nullptr};
  ASSERT_TRUE(zqerr::adopt(&destination, &source));
  EXPECT_STREQ(destination.report, source.report);
  EXPECT_EQ(destination.capacity, std::strlen(source.report) + 2);
  expectBufferForm(destination);
  otherStorage(&destination, 0);
}

TEST(Status, AdoptKeepsAnEarlierError) {
  Status source, destination;
  ZQ_TEST_FAIL(&destination, -1, "first", 1);
  ZQ_TEST_FAIL(&source, -2, "second", 2);
  EXPECT_FALSE(zqerr::adopt(&destination, &source));
  EXPECT_EQ(destination.code, -1);
  EXPECT_NE(source.report, nullptr);
}

}  // namespace
