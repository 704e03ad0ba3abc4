// The operations of the debug server, exported as zqvorexDebugServer_<operation>. State is kept
// per server and per target under one lock; no operation calls back into a task.
#include <atomic>
#include <new>
#include <string>

#include "native_export.h"
#include "server_state.h"
#include "zqvorex_status_codes.h"

#define ZQDS_EXPORT extern "C" ZQ_NATIVE_EXPORT

using zqdebugserver::fail;
using zqdebugserver::isOpen;

namespace {

std::atomic<uint32_t> serverNumber{0};

// The common entry test: a clean status and a handle.
template <class Handle>
bool usable(Handle* handle, zqerr_Status* status) {
  if (!isOpen(status)) return false;
  if (!handle) fail(status, zqapalerr_invalidParameter);
  return handle != nullptr;
}

using Guard = std::lock_guard<std::mutex>;

// Nothing leaves an export as an exception: whatever a body throws (in practice a failed
// allocation) becomes this status.
template <class Body>
void guarded(zqerr_Status* status, Body body) noexcept {
  try {
    body();
  } catch (...) {
    fail(status, zqapalerr_memoryFull);
  }
}

}  // namespace

ZQDS_EXPORT zqvorexDebugServer_Server* zqvorexDebugServer_createDebugServer(uint32_t privilegeLevel,
                                                                            const char* name,
                                                                            zqerr_Status* status) {
  if (!isOpen(status)) return nullptr;
  auto* server = new (std::nothrow) zqvorexDebugServer_Server;
  if (!server) {
    fail(status, zqapalerr_memoryFull);
    return nullptr;
  }
  guarded(status, [&] {
    server->state.privilegeLevel = privilegeLevel;
    server->state.name = name ? name : "";
    server->state.pipeName = "zqvorexDebugServer." + std::to_string(++serverNumber) +
                             (server->state.name.empty() ? "" : "." + server->state.name);
  });
  if (isOpen(status)) return server;
  delete server;
  return nullptr;
}

ZQDS_EXPORT void zqvorexDebugServer_destroyDebugServer(zqvorexDebugServer_Server* server,
                                                       zqerr_Status* status) {
  if (usable(server, status)) delete server;
}

ZQDS_EXPORT uint32_t zqvorexDebugServer_getMaxPrivilegeLevel(zqvorexDebugServer_Server* server,
                                                             zqerr_Status* status) {
  return usable(server, status) ? server->state.privilegeLevel : 0;
}

ZQDS_EXPORT void zqvorexDebugServer_getPipeName(zqvorexDebugServer_Server* server, zqgopher_IString* name,
                                                zqerr_Status* status) {
  if (usable(server, status)) guarded(status, [&] { zqdebugserver::fillText(server->state.pipeName, name, status); });
}

ZQDS_EXPORT zqvorexDebugServer_Target* zqvorexDebugServer_createDebugTarget(
    zqvorexDebugServer_Server* server, const char* taskName, const zqvorexDebugServer_Callbacks* callbacks,
    zqerr_Status* status) {
  if (!usable(server, status)) return nullptr;
  auto* target = new (std::nothrow) zqvorexDebugServer_Target;
  if (!target) {
    fail(status, zqapalerr_memoryFull);
    return nullptr;
  }
  guarded(status, [&] { target->state.taskName = taskName ? taskName : ""; });
  target->state.callbacks = callbacks;
  if (isOpen(status)) return target;
  delete target;
  return nullptr;
}

ZQDS_EXPORT void zqvorexDebugServer_destroyDebugTarget(zqvorexDebugServer_Target* target,
                                                       zqerr_Status* status) {
  if (!usable(target, status)) return;
  Guard guard(zqdebugserver::registryLock());
  delete target;
}

