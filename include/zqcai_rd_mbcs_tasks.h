/* Tasks: make, load, run, stop, wait for and clear them. Included by zqcai_rd_mbcs.h.
 *
 * A task handle is valid from the return of VorexCreateTask or VorexLoadTask to the call of
 * VorexClearTask; the library does not look a handle up, so a handle must not be used after it
 * was cleared. What the library checks without a lookup: a null handle, and a handle whose
 * memory is zeroed, give -200088 or -200230 from every function; VorexClearTask alone looks the
 * handle up, so a second clear of a handle gives -200088 and leaves every other task alone.
 * Task names are unique in the process whatever their case. */
#ifndef ZQCAI_RD_MBCS_TASKS_H
#define ZQCAI_RD_MBCS_TASKS_H

/* Actions of VorexTaskControl. */
#define Vorex_Val_Task_Start 0
#define Vorex_Val_Task_Stop 1
#define Vorex_Val_Task_Verify 2
#define Vorex_Val_Task_Commit 3
#define Vorex_Val_Task_Reserve 4
#define Vorex_Val_Task_Unreserve 5
#define Vorex_Val_Task_Abort 6

/* A timeout that never runs out. */
#define Vorex_Val_WaitInfinitely (-1.0)

/* A null or blank name gets a generated one; blanks around a name are removed. */
int32 VorexCreateTask(const char* taskName, TaskHandle* taskHandle);
/* A task saved in storage, under its saved name. */
int32 VorexLoadTask(const char* taskName, TaskHandle* taskHandle);
/* Stops the task if it runs and ends it; a handle of 0 does nothing. */
int32 VorexClearTask(TaskHandle taskHandle);
int32 VorexTaskControl(TaskHandle taskHandle, int32 action);
int32 VorexStartTask(TaskHandle taskHandle);
int32 VorexStopTask(TaskHandle taskHandle);
int32 VorexWaitUntilTaskDone(TaskHandle taskHandle, float64 timeout);
int32 VorexIsTaskDone(TaskHandle taskHandle, bool32* isTaskDone);
/* Saved global channels, by a comma-separated list of their names. */
int32 VorexAddGlobalChansToTask(TaskHandle taskHandle, const char* channelNames);

#endif
