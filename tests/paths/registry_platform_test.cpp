// The registry calls of the platform layer keep the Windows semantics on both systems: the same
// cases run against the real registry on Windows and against the registry file on Linux.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/platform.h"
#include "scratch_registry.h"

namespace {

using zqtest::ScratchRegistry;
using namespace zqplatform;

class RegistryCalls : public testing::Test {
 protected:
  void SetUp() override {
    registry_.setString(ScratchRegistry::View::k64, "SOFTWARE\\Maker\\Deep\\Key", "Name", "value");
    registry_.setString(ScratchRegistry::View::k64, "SOFTWARE\\Maker\\Deep\\Key", "", "default");
  }
  ScratchRegistry registry_{ScratchRegistry::Scope::kPrivate};
};

struct OpenCase {
  const char16_t* path;
  uint32_t result;
};

TEST_F(RegistryCalls, OpenFindsKeysWithoutRegardToCaseAndKeysMadeOnTheWayDown) {
  const OpenCase cases[] = {
      {u"SOFTWARE\\Maker\\Deep\\Key", kErrorSuccess},
      {u"software\\maker\\deep\\KEY", kErrorSuccess},
      {u"SOFTWARE\\Maker\\Deep", kErrorSuccess},  // exists because a key below it does
      {u"SOFTWARE\\Maker\\Deep\\Ke", kErrorFileNotFound},
      {u"SOFTWARE\\Maker\\Deep\\Key\\Below", kErrorFileNotFound},
      {u"SOFTWARE\\Other", kErrorFileNotFound},
  };
  for (const OpenCase& c : cases) {
    RegistryKey key = 0;
    EXPECT_EQ(regOpenKey(kHkeyLocalMachine, c.path, kKeyRead, &key), c.result);
    EXPECT_EQ(key != 0, c.result == kErrorSuccess);
    if (key) {
      EXPECT_EQ(regCloseKey(key), kErrorSuccess);
    }
  }
}

TEST_F(RegistryCalls, QueryFollowsTheSizeProtocol) {
  RegistryKey parent = 0, key = 0;
  ASSERT_EQ(regOpenKey(kHkeyLocalMachine, u"SOFTWARE\\Maker", kKeyRead, &parent), kErrorSuccess);
  ASSERT_EQ(regOpenKey(parent, u"Deep\\Key", kKeyRead, &key), kErrorSuccess);  // relative to an open key
  const std::u16string value = u"value";
  const auto needed = static_cast<uint32_t>((value.size() + 1) * 2);
  // Too small a buffer and an absent value are the shared folder reads' own cases.
  uint32_t type = 0, size = 0;
  EXPECT_EQ(regQueryValue(key, u"Name", &type, nullptr, &size), kErrorSuccess);  // the size alone
  EXPECT_EQ(size, needed);
  EXPECT_EQ(type, kRegSz);
  std::vector<char16_t> data(32, u'#');
  size = 64;
  EXPECT_EQ(regQueryValue(key, u"name", &type, data.data(), &size), kErrorSuccess);  // without regard to case
  EXPECT_EQ(size, needed);
  EXPECT_EQ(std::u16string(data.data(), value.size() + 1), value + u'\0');
  for (const char16_t* defaultName : {static_cast<const char16_t*>(nullptr), u""}) {
    char16_t data[16] = {};
    uint32_t size = sizeof data;
    EXPECT_EQ(regQueryValue(key, defaultName, nullptr, data, &size), kErrorSuccess);
    EXPECT_EQ(std::u16string(data), u"default");
  }
  EXPECT_EQ(regCloseKey(key), kErrorSuccess);
  EXPECT_EQ(regCloseKey(parent), kErrorSuccess);
}

}  // namespace
