/* A plug-in library that exports nothing but task creation. */
#include "native_export.h"
#include "zqvorex_plugin.h"

static int onlyTask;

ZQ_NATIVE_EXPORT zqvorexPlugin_Task_undefined* zqtestOnlyCreateTask_createTask(
    zqvorexPlugin_Context_undefined* context, const char* taskName, const char* savedTaskName,
    const char* channelNames, uint32_t taskKind, zqerr_Status* status) {
  (void)context;
  (void)taskName;
  (void)savedTaskName;
  (void)channelNames;
  (void)taskKind;
  (void)status;
  return (zqvorexPlugin_Task_undefined*)&onlyTask;
}

static const zqvorexPlugin_createTask_fn kCreateTask = zqtestOnlyCreateTask_createTask;
const void* const zqtestOnlyCreateTask_typeChecks[] = {&kCreateTask};
