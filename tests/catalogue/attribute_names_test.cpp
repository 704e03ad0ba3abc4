#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <set>
#include <string>

#include "attribute_ids.h"
#include "catalogue/attribute_names.h"

namespace {

using zqcatalogue::attributeName;
using zqcatalogue::attributeNameTable;

struct Named {
  int32_t id;
  const char* name;
};

// One or more ids of every class, rows whose accessor base differs from the table's name (the
// table holds the name), accessors without an export, and ids known only by name; then the
// generated constants, which carry the ids of their names.
constexpr Named kNamed[] = {
    {0x186C, "BufInputBufSize"},
    {0x230A, "BufInputOnbrdBufSize"},
    {0x0050, "AIRawSampJustification"},
    {0x21AC, "CIDupCountPrevention"},
    {0x18F5, "PhysicalChanName"},
    {0x1757, "ExportedAdvCmpltEventDelayVal"},
    {0x31DD, "ReadRemoteSenseErrorChansExist"},
    {0x1823, "ReadChannelsToRead"},
    {0x2319, "RealTimeReportMissedSamp"},
    {0x1247, "SwitchScanBreakMode"},
    {0x1276, "TaskName"},
    {0x1848, "AIConvRate"},
    {0x22C9, "AIConvMaxRate"},
    {0x304D, "TimeStartTrigWhen"},
    {0x305D, "WatchdogExpirTrigOnNetworkConnLoss"},
    {0x190C, "RelativeTo"},
    {0x3140, "WriteSyncUnlockedChans"},
    {0x3062, "AOPowerAmpChannelEnable"},
    {0x0011, "ChanActiveChan"},
    {0x0632, "DevDevSerialNum"},
    {0x21A6, "WatchdogActivePhysicalChans"},
    {Vorex_BufInputBufSize, "BufInputBufSize"},
    {Vorex_CIDupCountPrevention, "CIDupCountPrevention"},
    {Vorex_ReadRemoteSenseErrorChans, "ReadRemoteSenseErrorChans"},
    {Vorex_SwitchScanWaitingForAdv, "SwitchScanWaitingForAdv"},
    {Vorex_TaskNumDevices, "TaskNumDevices"},
    {Vorex_DelayFromSampClkDelayUnits, "DelayFromSampClkDelayUnits"},
    {Vorex_TimestampArmStartTrigVal, "TimestampArmStartTrigVal"},
    {Vorex_WatchdogCOExpirState, "WatchdogCOExpirState"},
    {Vorex_RelativeTo, "RelativeTo"},
};

TEST(AttributeName, FindsTheNameOfIdsOfEveryKind) {
  for (const Named& c : kNamed) {
    const char* name = attributeName(c.id);
    ASSERT_NE(name, nullptr) << std::hex << c.id;
    EXPECT_STREQ(name, c.name) << std::hex << c.id;
  }
  // The two attributes without a table row still have their constants.
  EXPECT_EQ(Vorex_SigmodCalEnable, 0x22EA);
  EXPECT_EQ(Vorex_QSeriesLegacyCompatibility, 0x2EC8);
}

TEST(AttributeName, MissesIdsOutsideTheTable) {
  // 0x22EA and 0x2EC8 have accessors but no table row; 0x8000186C would match 0x186C if the
  // search cut the id to fewer bits.
  const int32_t misses[] = {0,      1,      -1,     INT32_MIN, INT32_MAX,
                            0x186E, 0x22EA, 0x2EC8, 0xFFFF,    static_cast<int32_t>(0x8000186Cu)};
  for (int32_t id : misses) EXPECT_EQ(attributeName(id), nullptr) << std::hex << id;
}

TEST(AttributeNameTable, HasEveryRowInCatalogueOrder) {
  const auto table = attributeNameTable();
  ASSERT_EQ(table.size(), 1172u);
  // Four Buffer rows, then the Chan table; the 947 named rows with a table row, then the ids
  // without accessors.
  EXPECT_EQ(table[0].id, 0x186Cu);
  EXPECT_EQ(table[4].id, 0x0050u);
  EXPECT_EQ(table[946].id, 0x3140u);
  EXPECT_STREQ(table[947].name, "AOPowerAmpChannelEnable");
  EXPECT_STREQ(table.back().name, "WatchdogActivePhysicalChans");
}

// The search takes the first row of an id; with no id twice, every row is found as itself.
TEST(AttributeNameTable, EveryRowIsFoundAndNoIdStandsTwice) {
  std::set<uint32_t> ids;
  std::set<std::string> names;
  for (const auto& row : attributeNameTable()) {
    EXPECT_TRUE(ids.insert(row.id).second) << "id twice: " << std::hex << row.id;
    ASSERT_NE(row.name, nullptr);
    EXPECT_TRUE(names.insert(row.name).second) << "name twice: " << row.name;
    EXPECT_EQ(attributeName(static_cast<int32_t>(row.id)), row.name) << row.name;
  }
}

}  // namespace
