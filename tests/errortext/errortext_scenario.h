/* The C scenario's entry points, called by the test program. */
#ifndef ZQTEST_ERRORTEXT_SCENARIO_H
#define ZQTEST_ERRORTEXT_SCENARIO_H

#include "zqcai_rd_mbcs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The number of constants in the status table. */
int32 zqtestCountCodes(void);
/* The first code of the status table whose text is missing, empty or the substitute; 0 when
 * every code has its own. */
int32 zqtestFirstCodeWithoutText(const char* substitute);
/* A named accessor with a null task handle: -200230. */
int32 zqtestFailWithNullHandle(void);
/* VorexGetTaskName of a task named name into a 4-byte buffer; the thread's extended error text
 * is copied into text before the task is cleared. Gives the name call's code. */
int32 zqtestShortTaskNameBuffer(const char* name, char* text, uInt32 size);

#ifdef __cplusplus
}
#endif

#endif
