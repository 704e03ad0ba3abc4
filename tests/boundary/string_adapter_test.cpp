#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "boundary/string_adapter.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::StringAdapter;

struct CopyCase {
  const char* name;
  std::string text;
  bool nullBuffer;
  uint64_t bufferSize;
  std::string expected;  // the 12-byte buffer afterwards, '#' untouched
  int32_t code;
};

class CopyTo : public testing::TestWithParam<CopyCase> {};

TEST_P(CopyTo, CopiesCutsAndTerminatesAsTheSizeAllows) {
  const CopyCase& c = GetParam();
  std::string text = c.text;
  StringAdapter adapter(text);
  std::string buffer(12, '#');
  zqerr::Status status;
  adapter.kTable.copyTo(adapter.boundary(), c.nullBuffer ? nullptr : buffer.data(), c.bufferSize, &status);
  EXPECT_EQ(status.code, c.code);
  EXPECT_EQ(buffer, c.expected);
  EXPECT_EQ(text, c.text) << "the string itself is never changed by a copy";
}

INSTANTIATE_TEST_SUITE_P(
    StringAdapter, CopyTo,
    testing::Values(
        CopyCase{"ExactlyWithTerminator", "abcdef", false, 7, std::string("abcdef\0#####", 12), 0},
        CopyCase{"ExactlyTheLength", "abcdef", false, 6, "abcdef######", 0},
        CopyCase{"Short", "abcdef", false, 3, "abc#########", zqapalerr_bufferTooSmall},
        CopyCase{"NoRoom", "abcdef", false, 0, "############", zqapalerr_bufferTooSmall},
        CopyCase{"EmptyText", "", false, 4, std::string("\0###########", 12), 0},
        CopyCase{"EmptyTextNoRoom", "", false, 0, "############", 0},
        CopyCase{"NullBufferWithSize", "abc", true, 5, "############", zqapalerr_invalidParameter}),
    [](const auto& info) { return info.param.name; });

TEST(StringAdapter, ShortCopyNamesItsSite) {
  std::string text = "abcdef";
  StringAdapter adapter(text);
  char buffer[2];
  zqerr::Status status;
  adapter.kTable.copyTo(adapter.boundary(), buffer, sizeof buffer, &status);
  EXPECT_EQ(zqtest::member(status, "error_constant"), R"("zqapalerr_bufferTooSmall")");
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/StringAdapter")");
}

TEST(StringAdapter, EditsGoStraightIntoTheLibraryString) {
  std::string text = "old";
  StringAdapter adapter(text);
  zqgopher_IString* s = adapter.boundary();
  const zqgopher_IStringTable& t = *s->table;
  zqerr::Status status;

  t.assign(s, "hello world", 5, &status);
  EXPECT_EQ(text, "hello");
  EXPECT_EQ(t.size(s, &status), 5u);
  EXPECT_EQ(t.data(s, &status), text.data());
  t.mutableData(s, &status)[0] = 'j';
  EXPECT_EQ(text, "jello");
  t.resize(s, 7, &status);
  EXPECT_EQ(text, std::string("jello\0\0", 7)) << "extended with zero bytes";
  t.resize(s, 2, &status);
  EXPECT_EQ(text, "je");
  t.assign(s, nullptr, 0, &status);
  EXPECT_EQ(text, "");
  EXPECT_EQ(t.data(s, &status), nullptr) << "an empty string has no data";
  EXPECT_EQ(t.mutableData(s, &status), nullptr);
  t.assign(s, "x", 1, &status);
  t.clear(s, &status);
  EXPECT_EQ(text, "");
  EXPECT_EQ(status.code, 0);
}

TEST(StringAdapter, AssignOfNullBytesIsRefused) {
  std::string text = "keep";
  StringAdapter adapter(text);
  zqerr::Status status;
  adapter.kTable.assign(adapter.boundary(), nullptr, 3, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(text, "keep");
}

TEST(StringAdapter, EveryEntryIsANoOpOnAFailedStatus) {
  std::string text = "keep";
  StringAdapter adapter(text);
  zqgopher_IString* s = adapter.boundary();
  const zqgopher_IStringTable& t = *s->table;
  zqerr::Status status;
  zqtest::fail(&status, -7);
  char buffer[8] = "#######";

  EXPECT_EQ(t.size(s, &status), 0u);
  t.copyTo(s, buffer, sizeof buffer, &status);
  t.clear(s, &status);
  t.assign(s, "new", 3, &status);
  EXPECT_EQ(t.data(s, &status), nullptr);
  EXPECT_EQ(t.mutableData(s, &status), nullptr);
  t.resize(s, 1, &status);

  EXPECT_EQ(text, "keep");
  EXPECT_STREQ(buffer, "#######");
  EXPECT_EQ(status.code, -7);
  EXPECT_EQ(status.report, nullptr);
}

TEST(StringAdapter, AWarningDoesNotStopTheEntries) {
  std::string text;
  StringAdapter adapter(text);
  zqerr::Status status;
  status.code = 5;
  adapter.kTable.assign(adapter.boundary(), "ok", 2, &status);
  EXPECT_EQ(text, "ok");
  EXPECT_EQ(status.code, 5);
}

TEST(StringAdapter, AnImpossibleLengthBecomesAStatusNotAnException) {
  std::string text = "keep";
  StringAdapter adapter(text);
  zqerr::Status status;
  adapter.kTable.resize(adapter.boundary(), UINT64_MAX, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_NE(zqtest::member(status, "std_exception_what"), "<none>");
  EXPECT_EQ(text, "keep");
}

}  // namespace
