// Numbers and names for unnamed tasks, from the task catalog: consecutive, kept in the store,
// and the name carries the number in upper-case hexadecimal.
#include <gtest/gtest.h>

#include <cstdio>

#include "scopes.h"
#include "test_support.h"

namespace zqtest {
namespace {

std::string hexName(uint64_t number) {
  char text[64];
  std::snprintf(text, sizeof text, "_unnamedTask<%llX>", static_cast<unsigned long long>(number));
  return text;
}

TEST(TaskCatalog, NumbersCountFromZeroAcrossNamesAndLastInTheStore) {
  const std::string path = useFreshStore("catalog");
  zqerr::Status status;
  EXPECT_EQ(api().generateTaskNumber(&status), 0u);
  for (uint64_t expected = 1; expected < 11; ++expected) {
    TextOut name;
    api().generateTaskName(name.get(), &status);
    EXPECT_EQ(name.text, hexName(expected));
  }
  EXPECT_EQ(api().generateTaskNumber(&status), 11u);
  // Another store starts again from 0; this one goes on where it stood.
  useFreshStore("catalog_other");
  EXPECT_EQ(api().generateTaskNumber(&status), 0u);
  setEnvironment("ZQCAI_STORAGE_FILE", path);
  EXPECT_EQ(api().generateTaskNumber(&status), 12u);
  EXPECT_EQ(status.code, 0);
}

TEST(TaskCatalog, AFailedStatusOnEntryTakesNoNumber) {
  useFreshStore("catalog_failed");
  zqerr::Status failed;
  failed.code = -1;
  EXPECT_EQ(api().generateTaskNumber(&failed), 0u);
  TextOut name;
  api().generateTaskName(name.get(), &failed);
  EXPECT_EQ(name.text, "");
  zqerr::Status status;
  EXPECT_EQ(api().generateTaskNumber(&status), 0u);
}

}  // namespace
}  // namespace zqtest
