/* A plug-in library that serves watchdog tasks and nothing else: it records every call in a
 * log that the test reads through zqtestWatchdog_testLine, and fails the operation a test names. */
#include <stdio.h>
#include <string.h>

#include "native_export.h"
#include "zqvorex_plugin.h"

#define LOG_LINES 64
#define LINE_SIZE 160

static char logLines[LOG_LINES][LINE_SIZE];
static int logCount;
static char failingOperation[64];
static int32_t failingCode;
static int contextObject;
static int taskObject;

static void record(const char* line, const char* operation, zqerr_Status* status) {
  if (logCount < LOG_LINES) snprintf(logLines[logCount++], LINE_SIZE, "%s", line);
  if (failingCode != 0 && strcmp(operation, failingOperation) == 0 && status->code == 0) status->code = failingCode;
}

static void names(const zqgopher_ArrayView* channels, char* out, size_t size) {
  out[0] = '\0';
  for (uint64_t i = 0; channels && i < channels->count; ++i) {
    size_t used = strlen(out);
    snprintf(out + used, size - used, "%s%s", i ? "," : "", ((const char* const*)channels->data)[i]);
  }
}

ZQ_NATIVE_EXPORT zqvorexPlugin_Context_undefined* zqtestWatchdog_createContext(const char* contextName,
                                                                               zqerr_Status* status) {
  (void)contextName;
  (void)status;
  return (zqvorexPlugin_Context_undefined*)&contextObject;
}

ZQ_NATIVE_EXPORT void zqtestWatchdog_destroyContext(zqvorexPlugin_Context_undefined* context, zqerr_Status* status) {
  (void)context;
  (void)status;
}

ZQ_NATIVE_EXPORT zqvorexPlugin_Task_undefined* zqtestWatchdog_createWatchdogTimerTask(
    zqvorexPlugin_Context_undefined* context, const char* taskName, const char* deviceName, zqerr_Status* status) {
  char line[LINE_SIZE];
  (void)context;
  snprintf(line, sizeof line, "createWatchdogTimerTask:%s:%s", taskName, deviceName);
  record(line, "createWatchdogTimerTask", status);
  return status->code < 0 ? NULL : (zqvorexPlugin_Task_undefined*)&taskObject;
}

ZQ_NATIVE_EXPORT void zqtestWatchdog_destroyTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  (void)task;
  record("destroyTask", "destroyTask", status);
}

ZQ_NATIVE_EXPORT void zqtestWatchdog_setDeviceAttributeF64(zqvorexPlugin_Task_undefined* task,
                                                           const zqgopher_ArrayView* channels, int32_t attributeId,
                                                           double value, zqerr_Status* status) {
  char list[96], line[LINE_SIZE];
  (void)task;
  names(channels, list, sizeof list);
  snprintf(line, sizeof line, "setDeviceAttributeF64:%s:%d:%g", list, (int)attributeId, value);
  record(line, "setDeviceAttributeF64", status);
}

ZQ_NATIVE_EXPORT void zqtestWatchdog_setDeviceAttributeI32(zqvorexPlugin_Task_undefined* task,
                                                           const zqgopher_ArrayView* channels, int32_t attributeId,
                                                           int32_t value, zqerr_Status* status) {
  char list[96], line[LINE_SIZE];
  (void)task;
  names(channels, list, sizeof list);
  snprintf(line, sizeof line, "setDeviceAttributeI32:%s:%d:%d", list, (int)attributeId, (int)value);
  record(line, "setDeviceAttributeI32", status);
}

ZQ_NATIVE_EXPORT void zqtestWatchdog_controlWatchdogTask(zqvorexPlugin_Task_undefined* task, int32_t action,
                                                         zqerr_Status* status) {
  char line[LINE_SIZE];
  (void)task;
  snprintf(line, sizeof line, "controlWatchdogTask:%d", (int)action);
  record(line, "controlWatchdogTask", status);
}

/* The test's side: the log, line by line (null past its end), its clearing, and the failure of
 * one operation's every call from now on (code 0: none). */
ZQ_NATIVE_EXPORT const char* zqtestWatchdog_testLine(int index) {
  return index >= 0 && index < logCount ? logLines[index] : NULL;
}

ZQ_NATIVE_EXPORT void zqtestWatchdog_testClear(void) { logCount = 0; }

ZQ_NATIVE_EXPORT void zqtestWatchdog_testFail(const char* operation, int32_t code) {
  snprintf(failingOperation, sizeof failingOperation, "%s", operation);
  failingCode = code;
}

static const zqvorexPlugin_createWatchdogTimerTask_fn kCreate = zqtestWatchdog_createWatchdogTimerTask;
static const zqvorexPlugin_setDeviceAttributeF64_fn kSetF64 = zqtestWatchdog_setDeviceAttributeF64;
static const zqvorexPlugin_setDeviceAttributeI32_fn kSetI32 = zqtestWatchdog_setDeviceAttributeI32;
static const zqvorexPlugin_controlWatchdogTask_fn kControl = zqtestWatchdog_controlWatchdogTask;
const void* const zqtestWatchdog_typeChecks[] = {&kCreate, &kSetF64, &kSetI32, &kControl};
