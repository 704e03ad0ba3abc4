#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "boundary/array_view.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::ArrayViewAdapter;
using zqgopher::StringArrayView;

const double kValues[] = {1.0, 2.0, 3.0};

struct ViewCase {
  const char* name;
  int32_t statusBefore;
  const double* items;
  uint64_t count;
  const double* expectedData;
  uint64_t expectedCount;
  int32_t statusAfter;
};

// A pointer with a count, and a null one with or without, are read back through the array Set
// accessors (tests/frame); here the edges they never reach.
class FromPointer : public testing::TestWithParam<ViewCase> {};

TEST_P(FromPointer, TakesBothValuesOrStaysEmpty) {
  const ViewCase& c = GetParam();
  zqerr::Status status;
  status.code = c.statusBefore;
  ArrayViewAdapter<double> view(c.items, c.count, &status);
  EXPECT_EQ(view.data, c.expectedData);
  EXPECT_EQ(view.count, c.expectedCount);
  EXPECT_EQ(status.code, c.statusAfter);
}

INSTANTIATE_TEST_SUITE_P(
    ArrayViewAdapter, FromPointer,
    testing::Values(ViewCase{"CountZeroIgnoresThePointer", 0, kValues, 0, nullptr, 0, 0},
                    ViewCase{"FailedStatusStaysEmpty", -9, kValues, 3, nullptr, 0, -9},
                    ViewCase{"FailedStatusDoesNotLookAtThePointer", -9, nullptr, 3, nullptr, 0, -9},
                    ViewCase{"AWarningIsNoFailure", 4, kValues, 2, kValues, 2, 4}),
    [](const auto& info) { return info.param.name; });

TEST(ArrayViewAdapter, RefusalNamesItsSite) {
  zqerr::Status status;
  ArrayViewAdapter<int32_t> view(nullptr, 1, &status);
  EXPECT_EQ(zqtest::member(status, "error_constant"), R"("zqapalerr_invalidParameter")");
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/ArrayViewAdapter")");
}

// One name is kept in place without a vector: its pointer must move with the view too.
TEST(StringArrayView, MovingKeepsThePointers) {
  for (const std::vector<std::string>& names : {std::vector<std::string>{"a", "b"}, {"Dev1/ai0"}}) {
    SCOPED_TRACE(names.size());
    StringArrayView first(names);
    const void* data = first.data;  // the vector of pointers, when there is one, is moved, not copied
    StringArrayView second(std::move(first));
    ASSERT_EQ(second.count, names.size());
    EXPECT_EQ(second[0], names[0].c_str());
    EXPECT_EQ(first.count, 0u);
    StringArrayView third;
    third = std::move(second);
    ASSERT_EQ(third.count, names.size());
    EXPECT_EQ(third[names.size() - 1], names.back().c_str());
    EXPECT_EQ(zqgopher_ArrayView_strings(&third)[0], names[0].c_str());
    if (names.size() > 1) {
      EXPECT_EQ(third.data, data);
    }
  }
}

}  // namespace
