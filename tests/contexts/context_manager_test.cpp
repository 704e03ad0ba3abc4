#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "test_sites.h"
#include "contexts/context.h"
#include "contexts/hash_mix.h"

namespace {

using zqvorexRedir::ContextManager;

struct HashCase {
  const char* name;
  uint64_t hash;
};

TEST(ContextNameHash, MatchesTheMultiplicativeHashAndMix) {
  // Values computed independently of this code; the last has a byte above 127, taken as signed.
  const HashCase cases[] = {{"", 0x77cfa1eef01bca90ull},
                            {"a", 0x126d2f0cb4962e4eull},
                            {"Dev1", 0xb293848577cef492ull},
                            {"\xC3\xA9", 0x0d70ac4c61a67b42ull}};
  for (const HashCase& c : cases) EXPECT_EQ(zqvorexRedir::contextNameHash(c.name), c.hash) << c.name;
}

TEST(ContextManager, EmptyNameContextLivesWithTheManager) {
  ContextManager manager;
  zqerr::Status status;
  const void* first = manager.getContext("", &status).get();  // released at once
  auto second = manager.getContext("", &status);
  EXPECT_EQ(second.get(), first);
  EXPECT_EQ(second->getName(), "");
}

TEST(ContextManager, NamedContextLivesAsLongAsItsHolders) {
  ContextManager manager;
  zqerr::Status status;
  auto held = manager.getContext("x", &status);
  EXPECT_EQ(manager.getContext("x", &status), held);
  EXPECT_NE(manager.getContext("X", &status), held) << "names compare by their bytes";
  std::weak_ptr<zqvorexRedir::IContext> watch = held;
  held.reset();
  EXPECT_TRUE(watch.expired());
  auto again = manager.getContext("x", &status);
  EXPECT_EQ(again->getName(), "x");
  EXPECT_EQ(status.code, 0);
}

TEST(ContextManager, FailedStatusGivesNothing) {
  ContextManager manager;
  zqerr::Status status;
  ZQ_TEST_FAIL(&status, -1, "t", 1);
  EXPECT_EQ(manager.getContext("", &status), nullptr);
  EXPECT_EQ(status.code, -1);
}

TEST(ContextManager, ThreadsAskingForOneNameShareOneContext) {
  ContextManager manager;
  zqerr::Status keepStatus;
  auto keep = manager.getContext("shared", &keepStatus);
  std::vector<std::thread> threads;
  std::vector<const void*> seen(8);
  for (size_t i = 0; i < seen.size(); ++i)
    threads.emplace_back([&, i] {
      zqerr::Status status;
      for (int round = 0; round < 200; ++round) manager.getContext("other" + std::to_string(round % 7), &status);
      seen[i] = manager.getContext("shared", &status).get();
    });
  for (auto& t : threads) t.join();
  for (const void* p : seen) EXPECT_EQ(p, keep.get());
}

}  // namespace
