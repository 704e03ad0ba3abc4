// The library's lists filled by a plug-in written in C (c_plugin.c), through the published
// tables only. The C plug-in's reads and writes run in allocation_test.cpp; that they land in
// the caller's own memory is read back in the buffer tests (the data entries are its array).
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "boundary/item_adder_adapter.h"
#include "c_plugin.h"
#include "status/status.h"

namespace {

using namespace zqgopher;

TEST(CPlugin, ListsOfEveryElementType) {
  std::vector<std::string> names;
  std::vector<double> reals;
  std::vector<int32_t> integers{99};
  ItemAdderAdapter<std::string> n(names);
  ItemAdderAdapter<double> r(reals);
  ItemAdderAdapter<int32_t> i(integers);
  zqerr::Status status;
  cplug_addNames(n.boundary(), &status);
  cplug_addReals(r.boundary(), &status);
  cplug_addIntegers(i.boundary(), &status);
  EXPECT_EQ(names, (std::vector<std::string>{"ai0", "ai1", "ai2"}));
  EXPECT_EQ(reals, (std::vector<double>{0.5, 1.5, 2.5}));
  EXPECT_EQ(integers, (std::vector<int32_t>{-1, 7, 42}));
  EXPECT_EQ(status.code, 0);
}

}  // namespace
