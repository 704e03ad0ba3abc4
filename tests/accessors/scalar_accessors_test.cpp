// Every scalar accessor of the catalogue calls the operation its row names, with its id, its
// list, and a value of its type, and hands the operation's value back.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "case_helpers.h"

namespace {

using namespace zqtest;

// What one value type sends and receives: the value an operation answers a Get with, the value
// a Set passes, and how the task must record that Set (parameter type and value).
template <class T>
struct Sample {
  T answer;
  T sent;
  const char* sentType;
  Value sentAs;
};

template <class T>
void walk(std::span<const ScalarCase<T>> cases, Sample<T> sample) {
  walkCases(
      cases,
      [&](RecordingTask& task, const ScalarCase<T>& c, const std::string& op) {
        task.on(op).value(sample.answer);
        T data{};
        EXPECT_EQ(c.get(task.handle(), kListText, &data), 0);
        EXPECT_EQ(data, sample.answer);
      },
      [&](RecordingTask& task, const ScalarCase<T>& c) {
        EXPECT_EQ(c.set(task.handle(), kListText, sample.sent), 0);
        const RecordedArg* value = sentValue(task);
        ASSERT_NE(value, nullptr);
        EXPECT_EQ(value->type, sample.sentType);
        EXPECT_EQ(value->value, sample.sentAs);
      });
}

TEST(ScalarAccessors, I32) {
  walk(casesI32(), Sample<int32>{-123456, -7, "int32_t", Value{int64_t{-7}}});
}
TEST(ScalarAccessors, U32) {
  walk(casesU32(), Sample<uInt32>{4000000000u, 4000000001u, "uint32_t", Value{uint64_t{4000000001u}}});
}
// The size operations are 64-bit: a Set widens the caller's value.
TEST(ScalarAccessors, U32BySize) {
  walk(casesU32Size(), Sample<uInt32>{4000000000u, 4000000001u, "uint64_t", Value{uint64_t{4000000001u}}});
}
TEST(ScalarAccessors, U64) {
  walk(casesU64(), Sample<uInt64>{0x100000001ull, 0x200000003ull, "uint64_t", Value{uint64_t{0x200000003ull}}});
}
TEST(ScalarAccessors, F64) {
  walk(casesF64(), Sample<float64>{2.5, -1.25, "double", Value{-1.25}});
}
TEST(ScalarAccessors, Bool) {
  walk(casesBool(), Sample<bool32>{1, 1, "uint32_t", Value{uint64_t{1}}});
}

// Only the offset and size accessors answer -89000 with the wide operation; everywhere else the
// plug-in's code is the caller's.
template <class T>
void walkFallback(std::span<const ScalarCase<T>> cases, const char* wideSuffix, int& fallbacks) {
  auto task = RecordingTask::create();
  for (const ScalarCase<T>& c : cases) {
    SCOPED_TRACE(c.info.name);
    const bool wide = fallsBack(c.info);
    for (const Verb& verb : kVerbs) {
      task->clearCalls();
      task->clearReplies();
      const std::string narrow = operationFor(verb.name, c.info);
      std::string wideOp = narrow.substr(0, narrow.find("Attribute")) + "Attribute" + wideSuffix;
      task->on(narrow).status(-89000);
      task->on(wideOp).value(T{5});
      T data{};
      int32 code = 0;
      if (verb.letter == 'G' && c.get) code = c.get(task->handle(), "", &data);
      else if (verb.letter == 'S' && c.set) code = c.set(task->handle(), "", T{5});
      else if (verb.letter == 'R' && c.reset) code = c.reset(task->handle(), "");
      else continue;
      if (!wide) {
        EXPECT_EQ(code, -89000);
        EXPECT_EQ(task->calls().size(), 1u);
        continue;
      }
      ++fallbacks;
      EXPECT_EQ(code, 0);
      ASSERT_EQ(task->calls().size(), 2u);
      EXPECT_EQ(task->calls()[0].op, narrow);
      EXPECT_EQ(task->calls()[1].op, wideOp);
      if (verb.letter == 'G') {
        EXPECT_EQ(data, T{5});
      }
    }
  }
}

TEST(ScalarAccessors, OnlyOffsetAndSizeAccessorsFallBackToTheWideOperation) {
  int fallbacks = 0;
  walkFallback(casesI32(), "Offset", fallbacks);
  walkFallback(casesU32(), "Size", fallbacks);
  walkFallback(casesU32Size(), "Size", fallbacks);
  walkFallback(casesU64(), "Size", fallbacks);
  walkFallback(casesF64(), "Size", fallbacks);
  walkFallback(casesBool(), "Size", fallbacks);
  EXPECT_EQ(fallbacks, 11);
}

}  // namespace
