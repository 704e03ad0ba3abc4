#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "test_sites.h"
#include "status/report_reader.h"
#include "status/report_writer.h"
#include "status/status.h"

namespace {

using namespace zqerr;

static_assert(sizeof(zqerr_FixedStatus) == 208);
static_assert(offsetof(zqerr_FixedStatus, code) == 4);
static_assert(offsetof(zqerr_FixedStatus, component) == 8);
static_assert(offsetof(zqerr_FixedStatus, file) == 18);
static_assert(offsetof(zqerr_FixedStatus, line) == 120);
static_assert(offsetof(zqerr_FixedStatus, extra) == 128);
static_assert(offsetof(zqerr_Status, capacity) == 4);
static_assert(offsetof(zqerr_Status, storage) == 8);
static_assert(offsetof(zqerr_Status, report) == 16);
static_assert(sizeof(zqerr_Status) == 24);
static_assert(sizeof(Status) == sizeof(zqerr_Status));

TEST(FixedStatus, FileCutKeepsBothEnds) {
  std::string hundred(100, 'a');
  FixedStatus f = makeFixedStatus();
  ASSERT_TRUE(setFixed(&f, -1, "comp", hundred.c_str(), 5));
  EXPECT_EQ(std::string(f.file), hundred);

  std::string longer = std::string(49, 'L') + "MMM" + std::string(49, 'R');  // 101
  FixedStatus g = makeFixedStatus();
  g.extra[0] = 77;
  setFixed(&g, -1, "a-component-name", longer.c_str(), 9);
  EXPECT_EQ(std::strlen(g.file), 100u);
  EXPECT_EQ(std::string(g.file), std::string(49, 'L') + ".." + std::string(49, 'R'));
  EXPECT_STREQ(g.component, "a-compone");
  EXPECT_EQ(g.line, 9u);
  EXPECT_EQ(g.extra[0], 0u);
}

TEST(FixedStatus, SmallStructSizeStoresOnlyTheCode) {
  FixedStatus f{};
  f.structSize = 8;
  setFixed(&f, -3, "c", "file", 1);
  EXPECT_EQ(f.code, -3);
  EXPECT_EQ(f.file[0], '\0');
}

TEST(StatusBridge, DownReadsTheSiteBackOut) {
  Status s;
  ZQ_TEST_FAIL(&s, -52005, "nstring", 1707);
  StatusBridge bridge(&s);
  EXPECT_EQ(bridge.fixed()->code, -52005);
  EXPECT_STREQ(bridge.fixed()->file, "nstring");
  EXPECT_EQ(bridge.fixed()->line, 1707u);
  EXPECT_STREQ(bridge.fixed()->component, "zqcai_rd_") << "component is cut to nine characters";
}

TEST(StatusBridge, AKeptCodeIsNotOverwritten) {
  Status s;
  ZQ_TEST_FAIL(&s, -1, "first", 1);
  std::string before = s.report;
  {
    StatusBridge bridge(&s);
    bridge.fixed()->code = -2;  // a helper that ignores the rule cannot overwrite the first error
  }
  EXPECT_EQ(s.code, -1);
  EXPECT_EQ(before, s.report);
}

TEST(StatusBridge, LongFileKeepsItsTailWithoutSplittingAnEscape) {
  Status s;
  // Raw JSON text of 101+ characters whose cut would fall inside "\\" escapes.
  std::string file = std::string(20, 'a') + "\\\\\\" + std::string(95, 'b');
  zqerr::setWithLocation(&s, -9, SourceLocation{file.c_str(), 3, kComponent, "x"});
  StatusBridge bridge(&s);
  std::string kept = bridge.fixed()->file;
  EXPECT_EQ(kept, std::string(95, 'b'));
}

}  // namespace
