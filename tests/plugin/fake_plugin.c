/* Compiled as C: the plug-in header must serve a C author as it stands. */
#include "fake_plugin.h"

#include <string.h>

#define FAKE_COUNT(result, operation, parameters) +1
_Static_assert(0 ZQVOREX_PLUGIN_OPERATIONS(FAKE_COUNT) == ZQVOREX_PLUGIN_OPERATION_COUNT,
               "the X-macro names every operation once");
_Static_assert(ZQVOREX_PLUGIN_OPERATION_COUNT == 363, "the table has 363 operations");
_Static_assert(sizeof(zqvorexPlugin_AbsoluteTime) == 16, "an absolute time is 16 bytes");

/* The definitions must have exactly the table's types: a mismatch is an error here. */
static const zqvorexPlugin_autoCreateTask_fn kAutoCreateTask = fake_autoCreateTask;
static const zqvorexPlugin_getChannelAttributeF64_fn kGetF64 = fake_getChannelAttributeF64;
static const zqvorexPlugin_readScaledVectorF64_fn kRead = fake_readScaledVectorF64;
static const zqvorexPlugin_writeScalarCounterDutyCycleAndFrequencyF64_fn kWrite =
    fake_writeScalarCounterDutyCycleAndFrequencyF64;
static const zqvorexPlugin_configureTimeStartTrigger_fn kTrigger = fake_configureTimeStartTrigger;
static const zqvorexPlugin_registerDoneEvent_fn kRegister = fake_registerDoneEvent;
const void* const fake_typeChecks[] = {&kAutoCreateTask, &kGetF64, &kRead, &kWrite, &kTrigger, &kRegister};

fake_Record fake_last;
int fake_contextObject;
int fake_taskObject;

static void begin(const char* op, zqerr_Status* status) {
  memset(&fake_last, 0, sizeof fake_last);
  fake_last.op = op;
  fake_last.status = status;
}

zqvorexPlugin_Task_undefined* fake_autoCreateTask(zqvorexPlugin_Context_undefined* context, const char* channelNames,
                                                  bool flag, zqerr_Status* statusAgain, zqerr_Status* status) {
  begin("autoCreateTask", status);
  fake_last.pointers[0] = context;
  fake_last.pointers[1] = channelNames;
  fake_last.pointers[2] = statusAgain;
  fake_last.flag = flag;
  return (zqvorexPlugin_Task_undefined*)&fake_taskObject;
}

double fake_getChannelAttributeF64(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels,
                                   int32_t attributeId, zqerr_Status* status) {
  begin("getChannelAttributeF64", status);
  fake_last.pointers[0] = task;
  fake_last.pointers[1] = channels;
  fake_last.integers[0] = attributeId;
  return FAKE_CHANNEL_F64;
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

uint32_t fake_writeScalarCounterDutyCycleAndFrequencyF64(zqvorexPlugin_Task_undefined* task, uint32_t channelKind,
                                                         bool autoStart, double timeout,
                                                         zqvorexPlugin_DutyCycleAndFrequencyF64 value,
                                                         void* reserved, zqerr_Status* status) {
  begin("writeScalarCounterDutyCycleAndFrequencyF64", status);
  fake_last.pointers[0] = task;
  fake_last.pointers[1] = reserved;
  fake_last.integers[0] = channelKind;
  fake_last.flag = autoStart;
  fake_last.reals[0] = timeout;
  fake_last.pair = value;
  return 1;
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
