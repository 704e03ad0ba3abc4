/* A few plug-in operations written in C, as a plug-in author writes them, one for each shape of
 * argument and result: each records its arguments in fake_last and answers with a fixed result. */
#ifndef ZQ_TEST_FAKE_PLUGIN_H
#define ZQ_TEST_FAKE_PLUGIN_H

#include "zqvorex_plugin.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct fake_Record {
  const char* op;
  const void* pointers[4];
  int64_t integers[3];
  double reals[2];
  bool flag;
  zqvorexPlugin_AbsoluteTime time;
  zqvorexPlugin_DutyCycleAndFrequencyF64 pair;
  zqerr_Status* status;
} fake_Record;

extern fake_Record fake_last;

/* What the fakes return. */
extern int fake_contextObject;
extern int fake_taskObject;
#define FAKE_CHANNEL_F64 2.5
#define FAKE_READ_COUNT 7u
#define FAKE_EVENT_TOKEN 0x1234567890ull

zqvorexPlugin_Task_undefined* fake_autoCreateTask(zqvorexPlugin_Context_undefined* context, const char* channelNames,
                                                  bool flag, zqerr_Status* statusAgain, zqerr_Status* status);
double fake_getChannelAttributeF64(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels,
                                   int32_t attributeId, zqerr_Status* status);
uint32_t fake_readScaledVectorF64(zqvorexPlugin_Task_undefined* task, uint32_t channelKind,
                                  zqgopher_IArrayBuffer* buffer, const zqvorexPlugin_ReadLayout* layout,
                                  int64_t numSampsPerChan, double timeout, void* reserved, zqerr_Status* status);
uint32_t fake_writeScalarCounterDutyCycleAndFrequencyF64(zqvorexPlugin_Task_undefined* task, uint32_t channelKind,
                                                         bool autoStart, double timeout,
                                                         zqvorexPlugin_DutyCycleAndFrequencyF64 value,
                                                         void* reserved, zqerr_Status* status);
void fake_configureTimeStartTrigger(zqvorexPlugin_Task_undefined* task, zqvorexPlugin_AbsoluteTime timestamp,
                                    int32_t timescale, zqerr_Status* status);
zqvorexPlugin_EventToken fake_registerDoneEvent(zqvorexPlugin_Task_undefined* task, bool direct,
                                                zqgopher_IEventDone* event, zqerr_Status* status);

#ifdef __cplusplus
}
#endif

#endif
