// A debug target that records the operations it receives and tells when it is destroyed, and
// whether the task's lock was still held then.
#pragma once

#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "debug/debug_interfaces.h"

namespace zqtest {

// What a target was handed by one cacheSamples... operation, read while the buffer lived.
struct CachedSamples {
  std::string op;
  uint32_t channelKind = 0;
  uint32_t formatCode = 0;
  const void* buffer = nullptr;
  const zqvorexPlugin_ReadLayout* layout = nullptr;
  const zqerr_Status* callerStatus = nullptr;
  int32_t callerCode = 0;
  uint64_t count = 0;
  uint32_t capabilities = 0;
  uint64_t sampsPerChan = 0;
  std::vector<unsigned char> firstElement;  // the bytes of element 0
};

// Bytes of one element of each hand-over.
inline size_t cachedElementBytes(std::string_view op) {
  if (op.ends_with("F64")) return op.find("And") != std::string_view::npos ? 16 : 8;
  if (op.ends_with("U32")) return op.find("And") != std::string_view::npos ? 8 : 4;
  if (op.ends_with("I32")) return 4;
  if (op.ends_with("I16")) return op.find("And") != std::string_view::npos ? 4 : 2;
  if (op.ends_with("U16")) return 2;
  return 1;
}

template <class Buffer>
CachedSamples describeCached(std::string op, const Buffer* buffer) {
  CachedSamples cached;
  cached.op = std::move(op);
  cached.buffer = buffer;
  if (!buffer) return cached;
  zqerr::Status local;
  cached.capabilities = buffer->table->getCapabilities(buffer);
  cached.sampsPerChan = buffer->table->getNumSampsPerChan(buffer, 0, &local);
  const void* data = buffer->table->getData(buffer, 0, &local);
  if (data && local.code == 0) {
    const auto* bytes = static_cast<const unsigned char*>(data);
    cached.firstElement.assign(bytes, bytes + cachedElementBytes(cached.op));
  }
  return cached;
}

class FakeDebugTarget final : public zqvorexRedir::IDebugTarget {
 public:
  explicit FakeDebugTarget(std::function<void()> onDestroy = {}) : onDestroy_(std::move(onDestroy)) {}
  ~FakeDebugTarget() override {
    if (onDestroy_) onDestroy_();
  }
  std::vector<std::string> calls;
  std::vector<CachedSamples> cached;
  int32_t cacheFailure = 0;          // set by each cacheSamples... into its status
  int32_t eventsEnabledFailure = 0;  // set by setEventsEnabled into its status

  void getTaskName(std::string&, zqerr_Status*) override { calls.push_back("getTaskName"); }
  void getPluginName(std::string&, zqerr_Status*) override { calls.push_back("getPluginName"); }
  void setPluginName(const std::string& name, zqerr_Status*) override { calls.push_back("setPluginName:" + name); }
  zqvorexPlugin_Task_undefined* getPluginTask(zqerr_Status*) override { return nullptr; }
  void setPluginTask(zqvorexPlugin_Task_undefined*, zqerr_Status*) override { calls.push_back("setPluginTask"); }
  void getDevices(std::vector<std::string>&, zqerr_Status*) override { calls.push_back("getDevices"); }
  void setDevices(const zqgopher::StringArrayView&, zqerr_Status*) override { calls.push_back("setDevices"); }
  void addDevices(const zqgopher::StringArrayView&, zqerr_Status*) override { calls.push_back("addDevices"); }
  void removeDevices(const zqgopher::StringArrayView&, zqerr_Status*) override { calls.push_back("removeDevices"); }
  void getPhysicalChannels(std::vector<std::string>&, zqerr_Status*) override { calls.push_back("getChannels"); }
  void setPhysicalChannels(const zqgopher::StringArrayView&, zqerr_Status*) override { calls.push_back("setChannels"); }
  void addPhysicalChannels(const zqgopher::StringArrayView&, zqerr_Status*) override { calls.push_back("addChannels"); }
  void removePhysicalChannels(const zqgopher::StringArrayView&, zqerr_Status*) override {
    calls.push_back("removeChannels");
  }
  void setEventsEnabled(bool on, zqerr_Status* status) override {
    calls.push_back(on ? "events:on" : "events:off");
    if (eventsEnabledFailure != 0 && status->code == 0) status->code = eventsEnabledFailure;
  }
  void setTimingSourcesEnabled(bool, zqerr_Status*) override { calls.push_back("timingSources"); }
  void setLoggingEnabled(bool on, zqerr_Status*) override { calls.push_back(on ? "logging:on" : "logging:off"); }
  void revokeControl(bool revoke, zqerr_Status*) override { calls.push_back(revoke ? "revoke:true" : "revoke:false"); }
  void clearCachedSamples(uint32_t, zqerr_Status*) override { calls.push_back("clearCachedSamples"); }
#define ZQTEST_CACHE_OP(op, Buffer) \
  void op ZQ_DEBUG_CACHE_PARAMETERS(Buffer) override {                                         \
    calls.push_back(#op);                                                                      \
    CachedSamples seen = describeCached(#op, buffer);                                          \
    seen.channelKind = channelKind;                                                            \
    seen.formatCode = formatCode;                                                              \
    seen.layout = layout;                                                                      \
    seen.callerStatus = callerStatus;                                                          \
    seen.callerCode = callerStatus ? callerStatus->code : 0;                                   \
    seen.count = count;                                                                        \
    cached.push_back(std::move(seen));                                                         \
    if (cacheFailure != 0 && status->code == 0) status->code = cacheFailure;                   \
  }
  ZQ_DEBUG_CACHE_OPERATIONS(ZQTEST_CACHE_OP)
#undef ZQTEST_CACHE_OP

 private:
  std::function<void()> onDestroy_;
};

// A debug server, and the factory that hands out that one server, whose targets record.
class FakeDebugServer final : public zqvorexRedir::IDebugServer, public zqvorexRedir::IDebugServerFactory {
 public:
  explicit FakeDebugServer(std::function<void()> onDestroy = {}) : onDestroy_(std::move(onDestroy)) {}
  ~FakeDebugServer() override {
    if (onDestroy_) onDestroy_();
  }
  uint32_t getMaxPrivilegeLevel(zqerr_Status*) override { return 0; }
  void getPipeName(std::string&, zqerr_Status*) override {}
  std::shared_ptr<zqvorexRedir::IDebugTarget> createDebugTarget(const std::string& taskName,
                                                                const zqvorexDebugServer_Callbacks*,
                                                                zqerr_Status*) override {
    targetTaskName = taskName;
    target = std::make_shared<FakeDebugTarget>();
    return target;
  }
  std::shared_ptr<zqvorexRedir::IDebugServer> createDebugServer(uint32_t, const std::string&,
                                                                zqerr_Status*) override {
    return std::shared_ptr<zqvorexRedir::IDebugServer>(this, [](zqvorexRedir::IDebugServer*) {});
  }
  std::string targetTaskName;
  std::shared_ptr<FakeDebugTarget> target;

 private:
  std::function<void()> onDestroy_;
};

}  // namespace zqtest
