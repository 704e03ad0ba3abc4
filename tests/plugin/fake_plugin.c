/* Compiled as C: the plug-in header must serve a C author as it stands. */
#include "fake_plugin.h"

#include <string.h>

#define FAKE_COUNT(result, operation, parameters) +1
_Static_assert(0 ZQVOREX_PLUGIN_OPERATIONS(FAKE_COUNT) == ZQVOREX_PLUGIN_OPERATION_COUNT,
               "the X-macro names every operation once");
_Static_assert(sizeof(zqvorexPlugin_AbsoluteTime) == 16, "an absolute time is 16 bytes");

/* The definitions must have exactly the table's types: a mismatch is an error here. */
static const zqvorexPlugin_readScaledVectorF64_fn kRead = fake_readScaledVectorF64;
static const zqvorexPlugin_configureTimeStartTrigger_fn kTrigger = fake_configureTimeStartTrigger;
static const zqvorexPlugin_registerDoneEvent_fn kRegister = fake_registerDoneEvent;
const void* const fake_typeChecks[] = {&kRead, &kTrigger, &kRegister};

fake_Record fake_last;
int fake_taskObject;

static void begin(const char* op, zqerr_Status* status) {
  memset(&fake_last, 0, sizeof fake_last);
  fake_last.op = op;
  fake_last.status = status;
}

uint32_t fake_readScaledVectorF64(zqvorexPlugin_Task_undefined* task, uint32_t channelKind,
                                  zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                                  int64_t numSampsPerChan, double timeout, void* reserved, zqerr_Status* status) {
  begin("readScaledVectorF64", status);
  fake_last.pointers[0] = task;
  fake_last.pointers[1] = buffer;
  fake_last.pointers[2] = layout;
  fake_last.pointers[3] = reserved;
  fake_last.integers[0] = channelKind;
  fake_last.integers[1] = numSampsPerChan;
  fake_last.reals[0] = timeout;
  return FAKE_READ_COUNT;
}

void fake_configureTimeStartTrigger(zqvorexPlugin_Task_undefined* task, zqvorexPlugin_AbsoluteTime timestamp,
                                    int32_t timescale, zqerr_Status* status) {
  begin("configureTimeStartTrigger", status);
  fake_last.pointers[0] = task;
  fake_last.time = timestamp;
  fake_last.integers[0] = timescale;
}

zqvorexPlugin_EventToken fake_registerDoneEvent(zqvorexPlugin_Task_undefined* task, bool direct,
                                                zqgopher_IEventDone* event, zqerr_Status* status) {
  begin("registerDoneEvent", status);
  fake_last.pointers[0] = task;
  fake_last.pointers[1] = event;
  fake_last.flag = direct;
  return FAKE_EVENT_TOKEN;
}
