/* A few plug-in operations written in C, as a plug-in author writes them, one for each shape of
 * argument and result (autoCreateTask, getChannelAttributeF64, readScaledVectorF64,
 * writeScalarCounterDutyCycleAndFrequencyF64, configureTimeStartTrigger, registerDoneEvent):
 * each records its arguments in fake_last and answers with a fixed result. */
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

/* Every operation declared by the author's pattern, with a prefix of our own; fake_plugin.c
 * defines the few above, and a definition of another type than the table's does not compile. */
#define FAKE_DECLARE(result, operation, parameters) result fake_##operation parameters;
ZQVOREX_PLUGIN_OPERATIONS(FAKE_DECLARE)
#undef FAKE_DECLARE

#ifdef __cplusplus
}
#endif

#endif
