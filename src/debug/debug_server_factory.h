// The factories that tasks ask for a debug server. The plain factory loads the library at the
// first request; the caching one hands all default requests the one server of the process.
#pragma once

#include <memory>
#include <shared_mutex>
#include <string>

#include "debug/debug_interfaces.h"
#include "debug/debug_server_api.h"

namespace zqvorexRedir {

// The request that the cache serves: the default privilege level and no name.
inline constexpr uint32_t kSharedServerPrivilegeLevel = 2;

class DebugServerFactory final : public IDebugServerFactory,
                                 public IDebugTargetFactory,
                                 public std::enable_shared_from_this<DebugServerFactory> {
 public:
  explicit DebugServerFactory(std::string libraryPath) : libraryPath_(std::move(libraryPath)) {}

  std::shared_ptr<IDebugServer> createDebugServer(uint32_t privilegeLevel, const std::string& name,
                                                  zqerr_Status* status) override;
  std::shared_ptr<IDebugTarget> createDebugTarget(IDebugServer& server, const std::string& taskName,
                                                  const zqvorexDebugServer_Callbacks* callbacks,
                                                  zqerr_Status* status) override;

  // The bound library, loaded on first use; empty when it cannot be had.
  std::shared_ptr<DebugServerApi> library(zqerr_Status* status);

 private:
  std::string libraryPath_;
  std::shared_mutex lock_;
  std::shared_ptr<DebugServerApi> api_;
};

class DebugServerFactoryWithCache final : public IDebugServerFactory,
                                          public std::enable_shared_from_this<DebugServerFactoryWithCache> {
 public:
  explicit DebugServerFactoryWithCache(std::shared_ptr<IDebugServerFactory> inner)
      : inner_(std::move(inner)) {}

  std::shared_ptr<IDebugServer> createDebugServer(uint32_t privilegeLevel, const std::string& name,
                                                  zqerr_Status* status) override;

 private:
  std::shared_ptr<IDebugServerFactory> inner_;
  std::shared_mutex lock_;
  std::shared_ptr<IDebugServer> cached_;
};

}  // namespace zqvorexRedir
