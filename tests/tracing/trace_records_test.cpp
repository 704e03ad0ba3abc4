// The records that traced calls leave in the real ZqSpyLog tool, read back as its lines.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "spy_client.h"
#include "traced_calls.h"

namespace {

using namespace zqtest;

void* const kTask = reinterpret_cast<void*>(uintptr_t{0x1234});

// "name@index:code[element,total]=value", as the tool prints a record.
std::string rec(const char* name, int index, int code, int element, int total, const std::string& value) {
  return std::string(name) + "@" + std::to_string(index) + ":" + std::to_string(code) + "[" +
         std::to_string(element) + "," + std::to_string(total) + "]=" + value;
}

class Tracing : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(spy.loaded()) << "ZqSpyLog must be beside the test program";
    spy.setMode(1);
  }
  void TearDown() override { spy.setMode(1); }

  // One call with its own record: the new line, checked to be the only one.
  template <class Call>
  std::string lineOf(Call call) {
    uint64_t before = spy.counters().lines;
    call();
    EXPECT_EQ(spy.counters().lines, before + 1);
    return spy.line();
  }

  SpyClient spy;
};

// Start-up runs once whichever thread comes first; every thread then has a cookie.
TEST_F(Tracing, FreshStartUpRunsOnceAcrossThreads) {
  zqtrace::initialiseState(zqerr::makeFixedStatus());
  ASSERT_FALSE(zqtrace::resolved());
  uint64_t queries = spy.counters().versionQueries;
  constexpr int kThreads = 8;
  std::vector<Cookie> cookies(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([&cookies, i] {
      double x = 0;
      tracedGetF64(kTask, &x, &cookies[static_cast<size_t>(i)]);
    });
  for (std::thread& t : threads) t.join();
  EXPECT_TRUE(zqtrace::resolved());
  EXPECT_EQ(spy.counters().versionQueries, queries + 1);
  for (Cookie cookie : cookies) EXPECT_NE(cookie, 0u);
}

TEST_F(Tracing, GuardAloneEndsACallThatStoppedBeforeItsParametersEnded) {
  std::string line = lineOf([&] {
    TraceCall trace("VorexLoadTask");
    trace.paramText("taskName", "saved");
  });
  EXPECT_EQ(line, "VorexLoadTask params(-): " + rec("taskName", 0, 79, 1, 5, "\"saved\"") + "; returns(0):");
}

TEST_F(Tracing, ModeWordOffBetweenTwoCallsTakesNoCookie) {
  double x = 0;
  Cookie first = 0, second = 0, third = 0;
  tracedGetF64(kTask, &x, &first);
  spy.setMode(0);
  SpyClient::Counters before = spy.counters();
  tracedGetF64(kTask, &x, &second);
  SpyClient::Counters after = spy.counters();
  spy.setMode(1);
  tracedGetF64(kTask, &x, &third);
  EXPECT_NE(first, 0u);
  EXPECT_EQ(second, 0u);
  EXPECT_EQ(after.cookieRequests, before.cookieRequests);  // not even asked for
  EXPECT_EQ(after.lines, before.lines);
  EXPECT_NE(third, 0u);
  EXPECT_EQ(x, 2.5);  // the untraced call did its work all the same
}

// The records of the helpers that no traced export in the tests passes through: an array of
// 16-bit words, a timeout that is a number although negative, and a double attribute's pointer.
TEST_F(Tracing, ParameterHelpersWriteTheirRecords) {
  struct Case {
    void (*write)(TraceCall&);
    std::string records;
  };
  static const int16_t kWordData[] = {-1, 2, 300};
  static const int16_t* const kWords = kWordData;
  static const double kAttribute = 2.5;
  const Case cases[] = {
      {[](TraceCall& t) { t.paramArray("writeArray", kI16Array, kWords, 3); },
       rec("writeArray", 0, 8, 8, 8, pointerText(kWords)) + " " + rec("writeArray", 1, 8, 8, 24, "[-1, 2, 300]")},
      {[](TraceCall& t) { t.paramTimeout("timeout", -1.5); }, rec("timeout", 0, 81, 8, 8, "-1.5")},
      {[](TraceCall& t) { t.param("data", kF64AttributePointer, &kAttribute); },
       rec("data", 0, 91, 8, 8, pointerText(&kAttribute))},
  };
  for (const Case& c : cases) {
    std::string line = lineOf([&] {
      TraceCall trace("F");
      c.write(trace);
      trace.endParams();
      trace.retval(0);
    });
    EXPECT_NE(line.find("): " + c.records + ";"), std::string::npos) << line;
  }
}

// A long array shows its first eight elements and its count; a double attribute's value has
// its own type code, which no traced export in the tests returns.
TEST_F(Tracing, ReturnHelpersWriteTheirRecords) {
  struct Case {
    void (*write)(TraceCall&);
    std::string records;
  };
  static const uint8_t kByteData[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  static const uint8_t* const kBytes = kByteData;
  const Case cases[] = {
      {[](TraceCall& t) { t.retArray("readArray", kU8Array, kBytes, 10); },
       rec("readArray", 0, 10, 8, 10, "[1, 2, 3, 4, 5, 6, 7, 8, ... 10 in all]")},
      {[](TraceCall& t) { t.ret("*data", kF64Attribute, 2.5); }, rec("*data", 0, 19, 8, 8, "2.5")},
  };
  for (const Case& c : cases) {
    std::string line = lineOf([&] {
      TraceCall trace("F");
      trace.endParams();
      c.write(trace);
      trace.retval(-1);
    });
    EXPECT_EQ(line, "F params(0):; returns(2): " + c.records + " " + rec("retval", 1, 75, 4, 4, "-1 failed"));
  }
}

TEST_F(Tracing, LogFileHoldsTheSameLine) {
  const char* path = std::getenv("ZQSPY_LOG_FILE");
  ASSERT_TRUE(path && *path) << "the test runs with ZQSPY_LOG_FILE set";
  double x = 0;
  tracedGetF64(kTask, &x);
  std::ifstream file(path);
  std::string line, last;
  while (std::getline(file, line)) last = line;
  EXPECT_EQ(last, spy.line());
}

TEST(TracingVersion, ModeWordFromSevenOfMajorTwo) {
  struct Case {
    uint32_t major, minor;
    bool modeWord;
  };
  const Case cases[] = {{2, 7, true}, {2, 6, false}, {2, 10, true}, {3, 0, true},
                        {1, 9, false}, {0, 0, false}, {2, 0, false}};
  for (const Case& c : cases) EXPECT_EQ(zqspy::hasModeWord(c.major, c.minor), c.modeWord) << c.major << "." << c.minor;
}

}  // namespace
