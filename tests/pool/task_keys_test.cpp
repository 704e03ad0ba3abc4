#include "pool/task_keys.h"

#include <gtest/gtest.h>

namespace {

struct HashCase {
  const char* name;
  uint64_t hash;
};

TEST(TaskNameHash, IsTheTimes33HashOfTheFoldedNameMixed) {
  // Computed apart from this code: times 33 from 5381 over the folded units, then the mix.
  const HashCase cases[] = {
      {"", 0x41b4fa74836982acull},
      {"mytask", 0xcd06ad08b7ebc764ull},
      {"MyTask", 0xcd06ad08b7ebc764ull},
      {"TASK1", 0xade0be4eb7954cf8ull},
      {"stra\xC3\x9F" "e", 0xe99fe3a5a7a10d8dull},  // the sharp s folds to two units
      {"\xC3\x89T\xC3\x89", 0x904faf55e1e54812ull},
  };
  for (const HashCase& c : cases) EXPECT_EQ(nZQCAI100::taskNameHash(c.name), c.hash) << c.name;
}

TEST(TaskAddressHash, MixesTheAddressPlusItsEighth) {
  EXPECT_EQ(nZQCAI100::taskAddressHash(reinterpret_cast<const void*>(uintptr_t{0x7f0012345678})),
            0x4ea159b9ee9347c1ull);
}

}  // namespace
