/* Saved tasks and global channels, and a task as INI text (docs/task-ini-format.md). Included by
 * zqcai_rd_mbcs.h. VorexLoadTask (zqcai_rd_mbcs_tasks.h) makes a task from a saved one.
 *
 * Saving is the plug-in's work: it writes into the storage library. Names lose blanks at both
 * ends; an author text is kept as it is. Bits 0 to 2 of options go to the plug-in as three flags,
 * the others are ignored. */
#ifndef ZQCAI_RD_MBCS_SAVED_TASKS_H
#define ZQCAI_RD_MBCS_SAVED_TASKS_H

/* A UTF-16 code unit, the same 16 bits on every system: char16_t in C++, uint16_t in C. */
#ifdef __cplusplus
typedef char16_t VorexUtf16Char;
#else
typedef uint16_t VorexUtf16Char;
#endif

int32 VorexSaveTask(TaskHandle taskHandle, const char* saveAs, const char* author, uInt32 options);
int32 VorexSaveGlobalChan(TaskHandle taskHandle, const char* channelName, const char* saveAs, const char* author,
                          uInt32 options);

/* The task that *taskHandle names as INI text, under the name taskName (empty: the task's own).
 * A null buffer or a bufferLength of 0 returns the length needed in UTF-16 units, terminator
 * included (0 for an empty text). A buffer too short for the text and its terminator gives
 * -200228 and stays untouched: the text is never cut. */
int32 VorexGetTaskAsINI(const VorexUtf16Char* taskName, TaskHandle* taskHandle, VorexUtf16Char* buffer,
                        uInt32 bufferLength);
/* A new task from INI text that describes exactly one task (else -224514, and no task is made),
 * named taskName, or a generated name when taskName is null or empty. */
int32 VorexCreateTaskFromINI(const VorexUtf16Char* taskName, const VorexUtf16Char* iniText,
                             TaskHandle* taskHandle);

#endif
