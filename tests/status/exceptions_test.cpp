#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <typeinfo>

#include "report_items.h"
#include "status/exceptions.h"
#include "test_sites.h"
#include "zqvorex_status_codes.h"

namespace {

using namespace zqerr;

std::string member(const Status& s, const char* key) { return zqtest::stringMember(s.report, key); }

// Converts what `thrower` throws into `s`, a Status or a FixedStatus.
template <typename Target, typename Throw>
void convert(Target& s, Throw thrower) {
  try {
    thrower();
  } catch (...) {
    convertCurrentException(&s);
  }
}

struct Mapping {
  const char* name;
  void (*thrower)();
  int32_t code;
  const char* constant;
  const char* what;
};

const Mapping kMappings[] = {
    {"bad_alloc", [] { throw std::bad_alloc(); }, -52000, "zqapalerr_memoryFull", "std::bad_alloc"},
    {"bad_cast", [] { throw std::bad_cast(); }, -52004, "zqapalerr_dynamicCastFailed", "std::bad_cast"},
    {"logic_error", [] { throw std::out_of_range("index"); }, -52005, "zqapalerr_invalidParameter", "index"},
    {"runtime_error", [] { throw std::runtime_error("boom"); }, -50150, "zqpalerr_softwareFault", "boom"},
    {"other", [] { throw 42; }, -50150, "<none>", "<none>"},
};

TEST(ExceptionConversion, EachClauseMapsToItsCode) {
  for (const Mapping& m : kMappings) {
    Status s;
    convert(s, m.thrower);
    EXPECT_EQ(s.code, m.code) << m.name;
    EXPECT_EQ(member(s, "file"), "exception") << m.name;
    EXPECT_EQ(member(s, "error_constant"), m.constant) << m.name;
    EXPECT_EQ(member(s, "std_exception_what"), m.what) << m.name;

    FixedStatus f = makeFixedStatus();
    try {
      m.thrower();
    } catch (...) {
      EXPECT_EQ(convertCurrentException(&f), m.code) << m.name;
    }
    EXPECT_STREQ(f.file, "exception") << m.name;
  }
}

TEST(ExceptionConversion, StatusExceptionIsAdoptedWithItsReport) {
  Status inner;
  ZQ_TEST_FAIL(&inner, nZQMSTS::kErrorInvalidTask, "TaskPool", 88);
  std::string report = inner.report;
  Status s;
  convert(s, [&] {
    try {
      throw Exception(&inner);
    } catch (const std::exception& e) {
      EXPECT_EQ(report, e.what()) << "caught as a std::exception, what() is the report";
      throw;
    }
  });
  EXPECT_EQ(s.code, nZQMSTS::kErrorInvalidTask);
  EXPECT_EQ(report, s.report);
  EXPECT_EQ(inner.report, nullptr) << "the thrown exception took the buffer over";
}

TEST(ExceptionConversion, AnEarlierErrorStands) {
  Status s;
  ZQ_TEST_FAIL(&s, -1, "first", 1);
  convert(s, [] { throw std::bad_alloc(); });
  EXPECT_EQ(s.code, -1);
  EXPECT_EQ(member(s, "std_exception_what"), "<none>");
}

TEST(ExceptionConversion, FixedStatusExceptionGoesThroughTheBridge) {
  FixedStatus fixed = makeFixedStatus();
  setFixed(&fixed, -200605, kComponent, "nparseutilities", 1038);
  Status s;
  convert(s, [&] { throwIfFailed(fixed); });
  EXPECT_EQ(s.code, -200605);
  EXPECT_STREQ(s.report, R"({"file":"nparseutilities","line":1038,"component":"zqcai_rd_"})");

  FixedStatus caught = makeFixedStatus();
  convert(caught, [&] { throwIfFailed(fixed); });
  EXPECT_EQ(caught.code, -200605);
  EXPECT_STREQ(caught.file, "nparseutilities");
  EXPECT_EQ(caught.line, 1038u);
}

struct ThrowsInDestructor {
  FixedStatus fixed = makeFixedStatus();
  ~ThrowsInDestructor() { throwIfFailed(fixed); }
};

TEST(ExceptionConversion, ThrowIfFailedStaysSilentWhileUnwinding) {
  Status s;
  convert(s, [] {
    ThrowsInDestructor guard;
    setFixed(&guard.fixed, -1, kComponent, "x", 1);
    throw std::runtime_error("first");
  });
  EXPECT_EQ(s.code, zqpalerr_softwareFault);
  FixedStatus fine = makeFixedStatus();
  EXPECT_NO_THROW(throwIfFailed(fine));
}

}  // namespace
