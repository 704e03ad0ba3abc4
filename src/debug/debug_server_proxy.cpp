#include "boundary/string_adapter.h"
#include "debug/debug_proxies.h"

namespace zqvorexRedir {

DebugServerProxy::DebugServerProxy(std::shared_ptr<DebugServerApiInterface> api,
                                   std::shared_ptr<IDebugTargetFactory> targetFactory,
                                   uint32_t privilegeLevel, const std::string& name, zqerr_Status* status)
    : api_(api),
      targetFactory_(std::move(targetFactory)),
      server_(api, zqerr::isOpen(status) ? api->createDebugServer(privilegeLevel, name.c_str(), status)
                                         : nullptr) {}

uint32_t DebugServerProxy::getMaxPrivilegeLevel(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  return api_->getMaxPrivilegeLevel(server_.get(), status);
}

void DebugServerProxy::getPipeName(std::string& text, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  text.clear();
  zqgopher::StringAdapter adapter(text);
  api_->getPipeName(server_.get(), adapter.boundary(), status);
}

std::shared_ptr<IDebugTarget> DebugServerProxy::createDebugTarget(
    const std::string& taskName, const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status) {
  if (!zqerr::isOpen(status) || !targetFactory_) return {};
  return targetFactory_->createDebugTarget(*this, taskName, callbacks, status);
}

}  // namespace zqvorexRedir
