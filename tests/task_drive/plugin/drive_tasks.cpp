// Contexts and tasks of zqtestDrive: plain records, counted while they live and logged when
// they end, so that a test sees which goes first.
#include "drive_state.h"
#include "native_export.h"

using namespace zqtestdrive;

extern "C" {

ZQ_NATIVE_EXPORT zqvorexPlugin_Context_undefined* zqtestDrive_createContext(const char* contextName,
                                                                            zqerr_Status* status) {
  if (!isOpen(status)) return nullptr;
  auto* context = new DriveContext{contextName ? contextName : ""};
  count(zqtestDrive_contextsLive);
  writeLog("createContext " + context->name);
  return reinterpret_cast<zqvorexPlugin_Context_undefined*>(context);
}

ZQ_NATIVE_EXPORT void zqtestDrive_destroyContext(zqvorexPlugin_Context_undefined* context, zqerr_Status*) {
  auto* record = reinterpret_cast<DriveContext*>(context);
  if (!record) return;
  writeLog("destroyContext " + record->name);
  count(zqtestDrive_contextsLive, -1);
  delete record;
}

ZQ_NATIVE_EXPORT zqvorexPlugin_Task_undefined* zqtestDrive_createTask(
    zqvorexPlugin_Context_undefined* context, const char* taskName, const char*, const char*, uint32_t,
    zqerr_Status* status) {
  if (!isOpen(status)) return nullptr;
  auto* task = new DriveTask;
  task->name = taskName ? taskName : "";
  task->context = reinterpret_cast<DriveContext*>(context);
  count(zqtestDrive_tasksLive);
  enterTask(task);
  writeLog("createTask " + task->name);
  return reinterpret_cast<zqvorexPlugin_Task_undefined*>(task);
}

ZQ_NATIVE_EXPORT void zqtestDrive_destroyTask(zqvorexPlugin_Task_undefined* task, zqerr_Status*) {
  DriveTask* record = asTask(task);
  if (!record) return;
  writeLog("destroyTask " + record->name);
  leaveTask(record);
  for (const DriveEvent& event : record->events) releaseEvent(event);
  count(zqtestDrive_tasksLive, -1);
  delete record;
}

ZQ_NATIVE_EXPORT uint32_t zqtestDrive_isTaskDone(zqvorexPlugin_Task_undefined*, zqerr_Status*) { return 1; }

}  // extern "C"

ZQTEST_DRIVE_OPERATION(createContext);
ZQTEST_DRIVE_OPERATION(destroyContext);
ZQTEST_DRIVE_OPERATION(createTask);
ZQTEST_DRIVE_OPERATION(destroyTask);
ZQTEST_DRIVE_OPERATION(isTaskDone);
