#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "debug/debug_proxies.h"

namespace zqvorexRedir {

DebugTargetProxy::DebugTargetProxy(std::shared_ptr<DebugServerApiInterface> api,
                                   zqvorexDebugServer_Server* server, const std::string& taskName,
                                   const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status)
    : api_(api),
      target_(api, zqerr::isOpen(status) ? api->createDebugTarget(server, taskName.c_str(), callbacks, status)
                                         : nullptr) {}

void DebugTargetProxy::getTaskName(std::string& text, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  text.clear();
  zqgopher::StringAdapter adapter(text);
  api_->getTaskName(target_.get(), adapter.boundary(), status);
}

void DebugTargetProxy::getPluginName(std::string& text, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  text.clear();
  zqgopher::StringAdapter adapter(text);
  api_->getPluginName(target_.get(), adapter.boundary(), status);
}

void DebugTargetProxy::setPluginName(const std::string& name, zqerr_Status* status) {
  if (zqerr::isOpen(status)) api_->setPluginName(target_.get(), name.c_str(), status);
}

zqvorexPlugin_Task_undefined* DebugTargetProxy::getPluginTask(zqerr_Status* status) {
  return zqerr::isOpen(status) ? api_->getPluginTask(target_.get(), status) : nullptr;
}

void DebugTargetProxy::setPluginTask(zqvorexPlugin_Task_undefined* pluginTask, zqerr_Status* status) {
  if (zqerr::isOpen(status)) api_->setPluginTask(target_.get(), pluginTask, status);
}

#define ZQ_DEBUG_LIST_GET(op)                                                       \
  void DebugTargetProxy::op(std::vector<std::string>& list, zqerr_Status* status) { \
    if (!zqerr::isOpen(status)) return;                                             \
    list.clear();                                                                   \
    zqgopher::ItemAdderAdapter<std::string> adapter(list);                          \
    api_->op(target_.get(), adapter.boundary(), status);                            \
  }
#define ZQ_DEBUG_LIST_SET(op)                                                              \
  void DebugTargetProxy::op(const zqgopher::StringArrayView& list, zqerr_Status* status) { \
    if (zqerr::isOpen(status)) api_->op(target_.get(), list.boundary(), status);           \
  }
#define ZQ_DEBUG_FLAG(op, Value)                                       \
  void DebugTargetProxy::op(Value value, zqerr_Status* status) {       \
    if (zqerr::isOpen(status)) api_->op(target_.get(), value, status); \
  }

ZQ_DEBUG_LIST_GET(getDevices)
ZQ_DEBUG_LIST_SET(setDevices)
ZQ_DEBUG_LIST_SET(addDevices)
ZQ_DEBUG_LIST_SET(removeDevices)
ZQ_DEBUG_LIST_GET(getPhysicalChannels)
ZQ_DEBUG_LIST_SET(setPhysicalChannels)
ZQ_DEBUG_LIST_SET(addPhysicalChannels)
ZQ_DEBUG_LIST_SET(removePhysicalChannels)
ZQ_DEBUG_FLAG(setEventsEnabled, bool)
ZQ_DEBUG_FLAG(setTimingSourcesEnabled, bool)
ZQ_DEBUG_FLAG(setLoggingEnabled, bool)
ZQ_DEBUG_FLAG(revokeControl, bool)
ZQ_DEBUG_FLAG(clearCachedSamples, uint32_t)

// The status goes last at the library, after the caller's.
#define ZQ_DEBUG_CACHE_DEFINE(op, Buffer)                                                            \
  void DebugTargetProxy::op(uint32_t channelKind, uint32_t formatCode, const Buffer* buffer,         \
                            const zqvorexPlugin_ReadLayout* layout, zqerr_Status* status,            \
                            const zqerr_Status* callerStatus, uint64_t count) {                      \
    if (zqerr::isOpen(status))                                                                       \
      api_->op(target_.get(), channelKind, formatCode, buffer, layout, callerStatus, count, status); \
  }
ZQ_DEBUG_CACHE_OPERATIONS(ZQ_DEBUG_CACHE_DEFINE)

}  // namespace zqvorexRedir