ZQDS_EXPORT void zqvorexDebugServer_getTaskName(zqvorexDebugServer_Target* target, zqgopher_IString* name,
                                                zqerr_Status* status) {
  if (!usable(target, status)) return;
  Guard guard(zqdebugserver::registryLock());
  guarded(status, [&] { zqdebugserver::fillText(target->state.taskName, name, status); });
}

ZQDS_EXPORT void zqvorexDebugServer_getPluginName(zqvorexDebugServer_Target* target, zqgopher_IString* name,
                                                  zqerr_Status* status) {
  if (!usable(target, status)) return;
  Guard guard(zqdebugserver::registryLock());
  guarded(status, [&] { zqdebugserver::fillText(target->state.pluginName, name, status); });
}

ZQDS_EXPORT void zqvorexDebugServer_setPluginName(zqvorexDebugServer_Target* target, const char* name,
                                                  zqerr_Status* status) {
  if (!usable(target, status)) return;
  Guard guard(zqdebugserver::registryLock());
  guarded(status, [&] { target->state.pluginName = name ? name : ""; });
}

ZQDS_EXPORT zqvorexPlugin_Task_undefined* zqvorexDebugServer_getPluginTask(zqvorexDebugServer_Target* target,
                                                                           zqerr_Status* status) {
  if (!usable(target, status)) return nullptr;
  Guard guard(zqdebugserver::registryLock());
  return target->state.pluginTask;
}

ZQDS_EXPORT void zqvorexDebugServer_setPluginTask(zqvorexDebugServer_Target* target,
                                                  zqvorexPlugin_Task_undefined* pluginTask,
                                                  zqerr_Status* status) {
  if (!usable(target, status)) return;
  Guard guard(zqdebugserver::registryLock());
  target->state.pluginTask = pluginTask;
}

// The four list operations of one set of names.
#define ZQDS_NAME_SET(Thing, field)                                                                         \
  ZQDS_EXPORT void zqvorexDebugServer_get##Thing(zqvorexDebugServer_Target* target,                         \
                                                 zqgopher_IItemAdder* list, zqerr_Status* status) {         \
    if (!usable(target, status)) return;                                                                    \
    Guard guard(zqdebugserver::registryLock());                                                             \
    guarded(status, [&] { zqdebugserver::fillNames(target->state.field, list, status); });                  \
  }                                                                                                         \
  ZQDS_EXPORT void zqvorexDebugServer_set##Thing(zqvorexDebugServer_Target* target,                         \
                                                 const zqgopher_ArrayView* list, zqerr_Status* status) {    \
    guarded(status, [&] {                                                                                   \
      std::vector<std::string> names;                                                                       \
      if (!usable(target, status) || !zqdebugserver::readNames(list, names, status)) return;                \
      Guard guard(zqdebugserver::registryLock());                                                           \
      target->state.field = std::set<std::string>(names.begin(), names.end());                              \
    });                                                                                                     \
  }                                                                                                         \
  ZQDS_EXPORT void zqvorexDebugServer_add##Thing(zqvorexDebugServer_Target* target,                         \
                                                 const zqgopher_ArrayView* list, zqerr_Status* status) {    \
    guarded(status, [&] {                                                                                   \
      std::vector<std::string> names;                                                                       \
      if (!usable(target, status) || !zqdebugserver::readNames(list, names, status)) return;                \
      Guard guard(zqdebugserver::registryLock());                                                           \
      target->state.field.insert(names.begin(), names.end());                                               \
    });                                                                                                     \
  }                                                                                                         \
  ZQDS_EXPORT void zqvorexDebugServer_remove##Thing(zqvorexDebugServer_Target* target,                      \
                                                    const zqgopher_ArrayView* list, zqerr_Status* status) { \
    guarded(status, [&] {                                                                                   \
      std::vector<std::string> names;                                                                       \
      if (!usable(target, status) || !zqdebugserver::readNames(list, names, status)) return;                \
      Guard guard(zqdebugserver::registryLock());                                                           \
      for (const std::string& name : names) target->state.field.erase(name);                                \
    });                                                                                                     \
  }

