/* The debug server boundary: what the library zqvorexDebugServer exports, and the table of
 * callbacks through which a debug target reaches back into its task.
 *
 * Each operation is exported as zqvorexDebugServer_<operation>; a server may export any subset,
 * and a missing one is reported to the caller as not in the library. Every operation takes the
 * caller's status last and does nothing when it already holds an error. Text is UTF-8; text
 * and lists coming out travel through the boundary objects, lists going in are views of text
 * pointers valid for the call.
 *
 * ZQVOREX_DEBUGSERVER_OPERATIONS(X) calls X(result, operation, (parameters), names...) once for
 * each operation in table order; the order is a binary contract. */
#ifndef ZQVOREX_DEBUGSERVER_H
#define ZQVOREX_DEBUGSERVER_H

#include <stdint.h>
#ifndef __cplusplus
#include <stdbool.h>
#endif

#include "zqgopher_boundary.h"
#include "zqvorex_plugin.h"
#include "zqvorex_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Handles made by the server; opaque to everyone else. */
typedef struct zqvorexDebugServer_Server zqvorexDebugServer_Server;
typedef struct zqvorexDebugServer_Target zqvorexDebugServer_Target;

/* The task's side of a target: a table of five functions and the task they act on. The
 * server calls them from a thread of its own, and keeps the pointer for the target's life. */
typedef struct zqvorexDebugServer_Callbacks zqvorexDebugServer_Callbacks;
typedef struct zqvorexDebugServer_CallbacksTable {
  void (*lockTask)(const zqvorexDebugServer_Callbacks* self, zqerr_Status* status);
  /* Runs whatever the status holds: every lock must be matched. */
  void (*unlockTask)(const zqvorexDebugServer_Callbacks* self, zqerr_Status* status);
  void (*abortTask)(const zqvorexDebugServer_Callbacks* self, zqerr_Status* status);
  void (*setControlCheckPending)(const zqvorexDebugServer_Callbacks* self, bool pending,
                                 zqerr_Status* status);
  void (*setCacheSamples)(const zqvorexDebugServer_Callbacks* self, bool cache, zqerr_Status* status);
} zqvorexDebugServer_CallbacksTable;

struct zqvorexDebugServer_Callbacks {
  const zqvorexDebugServer_CallbacksTable* table;
  void* task;
};

