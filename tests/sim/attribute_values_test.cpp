// Attribute values and the table: stores survive the text of a saved task, the table is
// consistent, and rates come out as the timebase can make them.
#include <gtest/gtest.h>

#include <set>

#include "attribute_table.h"
#include "attributes.h"
#include "sim_values.h"

namespace zqsim {
namespace {

TEST(AttributeStore, ComesBackWhole) {
  Store store;
  store[0x1344] = Value::f64(1234.5678901234567);
  store[0x1300] = Value::i32(-7);
  store[0x1310] = Value::u64(0xFFFFFFFFFFFFull);
  store[0x1852] = Value::string("/Dev;1/a=b:c, d%e ü");
  store[0x0584] = Value::strings({"/SimDev1/PFI3", "x,y", ""});
  store[0x2F8E] = Value::f64s({0, -1.5, 1e-300});
  store[0x3122] = Value::i32s({10280, -1});
  store[0x0068] = Value::boolean(true);
  const std::string text = encodeStore(store);
  for (char c : text) ASSERT_TRUE(c > 0x20 && c < 0x7F) << "printable without blanks: " << text;
  const auto decoded = decodeStore(text);
  ASSERT_TRUE(decoded) << text;
  EXPECT_EQ(*decoded, store);
  EXPECT_EQ(decodeStore("")->size(), 0u);
}

class DamagedStore : public testing::TestWithParam<const char*> {};

TEST_P(DamagedStore, IsRefused) { EXPECT_FALSE(decodeStore(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Texts, DamagedStore,
                         testing::Values("garbage", "0x10=i32:abc", "0x10=zz:1", "0x10:i32=1", "0x10=str:%4",
                                         "0x10=f64:1;0x11=u32:-1", "0xFFFFFFFFF=i32:1"));

TEST(AttributeTable, HasEachIdOnceWithItsStartValueAllowed) {
  std::set<int32_t> ids;
  for (const AttrDef& def : allAttributes()) {
    EXPECT_TRUE(ids.insert(def.id).second) << def.name;
    EXPECT_EQ(findAttribute(def.id), &def);
    if (!def.allowed.empty() && def.scope != Scope::kChannel) {
      bool found = false;
      for (int32_t v : def.allowed) found = found || v == static_cast<int32_t>(def.initial);
      EXPECT_TRUE(found) << def.name;
    }
    EXPECT_LE(def.min, def.max) << def.name;
  }
  EXPECT_EQ(findAttribute(0x0062), nullptr) << "an attribute the device lacks";
}

struct RateCase {
  double asked;
  double made;
};

class Rates : public testing::TestWithParam<RateCase> {};

TEST_P(Rates, AreTheTimebaseDividedByAWholeNumber) {
  EXPECT_DOUBLE_EQ(coerceRate(GetParam().asked), GetParam().made);
}

INSTANTIATE_TEST_SUITE_P(Values, Rates,
                         testing::Values(RateCase{1e8, 1e8}, RateCase{2e8, 1e8}, RateCase{1000, 1000},
                                         RateCase{3e7, 1e8 / 3}, RateCase{2.4e7, 2.5e7},
                                         RateCase{48000, 1e8 / 2083}, RateCase{3333, 1e8 / 30003},
                                         RateCase{7e5, 1e8 / 143}, RateCase{0.3, 1e8 / 333333333}));

// The list and the lower end of a range are refused through the task in the drive tests.
TEST(CheckValue, RefusesWhatLiesAboveTheRange) {
  LocalStatus status;
  EXPECT_FALSE(checkValue(*findAttribute(Vorex_COPulseDutyCyc), Value::f64(1.0), &status));
  EXPECT_EQ(status.code, nZQMDEV::kErrorValueOutOfRange);
  EXPECT_TRUE(checkValue(*findAttribute(Vorex_COPulseDutyCyc), Value::f64(0.5), &status));
}

}  // namespace
}  // namespace zqsim
