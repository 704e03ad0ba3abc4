/* Test-only exports of the companion debug server: they let a test play the outside tool that
 * takes control of a task, and read back what the server was told and handed. No real tool
 * calls them. */
#ifndef ZQVOREX_DEBUGSERVER_TEST_H
#define ZQVOREX_DEBUGSERVER_TEST_H

#include <stdint.h>

#include "zqvorex_debugserver.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Bits of zqvorexDebugServer_testOnly_targetFlags. */
#define ZQDEBUGSERVER_TEST_EVENTS 1u
#define ZQDEBUGSERVER_TEST_TIMING_SOURCES 2u
#define ZQDEBUGSERVER_TEST_LOGGING 4u
#define ZQDEBUGSERVER_TEST_REVOKED 8u

/* One hand-over of samples as the server recorded it. */
typedef struct zqvorexDebugServer_TestBatch {
  uint32_t operation; /* 0 for cacheSamplesF64 ... 12 for cacheSamplesLineU8, in table order */
  uint32_t channelKind;
  uint32_t formatCode;
  int32_t callerCode;
  uint64_t count;
  uint64_t byteCount; /* bytes of sample data kept */
} zqvorexDebugServer_TestBatch;

/* Test-only. From a thread of the server's own, and joined before returning: lock the task,
 * store both flags, unlock it. */
typedef void (*zqvorexDebugServer_testOnly_setFlags_fn)(zqvorexDebugServer_Target* target,
                                                        bool controlCheckPending, bool cacheSamples,
                                                        zqerr_Status* status);
/* Test-only. From a thread of the server's own: ask the task to abort its plug-in task. */
typedef void (*zqvorexDebugServer_testOnly_abortTask_fn)(zqvorexDebugServer_Target* target,
                                                         zqerr_Status* status);
/* Test-only. The ZQDEBUGSERVER_TEST_... bits that stand. */
typedef uint32_t (*zqvorexDebugServer_testOnly_targetFlags_fn)(zqvorexDebugServer_Target* target);
/* Test-only. Number of recorded hand-overs, then one of them: its record, and up to capacity
 * bytes of its samples. False for an index beyond the last. */
typedef uint64_t (*zqvorexDebugServer_testOnly_batchCount_fn)(zqvorexDebugServer_Target* target);
typedef bool (*zqvorexDebugServer_testOnly_batch_fn)(zqvorexDebugServer_Target* target, uint64_t index,
                                                     zqvorexDebugServer_TestBatch* batch, void* bytes,
                                                     uint64_t capacity);

#ifdef __cplusplus
}
#endif

#endif
