#include <gtest/gtest.h>

#include <thread>

#include "platform/platform.h"

namespace {

TEST(Threads, SlotValuesArePerThread) {
  zqplatform::TlsIndex slot = zqplatform::tlsAlloc();
  ASSERT_NE(slot, zqplatform::kTlsOutOfIndexes);
  int mine = 1, theirs = 2;
  ASSERT_TRUE(zqplatform::tlsSetValue(slot, &mine));
  void* seenByOther = &mine;
  std::thread([&] {
    seenByOther = zqplatform::tlsGetValue(slot);
    zqplatform::tlsSetValue(slot, &theirs);
  }).join();
  EXPECT_EQ(seenByOther, nullptr);
  EXPECT_EQ(zqplatform::tlsGetValue(slot), &mine);
  EXPECT_TRUE(zqplatform::tlsFree(slot));
}

TEST(Threads, ThreadIdsDiffer) {
  uint32_t main = zqplatform::currentThreadId();
  uint32_t other = main;
  std::thread([&] { other = zqplatform::currentThreadId(); }).join();
  EXPECT_NE(main, other);
  EXPECT_EQ(main, zqplatform::currentThreadId());
}

TEST(Threads, LastErrorIsPerThread) {
  zqplatform::setLastError(122);
  uint32_t seenByNewThread = 1;
  std::thread([&] {
    seenByNewThread = zqplatform::lastError();
    zqplatform::setLastError(87);
  }).join();
  EXPECT_EQ(seenByNewThread, 0u);
  zqplatform::setLastError(5);
  EXPECT_EQ(zqplatform::lastError(), 5u);
}

TEST(Threads, CriticalSectionIsRecursive) {
  zqplatform::CriticalSection section;
  section.lock();
  section.lock();
  section.unlock();
  section.unlock();
  zqplatform::SlimLock slim;
  slim.lock_shared();
  slim.lock_shared();
  slim.unlock_shared();
  slim.unlock_shared();
  slim.lock();
  slim.unlock();
  SUCCEED();
}

}  // namespace
