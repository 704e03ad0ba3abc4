/* A plug-in library that exports three operations of the table and nothing else, written in C
 * against the public plug-in header. */
#include "native_export.h"
#include "zqvorex_plugin.h"

static int sampleContext;
/* In the library's own memory, so that a fresh load starts them anew. */
static uint32_t contextsMade, contextsLive;

ZQ_NATIVE_EXPORT zqvorexPlugin_Context_undefined* testplug_createContext(const char* contextName,
                                                                          zqerr_Status* status) {
  (void)status;
  if (!contextName || !contextName[0]) return 0;
  ++contextsMade;
  ++contextsLive;
  return (zqvorexPlugin_Context_undefined*)&sampleContext;
}

ZQ_NATIVE_EXPORT void testplug_destroyContext(zqvorexPlugin_Context_undefined* context, zqerr_Status* status) {
  if (context != (zqvorexPlugin_Context_undefined*)&sampleContext) {
    if (status && status->code == 0) status->code = -1;
    return;
  }
  --contextsLive;
}

/* Id 0 and 1 answer the contexts made and still alive; any other id the id plus one, so that a
 * test sees both directions of the call. */
ZQ_NATIVE_EXPORT uint32_t testplug_getTaskAttributeU32(zqvorexPlugin_Task_undefined* task, int32_t attributeId,
                                                       zqerr_Status* status) {
  (void)task;
  (void)status;
  if (attributeId == 0) return contextsMade;
  if (attributeId == 1) return contextsLive;
  return (uint32_t)attributeId + 1u;
}

/* Checked against the table's types when compiled. */
static const zqvorexPlugin_createContext_fn kCreateContext = testplug_createContext;
static const zqvorexPlugin_destroyContext_fn kDestroyContext = testplug_destroyContext;
static const zqvorexPlugin_getTaskAttributeU32_fn kGetU32 = testplug_getTaskAttributeU32;
const void* const testplug_typeChecks[] = {&kCreateContext, &kDestroyContext, &kGetU32};
