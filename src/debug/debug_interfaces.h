// The object model around a debug server: a server hands out targets, one for each watched
// task, and factories make both. Text is UTF-8; every operation takes the status last.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "boundary/array_view.h"
#include "status/status.h"
#include "zqvorex_debugserver.h"

namespace zqvorexRedir {

class IDebugTarget;

class IDebugServer {
 public:
  virtual ~IDebugServer() = default;
  virtual uint32_t getMaxPrivilegeLevel(zqerr_Status* status) = 0;
  // Empties `text`, then fills it.
  virtual void getPipeName(std::string& text, zqerr_Status* status) = 0;
  virtual std::shared_ptr<IDebugTarget> createDebugTarget(const std::string& taskName,
                                                          const zqvorexDebugServer_Callbacks* callbacks,
                                                          zqerr_Status* status) = 0;
};

// The parameters of the thirteen sample hand-overs, the status before the caller's.
#define ZQ_DEBUG_CACHE_PARAMETERS(Buffer)                                                                   \
  (uint32_t channelKind, uint32_t formatCode, const Buffer* buffer, const zqvorexPlugin_ReadLayout* layout, \
   zqerr_Status* status, const zqerr_Status* callerStatus, uint64_t count)

// X(operation, buffer type) for the thirteen, in table order.
#define ZQ_DEBUG_CACHE_OPERATIONS(X)                                    \
  X(cacheSamplesF64, zqgopher_IArrayBuffer)                             \
  X(cacheSamplesI8, zqgopher_IArrayBuffer)                              \
  X(cacheSamplesI16, zqgopher_IArrayBuffer)                             \
  X(cacheSamplesI32, zqgopher_IArrayBuffer)                             \
  X(cacheSamplesU8, zqgopher_IArrayBuffer)                              \
  X(cacheSamplesU16, zqgopher_IArrayBuffer)                             \
  X(cacheSamplesU32, zqgopher_IArrayBuffer)                             \
  X(cacheSamplesCounterDutyCycleAndFrequencyF64, zqgopher_IArrayBuffer) \
  X(cacheSamplesCounterHighAndLowTimesF64, zqgopher_IArrayBuffer)       \
  X(cacheSamplesCounterHighAndLowTicksU32, zqgopher_IArrayBuffer)       \
  X(cacheSamplesPowerVoltageAndCurrentF64, zqgopher_IArrayBuffer)       \
  X(cacheSamplesPowerVoltageAndCurrentI16, zqgopher_IArrayBuffer)       \
  X(cacheSamplesLineU8, zqgopher_IArrayLineBuffer)

class IDebugTarget {
 public:
  virtual ~IDebugTarget() = default;
  virtual void getTaskName(std::string& text, zqerr_Status* status) = 0;
  virtual void getPluginName(std::string& text, zqerr_Status* status) = 0;
  virtual void setPluginName(const std::string& name, zqerr_Status* status) = 0;
  virtual zqvorexPlugin_Task_undefined* getPluginTask(zqerr_Status* status) = 0;
  virtual void setPluginTask(zqvorexPlugin_Task_undefined* pluginTask, zqerr_Status* status) = 0;
  virtual void getDevices(std::vector<std::string>& list, zqerr_Status* status) = 0;
  virtual void setDevices(const zqgopher::StringArrayView& list, zqerr_Status* status) = 0;
  virtual void addDevices(const zqgopher::StringArrayView& list, zqerr_Status* status) = 0;
  virtual void removeDevices(const zqgopher::StringArrayView& list, zqerr_Status* status) = 0;
  virtual void getPhysicalChannels(std::vector<std::string>& list, zqerr_Status* status) = 0;
  virtual void setPhysicalChannels(const zqgopher::StringArrayView& list, zqerr_Status* status) = 0;
  virtual void addPhysicalChannels(const zqgopher::StringArrayView& list, zqerr_Status* status) = 0;
  virtual void removePhysicalChannels(const zqgopher::StringArrayView& list, zqerr_Status* status) = 0;
  virtual void setEventsEnabled(bool enabled, zqerr_Status* status) = 0;
  virtual void setTimingSourcesEnabled(bool enabled, zqerr_Status* status) = 0;
  virtual void setLoggingEnabled(bool enabled, zqerr_Status* status) = 0;
  virtual void revokeControl(bool revoke, zqerr_Status* status) = 0;
  virtual void clearCachedSamples(uint32_t value, zqerr_Status* status) = 0;
#define ZQ_DEBUG_CACHE_DECLARE(op, Buffer) virtual void op ZQ_DEBUG_CACHE_PARAMETERS(Buffer) = 0;
  ZQ_DEBUG_CACHE_OPERATIONS(ZQ_DEBUG_CACHE_DECLARE)
#undef ZQ_DEBUG_CACHE_DECLARE
};

class IDebugTargetFactory {
 public:
  virtual ~IDebugTargetFactory() = default;
  virtual std::shared_ptr<IDebugTarget> createDebugTarget(IDebugServer& server, const std::string& taskName,
                                                          const zqvorexDebugServer_Callbacks* callbacks,
                                                          zqerr_Status* status) = 0;
};

class IDebugServerFactory {
 public:
  virtual ~IDebugServerFactory() = default;
  virtual std::shared_ptr<IDebugServer> createDebugServer(uint32_t privilegeLevel, const std::string& name,
                                                          zqerr_Status* status) = 0;
};

}  // namespace zqvorexRedir
