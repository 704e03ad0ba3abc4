#include "debug/debug_server_factory.h"

#include <mutex>
#include <new>

#include "binding/load_library.h"
#include "debug/debug_proxies.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

namespace {

constexpr zqdynlib::LenientSites kDebugServerSites{zqsite::kDebugServerLibraryNotPresent.location,
                                                   zqsite::kDebugServerLibraryMemoryFull.location};

}  // namespace

std::shared_ptr<DebugServerApi> DebugServerFactory::library(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return {};
  std::unique_lock guard(lock_);
  if (!api_)
    api_ = zqdynlib::loadLenientLibrary<DebugServerApi>(libraryPath_.c_str(), status, kDebugServerPrefix,
                                                        kDebugServerSites);
  return api_;
}

std::shared_ptr<IDebugServer> DebugServerFactory::createDebugServer(uint32_t privilegeLevel,
                                                                    const std::string& name,
                                                                    zqerr_Status* status) {
  std::shared_ptr<DebugServerApi> api = library(status);
  if (!api) return {};
  // Without an owner of this factory the server still works, but makes no targets.
  auto* proxy =
      new (std::nothrow) DebugServerProxy(api, weak_from_this().lock(), privilegeLevel, name, status);
  if (!proxy) {
    ZQ_FAIL(status, kDebugserverfactoryMemoryFull);
    return {};
  }
  std::shared_ptr<IDebugServer> server(proxy);
  if (!zqerr::isOpen(status)) return {};
  return server;
}

std::shared_ptr<IDebugTarget> DebugServerFactory::createDebugTarget(
    IDebugServer& server, const std::string& taskName, const zqvorexDebugServer_Callbacks* callbacks,
    zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return {};
  auto* proxy = dynamic_cast<DebugServerProxy*>(&server);
  if (!proxy) return {};
  auto* target =
      new (std::nothrow) DebugTargetProxy(proxy->api(), proxy->handle(), taskName, callbacks, status);
  if (!target) {
    ZQ_FAIL(status, kDebugserverfactoryMemoryFull112);
    return {};
  }
  std::shared_ptr<IDebugTarget> result(target);
  if (!zqerr::isOpen(status)) return {};
  return result;
}

std::shared_ptr<IDebugServer> DebugServerFactoryWithCache::createDebugServer(uint32_t privilegeLevel,
                                                                             const std::string& name,
                                                                             zqerr_Status* status) {
  if (!zqerr::isOpen(status) || !inner_) return {};
  if (privilegeLevel != kSharedServerPrivilegeLevel || !name.empty())
    return inner_->createDebugServer(privilegeLevel, name, status);
  std::unique_lock guard(lock_);
  if (cached_) return cached_;
  std::shared_ptr<IDebugServer> server = inner_->createDebugServer(privilegeLevel, name, status);
  if (zqerr::isOpen(status)) cached_ = server;
  return server;
}

}  // namespace zqvorexRedir
