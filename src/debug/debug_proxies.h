// The library's servers and targets as objects: each holds the bound table and its handle, and
// forwards with the handle in front. The handle owners keep the library loaded while a handle
// lives and destroy the handle with a status of their own.
#pragma once

#include <memory>

#include "debug/debug_interfaces.h"
#include "debug/debug_server_api.h"

namespace zqvorexRedir {

template <class Handle, void (DebugServerApiInterface::*Destroy)(Handle*, zqerr_Status*)>
class DebugHandleOwner {
 public:
  DebugHandleOwner(std::shared_ptr<DebugServerApiInterface> api, Handle* handle) noexcept
      : api_(std::move(api)), handle_(handle) {}
  ~DebugHandleOwner() {
    if (!handle_) return;
    zqerr::Status local;
    ((*api_).*Destroy)(handle_, &local);
  }
  DebugHandleOwner(const DebugHandleOwner&) = delete;
  DebugHandleOwner& operator=(const DebugHandleOwner&) = delete;
  Handle* get() const noexcept { return handle_; }

 private:
  std::shared_ptr<DebugServerApiInterface> api_;
  Handle* handle_;
};

using DebugServerHandle =
    DebugHandleOwner<zqvorexDebugServer_Server, &DebugServerApiInterface::destroyDebugServer>;
using DebugTargetHandle =
    DebugHandleOwner<zqvorexDebugServer_Target, &DebugServerApiInterface::destroyDebugTarget>;

class DebugServerProxy final : public IDebugServer {
 public:
  DebugServerProxy(std::shared_ptr<DebugServerApiInterface> api,
                   std::shared_ptr<IDebugTargetFactory> targetFactory, uint32_t privilegeLevel,
                   const std::string& name, zqerr_Status* status);
  DebugServerProxy(const DebugServerProxy&) = delete;
  DebugServerProxy& operator=(const DebugServerProxy&) = delete;

  uint32_t getMaxPrivilegeLevel(zqerr_Status* status) override;
  void getPipeName(std::string& text, zqerr_Status* status) override;
  std::shared_ptr<IDebugTarget> createDebugTarget(const std::string& taskName,
                                                  const zqvorexDebugServer_Callbacks* callbacks,
                                                  zqerr_Status* status) override;

  const std::shared_ptr<DebugServerApiInterface>& api() const noexcept { return api_; }
  zqvorexDebugServer_Server* handle() const noexcept { return server_.get(); }

 private:
  std::shared_ptr<DebugServerApiInterface> api_;
  std::shared_ptr<IDebugTargetFactory> targetFactory_;
  DebugServerHandle server_;
};

class DebugTargetProxy final : public IDebugTarget {
 public:
  // Makes the target on `server` of the library for the task `taskName`.
  DebugTargetProxy(std::shared_ptr<DebugServerApiInterface> api, zqvorexDebugServer_Server* server,
                   const std::string& taskName, const zqvorexDebugServer_Callbacks* callbacks,
                   zqerr_Status* status);
  DebugTargetProxy(const DebugTargetProxy&) = delete;
  DebugTargetProxy& operator=(const DebugTargetProxy&) = delete;

  void getTaskName(std::string& text, zqerr_Status* status) override;
  void getPluginName(std::string& text, zqerr_Status* status) override;
  void setPluginName(const std::string& name, zqerr_Status* status) override;
  zqvorexPlugin_Task_undefined* getPluginTask(zqerr_Status* status) override;
  void setPluginTask(zqvorexPlugin_Task_undefined* pluginTask, zqerr_Status* status) override;
  void getDevices(std::vector<std::string>& list, zqerr_Status* status) override;
  void setDevices(const zqgopher::StringArrayView& list, zqerr_Status* status) override;
  void addDevices(const zqgopher::StringArrayView& list, zqerr_Status* status) override;
  void removeDevices(const zqgopher::StringArrayView& list, zqerr_Status* status) override;
  void getPhysicalChannels(std::vector<std::string>& list, zqerr_Status* status) override;
  void setPhysicalChannels(const zqgopher::StringArrayView& list, zqerr_Status* status) override;
  void addPhysicalChannels(const zqgopher::StringArrayView& list, zqerr_Status* status) override;
  void removePhysicalChannels(const zqgopher::StringArrayView& list, zqerr_Status* status) override;
  void setEventsEnabled(bool enabled, zqerr_Status* status) override;
  void setTimingSourcesEnabled(bool enabled, zqerr_Status* status) override;
  void setLoggingEnabled(bool enabled, zqerr_Status* status) override;
  void revokeControl(bool revoke, zqerr_Status* status) override;
  void clearCachedSamples(uint32_t value, zqerr_Status* status) override;
#define ZQ_DEBUG_CACHE_DECLARE(op, Buffer) void op ZQ_DEBUG_CACHE_PARAMETERS(Buffer) override;
  ZQ_DEBUG_CACHE_OPERATIONS(ZQ_DEBUG_CACHE_DECLARE)
#undef ZQ_DEBUG_CACHE_DECLARE

  zqvorexDebugServer_Target* handle() const noexcept { return target_.get(); }

 private:
  std::shared_ptr<DebugServerApiInterface> api_;
  DebugTargetHandle target_;
};

}  // namespace zqvorexRedir