ZQDS_NAME_SET(Devices, devices)
ZQDS_NAME_SET(PhysicalChannels, channels)

#define ZQDS_FLAG(op, bit)                                                             \
  ZQDS_EXPORT void zqvorexDebugServer_##op(zqvorexDebugServer_Target* target, bool on, \
                                           zqerr_Status* status) {                     \
    if (!usable(target, status)) return;                                               \
    Guard guard(zqdebugserver::registryLock());                                        \
    zqdebugserver::setFlag(target->state, bit, on);                                    \
  }

ZQDS_FLAG(setEventsEnabled, ZQDEBUGSERVER_TEST_EVENTS)
ZQDS_FLAG(setTimingSourcesEnabled, ZQDEBUGSERVER_TEST_TIMING_SOURCES)
ZQDS_FLAG(setLoggingEnabled, ZQDEBUGSERVER_TEST_LOGGING)
ZQDS_FLAG(revokeControl, ZQDEBUGSERVER_TEST_REVOKED)

// The value's meaning is the outside tool's; the server forgets every recorded sample.
ZQDS_EXPORT void zqvorexDebugServer_clearCachedSamples(zqvorexDebugServer_Target* target, uint32_t value,
                                                       zqerr_Status* status) {
  (void)value;
  if (!usable(target, status)) return;
  Guard guard(zqdebugserver::registryLock());
  target->state.batches.clear();
}

#define ZQDS_CACHE(op, index, size)                                                                       \
  ZQDS_EXPORT void zqvorexDebugServer_##op(                                                               \
      zqvorexDebugServer_Target* target, uint32_t channelKind, uint32_t formatCode,                       \
      const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                        \
      const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status) {                           \
    (void)layout;                                                                                         \
    if (!usable(target, status)) return;                                                                  \
    Guard guard(zqdebugserver::registryLock());                                                           \
    guarded(status, [&] {                                                                                 \
      zqdebugserver::recordArray(target->state, index, size, channelKind, formatCode, buffer, callerStatus, \
                                 count, status);                                                          \
    });                                                                                                   \
  }

ZQDS_CACHE(cacheSamplesF64, 0, 8)
ZQDS_CACHE(cacheSamplesI8, 1, 1)
ZQDS_CACHE(cacheSamplesI16, 2, 2)
ZQDS_CACHE(cacheSamplesI32, 3, 4)
ZQDS_CACHE(cacheSamplesU8, 4, 1)
ZQDS_CACHE(cacheSamplesU16, 5, 2)
ZQDS_CACHE(cacheSamplesU32, 6, 4)
ZQDS_CACHE(cacheSamplesCounterDutyCycleAndFrequencyF64, 7, 16)
ZQDS_CACHE(cacheSamplesCounterHighAndLowTimesF64, 8, 16)
ZQDS_CACHE(cacheSamplesCounterHighAndLowTicksU32, 9, 8)
ZQDS_CACHE(cacheSamplesPowerVoltageAndCurrentF64, 10, 16)
ZQDS_CACHE(cacheSamplesPowerVoltageAndCurrentI16, 11, 4)

ZQDS_EXPORT void zqvorexDebugServer_cacheSamplesLineU8(zqvorexDebugServer_Target* target,
                                                       uint32_t channelKind, uint32_t formatCode,
                                                       const zqgopher_IArrayLineBuffer* buffer,
                                                       const zqvorexPlugin_ReadLayout* layout,
                                                       const zqerr_Status* callerStatus, uint64_t count,
                                                       zqerr_Status* status) {
  (void)layout;
  if (!usable(target, status)) return;
  Guard guard(zqdebugserver::registryLock());
  guarded(status, [&] {
    zqdebugserver::recordLines(target->state, channelKind, formatCode, buffer, callerStatus, count, status);
  });
}
