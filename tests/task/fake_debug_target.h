// A debug target that records the operations it receives and tells when it is destroyed, and
// whether the task's lock was still held then.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "debug/debug_interfaces.h"

namespace zqtest {

class FakeDebugTarget final : public zqvorexRedir::IDebugTarget {
 public:
  explicit FakeDebugTarget(std::function<void()> onDestroy = {}) : onDestroy_(std::move(onDestroy)) {}
  ~FakeDebugTarget() override {
    if (onDestroy_) onDestroy_();
  }
  std::vector<std::string> calls;

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
  void setEventsEnabled(bool on, zqerr_Status*) override { calls.push_back(on ? "events:on" : "events:off"); }
  void setTimingSourcesEnabled(bool, zqerr_Status*) override { calls.push_back("timingSources"); }
  void setLoggingEnabled(bool on, zqerr_Status*) override { calls.push_back(on ? "logging:on" : "logging:off"); }
  void revokeControl(bool revoke, zqerr_Status*) override { calls.push_back(revoke ? "revoke:true" : "revoke:false"); }
  void clearCachedSamples(uint32_t, zqerr_Status*) override { calls.push_back("clearCachedSamples"); }
#define ZQTEST_CACHE_OP(op, Buffer) \
  void op ZQ_DEBUG_CACHE_PARAMETERS(Buffer) override {                                                   \
    (void)channelKind, (void)formatCode, (void)buffer, (void)layout, (void)status, (void)callerStatus; \
    (void)count;                                                                                        \
    calls.push_back(#op);                                                                               \
  }
  ZQ_DEBUG_CACHE_OPERATIONS(ZQTEST_CACHE_OP)
#undef ZQTEST_CACHE_OP

 private:
  std::function<void()> onDestroy_;
};

}  // namespace zqtest
