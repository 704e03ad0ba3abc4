// One server for the whole process: the default request is cached, others are not, and a
// failed creation leaves nothing behind.
#include <gtest/gtest.h>

#include "test_sites.h"
#include "debug/debug_server_factory.h"
#include "zqvorex_status_codes.h"

namespace zqvorexRedir {
namespace {

struct CacheCase {
  const char* label;
  uint32_t level;
  const char* name;
  bool shared;
};

class ServerCacheTest : public ::testing::TestWithParam<CacheCase> {};

TEST_P(ServerCacheTest, RepeatedRequests) {
  auto inner = std::make_shared<DebugServerFactory>("zqvorexDebugServer");
  auto cache = std::make_shared<DebugServerFactoryWithCache>(inner);
  zqerr::Status status;
  auto first = cache->createDebugServer(GetParam().level, GetParam().name, &status);
  auto second = cache->createDebugServer(GetParam().level, GetParam().name, &status);
  ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first == second, GetParam().shared);
  EXPECT_EQ(first->getMaxPrivilegeLevel(&status), GetParam().level);
}

INSTANTIATE_TEST_SUITE_P(
    Requests, ServerCacheTest,
    ::testing::Values(CacheCase{"DefaultIsShared", 2, "", true}, CacheCase{"OtherLevel", 1, "", false},
                      CacheCase{"Named", 2, "probe", false}, CacheCase{"NamedOtherLevel", 3, "probe", false}),
    [](const ::testing::TestParamInfo<CacheCase>& info) { return std::string(info.param.label); });

// Fails the first request, serves the later ones with fresh servers.
class FlakyFactory : public IDebugServerFactory {
 public:
  explicit FlakyFactory(std::shared_ptr<IDebugServerFactory> real) : real_(std::move(real)) {}
  std::shared_ptr<IDebugServer> createDebugServer(uint32_t level, const std::string& name,
                                                  zqerr_Status* status) override {
    if (++requests == 1) {
      ZQ_TEST_FAIL(status, zqapalerr_memoryFull, "flaky", 1);
      return {};
    }
    return real_->createDebugServer(level, name, status);
  }
  int requests = 0;

 private:
  std::shared_ptr<IDebugServerFactory> real_;
};

TEST(ServerCacheFailureTest, FailedCreationIsNotCached) {
  auto flaky = std::make_shared<FlakyFactory>(std::make_shared<DebugServerFactory>("zqvorexDebugServer"));
  DebugServerFactoryWithCache cache(flaky);
  zqerr::Status failed;
  EXPECT_FALSE(cache.createDebugServer(2, "", &failed));
  EXPECT_EQ(failed.code, zqapalerr_memoryFull);

  zqerr::Status status;
  auto server = cache.createDebugServer(2, "", &status);
  auto again = cache.createDebugServer(2, "", &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_TRUE(server);
  EXPECT_EQ(server, again);
  EXPECT_EQ(flaky->requests, 2);
}

}  // namespace
}  // namespace zqvorexRedir
