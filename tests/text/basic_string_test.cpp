#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "report_items.h"
#include "text/basic_string.h"
#include "zqvorex_status_codes.h"

namespace {

using zqhtl::String;

// The real allocator, refusing while `refuse` is set, so that failure paths can be reached.
struct RefusingAllocator {
  static inline bool refuse = false;
  static constexpr uint64_t kMaxCount = zqhtl::err::Allocator<char>::kMaxCount;
  static char* allocate(uint64_t count, zqhtl::err::StatusRef status) {
    if (refuse) {
      status.memoryFull();
      return nullptr;
    }
    return zqhtl::err::Allocator<char>::allocate(count, status);
  }
  static void deallocate(char* block) { zqhtl::err::Allocator<char>::deallocate(block); }
};
using RefusingString = zqhtl::BasicString<char, RefusingAllocator>;

struct Growth {
  uint64_t before;  // capacity reached first (0: a fresh string)
  uint64_t request;
  uint64_t after;
};

class ReserveGrowth : public testing::TestWithParam<Growth> {};

TEST_P(ReserveGrowth, FollowsTheRule) {
  const Growth& g = GetParam();
  zqerr::Status status;
  String s;
  s.assign("abc", 3, &status);
  if (g.before) {
    String fresh;
    fresh.assign("abc", 3, &status);
    fresh.reserve(g.before, &status);
    ASSERT_EQ(fresh.capacity(), g.before);
    s = std::move(fresh);
  }
  const char* old = s.data();
  ASSERT_TRUE(s.reserve(g.request, &status));
  EXPECT_EQ(s.capacity(), g.after);
  EXPECT_EQ(s.view(), "abc");
  EXPECT_EQ(s.c_str()[3], '\0');
  EXPECT_EQ(s.data() == old, g.after == (g.before ? g.before : 127));
  EXPECT_EQ(status.code, 0);
}

INSTANTIATE_TEST_SUITE_P(Cases, ReserveGrowth,
                         testing::Values(Growth{0, 0, 127}, Growth{0, 10, 127}, Growth{0, 127, 127},
                                         Growth{0, 128, 190},  // 127 + 63 beats 128
                                         Growth{0, 191, 191}, Growth{200, 150, 200}, Growth{200, 200, 200},
                                         Growth{200, 201, 300}, Growth{200, 1000, 1000}, Growth{190, 191, 285}));

TEST(BasicString, ReserveOnAFreshStringAllocatesEvenForZero) {
  zqerr::Status status;
  String s;
  EXPECT_EQ(s.data(), nullptr);
  EXPECT_STREQ(s.c_str(), "");
  ASSERT_TRUE(s.reserve(0, &status));
  EXPECT_EQ(s.capacity(), 127u);
  EXPECT_STREQ(s.c_str(), "");
}

// Every editing operation against std::string, including texts taken from the string itself.
TEST(BasicString, EditsMatchAReferenceModel) {
  std::mt19937 random(12345);
  zqerr::Status status;
  String s;
  std::string model;
  auto pick = [&](uint64_t bound) { return static_cast<uint64_t>(random() % (bound + 1)); };
  for (int step = 0; step < 5000; ++step) {
    std::string piece(static_cast<size_t>(pick(20)), static_cast<char>('a' + step % 26));
    uint64_t pos = pick(model.size());
    bool fromSelf = !model.empty() && random() % 2;
    uint64_t from = fromSelf ? pick(model.size() - 1) : 0;
    uint64_t count = fromSelf ? pick(model.size() - from) : piece.size();
    const char* source = fromSelf ? s.data() + from : piece.data();
    std::string text = fromSelf ? model.substr(from, count) : piece;
    switch (random() % 7) {
      case 0: s.append(source, count, &status); model += text; break;
      case 1: s.insert(pos, source, count, &status); model.insert(pos, text); break;
      case 2: s.assign(source, count, &status); model = text; break;
      case 3: s.pushBack('#', &status); model += '#'; break;
      case 4: { uint64_t n = pick(10); s.erase(pos, n); model.erase(pos, n); break; }
      case 5: s.erase(pos, 3); model.erase(pos, 3); break;
      case 6: if (model.size() > 4000) { s.clear(); model.clear(); } break;
    }
    ASSERT_EQ(std::string(s.view()), model) << "step " << step;
    ASSERT_EQ(s.c_str()[s.size()], '\0');
    ASSERT_LE(s.size(), s.capacity());
  }
  EXPECT_EQ(status.code, 0);
}

// What the model above leaves out: erasing to the end, past the end, and the block kept on clear.
TEST(BasicString, EraseToAndPastTheEndAndClear) {
  zqerr::Status status;
  String s;
  s.assign("abcdef", 6, &status);
  s.erase(2);
  EXPECT_EQ(s.view(), "ab");
  s.erase(5, 1);
  EXPECT_EQ(s.view(), "ab");
  uint64_t capacity = s.capacity();
  s.clear();
  EXPECT_STREQ(s.c_str(), "");
  EXPECT_EQ(s.capacity(), capacity);
}

TEST(BasicString, FailedStatusChangesNothing) {
  zqerr::Status status;
  String s;
  s.assign("abc", 3, &status);
  status.code = -1;
  EXPECT_FALSE(s.append("x", 1, &status));
  EXPECT_FALSE(s.pushBack('x', &status));
  EXPECT_FALSE(s.insert(0, "x", 1, &status));
  EXPECT_FALSE(s.assign("x", 1, &status));
  EXPECT_FALSE(s.reserve(1000, &status));
  EXPECT_FALSE(s.resize(10, &status));
  EXPECT_EQ(s.view(), "abc");
  EXPECT_EQ(s.capacity(), 127u);
  EXPECT_EQ(status.report, nullptr);
}

TEST(BasicString, ImpossibleSizeReportsMemoryFull) {
  zqerr::Status status;
  String s;
  s.assign("abc", 3, &status);
  EXPECT_FALSE(s.reserve(UINT64_MAX - 1, &status));
  EXPECT_EQ(status.code, zqapalerr_memoryFull);
  EXPECT_EQ(zqtest::siteOf(status), (zqtest::Site{"zqhtl/err/Allocator", 32, "zqcai_rd_mbcs"}));
  EXPECT_EQ(zqtest::stringMember(status.report, "error_constant"), "zqapalerr_memoryFull");
  EXPECT_EQ(s.view(), "abc");

  zqerr::FixedStatus fixed = zqerr::makeFixedStatus();
  EXPECT_FALSE(s.append("x", UINT64_MAX, &fixed));
  EXPECT_EQ(fixed.code, zqapalerr_memoryFull);
  EXPECT_STREQ(fixed.file, "zqhtl/err/Allocator");
  EXPECT_STREQ(fixed.component, "zqcai_rd_");
  EXPECT_EQ(fixed.line, 32u);
  EXPECT_EQ(s.view(), "abc");
}

TEST(BasicString, RefusedAllocationKeepsTheText) {
  zqerr::Status status;
  RefusingString s;
  s.assign("abc", 3, &status);
  std::string big(300, 'x');
  RefusingAllocator::refuse = true;
  EXPECT_FALSE(s.append(big.data(), big.size(), &status));
  RefusingAllocator::refuse = false;
  EXPECT_EQ(status.code, zqapalerr_memoryFull);
  EXPECT_EQ(s.view(), "abc");
  EXPECT_EQ(s.capacity(), 127u);
  // The first error stands, and the string stays usable once the status is reset.
  EXPECT_FALSE(s.append("d", 1, &status));
  zqerr::Status fresh;
  EXPECT_TRUE(s.append(big.data(), big.size(), &fresh));
  EXPECT_EQ(s.size(), 303u);
}

TEST(BasicString, WideInstantiation) {
  zqerr::Status status;
  zqhtl::WideString w;
  w.assign(u"ab", 2, &status);
  w.insert(1, u"\u00DF", 1, &status);
  w.resize(5, &status);
  EXPECT_EQ(w.view(), std::u16string_view(u"a\u00DFb\0\0", 5));
  w.resize(2, &status);
  EXPECT_EQ(w.view(), u"a\u00DF");
}

TEST(BasicString, MoveTakesTheBlock) {
  zqerr::Status status;
  String a;
  a.assign("text", 4, &status);
  const char* block = a.data();
  String b(std::move(a));
  EXPECT_EQ(b.data(), block);
  EXPECT_EQ(a.data(), nullptr);
  EXPECT_EQ(a.size(), 0u);
  EXPECT_STREQ(a.c_str(), "");
}

}  // namespace
