// Every array accessor of the catalogue calls the operation its row names with its id and list,
// copies the elements out on a Get and hands the caller's elements over on a Set.
#include <gtest/gtest.h>

#include <vector>

#include "case_helpers.h"

namespace {

using namespace zqtest;

template <class T>
void walkArrays(std::span<const ArrayCase<T>> cases, const std::vector<T>& values) {
  walkCases(
      cases,
      [&](RecordingTask& task, const ArrayCase<T>& c, const std::string& op) {
        if constexpr (std::is_same_v<T, double>)
          task.on(op).numbers(values);
        else
          task.on(op).integers(values);
        std::vector<T> data(values.size() + 1, T{});
        EXPECT_EQ(c.get(task.handle(), kListText, data.data(), static_cast<uInt32>(data.size())), 0);
        data.pop_back();
        EXPECT_EQ(data, values);
      },
      [&](RecordingTask& task, const ArrayCase<T>& c) {
        EXPECT_EQ(c.set(task.handle(), kListText, values.data(), static_cast<uInt32>(values.size())), 0);
        ASSERT_NE(sentValue(task), nullptr);
        EXPECT_EQ(sentValue(task)->value, Value(values));
      });
}

TEST(ArrayAccessors, F64) { walkArrays(casesF64Array(), std::vector<double>{1.5, -2.25, 1e10}); }
TEST(ArrayAccessors, I32) { walkArrays(casesI32Array(), std::vector<int32_t>{10, -20, 30}); }

}  // namespace
