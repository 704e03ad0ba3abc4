#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/item_adder_adapter.h"
#include "case_printer.h"
#include "report_items.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqgopher::ItemAdderAdapter;
using Names = std::vector<std::string>;

TEST(ItemAdderAdapter, NumbersAreAppendedOneByOneAndInRanges) {
  std::vector<double> reals{9.0};
  ItemAdderAdapter<double> adapter(reals);
  zqgopher_IItemAdder* a = adapter.boundary();
  const zqgopher_IItemAdderF64Table& t = *a->table.f64;
  zqerr::Status status;
  const double more[] = {2.5, 3.5};

  t.reserve(a, 10, &status);
  EXPECT_GE(reals.capacity(), 11u) << "room beyond the present items";
  t.add(a, 1.5, &status);
  t.addRange(a, more, 2, &status);
  t.addRange(a, nullptr, 0, &status);
  EXPECT_EQ(reals, (std::vector<double>{9.0, 1.5, 2.5, 3.5}));
  t.clear(a, &status);
  EXPECT_TRUE(reals.empty());
  std::vector<int32_t> integers{99};  // each element type has its own table
  ItemAdderAdapter<int32_t> ints(integers);
  const zqgopher_IItemAdderI32Table& i = *ints.boundary()->table.i32;
  const int32_t rest[] = {7, 42};
  i.clear(ints.boundary(), &status);
  i.add(ints.boundary(), -1, &status);
  i.addRange(ints.boundary(), rest, 2, &status);
  EXPECT_EQ(integers, (std::vector<int32_t>{-1, 7, 42}));
  EXPECT_EQ(status.code, 0);
}

// Refusals: the status says zqapalerr_invalidParameter and the list is as it was.
enum class List { texts, reals, integers };

struct Refusal {
  const char* name;
  List list;
  void (*call)(zqgopher_IItemAdder*, zqerr_Status*);
};

class Refused : public testing::TestWithParam<Refusal> {};

TEST_P(Refused, LeavesTheListAlone) {
  Names names{"kept"};
  std::vector<double> reals{1.0};
  std::vector<int32_t> integers{1};
  ItemAdderAdapter<std::string> s(names);
  ItemAdderAdapter<double> f(reals);
  ItemAdderAdapter<int32_t> i(integers);
  zqerr::Status status;
  const List list = GetParam().list;
  zqgopher_IItemAdder* target = list == List::texts ? s.boundary() : list == List::reals ? f.boundary() : i.boundary();
  GetParam().call(target, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(zqtest::member(status, "file"), R"("zqgopher/ItemAdderAdapter")");
  EXPECT_EQ(names, Names{"kept"});
  EXPECT_EQ(reals, std::vector<double>{1.0});
  EXPECT_EQ(integers, std::vector<int32_t>{1});
}

INSTANTIATE_TEST_SUITE_P(
    ItemAdderAdapter, Refused,
    testing::Values(
        Refusal{"TextNull", List::texts, [](zqgopher_IItemAdder* a, zqerr_Status* st) { a->table.strings->add(a, nullptr, st); }},
        Refusal{"TextRangeNullItems", List::texts,
                [](zqgopher_IItemAdder* a, zqerr_Status* st) { a->table.strings->addRange(a, nullptr, 1, st); }},
        Refusal{"TextRangeNullInTheMiddle", List::texts,
                [](zqgopher_IItemAdder* a, zqerr_Status* st) {
                  const char* const items[] = {"a", nullptr, "c"};
                  a->table.strings->addRange(a, items, 3, st);
                }},
        Refusal{"TextRangeNullAtTheEnd", List::texts,
                [](zqgopher_IItemAdder* a, zqerr_Status* st) {
                  const char* const items[] = {"a", "b", nullptr};
                  a->table.strings->addRange(a, items, 3, st);
                }},
        Refusal{"RealRangeNullItems", List::reals,
                [](zqgopher_IItemAdder* a, zqerr_Status* st) { a->table.f64->addRange(a, nullptr, 2, st); }},
        Refusal{"IntegerRangeNullItems", List::integers,
                [](zqgopher_IItemAdder* a, zqerr_Status* st) { a->table.i32->addRange(a, nullptr, 2, st); }}),
    [](const auto& info) { return info.param.name; });

TEST(ItemAdderAdapter, EveryEntryIsANoOpOnAFailedStatus) {
  Names names{"kept"};
  std::vector<double> reals{1.0};
  std::vector<int32_t> integers{1};
  ItemAdderAdapter<std::string> s(names);
  ItemAdderAdapter<double> f(reals);
  ItemAdderAdapter<int32_t> i(integers);
  zqerr::Status status;
  zqtest::fail(&status);
  const char* const texts[] = {"x"};
  const double doubles[] = {2.0};
  const int32_t ints[] = {2};
  zqgopher_IItemAdder* a = s.boundary();
  a->table.strings->reserve(a, 100, &status);
  a->table.strings->add(a, "x", &status);
  a->table.strings->addRange(a, texts, 1, &status);
  a->table.strings->clear(a, &status);
  f.boundary()->table.f64->add(f.boundary(), 2.0, &status);
  f.boundary()->table.f64->addRange(f.boundary(), doubles, 1, &status);
  f.boundary()->table.f64->clear(f.boundary(), &status);
  i.boundary()->table.i32->add(i.boundary(), 2, &status);
  i.boundary()->table.i32->addRange(i.boundary(), ints, 1, &status);
  i.boundary()->table.i32->clear(i.boundary(), &status);
  EXPECT_EQ(names, Names{"kept"});
  EXPECT_EQ(reals, std::vector<double>{1.0});
  EXPECT_EQ(integers, std::vector<int32_t>{1});
  EXPECT_LT(names.capacity(), 100u);
  EXPECT_EQ(status.code, -1);
}

TEST(ItemAdderAdapter, AnImpossibleReservationBecomesAStatusNotAnException) {
  std::vector<double> reals{1.0};
  ItemAdderAdapter<double> adapter(reals);
  zqerr::Status status;
  adapter.boundary()->table.f64->reserve(adapter.boundary(), UINT64_MAX, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_NE(zqtest::member(status, "std_exception_what"), "<none>");
  EXPECT_EQ(reals, std::vector<double>{1.0});
}

}  // namespace