/* X(result, operation, (parameters), argument names...) for each operation in table order. */
#define ZQVOREX_DEBUGSERVER_OPERATIONS(X)                                                                    \
  X(zqvorexDebugServer_Server*, createDebugServer,                                                           \
    (uint32_t privilegeLevel, const char* name, zqerr_Status* status), privilegeLevel, name, status)         \
  X(void, destroyDebugServer, (zqvorexDebugServer_Server * server, zqerr_Status * status), server, status)   \
  X(uint32_t, getMaxPrivilegeLevel, (zqvorexDebugServer_Server * server, zqerr_Status * status), server,     \
    status)                                                                                                  \
  X(void, getPipeName, (zqvorexDebugServer_Server * server, zqgopher_IString * name, zqerr_Status * status), \
    server, name, status)                                                                                    \
  X(zqvorexDebugServer_Target*, createDebugTarget,                                                           \
    (zqvorexDebugServer_Server * server, const char* taskName,                                               \
     const zqvorexDebugServer_Callbacks* callbacks, zqerr_Status* status),                                   \
    server, taskName, callbacks, status)                                                                     \
  X(void, destroyDebugTarget, (zqvorexDebugServer_Target * target, zqerr_Status * status), target, status)   \
  X(void, getTaskName, (zqvorexDebugServer_Target * target, zqgopher_IString * name, zqerr_Status * status), \
    target, name, status)                                                                                    \
  X(void, getPluginName,                                                                                     \
    (zqvorexDebugServer_Target * target, zqgopher_IString * name, zqerr_Status * status), target, name,      \
    status)                                                                                                  \
  X(void, setPluginName, (zqvorexDebugServer_Target * target, const char* name, zqerr_Status* status),       \
    target, name, status)                                                                                    \
  X(zqvorexPlugin_Task_undefined*, getPluginTask,                                                            \
    (zqvorexDebugServer_Target * target, zqerr_Status * status), target, status)                             \
  X(void, setPluginTask,                                                                                     \
    (zqvorexDebugServer_Target * target, zqvorexPlugin_Task_undefined * pluginTask, zqerr_Status * status),  \
    target, pluginTask, status)                                                                              \
  X(void, getDevices,                                                                                        \
    (zqvorexDebugServer_Target * target, zqgopher_IItemAdder * list, zqerr_Status * status), target, list,   \
    status)                                                                                                  \
  X(void, setDevices,                                                                                        \
    (zqvorexDebugServer_Target * target, const zqgopher_ArrayView* list, zqerr_Status* status), target,      \
    list, status)                                                                                            \
  X(void, addDevices,                                                                                        \
    (zqvorexDebugServer_Target * target, const zqgopher_ArrayView* list, zqerr_Status* status), target,      \
    list, status)                                                                                            \
  X(void, removeDevices,                                                                                     \
    (zqvorexDebugServer_Target * target, const zqgopher_ArrayView* list, zqerr_Status* status), target,      \
    list, status)                                                                                            \
  X(void, getPhysicalChannels,                                                                               \
    (zqvorexDebugServer_Target * target, zqgopher_IItemAdder * list, zqerr_Status * status), target, list,   \
    status)                                                                                                  \
  X(void, setPhysicalChannels,                                                                               \
    (zqvorexDebugServer_Target * target, const zqgopher_ArrayView* list, zqerr_Status* status), target,      \
    list, status)                                                                                            \
  X(void, addPhysicalChannels,                                                                               \
    (zqvorexDebugServer_Target * target, const zqgopher_ArrayView* list, zqerr_Status* status), target,      \
    list, status)                                                                                            \
  X(void, removePhysicalChannels,                                                                            \
    (zqvorexDebugServer_Target * target, const zqgopher_ArrayView* list, zqerr_Status* status), target,      \
    list, status)                                                                                            \
  X(void, setEventsEnabled, (zqvorexDebugServer_Target * target, bool enabled, zqerr_Status* status),        \
    target, enabled, status)                                                                                 \
  X(void, setTimingSourcesEnabled, (zqvorexDebugServer_Target * target, bool enabled, zqerr_Status* status), \
    target, enabled, status)                                                                                 \
  X(void, setLoggingEnabled, (zqvorexDebugServer_Target * target, bool enabled, zqerr_Status* status),       \
    target, enabled, status)                                                                                 \
  X(void, revokeControl, (zqvorexDebugServer_Target * target, bool revoke, zqerr_Status* status), target,    \
    revoke, status)                                                                                          \
  X(void, clearCachedSamples, (zqvorexDebugServer_Target * target, uint32_t value, zqerr_Status * status),   \
    target, value, status)                                                                                   \
  X(void, cacheSamplesF64,                                                                                   \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesI8,                                                                                    \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesI16,                                                                                   \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesI32,                                                                                   \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesU8,                                                                                    \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesU16,                                                                                   \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesU32,                                                                                   \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesCounterDutyCycleAndFrequencyF64,                                                       \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesCounterHighAndLowTimesF64,                                                             \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesCounterHighAndLowTicksU32,                                                             \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesPowerVoltageAndCurrentF64,                                                             \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesPowerVoltageAndCurrentI16,                                                             \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                            \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)                            \
  X(void, cacheSamplesLineU8,                                                                                \
    (zqvorexDebugServer_Target * target, uint32_t channelKind, uint32_t formatCode,                          \
     const zqgopher_IArrayLineBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,                        \
     const zqerr_Status* callerStatus, uint64_t count, zqerr_Status* status),                                \
    target, channelKind, formatCode, buffer, layout, callerStatus, count, status)

/* One function-pointer type for each operation: zqvorexDebugServer_<operation>_fn. */
#define ZQVOREX_DEBUGSERVER_FN_TYPE(result, operation, parameters, ...) \
  typedef result(*zqvorexDebugServer_##operation##_fn) parameters;
ZQVOREX_DEBUGSERVER_OPERATIONS(ZQVOREX_DEBUGSERVER_FN_TYPE)
#undef ZQVOREX_DEBUGSERVER_FN_TYPE

#define ZQVOREX_DEBUGSERVER_OPERATION_COUNT 37

#ifdef __cplusplus
}
#endif

#endif
