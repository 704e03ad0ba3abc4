/* A few plug-in operations written in C, as a plug-in author writes them, for the shapes of
 * argument and result that no plug-in of the other tests passes through the forwarders
 * (readScaledVectorF64, configureTimeStartTrigger, registerDoneEvent): each records its
 * arguments in fake_last and answers with a fixed result. */
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
  zqerr_Status* status;
} fake_Record;

extern fake_Record fake_last;

/* What the fakes return. */
extern int fake_taskObject;
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
